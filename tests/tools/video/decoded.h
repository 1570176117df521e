#pragma once

#include "tools/picture/rgb_image.h"

#include <cstdint>
#include <string>
#include <vector>

/// The frames of a video as a player shows them: at their times, so that one that came late would leave the
/// one before it standing in its place. `options` go before what ffmpeg is to write.
std::vector<tools::picture::RgbImage> decodeFrames(const std::string& file, tools::picture::Size size,
                                                   int fps, const std::string& options = "");

/// The left channel of its sound, at 44100 samples a second from the picture's start on, with silence where
/// there is none yet.
std::vector<std::int16_t> decodeSound(const std::string& file);

/// Where the sample of the largest amount is.
std::int64_t loudestSample(const std::vector<std::int16_t>& samples);

/// The mean difference of the channels of two pictures, in levels of 255.
double meanDifference(const tools::picture::RgbImage& left, const tools::picture::RgbImage& right);

/// Writes an Ogg file of silence, `seconds` long, with a click at each of these samples.
void writeClicks(const std::string& file, double seconds, const std::vector<int>& samples);
