#include "tools/video/video_encoder.h"

#include "tools/common/error.h"
#include "tools/video/cancel_signals.h"

#include <fmt/format.h>

namespace tools::video {

namespace {

// A frame of 1920x1080 takes 0.2 to 0.5 s of processor time to be drawn without a GPU, and 0.018 s to be
// handed over, turned into BT.709 and encoded with this. The next slower preset takes 0.024 s for files of
// the same size.
constexpr const char* preset = "ultrafast";

// Where flat colours come back within a level of what 8 bits of BT.709 can say.
constexpr const char* quality = "16";

// Without these words the matrix is that of BT.601, under any tag. Turning the picture over costs nothing.
constexpr const char* filters =
    "vflip,scale=in_range=pc:out_color_matrix=bt709:out_range=tv:flags=bilinear+accurate_rnd,format=yuv420p";

std::vector<std::string> encodeCommand(const VideoFormat& format, const std::filesystem::path& file,
                                       const std::string& comment)
{
    std::vector<std::string> command = {
        "ffmpeg", "-nostdin", "-hide_banner", "-v", "error", "-y", // what comes in:
        "-f", "rawvideo", "-pixel_format", "rgb24", "-video_size",
        fmt::format("{}x{}", format.size.width, format.size.height), "-framerate", std::to_string(format.fps),
        "-r", std::to_string(format.fps), // or 119 is taken for 120
        "-i", "pipe:0", "-vf", filters,
        // A frame tells of none behind it: each has the time of its packet. Quantisers are neither evened out
        // nor finer in key frames, which the first one would not be: so no group learns from those before it.
        "-c:v", "libx264", "-preset", preset, "-crf", quality, "-bf", "0", "-x264-params",
        fmt::format("qcomp=1:ipratio=1:keyint={0}:min-keyint={0}:scenecut=0", groupLength(format.fps))};
    for (const std::string& argument : colourArguments()) {
        command.push_back(argument);
    }
    for (const std::string& argument : {std::string("-metadata"), "comment=" + comment, std::string("-f"),
                                        std::string("mp4"), file.string()})
    {
        command.push_back(argument);
    }
    return command;
}

} // namespace

VideoEncoder::VideoEncoder(const VideoFormat& format, const std::filesystem::path& file,
                           const std::string& comment)
    : ffmpeg(encodeCommand(format, file, comment), ChildProcess::Input::Pipe)
{
    for (std::size_t i = 0; i < frameCount; ++i) {
        frames[i].resize(std::size_t{3} * format.size.width * format.size.height);
        free.push_back(i);
    }
    sender = std::thread([this] { sendFrames(); });
}

VideoEncoder::~VideoEncoder()
{
    if (sender.joinable()) {
        ffmpeg.kill();
        stop();
    }
}

std::vector<std::uint8_t>& VideoEncoder::frame()
{
    std::unique_lock lock(mutex);
    while (!broken && free.empty()) {
        changed.wait_for(lock, std::chrono::milliseconds(100));
        CancelSignals::check();
    }
    if (broken) {
        lock.unlock();
        fail();
    }
    filling = free.front();
    free.pop_front();
    return frames[filling];
}

void VideoEncoder::send()
{
    const std::lock_guard lock(mutex);
    waiting.push_back(filling);
    changed.notify_all();
}

void VideoEncoder::finish()
{
    stop();
    if (broken) { // no other thread is left
        fail();
    }
    const ChildProcess::Result result = ffmpeg.finish();
    if (result.status != 0) {
        throw Error("ffmpeg", lastLine(result.errors));
    }
}

void VideoEncoder::sendFrames()
{
    for (;;) {
        std::size_t next = 0;
        {
            std::unique_lock lock(mutex);
            changed.wait(lock, [this] { return ended || !waiting.empty(); });
            if (waiting.empty()) {
                return;
            }
            next = waiting.front();
            waiting.pop_front();
        }
        const bool taken = ffmpeg.write(frames[next]);
        const std::lock_guard lock(mutex);
        free.push_back(next);
        broken = broken || !taken;
        changed.notify_all();
        if (broken) {
            return;
        }
    }
}

void VideoEncoder::stop()
{
    {
        const std::lock_guard lock(mutex);
        ended = true;
        changed.notify_all();
    }
    if (sender.joinable()) {
        sender.join();
    }
}

void VideoEncoder::fail()
{
    stop();
    throw Error("ffmpeg", lastLine(ffmpeg.finish().errors));
}

void checkFfmpeg()
{
    for (const char* const program : {"ffmpeg", "ffprobe"}) {
        try {
            runProgram({program, "-version"});
        } catch (const Error&) {
            throw Error(program, "is not installed; on Debian 'apt install ffmpeg' does that");
        }
    }
}

std::vector<std::string> colourArguments()
{
    return {"-color_range", "tv", "-colorspace", "bt709", "-color_primaries", "bt709", "-color_trc", "bt709"};
}

} // namespace tools::video
