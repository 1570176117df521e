#include "tools/capture/film.h"

#include "scenes/catalogue.h"
#include "sync/tools.h"
#include "tools/capture/parts_folder.h"
#include "tools/common/error.h"
#include "tools/common/quiet_output.h"
#include "tools/common/read_file.h"
#include "tools/stage/hidden_window.h"
#include "tools/stage/progress.h"
#include "tools/stage/stage.h"
#include "tools/stage/stage_folder.h"
#include "tools/timeline/bar_position.h"
#include "tools/video/cancel_signals.h"
#include "tools/video/join.h"
#include "tools/video/new_file.h"
#include "tools/video/probe.h"
#include "tools/video/video_encoder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fmt/format.h>
#include <numeric>
#include <set>
#include <string>

namespace tools::capture {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int pieceGroups = 10;   // of frames, a second each: what a cancelled run loses at most
constexpr int longestShow = 3600; // seconds

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void checkOutput(const FilmOptions& options)
{
    const fs::path& output = options.output;
    if (output.extension() != ".mp4") {
        throw Error(output.string(), "expected a name that ends in .mp4");
    }
    if (output.has_parent_path() && !fs::is_directory(output.parent_path())) {
        throw Error(output.string(), "cannot write: there is no such folder");
    }
    if (fs::exists(output) && !options.overwrite) {
        throw Error(output.string(), "is there already; --overwrite replaces it");
    }
    const video::NewFile trial(output); // before hours are spent on it
}

fs::path musicIn(const fs::path& assets)
{
    fs::path music = assets / "house99.ogg";
    if (!fs::exists(music)) {
        throw Error(music.string(), "there is no such file");
    }
    return music;
}

std::string fingerprintOf(const fs::path& assets)
{
    if (!fs::is_directory(assets)) {
        throw Error(assets.string(), "no folder of assets is here; --assets names another");
    }
    std::set<fs::path> files;
    for (const auto& entry : fs::directory_iterator(assets)) {
        if (entry.is_regular_file()) {
            files.insert(entry.path());
        }
    }
    video::Fingerprint fingerprint;
    for (const fs::path& file : files) {
        fingerprint.add(file.filename().string());
        fingerprint.add(readFile(file));
    }
    return fingerprint.text();
}

std::string fingerprintOfProgram()
{
    video::Fingerprint fingerprint;
    fingerprint.add(readFile("/proc/self/exe"));
    return fingerprint.text();
}

/// The first frame in which the show is over.
std::int64_t endOfShow(const stage::Stage& stage, int fps)
{
    for (std::int64_t frame = 0; frame < std::int64_t{longestShow} * fps; ++frame) {
        if (stage.sceneAt(video::timeOfFrame(frame, fps)) == catalogue::endOfShow) {
            return frame;
        }
    }
    throw Error("capture video", "the track scene ends the show nowhere; --to says where the video ends");
}

video::FrameRange framesOf(const FilmOptions& options, const stage::Stage& stage)
{
    const int fps = options.format.fps;
    const std::int64_t first = video::firstFrameOfRow(options.fromRow, fps);
    if (!options.toRow) {
        const std::int64_t end = endOfShow(stage, fps);
        if (first >= end) {
            throw Error("--from " + timeline::barPosition(options.fromRow), "the show is over there");
        }
        return {first, end};
    }
    const std::int64_t end = video::firstFrameOfRow(*options.toRow, fps);
    if (first >= end) {
        throw Error("--to " + timeline::barPosition(*options.toRow),
                    "no frame lies between --from " + timeline::barPosition(options.fromRow) + " and there");
    }
    if (stage.sceneAt(video::timeOfFrame(end - 1, fps)) == catalogue::endOfShow) {
        throw Error("--to " + timeline::barPosition(*options.toRow), "the show is over before");
    }
    return {first, end};
}

/// Draws frames, and knows what that took.
class Camera {
public:
    Camera(stage::Stage& stage, stage::HiddenWindow& window, const video::VideoFormat& format)
        : stage(stage), window(window), format(format)
    {
    }

