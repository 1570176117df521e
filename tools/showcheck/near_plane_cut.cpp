#include "tools/showcheck/near_plane_cut.h"

#include "tools/showcheck/seen_rows.h"

#include <algorithm>

namespace tools::showcheck {

NearPlaneCut measureNearPlane(picture::Size size, std::span<const std::uint16_t> depths)
{
    const SeenRows rows = seenRows(size);
    const std::uint32_t height = rows.end - rows.first;
    const std::uint32_t above = height / 3; // the middle, and as much below it
    const std::uint32_t beside = size.width / 3;
    const std::uint32_t middleHeight = height - 2 * above;
    const std::uint32_t middleWidth = size.width - 2 * beside;
    std::uint32_t whole = 0;
    std::uint32_t middle = 0;
    for (std::uint32_t y = 0; y < height; ++y) {
        const auto row = depths.subspan(std::size_t{rows.first + y} * size.width, size.width);
        whole += static_cast<std::uint32_t>(std::count(row.begin(), row.end(), 0));
        if (y >= above && y < above + middleHeight) {
            const auto part = row.subspan(beside, middleWidth);
            middle += static_cast<std::uint32_t>(std::count(part.begin(), part.end(), 0));
        }
    }
    const double seen = static_cast<double>(height) * size.width;
    const double seenInTheMiddle = static_cast<double>(middleHeight) * middleWidth;
    return {whole / seen, middle / seenInTheMiddle};
}

void judgeNearPlane(const NearPlaneCut& cut, const Place& place, Findings& findings,
                    const NearPlaneLimits& limits)
{
    findings.add(Check::NearPlane, place, 100.0 * cut.whole, 100.0 * limits.mostOfWhole);
    findings.add(Check::NearPlaneInTheMiddle, place, 100.0 * cut.middle, 100.0 * limits.mostOfMiddle);
}

} // namespace tools::showcheck
