#pragma once

#include "tools/picture/rgb_image.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tools::video {

/// Frames of the show from `first` up to but without `end`. They count from the start of the show, whatever
/// is filmed of it: frame i stands at i/fps seconds.
struct FrameRange {
    std::int64_t first = 0;
    std::int64_t end = 0;

    std::int64_t count() const { return end - first; }
    bool operator==(const FrameRange&) const = default;
};

/// One of several equal shares; `number` counts from 1.
struct Share {
    int number = 1;
    int of = 1;
};

/// The frame's position in the music, in seconds.
double timeOfFrame(std::int64_t frame, int fps);

/// The first frame that stands at or behind a row of the timeline, by the show's own reckoning.
std::int64_t firstFrameOfRow(std::int32_t row, int fps);

/// The sample of the music, of so many a second, that a frame starts with.
std::int64_t sampleOfFrame(std::int64_t frame, int fps, int sampleRate);

/// The frames of a share. The shares follow one another without gap. Each starts a multiple of `unit` frames
/// behind the first one, and they differ by a unit at most; by a frame, where there are fewer units than
/// shares. Throws `Error` "--range N/M: ..." if there are more shares than frames.
FrameRange shareOf(FrameRange whole, Share share, std::int64_t unit);

/// The range in pieces of `length` frames, the last one shorter.
std::vector<FrameRange> piecesOf(FrameRange whole, std::int64_t length);

/// At most `count` frames, evenly spread over the range, none twice.
std::vector<std::int64_t> spreadOver(FrameRange range, std::int64_t count);

/// Reads N/M. Throws `Error` "--range TEXT: expected N/M, as 2/8, with N from 1 to M".
Share parseShare(const std::string& text);

/// Reads a rate of frames. Throws `Error` "--fps TEXT: expected a whole number from 24 to 120".
int parseFps(const std::string& text);

/// Throws `Error` "--size WxH: ..." unless both sides are even, as players want them.
void checkVideoSize(picture::Size size);

} // namespace tools::video
