#pragma once

#include <array>
#include <cstdint>

namespace tools::packer {

/// The 16 texels of a block, rows from the top: red, green, blue, and a byte that is 0 for pure black and 255
/// for any other colour.
using Texels = std::array<std::array<std::uint8_t, 4>, 16>;

/// A compressed block as it stands in the file.
///
/// `color0 > color1`: code 0 is color0, 1 color1, 2 a third and 3 two thirds of the way to color1.
/// `color0 <= color1`: code 2 is halfway, and 3 is black.
struct Dxt1Block {
    std::uint16_t color0; ///< 5 bits red, 6 green, 5 blue, red on top
    std::uint16_t color1;
    std::uint32_t codes; ///< 2 bits a texel, the first one lowest

    bool operator==(const Dxt1Block&) const = default;

    bool hasFourColors() const { return color0 > color1; }
    std::uint32_t code(std::size_t texel) const { return codes >> (2 * texel) & 3; }
};
static_assert(sizeof(Dxt1Block) == 8);

/// How a mix of two colours becomes a whole number. Drivers differ by this at most; the show's own reference
/// rounds down, and so do all errors that are measured here.
enum class Rounding { Down, Nearest };

/// The four colours of a block, by code.
using Palette = std::array<std::array<int, 3>, 4>;
Palette paletteOf(Dxt1Block block, Rounding rounding = Rounding::Down);

/// The texels that a block stands for; their fourth byte is as `Texels` says.
Texels decode(Dxt1Block block, Rounding rounding = Rounding::Down);

/// Sum over texels and channels of the squared differences between what a block stands for and `texels`.
std::uint32_t squaredError(Dxt1Block block, const Texels& texels);

} // namespace tools::packer
