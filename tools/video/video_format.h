#pragma once

#include "tools/picture/rgb_image.h"

namespace tools::video {

/// What all parts of a video have in common.
struct VideoFormat {
    picture::Size size = {1920, 1080}; ///< in pixels, both even
    int fps = 60;                      ///< frames a second, 24 to 120

    bool operator==(const VideoFormat&) const = default;
};

} // namespace tools::video