    /// Makes a piece of a video, with `progress` told of each frame.
    void film(const video::VideoTag& tag, const fs::path& target, stage::Progress& progress)
    {
        prepare(tag.frames);
        std::vector<double> took; // seconds from a frame to the next
        const Clock::time_point start = Clock::now();
        video::NewFile file(target);
        video::VideoEncoder encoder(format, file.aside(), video::writeTag(tag));
        Clock::time_point last = Clock::now();
        for (std::int64_t frame = tag.frames.first; frame < tag.frames.end; ++frame) {
            video::CancelSignals::check();
            show(frame);
            window.readRows(encoder.frame());
            encoder.send();
            progress.step();
            took.push_back(secondsSince(last));
            last = Clock::now();
        }
        encoder.finish();
        video::checkVideo(video::probe(file.aside()), target, format, tag.frames.count(), false);
        file.commit();
        frames += tag.frames.count();
        seconds += secondsSince(start);
        drawSomeAlone(tag.frames, took);
    }

    /// What the video cost beside its frames, in one line. Nothing if none was drawn.
    void tellSpeed() const
    {
        if (frames == 0) {
            return;
        }
        const double speed = static_cast<double>(frames) / seconds;
        const double share = secondsAlone / seconds;
        fmt::print(
            stderr,
            "{} frames drawn and encoded at {:.3g} frames/s; drawing alone reaches {:.3g} frames/s, judged "
            "by {} of them: {:.0f} % of the bare speed\n",
            frames, speed, speed / share, samples, 100.0 * share);
    }

private:
    /// Makes the scenes of these frames, so that it does not count as drawing.
    void prepare(video::FrameRange range)
    {
        for (std::int64_t frame = range.first; frame < range.end; ++frame) {
            stage.prepare(stage.sceneAt(video::timeOfFrame(frame, format.fps)));
        }
    }

    void show(std::int64_t frame) const
    {
        const double time = video::timeOfFrame(frame, format.fps);
        stage.show(stage.sceneAt(time), time);
    }

    /// Draws some frames of a piece once more, now without an encoder, to judge what all would take so: at
    /// once, as machines have other work too. A few in a row, as the first after another is slower.
    void drawSomeAlone(video::FrameRange range, const std::vector<double>& took)
    {
        constexpr std::int64_t inARow = 4;
        constexpr std::int64_t framesForARow = 200; // 2 % of them are drawn twice
        double with = 0.0;
        double without = 0.0;
        for (const std::int64_t middle :
             video::spreadOver(range, std::max<std::int64_t>(range.count() / framesForARow, 2)))
        {
            const std::int64_t first = std::max(middle - inARow / 2, range.first);
            const std::int64_t end = std::min(first + inARow, range.end);
            for (std::int64_t frame = first; frame < end; ++frame) {
                video::CancelSignals::check();
                const Clock::time_point start = Clock::now();
                show(frame);
                window.renderer().finish();
                if (frame > first || end - first == 1) {
                    without += secondsSince(start);
                    with += took[static_cast<std::size_t>(frame - range.first)];
                    ++samples;
                }
            }
        }
        secondsAlone += std::accumulate(took.begin(), took.end(), 0.0) * without / with;
    }

