#pragma once

#include "tools/picture/rgb_image.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// How far a picture may be from the one it is compared with, and still count as the same. Software
/// rasterisers round as the processor does that they run on; what someone could see goes beyond.
struct Tolerance {
    int step = 2;         ///< of 255: what a channel may differ by
    double share = 0.001; ///< of the pixels, that may differ by more
    int most = 25;        ///< of 255, a tenth: what none may differ by from all that is around it
};

/// What two pictures of one size differ by.
struct Comparison {
    std::size_t pixels = 0;
    std::size_t beyond = 0; ///< pixels with a channel that differs by more than the tolerance's step
    /// How far a channel lies outside of what the other picture has in this pixel and the eight around it, of
    /// 255. Rounding moves an edge over the middle of a pixel here and there, and then that pixel has the
    /// colour from the other side of the edge.
    int worst = 0;
    std::uint32_t worstX = 0; ///< the first pixel with it, from the left
    std::uint32_t worstY = 0; ///< and from the top

    bool isSame(const Tolerance& tolerance = {}) const;

    /// "312 of 129600 pixels differ by more than 2/255, the worst by 87/255 at 240,135".
    std::string text(const Tolerance& tolerance = {}) const;
};

/// Throws `tools::Error` "the picture: is 480x270, expected 960x540" if the sizes differ.
Comparison compare(const tools::picture::RgbImage& picture, const tools::picture::RgbImage& golden,
                   const Tolerance& tolerance = {});

/// Where and how much they differ: each channel's difference, eight times as strong. The sizes are equal.
tools::picture::RgbImage differencePicture(const tools::picture::RgbImage& picture,
                                           const tools::picture::RgbImage& golden);
