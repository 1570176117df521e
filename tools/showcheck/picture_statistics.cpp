#include "tools/showcheck/picture_statistics.h"

#include "tools/showcheck/seen_rows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tools::showcheck {

namespace {

constexpr std::size_t blackBelow = 10; // luminance: the cleared frame has 3, the darkest wall of the room 20
constexpr std::size_t tones = 12;      // neighbouring luminances that look alike

/// How many pixels there are of each luminance.
using Histogram = std::array<std::uint32_t, 256>;

Histogram luminances(picture::Size size, std::span<const std::uint8_t> pixels)
{
    const SeenRows rows = seenRows(size);
    const std::size_t rowBytes = std::size_t{3} * size.width;
    Histogram histogram{};
    for (std::size_t i = rows.first * rowBytes; i < rows.end * rowBytes; i += 3) {
        // BT.709, in 256ths.
        ++histogram[(54U * pixels[i] + 183U * pixels[i + 1] + 19U * pixels[i + 2]) / 256];
    }
    return histogram;
}

double shareOf(std::uint32_t count, double total)
{
    return static_cast<double>(count) / total;
}

} // namespace

PictureStatistics measurePicture(picture::Size size, std::span<const std::uint8_t> pixels)
{
    const Histogram histogram = luminances(size, pixels);
    const auto* const begin = histogram.begin();
    const double total = std::accumulate(begin, histogram.end(), 0.0);
    PictureStatistics found;
    for (std::size_t i = 0; i < histogram.size(); ++i) {
        found.mean += static_cast<double>(i) * shareOf(histogram[i], total);
    }
    double variance = 0.0;
    for (std::size_t i = 0; i < histogram.size(); ++i) {
        const double difference = static_cast<double>(i) - found.mean;
        variance += difference * difference * shareOf(histogram[i], total);
    }
    found.deviation = std::sqrt(variance);
    found.black = shareOf(std::accumulate(begin, begin + blackBelow, 0U), total);
    for (const auto* i = begin; i + tones <= histogram.end(); ++i) {
        found.commonestTone =
            std::max(found.commonestTone, shareOf(std::accumulate(i, i + tones, 0U), total));
    }
    return found;
}

void judgePicture(const PictureStatistics& picture, const Place& place, Findings& findings,
                  const PictureLimits& limits)
{
    findings.add(Check::Brightness, place, picture.mean, limits.leastMean);
    findings.add(Check::Black, place, 100.0 * picture.black, 100.0 * limits.mostBlack);
    findings.add(Check::Contrast, place, picture.deviation, limits.leastDeviation);
    findings.add(Check::OneTone, place, 100.0 * picture.commonestTone, 100.0 * limits.mostOfOneTone);
}

} // namespace tools::showcheck
