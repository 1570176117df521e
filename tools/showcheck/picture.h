#pragma once

#include "tools/picture/rgb_image.h"
#include "tools/showcheck/findings.h"

#include <cstdint>
#include <span>

namespace tools::showcheck {

/// Rows of pixels of a picture of that size that the bars above and below leave free, at 64:27. They are the
/// same counted from above and from below.
struct SeenRows {
    std::uint32_t first;
    std::uint32_t end;
};
SeenRows seenRows(picture::Size size);

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

/// How much of a picture lies nearer than the near plane.
struct NearPlaneCut {
    double whole = 0.0;  ///< share of what the bars leave free, 0 to 1
    double middle = 0.0; ///< of its middle ninth
};

/// Measures depths in which all that the near plane would cut off stands at 0: one a pixel, in rows from
/// either end.
NearPlaneCut measureNearPlane(picture::Size size, std::span<const std::uint16_t> depths);

/// How much may be cut open: less than a viewer notices at the edge of the picture, nothing in the middle.
struct NearPlaneLimits {
    double mostOfWhole = 0.0005;
    double mostOfMiddle = 0.0;
};

void judgeNearPlane(const NearPlaneCut& cut, const Place& place, Findings& findings,
                    const NearPlaneLimits& limits = {});

} // namespace tools::showcheck
