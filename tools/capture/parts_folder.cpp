#include "tools/capture/parts_folder.h"

#include "tools/common/atomic_file.h"
#include "tools/common/error.h"
#include "tools/video/join.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

namespace tools::capture {

PartsFolder::PartsFolder(const std::filesystem::path& video)
    : folder(std::filesystem::absolute(video.string() + ".parts"))
{
    const std::string name = video.string() + ".parts";
    try {
        makeFolder(folder);
    } catch (const Error& error) {
        throw Error(name, "cannot make the folder: there is a file of that name, or no right to");
    }
    lock = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (lock == -1 || flock(lock, LOCK_EX | LOCK_NB) == -1) {
        if (lock != -1) {
            close(lock);
        }
        throw Error(name, "another capture is at work in it");
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename().string().starts_with(AtomicFile::temporaryPrefix)) {
            std::filesystem::remove(entry.path());
        }
    }
}

PartsFolder::~PartsFolder()
{
    rmdir(folder.c_str()); // fails unless it is empty
    close(lock);
}

std::filesystem::path PartsFolder::fileOf(video::FrameRange frames) const
{
    return folder / fmt::format("{:06}-{:06}.mp4", frames.first, frames.end - 1);
}

bool PartsFolder::holds(const video::VideoTag& tag) const
{
    const std::filesystem::path file = fileOf(tag.frames);
    if (!std::filesystem::exists(file)) {
        return false;
    }
    try {
        return video::readPart(file).tag == tag;
    } catch (const Error&) {
        return false;
    }
}

void PartsFolder::remove()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

} // namespace tools::capture
