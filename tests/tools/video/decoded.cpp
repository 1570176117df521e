#include "tests/tools/video/decoded.h"

#include "tests/support/run_tool.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fmt/format.h>
#include <gtest/gtest.h>

namespace {

std::string outputOf(const std::string& commandLine)
{
    const ToolResult result = runTool(commandLine);
    EXPECT_EQ(result.status, 0) << commandLine << "\n" << result.error;
    return result.output;
}

} // namespace

std::vector<tools::picture::RgbImage> decodeFrames(const std::string& file, tools::picture::Size size,
                                                   int fps, const std::string& options)
{
    const std::string bytes =
        outputOf(fmt::format("ffmpeg -v error -nostdin -i {} -map 0:v {} -fps_mode cfr -r {} -f rawvideo "
                             "-pix_fmt rgb24 -",
                             file, options, fps));
    const std::size_t length = std::size_t{3} * size.width * size.height;
    EXPECT_EQ(bytes.size() % length, 0U);
    std::vector<tools::picture::RgbImage> frames;
    for (std::size_t at = 0; at + length <= bytes.size(); at += length) {
        frames.push_back({size,
                          {bytes.begin() + static_cast<std::ptrdiff_t>(at),
                           bytes.begin() + static_cast<std::ptrdiff_t>(at + length)}});
    }
    return frames;
}

std::vector<std::int16_t> decodeSound(const std::string& file)
{
    const std::string bytes = outputOf("ffmpeg -v error -nostdin -i " + file +
                                       " -map 0:a -af aresample=44100:async=1:first_pts=0,pan='mono|c0=c0'"
                                       " -f s16le -");
    std::vector<std::int16_t> samples(bytes.size() / 2);
    std::memcpy(samples.data(), bytes.data(), 2 * samples.size());
    return samples;
}

std::int64_t loudestSample(const std::vector<std::int16_t>& samples)
{
    const auto found = std::max_element(samples.begin(), samples.end(),
                                        [](int left, int right) { return std::abs(left) < std::abs(right); });
    return found - samples.begin();
}

double meanDifference(const tools::picture::RgbImage& left, const tools::picture::RgbImage& right)
{
    EXPECT_EQ(left.pixels.size(), right.pixels.size());
    double sum = 0.0;
    for (std::size_t i = 0; i < left.pixels.size(); ++i) {
        sum += std::abs(left.pixels[i] - right.pixels[i]);
    }
    return sum / static_cast<double>(left.pixels.size());
}

void writeClicks(const std::string& file, double seconds, const std::vector<int>& samples)
{
    std::string clicks = "0";
    for (const int sample : samples) {
        clicks += fmt::format("+eq(n,{})", sample);
    }
    outputOf(
        fmt::format("ffmpeg -v error -nostdin -y -f lavfi -i \"aevalsrc='0.9*({0})|0.9*({0})':s=44100:d={1}\""
                    " -c:a libvorbis -q:a 8 {2}",
                    clicks, seconds, file));
}
