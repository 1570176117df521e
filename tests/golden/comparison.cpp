#include "tests/golden/comparison.h"

#include "tools/common/error.h"

#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>

namespace {

constexpr int gain = 8; // what the eye needs to find a difference of a few steps

/// How far a channel of a picture lies outside of the golden one's range around it.
int outside(const tools::picture::RgbImage& picture, const tools::picture::RgbImage& golden, std::size_t x,
            std::size_t y, std::size_t channel)
{
    const std::size_t width = golden.size.width;
    const std::size_t height = golden.size.height;
    int low = 255;
    int high = 0;
    for (std::size_t row = y - std::min<std::size_t>(y, 1); row <= std::min(y + 1, height - 1); ++row) {
        for (std::size_t column = x - std::min<std::size_t>(x, 1); column <= std::min(x + 1, width - 1);
             ++column) {
            const int level = golden.pixels[3 * (row * width + column) + channel];
            low = std::min(low, level);
            high = std::max(high, level);
        }
    }
    const int level = picture.pixels[3 * (y * width + x) + channel];
    return std::max({low - level, level - high, 0});
}

} // namespace

bool Comparison::isSame(const Tolerance& tolerance) const
{
    return worst <= tolerance.most &&
           static_cast<double>(beyond) <= tolerance.share * static_cast<double>(pixels);
}

std::string Comparison::text(const Tolerance& tolerance) const
{
    return fmt::format("{} of {} pixels differ by more than {}/255, the worst by {}/255 at {},{}", beyond,
                       pixels, tolerance.step, worst, worstX, worstY);
}

Comparison compare(const tools::picture::RgbImage& picture, const tools::picture::RgbImage& golden,
                   const Tolerance& tolerance)
{
    if (picture.size != golden.size) {
        throw tools::Error("the picture",
                           fmt::format("is {}x{}, expected {}x{}", picture.size.width, picture.size.height,
                                       golden.size.width, golden.size.height));
    }
    Comparison found;
    found.pixels = picture.pixels.size() / 3;
    for (std::size_t pixel = 0; pixel < found.pixels; ++pixel) {
        const std::size_t x = pixel % picture.size.width;
        const std::size_t y = pixel / picture.size.width;
        int difference = 0;
        int farthest = 0;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const std::size_t i = 3 * pixel + channel;
            const int here = std::abs(picture.pixels[i] - golden.pixels[i]);
            difference = std::max(difference, here);
            if (here > found.worst) { // what lies outside of the range differs here by as much at least
                farthest = std::max(farthest, outside(picture, golden, x, y, channel));
            }
        }
        found.beyond += difference > tolerance.step ? 1 : 0;
        if (farthest > found.worst) {
            found.worst = farthest;
            found.worstX = static_cast<std::uint32_t>(x);
            found.worstY = static_cast<std::uint32_t>(y);
        }
    }
    return found;
}

tools::picture::RgbImage differencePicture(const tools::picture::RgbImage& picture,
                                           const tools::picture::RgbImage& golden)
{
    tools::picture::RgbImage difference = picture;
    for (std::size_t i = 0; i < difference.pixels.size(); ++i) {
        difference.pixels[i] =
            static_cast<std::uint8_t>(std::min(gain * std::abs(picture.pixels[i] - golden.pixels[i]), 255));
    }
    return difference;
}
