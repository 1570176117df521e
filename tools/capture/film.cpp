#include "tools/capture/film.h"

#include "tools/capture/film_output.h"
#include "tools/capture/film_range.h"
#include "tools/capture/film_sources.h"
#include "tools/capture/parts_folder.h"
#include "tools/capture/piece_recorder.h"
#include "tools/common/error.h"
#include "tools/stage/stage_folder.h"
#include "tools/video/cancel_signals.h"

#include <cstdio>
#include <fmt/format.h>
#include <string>
#include <utility>

namespace tools::capture {

namespace {

namespace fs = std::filesystem;

constexpr int pieceGroups = 10; // of frames, a second each: what a cancelled run loses at most

/// What is to be in the video, piece by piece; `tag` tells what all have in common.
std::vector<video::VideoTag> planPieces(const FilmOptions& options, video::VideoTag tag)
{
    const std::int64_t group = video::groupLength(options.format.fps);
    const video::FrameRange share =
        options.share ? video::shareOf(tag.whole, *options.share, group) : tag.whole;
    std::vector<video::VideoTag> pieces;
    for (const video::FrameRange frames : video::piecesOf(share, pieceGroups * group)) {
        tag.frames = frames;
        pieces.push_back(tag);
    }
    return pieces;
}

/// Draws the pieces that the folder does not hold yet.
void recordMissing(const std::vector<video::VideoTag>& pieces, const PartsFolder& parts,
                   PieceRecorder& recorder)
{
    std::vector<video::VideoTag> missing;
    std::int64_t total = 0;
    std::int64_t done = 0;
    for (const video::VideoTag& piece : pieces) {
        total += piece.frames.count();
        if (parts.holds(piece)) {
            done += piece.frames.count();
        } else {
            missing.push_back(piece);
        }
    }
    if (done > 0) {
        fmt::print(stderr, "{} of {} frames are there from an earlier run\n", done, total);
    }
    stage::Progress progress(total, done);
    for (const video::VideoTag& piece : missing) {
        recorder.record(piece, parts.fileOf(piece.frames), progress);
    }
}

/// Has all pieces of the film in the folder, and gives what they are.
std::vector<video::VideoTag> filmPieces(const FilmOptions& options, video::VideoTag tag,
                                        const PartsFolder& parts)
{
    const stage::StageFolder folder(options.assets, {});
    stage::HiddenWindow window(options.format.size);
    stage::Stage stage(window, options.assets.string());
    tag.whole = filmRange(stage, options.format.fps, options.fromRow, options.toRow);
    std::vector<video::VideoTag> pieces = planPieces(options, tag);
    PieceRecorder recorder(stage, window, options.format);
    recordMissing(pieces, parts, recorder);
    recorder.tellSpeed();
    return pieces;
}

void filmInParts(const FilmOptions& options)
{
    const video::VideoTag common{
        options.format, {}, {}, fingerprintOfAssets(options.assets), fingerprintOfProgram()};
    const fs::path musicFile = options.share ? fs::path() : musicIn(options.assets);
    PartsFolder parts(options.output);
    const std::vector<video::VideoTag> pieces = filmPieces(options, common, parts);
    std::vector<fs::path> files;
    files.reserve(pieces.size());
    for (const video::VideoTag& piece : pieces) {
        files.push_back(parts.fileOf(piece.frames));
    }
    video::VideoTag tag = pieces.front();
    tag.frames.end = pieces.back().frames.end;
    std::optional<video::MusicCut> music;
    if (!options.share) {
        music = video::musicOf(musicFile, tag.frames, options.format.fps);
    }
    finishFilm(files, tag, music, options.output);
    parts.remove();
}

/// What there is of a film that was cancelled.
std::string whatIsLeft(const fs::path& output)
{
    const std::string parts = output.string() + ".parts";
    return fs::exists(parts)
               ? "cancelled; what is finished lies in " + parts + ", and the same command goes on from there"
               : "cancelled; nothing is left of it";
}

/// The parts in the order of their frames. Throws unless they are a whole film of these assets.
std::vector<video::VideoPart> readFilm(const std::vector<fs::path>& files, const fs::path& assets)
{
    std::vector<video::VideoPart> parts;
    parts.reserve(files.size());
    for (const fs::path& file : files) {
        parts.push_back(video::readPart(file));
    }
    parts = video::fitTogether(std::move(parts));
    if (parts.front().tag.assets != fingerprintOfAssets(assets)) {
        throw Error(parts.front().file.string(),
                    "was drawn from other assets than those in " + assets.string());
    }
    return parts;
}

void joinParts(const JoinOptions& options)
{
    const std::vector<video::VideoPart> parts = readFilm(options.parts, options.assets);
    std::vector<fs::path> inOrder;
    inOrder.reserve(parts.size());
    for (const video::VideoPart& part : parts) {
        inOrder.push_back(part.file);
    }
    video::VideoTag tag = parts.front().tag;
    tag.frames = tag.whole;
    finishFilm(inOrder, tag, video::musicOf(musicIn(options.assets), tag.whole, tag.format.fps),
               options.output);
}

} // namespace

void film(const FilmOptions& options)
{
    video::checkVideoSize(options.format.size);
    checkOutput(options.output, options.overwrite);
    video::checkFfmpeg();
    const video::CancelSignals signals;
    try {
        filmInParts(options);
    } catch (const video::Cancelled&) {
        throw Error(options.output.string(), whatIsLeft(options.output));
    }
}

void joinFilm(const JoinOptions& options)
{
    checkOutput(options.output, options.overwrite);
    video::checkFfmpeg();
    const video::CancelSignals signals;
    try {
        joinParts(options);
    } catch (const video::Cancelled&) {
        throw Error(options.output.string(), "cancelled; nothing is left of it");
    }
}

} // namespace tools::capture
