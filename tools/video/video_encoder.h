#pragma once

#include "tools/video/child_process.h"
#include "tools/video/video_format.h"

#include <array>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tools::video {

/// Makes an MP4 file without sound of frames that come one by one: H.264 by ffmpeg, with the colours of
/// BT.709, written down as such. The file stands alone, and begins with its first frame. Each group of
/// `groupLength` frames is encoded as if there was no other, so that it comes out the same wherever a file
/// begins.
///
/// A frame is 3 bytes a pixel, red first, in rows from the bottom, as OpenGL gives them. While one is filled,
/// those before it are on their way. Main thread only.
class VideoEncoder {
public:
    /// Starts ffmpeg; an existing file is overwritten. Throws `Error` "ffmpeg: ...".
    VideoEncoder(const VideoFormat& format, const std::filesystem::path& file, const std::string& comment);
    /// Ends ffmpeg, whose file is useless without `finish`.
    ~VideoEncoder();

    VideoEncoder(const VideoEncoder&) = delete;
    VideoEncoder& operator=(const VideoEncoder&) = delete;

    /// A frame to be filled, once one is free; it belongs to the encoder. Throws `Error` "ffmpeg: ..." once
    /// ffmpeg has given up, and `Cancelled`.
    std::vector<std::uint8_t>& frame();

    /// Sends off the frame that was filled last.
    void send();

    /// Waits until the file is written. Throws as `frame` does.
    void finish();

private:
    static constexpr std::size_t frameCount = 3; ///< one being filled, one sent, one between them

    void sendFrames();
    void stop();
    [[noreturn]] void fail();

    ChildProcess ffmpeg;
    std::array<std::vector<std::uint8_t>, frameCount> frames;
    std::size_t filling = 0;

    std::mutex mutex; ///< guards what follows
    std::condition_variable changed;
    std::deque<std::size_t> waiting; ///< frames to be sent
    std::deque<std::size_t> free;
    bool ended = false;  ///< no more frames come
    bool broken = false; ///< ffmpeg takes no more

    std::thread sender;
};

/// Frames from a key frame to the next, of which no decoder needs others: a second.
constexpr std::int64_t groupLength(int fps)
{
    return fps;
}

/// Throws `Error` "ffmpeg: is not installed; ..." unless ffmpeg and ffprobe are there.
void checkFfmpeg();

/// The arguments after ffmpeg's name that say what the output's colours are, whatever it is made from.
std::vector<std::string> colourArguments();

} // namespace tools::video
