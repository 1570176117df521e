#pragma once

#include <cstdint>
#include <vector>

namespace tools::picture {

/// Width and height in texels.
struct Size {
    std::uint32_t width;
    std::uint32_t height;

    bool operator==(const Size&) const = default;
};

/// A picture of 3 bytes a texel, red first, rows from the top, without gaps.
struct RgbImage {
    Size size;
    std::vector<std::uint8_t> pixels;
};

} // namespace tools::picture
