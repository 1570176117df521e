#include "tools/video/video_tag.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <fmt/format.h>

namespace tools::video {

std::string writeTag(const VideoTag& tag)
{
    return fmt::format("vesperal: frames {} to {} of {} to {}, {} a second, {}x{}, assets {}, program {}",
                       tag.frames.first, tag.frames.end - 1, tag.whole.first, tag.whole.end - 1,
                       tag.format.fps, tag.format.size.width, tag.format.size.height, tag.assets,
                       tag.program);
}

std::optional<VideoTag> readTag(const std::string& text)
{
    VideoTag tag;
    std::array<char, 17> assets = {};
    std::array<char, 17> program = {};
    // What scanf lets pass, such as signs and spaces, does not come out again as it went in.
    const int fields =
        std::sscanf(text.c_str(),
                    "vesperal: frames %18" SCNd64 " to %18" SCNd64 " of %18" SCNd64 " to %18" SCNd64
                    ", %9d a second, %9ux%9u, assets %16[0-9a-f], program "
                    "%16[0-9a-f]",
                    &tag.frames.first, &tag.frames.end, &tag.whole.first, &tag.whole.end, &tag.format.fps,
                    &tag.format.size.width, &tag.format.size.height, assets.data(), program.data());
    ++tag.frames.end;
    ++tag.whole.end;
    tag.assets = assets.data();
    tag.program = program.data();
    const bool isWhole = fields == 9 && tag.assets.size() == 16 && tag.program.size() == 16;
    return isWhole && writeTag(tag) == text ? std::optional(tag) : std::nullopt;
}

} // namespace tools::video
