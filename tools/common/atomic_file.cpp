#include "tools/common/atomic_file.h"

#include "tools/common/error.h"

#include <atomic>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace tools {

namespace {

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

AtomicFile::AtomicFile(std::filesystem::path target, std::string_view bytes) : target(std::move(target))
{
    const int file = createTemporary({});
    int code = writeAll(file, bytes) ? 0 : errno;
    if (close(file) == -1 && code == 0) {
        code = errno;
    }
    if (code != 0) {
        unlink(temporaryPath.c_str()); // the destructor does not run
        fail(this->target, code);
    }
}

AtomicFile::AtomicFile(std::filesystem::path target) : target(std::move(target))
{
    close(createTemporary(this->target.extension()));
}

AtomicFile::~AtomicFile()
{
    if (!temporaryPath.empty()) {
        unlink(temporaryPath.c_str());
    }
}

AtomicFile::AtomicFile(AtomicFile&& other) noexcept
    : target(std::move(other.target)), temporaryPath(std::exchange(other.temporaryPath, {}))
{
}

void AtomicFile::commit()
{
    if (rename(temporaryPath.c_str(), target.c_str()) == -1) {
        fail(target, errno);
    }
    temporaryPath.clear();
}

/// Makes the temporary file, of a name that no other in the folder has, nor another thread or process takes.
int AtomicFile::createTemporary(const std::filesystem::path& ending)
{
    static std::atomic<unsigned> count = 0;
    std::error_code ignored; // which opening the file will run into too
    if (std::filesystem::is_directory(target, ignored)) {
        fail(target, EISDIR); // now, as renaming would after the work
    }
    int file = -1;
    do {
        // Not the full name: one of 255 characters leaves no room for more.
        const std::string name = fmt::format("{}{}-{}", temporaryPrefix, getpid(), count++);
        temporaryPath = std::filesystem::absolute(target.parent_path() / name);
        temporaryPath += ending;
        file = open(temporaryPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (file == -1 && errno == EEXIST); // left behind by a process that was killed
    if (file == -1) {
        fail(target, errno);
    }
    return file;
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
