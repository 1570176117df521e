#include "tools/common/atomic_file.h"

#include "tools/common/error.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace tools {

namespace {

/// A name that no other file in the folder has, nor another thread or process takes.
std::filesystem::path asideOf(const std::filesystem::path& path)
{
    static std::atomic<unsigned> count = 0;
    // Not the full name: one of 255 characters leaves no room for more.
    return path.parent_path() / (".new-" + std::to_string(getpid()) + "-" + std::to_string(count++));
}

bool writeAll(int file, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count == -1 && errno == EINTR) {
            continue;
        }
        if (count == -1) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

[[noreturn]] void fail(const std::filesystem::path& path, int code)
{
    throw Error(path.string(), std::string("cannot write: ") + std::strerror(code));
}

} // namespace

AtomicFile::AtomicFile(std::filesystem::path target, std::string_view bytes)
    : path(std::move(target)), aside(asideOf(path))
{
    const int file = open(aside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file == -1) {
        fail(path, errno);
    }
    const bool written = writeAll(file, bytes);
    int code = errno;
    const bool closed = close(file) == 0;
    if (written && closed) {
        return;
    }
    if (written) {
        code = errno;
    }
    unlink(aside.c_str()); // the destructor does not run
    fail(path, code);
}

AtomicFile::~AtomicFile()
{
    if (!aside.empty()) {
        unlink(aside.c_str());
    }
}

AtomicFile::AtomicFile(AtomicFile&& other) noexcept
    : path(std::move(other.path)), aside(std::exchange(other.aside, {}))
{
}

void AtomicFile::commit()
{
    if (rename(aside.c_str(), path.c_str()) == -1) {
        fail(path, errno);
    }
    aside.clear();
}

void makeFolder(const std::filesystem::path& path)
{
    std::error_code code;
    std::filesystem::create_directories(path, code);
    if (code) {
        throw Error(path.string(), "cannot make the folder: " + code.message());
    }
}

} // namespace tools
