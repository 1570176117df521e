#pragma once

#include "tools/video/video_tag.h"

#include <filesystem>

namespace tools::capture {

/// The folder VIDEO.parts, where the finished pieces of a video wait for the others, so that work that was
/// broken off can be taken up again. One process at a time.
class PartsFolder {
public:
    /// Makes the folder, or opens the one that an earlier run left behind, and clears away what that was
    /// working on. Throws `Error` "FOLDER: ..." if that's not possible, or another process is at it.
    explicit PartsFolder(const std::filesystem::path& video);
    /// Leaves the folder, but for an empty one.
    ~PartsFolder();

    PartsFolder(const PartsFolder&) = delete;
    PartsFolder& operator=(const PartsFolder&) = delete;

    /// Where a piece is or will be, as an absolute path.
    std::filesystem::path fileOf(video::FrameRange frames) const;

    /// True if the piece is there, says that it is just that, and holds what it says.
    bool holds(const video::VideoTag& tag) const;

    /// Removes the folder with all pieces.
    void remove();

private:
    std::filesystem::path folder;
    int lock = -1;
};

} // namespace tools::capture
