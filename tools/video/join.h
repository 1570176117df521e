#pragma once

#include "tools/video/probe.h"
#include "tools/video/video_tag.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tools::video {

/// What of a piece of music belongs to a video, in samples of `musicRate`. Behind its end it is silence.
struct MusicCut {
    std::filesystem::path file;
    std::int64_t first;
    std::int64_t end;
};

constexpr int musicRate = 44100; ///< samples a second

/// What of the show's music belongs to these frames.
MusicCut musicOf(const std::filesystem::path& music, FrameRange frames, int fps);

/// A video file, and what was found in it.
struct VideoPart {
    std::filesystem::path file;
    VideoTag tag;
    Probe found;
};

/// Reads a file that a capture wrote. Throws `Error` "FILE: ..." for any other, for one with sound, and for
/// one that does not hold what it says.
VideoPart readPart(const std::filesystem::path& file);

/// The parts in the order of their frames. Throws `Error` with the files and the reason unless they are of
/// one kind, and together just what they are parts of.
std::vector<VideoPart> fitTogether(std::vector<VideoPart> parts);

/// Writes the pictures of the files one after the other, as they are, at `fps` a second, and the music to
/// them if there is any. Throws `Error` "ffmpeg: ...", and `Cancelled`.
void joinFiles(const std::vector<std::filesystem::path>& files, const std::optional<MusicCut>& music, int fps,
               const std::string& comment, const std::filesystem::path& output);

} // namespace tools::video
