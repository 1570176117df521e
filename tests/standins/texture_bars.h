#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace standins {

/// A colour of 8 bits a channel, of which a file keeps the upper 5, 6 and 5.
struct Color {
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

/// A rectangle in one colour. Its edges count from the top left, in 60ths of the picture both ways, and fall
/// on the nearest block of 4x4 texels.
struct Bar {
    int left;
    int top;
    int right;
    int bottom;
    Color color;
};

/// A texture of the show, roughly: NAME.dds.
struct TextureBars {
    std::string_view name;
    Color ground;
    std::span<const Bar> bars; ///< a later one lies over an earlier one
};

/// A row for each texture that the show has.
std::span<const TextureBars> standInTextures();

/// The row of `name`, null if the show has no such texture.
const TextureBars* findTextureBars(std::string_view name);

} // namespace standins
