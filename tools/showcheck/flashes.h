#pragma once

#include "tools/showcheck/findings.h"
#include "tools/video/child_process.h"
#include "tools/video/video_format.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tools::showcheck {

/// Measures how much a run of frames flashes, with ffmpeg's filter "photosensitivity".
class FlashMeter {
public:
    /// For frames of that size and rate. Throws `Error` "ffmpeg: cannot run: REASON".
    explicit FlashMeter(const video::VideoFormat& format);

    /// Takes a frame: 3 bytes a pixel, red first, in rows from either end. Throws `Error` with what ffmpeg
    /// says if it takes no more.
    void add(std::span<const std::uint8_t> pixels);

    /// The badness of the second that ends with each frame: what changed in it, in regions of the picture; at
    /// 24 frames a second the filter by itself softens what is above 1. Before the first frame that one stood
    /// still. Once only. Throws `Error` with what ffmpeg says.
    std::vector<double> finish();

private:
    void send(std::span<const std::uint8_t> pixels);

    video::ChildProcess ffmpeg;
    std::size_t framesASecond;
    std::size_t count = 0; ///< of frames
};

/// The figures in what the filter says of its frames.
std::vector<double> readBadness(std::string_view text);

/// What a second may come to. A cut from black to white comes to 4, three flashes a second between two greys
/// a fifth of the range apart to 3.1, three between greys a tenth apart to 1.4.
constexpr double mostBadness = 3.0;

} // namespace tools::showcheck
