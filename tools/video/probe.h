#pragma once

#include "tools/video/frames.h"
#include "tools/video/video_format.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tools::video {

/// What ffprobe finds in a video file: its own counts, not what the file says of itself.
struct Probe {
    struct Picture {
        picture::Size size;
        std::int64_t ticksPerSecond;
        std::vector<std::int64_t> times; ///< of the frames, in ticks, in the order of the file
        std::string colours;             ///< "RANGE MATRIX TRANSFER PRIMARIES", in ffprobe's words
        std::string setup;               ///< a hash of what a decoder has to know
    };
    struct Sound {
        double start;    ///< in seconds, as all times
        double duration; ///< without what the encoder put before and behind
    };

    Picture picture;
    std::optional<Sound> sound;
    std::string comment;
};

/// Reads all packets of a file. Throws `Error` "FILE: no video: REASON" if there is no picture in it.
Probe probe(const std::filesystem::path& file);

/// Throws `Error` "FILE: ..." unless the file has the format, so many frames, frame i at i/fps, and, where
/// there is sound, that from the first frame to the end of the last one.
void checkVideo(const Probe& found, const std::filesystem::path& file, const VideoFormat& format,
                std::int64_t frames, bool withSound);

} // namespace tools::video
