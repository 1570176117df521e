#pragma once

#include "tools/picture/rgb_image.h"
#include "tools/showcheck/findings.h"

#include <cstdint>
#include <span>

namespace tools::showcheck {

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
