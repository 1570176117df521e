#include "tools/showcheck/flashes.h"

#include "tools/common/error.h"

#include <fmt/format.h>

namespace tools::showcheck {

namespace {

std::vector<std::string> filterCommand(const video::VideoFormat& format)
{
    return {"ffmpeg",
            "-nostdin",
            "-hide_banner",
            "-v",
            "error", // what comes in:
            "-f",
            "rawvideo",
            "-pixel_format",
            "rgb24",
            "-video_size",
            fmt::format("{}x{}", format.size.width, format.size.height),
            "-framerate",
            std::to_string(format.fps),
            "-i",
            "pipe:0",
            "-vf",
            fmt::format("photosensitivity=frames={}:threshold={}:bypass=1,metadata=print:file=-", format.fps,
                        24.0 / format.fps),
            "-f",
            "null",
            "-"};
}

} // namespace

FlashMeter::FlashMeter(const video::VideoFormat& format)
    : ffmpeg(filterCommand(format), video::ChildProcess::Input::Pipe),
      framesASecond(static_cast<std::size_t>(format.fps))
{
}

void FlashMeter::add(std::span<const std::uint8_t> pixels)
{
    if (count == 0) { // for the filter all begins in the dark
        for (std::size_t i = 0; i < framesASecond; ++i) {
            send(pixels);
        }
    }
    send(pixels);
    ++count;
}

void FlashMeter::send(std::span<const std::uint8_t> pixels)
{
    if (!ffmpeg.write(pixels)) {
        throw Error("ffmpeg", video::lastLine(ffmpeg.finish().errors));
    }
}

std::vector<double> FlashMeter::finish()
{
    const video::ChildProcess::Result result = ffmpeg.finish();
    if (result.status != 0) {
        throw Error("ffmpeg", video::lastLine(result.errors));
    }
    std::vector<double> all = readBadness(result.output);
    const std::size_t leadIn = count == 0 ? 0 : framesASecond;
    if (all.size() != count + leadIn) {
        throw Error("ffmpeg",
                    fmt::format("told the flashes of {} frames, expected {}", all.size(), count + leadIn));
    }
    all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(leadIn));
    return all;
}

std::vector<double> readBadness(std::string_view text)
{
    constexpr std::string_view key = "lavfi.photosensitivity.badness=";
    std::vector<double> figures;
    for (std::size_t at = text.find(key); at != std::string_view::npos; at = text.find(key, at)) {
        at += key.size();
        figures.push_back(std::stod(std::string(text.substr(at, text.find('\n', at) - at))));
    }
    return figures;
}

} // namespace tools::showcheck
