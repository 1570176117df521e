#pragma once

#include "tools/packer/dxt1_block.h"
#include "tools/picture/rgb_image.h"

#include <cstdint>
#include <string>

namespace tools::packer {

/// How much time goes into an encoding.
enum class Effort {
    Quick, ///< the fast fit alone
    Best,  ///< and a search for the blocks that come out worst
};

/// Raised whenever encoded bytes change, so that no cache holds on to old ones.
constexpr std::uint32_t encoderVersion = 1;

/// A picture in DXT1.
struct Dxt1Image {
    std::string blocks;         ///< 8 bytes each, rows of blocks from the top
    std::uint64_t squaredError; ///< over all texels and channels, decoded with `Rounding::Down`
};

/// Compresses a picture whose width and height are multiples of 4, on `threads` threads; their number does
/// not show in the result. Exact black stays exact: see `withExactBlack`.
Dxt1Image encodeDxt1(const picture::RgbImage& image, Effort effort, unsigned threads);

/// Peak signal-to-noise ratio in decibels of a picture of that size; infinite without any error.
double peakSignalToNoise(std::uint64_t squaredError, picture::Size size);

} // namespace tools::packer
