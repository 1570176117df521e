#pragma once

#include "tools/picture/rgb_image.h"

#include <cstdint>
#include <string_view>

namespace tools::capture {

constexpr std::uint32_t glyphWidth = 6; ///< with the gap to the next one
constexpr std::uint32_t glyphHeight = 7;

/// Writes a line of text into the picture, white, `scale` pixels for each dot, its top left corner at `x`,
/// `y`. What reaches beyond `right`, or the picture, is cut off. Knows digits, letters, which all come out as
/// capitals, and
/// ".:-"; anything else is a gap.
void drawText(picture::RgbImage& image, std::string_view text, std::uint32_t x, std::uint32_t y,
              std::uint32_t right, std::uint32_t scale);

} // namespace tools::capture
