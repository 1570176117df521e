#pragma once

#include "tools/picture/rgb_image.h"
#include "tools/showcheck/findings.h"

#include <cstdint>
#include <span>

namespace tools::showcheck {

/// What of a picture would tell that nothing is on it. Luminance is that of the coded values, 0 to 255.
struct PictureStatistics {
    double mean = 0.0;          ///< luminance
    double black = 0.0;         ///< share of pixels below a luminance of 10, 0 to 1
    double deviation = 0.0;     ///< standard deviation of luminance
    double commonestTone = 0.0; ///< largest share of pixels within any 12 neighbouring luminances, 0 to 1
};

/// Measures what the bars leave free of a picture: 3 bytes a pixel, red first, in rows from either end.
PictureStatistics measurePicture(picture::Size size, std::span<const std::uint8_t> pixels);

/// What pictures have to keep to.
struct PictureLimits {
    double leastMean = 30.0;
    double mostBlack = 0.3;
    double leastDeviation = 12.0;
    double mostOfOneTone = 0.6;
};

void judgePicture(const PictureStatistics& picture, const Place& place, Findings& findings,
                  const PictureLimits& limits = {});

} // namespace tools::showcheck