    stage::Stage& stage;
    stage::HiddenWindow& window;
    video::VideoFormat format;
    std::int64_t frames = 0;   ///< of all pieces
    double seconds = 0.0;      ///< that they took
    double secondsAlone = 0.0; ///< that they would take without encoder, by the samples
    std::int64_t samples = 0;
};

/// Draws what the folder does not hold yet, and gives what is to be in the video, piece by piece.
std::vector<video::VideoTag> filmPieces(const FilmOptions& options, video::VideoTag tag,
                                        const PartsFolder& parts)
{
    const QuietOutput quiet;
    const stage::StageFolder folder(options.assets, {});
    stage::HiddenWindow window(options.format.size);
    stage::Stage stage(window, options.assets.string());
    tag.whole = framesOf(options, stage);
    const video::FrameRange share =
        options.share ? video::shareOf(tag.whole, *options.share, video::groupLength(options.format.fps))
                      : tag.whole;

    std::vector<video::VideoTag> pieces;
    std::vector<video::VideoTag> missing;
    std::int64_t done = 0;
    for (const video::FrameRange frames :
         video::piecesOf(share, pieceGroups * video::groupLength(options.format.fps)))
    {
        tag.frames = frames;
        pieces.push_back(tag);
        if (parts.holds(tag)) {
            done += frames.count();
        } else {
            missing.push_back(tag);
        }
    }
    if (done > 0) {
        fmt::print(stderr, "{} of {} frames are there from an earlier run\n", done, share.count());
    }
    Camera camera(stage, window, options.format);
    {
        stage::Progress progress(share.count(), done);
        for (const video::VideoTag& piece : missing) {
            camera.film(piece, parts.fileOf(piece.frames), progress);
        }
    }
    camera.tellSpeed();
    return pieces;
}

/// Joins files to one that appears under its name only once it is found to be right.
void finishFilm(const std::vector<fs::path>& files, const video::VideoTag& tag,
                const std::optional<video::MusicCut>& music, const fs::path& output)
{
    video::NewFile file(output);
    video::joinFiles(files, music, tag.format.fps, video::writeTag(tag), file.aside());
    video::checkVideo(video::probe(file.aside()), output, tag.format, tag.frames.count(), music.has_value());
    file.commit();
    fmt::print(stderr, "{}: {} frames of {}x{}, {} a second, {:.3f} seconds{}\n", output.string(),
               tag.frames.count(), tag.format.size.width, tag.format.size.height, tag.format.fps,
               video::timeOfFrame(tag.frames.count(), tag.format.fps),
               music ? "; the music starts with the first" : "");
}

void filmInParts(const FilmOptions& options)
{
    video::VideoTag tag{options.format, {}, {}, fingerprintOf(options.assets), fingerprintOfProgram()};
    const fs::path musicFile = options.share ? fs::path() : musicIn(options.assets);
    PartsFolder parts(options.output);
    const std::vector<video::VideoTag> pieces = filmPieces(options, tag, parts);
    std::vector<fs::path> files;
    files.reserve(pieces.size());
    for (const video::VideoTag& piece : pieces) {
        files.push_back(parts.fileOf(piece.frames));
    }
    tag = pieces.front();
    tag.frames.end = pieces.back().frames.end;
    std::optional<video::MusicCut> music;
    if (!options.share) {
        music = video::musicOf(musicFile, tag.frames, options.format.fps);
    }
    finishFilm(files, tag, music, options.output);
    parts.remove();
}

} // namespace

void film(const FilmOptions& options)
{
    video::checkVideoSize(options.format.size);
    checkOutput(options);
    video::checkFfmpeg();
    const video::CancelSignals signals;
    try {
        filmInParts(options);
    } catch (const video::Cancelled&) {
        throw Error(options.output.string(), fs::exists(options.output.string() + ".parts")
                                                 ? "cancelled; what is finished lies in " +
                                                       options.output.string() +
                                                       ".parts, and the same command goes on from there"
                                                 : std::string("cancelled; nothing is left of it"));
    }
}

void joinFilm(const std::vector<fs::path>& parts, const FilmOptions& options)
{
    checkOutput(options);
    video::checkFfmpeg();
    const video::CancelSignals signals;
    try {
        std::vector<video::VideoPart> found;
        found.reserve(parts.size());
        for (const fs::path& part : parts) {
            found.push_back(video::readPart(part));
        }
        found = video::fitTogether(std::move(found));
        video::VideoTag tag = found.front().tag;
        if (tag.assets != fingerprintOf(options.assets)) {
            throw Error(found.front().file.string(),
                        "was drawn from other assets than those in " + options.assets.string());
        }
        tag.frames = tag.whole;
        std::vector<fs::path> files;
        files.reserve(found.size());
        for (const video::VideoPart& part : found) {
            files.push_back(part.file);
        }
        finishFilm(files, tag, video::musicOf(musicIn(options.assets), tag.whole, tag.format.fps),
                   options.output);
    } catch (const video::Cancelled&) {
        throw Error(options.output.string(), "cancelled; nothing is left of it");
    }
}

} // namespace tools::capture
