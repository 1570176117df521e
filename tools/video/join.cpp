#include "tools/video/join.h"

#include "tools/common/atomic_file.h"
#include "tools/common/error.h"
#include "tools/video/child_process.h"
#include "tools/video/video_encoder.h"

#include <algorithm>
#include <fmt/format.h>
#include <fstream>

namespace tools::video {

namespace {

/// A line of the list that ffmpeg reads.
std::string listLine(const std::filesystem::path& file)
{
    std::string quoted;
    for (const char letter : std::filesystem::absolute(file).string()) {
        quoted += letter == '\'' ? "'\\''" : std::string(1, letter);
    }
    return "file '" + quoted + "'\n";
}

std::string framesText(std::int64_t first, std::int64_t end)
{
    return end - first == 1 ? fmt::format("frame {} is", first)
                            : fmt::format("frames {} to {} are", first, end - 1);
}

/// Throws unless both parts can be in one video.
void checkKind(const VideoPart& part, const VideoPart& other)
{
    const auto differ = [&](const std::string& what) {
        throw Error(part.file.string(), fmt::format("has {} than {}", what, other.file.string()));
    };
    if (part.tag.format.size != other.tag.format.size) {
        differ("another size");
    }
    if (part.tag.format.fps != other.tag.format.fps) {
        differ("another rate of frames");
    }
    if (part.tag.whole != other.tag.whole) {
        differ("another stretch of the show");
    }
    if (part.tag.assets != other.tag.assets) {
        differ("been drawn from other assets");
    }
    if (part.found.picture.setup != other.found.picture.setup) {
        differ("been encoded otherwise");
    }
}

} // namespace

MusicCut musicOf(const std::filesystem::path& music, FrameRange frames, int fps)
{
    return {music, sampleOfFrame(frames.first, fps, musicRate), sampleOfFrame(frames.end, fps, musicRate)};
}

VideoPart readPart(const std::filesystem::path& file)
{
    if (!std::filesystem::exists(file)) {
        throw Error(file.string(), "there is no such file");
    }
    VideoPart part{file, {}, probe(file)};
    const auto tag = readTag(part.found.comment);
    if (!tag || part.found.sound) {
        throw Error(file.string(), "is no part of a video; capture video --range makes them");
    }
    part.tag = *tag;
    checkVideo(part.found, file, tag->format, tag->frames.count(), false);
    return part;
}

std::vector<VideoPart> fitTogether(std::vector<VideoPart> parts)
{
    for (const VideoPart& part : parts) {
        checkKind(part, parts.front());
    }
    std::stable_sort(parts.begin(), parts.end(), [](const VideoPart& left, const VideoPart& right) {
        return left.tag.frames.first < right.tag.frames.first;
    });
    const FrameRange whole = parts.front().tag.whole;
    std::int64_t next = whole.first;
    const VideoPart* before = nullptr;
    for (const VideoPart& part : parts) {
        const FrameRange frames = part.tag.frames;
        if (frames.first < next) {
            throw Error(part.file.string(),
                        before == nullptr
                            ? "starts before the stretch that it is a part of"
                            : fmt::format("frame {} is in {} too", frames.first, before->file.string()));
        }
        if (frames.first > next) {
            throw Error(part.file.string(), framesText(next, frames.first) + " missing before it");
        }
        next = frames.end;
        before = &part;
    }
    if (next < whole.end) {
        throw Error(before->file.string(), framesText(next, whole.end) + " missing behind it");
    }
    return parts;
}

void joinFiles(const std::vector<std::filesystem::path>& files, const std::optional<MusicCut>& music, int fps,
               const std::string& comment, const std::filesystem::path& output)
{
    const AtomicFile list(output.string() + ".txt"); // never gets its name
    {
        std::ofstream stream(list.temporary());
        for (const std::filesystem::path& file : files) {
            stream << listLine(file);
        }
        if (!stream.flush()) {
            throw Error(output.string(), "cannot write: the list of its parts does not fit");
        }
    }
    std::vector<std::string> command = {
        "ffmpeg", "-nostdin", "-hide_banner", "-v", "error", "-y",
        "-f",     "concat",   "-safe",        "0",  "-i",    "file:" + list.temporary().string()};
    const auto add = [&](std::initializer_list<std::string> arguments) {
        command.insert(command.end(), arguments);
    };
    if (music) {
        add({"-i", "file:" + music->file.string()});
    }
    // Lengths of files are kept in microseconds: the times that come of that are a little off at each border.
    add({"-map", "0:v:0", "-c:v", "copy", "-bsf:v", fmt::format("setts=ts=N/{}/TB", fps)});
    if (music) {
        // Counted in samples, not in seconds, and filled up with silence to the last frame's end.
        add({"-map", "1:a:0", "-af",
             fmt::format("aresample={},atrim=start_sample={}:end_sample={},asetpts=N/SR/TB,apad=whole_len={}",
                         musicRate, music->first, music->end, music->end - music->first),
             "-c:a", "aac", "-b:a", "256k",
             // What of the sound is to be heard is told in these units: the usual milliseconds would cut it
             // short.
             "-movie_timescale", std::to_string(musicRate)});
    }
    add({"-map_metadata", "-1", "-metadata", "comment=" + comment, "-movflags", "+faststart", "-f", "mp4",
         output.string()});
    const ChildProcess::Result result = runProgram(command);
    if (result.status != 0) {
        throw Error("ffmpeg", lastLine(result.errors));
    }
}

} // namespace tools::video
