#include "tools/video/new_file.h"

#include "tools/common/error.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <unistd.h>
#include <utility>

namespace tools::video {

namespace {

[[noreturn]] void fail(const std::filesystem::path& path, int code)
{
    throw Error(path.string(), std::string("cannot write: ") + std::strerror(code));
}

std::filesystem::path asideOf(const std::filesystem::path& target)
{
    static unsigned count = 0; // main thread only
    const std::string name = asidePrefix + std::to_string(getpid()) + "-v" + std::to_string(count++);
    return std::filesystem::absolute(target).parent_path() / (name + target.extension().string());
}

} // namespace

NewFile::NewFile(std::filesystem::path target) : target(std::move(target)), asidePath(asideOf(this->target))
{
    if (std::filesystem::is_directory(this->target)) {
        fail(this->target, EISDIR);
    }
    const int file = open(asidePath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file == -1) {
        fail(this->target, errno);
    }
    close(file);
}

NewFile::~NewFile()
{
    if (!asidePath.empty()) {
        unlink(asidePath.c_str());
    }
}

void NewFile::commit()
{
    if (rename(asidePath.c_str(), target.c_str()) == -1) {
        fail(target, errno);
    }
    asidePath.clear();
}

} // namespace tools::video
