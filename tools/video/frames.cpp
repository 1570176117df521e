#include "tools/video/frames.h"

#include "sync/tools.h"
#include "tools/common/error.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <optional>
#include <string_view>

namespace tools::video {

namespace {

constexpr int slowest = 24;
constexpr int fastest = 120;

/// All of `text` as digits; nothing if it is anything else.
std::optional<int> readWhole(std::string_view text)
{
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, code] = std::from_chars(text.data(), end, number);
    if (code != std::errc() || stop != end) {
        return std::nullopt;
    }
    return number;
}

} // namespace

double timeOfFrame(std::int64_t frame, int fps)
{
    return static_cast<double>(frame) / fps;
}

std::int64_t firstFrameOfRow(std::int32_t row, int fps)
{
    auto frame = static_cast<std::int64_t>(row / timeToRow(1.0) * fps);
    while (frame > 0 && timeToRow(timeOfFrame(frame - 1, fps)) >= row) {
        --frame;
    }
    while (timeToRow(timeOfFrame(frame, fps)) < row) {
        ++frame;
    }
    return frame;
}

std::int64_t sampleOfFrame(std::int64_t frame, int fps, int sampleRate)
{
    return (2 * frame * sampleRate + fps) / (2 * std::int64_t{fps}); // rounded
}

FrameRange shareOf(FrameRange whole, Share share, std::int64_t unit)
{
    if (share.of > whole.count()) {
        throw Error(fmt::format("--range {}/{}", share.number, share.of),
                    fmt::format("there are only {} frames", whole.count()));
    }
    const std::int64_t step = share.of <= whole.count() / unit ? unit : 1;
    const std::int64_t steps = (whole.count() + step - 1) / step;
    const auto border = [&](int number) {
        return std::min(whole.first + steps * number / share.of * step, whole.end);
    };
    return {border(share.number - 1), border(share.number)};
}

std::vector<FrameRange> piecesOf(FrameRange whole, std::int64_t length)
{
    std::vector<FrameRange> pieces;
    for (std::int64_t first = whole.first; first < whole.end; first += length) {
        pieces.push_back({first, std::min(first + length, whole.end)});
    }
    return pieces;
}

std::vector<std::int64_t> spreadOver(FrameRange range, std::int64_t count)
{
    const std::int64_t most = std::min(count, range.count());
    std::vector<std::int64_t> frames;
    for (std::int64_t i = 0; i < most; ++i) {
        frames.push_back(range.first + (2 * i + 1) * range.count() / (2 * most));
    }
    return frames;
}

Share parseShare(const std::string& text)
{
    const std::size_t slash = text.find('/');
    if (slash != std::string::npos) {
        const auto number = readWhole(std::string_view(text).substr(0, slash));
        const auto of = readWhole(std::string_view(text).substr(slash + 1));
        if (number && of && *number >= 1 && *number <= *of) {
            return {*number, *of};
        }
    }
    throw Error("--range " + text, "expected N/M, as 2/8, with N from 1 to M");
}

int parseFps(const std::string& text)
{
    const auto fps = readWhole(text);
    if (!fps || *fps < slowest || *fps > fastest) {
        throw Error("--fps " + text, fmt::format("expected a whole number from {} to {}", slowest, fastest));
    }
    return *fps;
}

void checkVideoSize(picture::Size size)
{
    if (size.width % 2 != 0 || size.height % 2 != 0) {
        throw Error(fmt::format("--size {}x{}", size.width, size.height),
                    "a video has even sides, as a sample of its colour covers 2x2 pixels");
    }
}

} // namespace tools::video
