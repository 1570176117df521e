#pragma once

#include "tools/picture/rgb_image.h"

#include <cstdint>
#include <string>

/// A picture like those of the show: smooth colour with grain, black parts with hard edges, and very dark
/// texels.
tools::picture::RgbImage makePicture(tools::picture::Size size, unsigned seed);

/// How a PNG holds its colours, in the numbers of the format.
struct PngKind {
    std::uint8_t colorType;
    std::uint8_t bitDepth;
};
constexpr PngKind rgbPng = {2, 8};

/// A PNG file of `pixels` in that kind: rows from the top, as the kind lays them out. With a palette, 0 is
/// black and each further entry n is (n, 2n, 3n).
std::string encodePng(tools::picture::Size size, PngKind kind, const std::string& pixels);

/// A PNG file of the picture.
std::string encodePng(const tools::picture::RgbImage& image);
