#pragma once

#include "tools/video/frames.h"
#include "tools/video/video_format.h"

#include <optional>
#include <string>

namespace tools::video {

/// What a video file of the show says of itself, in its comment: enough to tell whether it fits another.
struct VideoTag {
    VideoFormat format;
    FrameRange frames;
    FrameRange whole;    ///< that the frames are a part of
    std::string assets;  ///< a fingerprint of what the frames were drawn from
    std::string program; ///< and of what drew them

    bool operator==(const VideoTag&) const = default;
};

/// "vesperal: frames FIRST to LAST of FIRST to LAST, FPS a second, WIDTHxHEIGHT, assets HEX, program HEX".
std::string writeTag(const VideoTag& tag);

/// Reads what `writeTag` wrote; nothing for any other text.
std::optional<VideoTag> readTag(const std::string& text);

} // namespace tools::video
