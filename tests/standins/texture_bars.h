#pragma once

#include "scenes/catalogue.h"

#include <cstdint>
#include <span>

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

/// A texture of the show, roughly.
struct TextureBars {
    Color ground;
    std::span<const Bar> bars; ///< a later one lies over an earlier one
};

/// What all textures of a kind show. Each has greys, and on pure black what is all but black; none is the
/// same upside down or from behind.
TextureBars barsOf(catalogue::TextureKind kind);

} // namespace standins
