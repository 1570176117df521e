#include "tools/capture/piece_recorder.h"

#include "tools/common/atomic_file.h"
#include "tools/video/cancel_signals.h"
#include "tools/video/probe.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fmt/format.h>
#include <numeric>

namespace tools::capture {

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

} // namespace

PieceRecorder::PieceRecorder(stage::Stage& stage, stage::HiddenWindow& window,
                             const video::VideoFormat& format)
    : stage(stage), window(window), format(format)
{
}

void PieceRecorder::record(const video::VideoTag& tag, const std::filesystem::path& target,
                           stage::Progress& progress)
{
    makeScenes(tag.frames);
    const Clock::time_point start = Clock::now();
    AtomicFile file(target);
    video::VideoEncoder encoder(format, file.temporary(), video::writeTag(tag));
    const std::vector<double> took = encode(tag.frames, encoder, progress);
    encoder.finish();
    video::checkVideo(video::probe(file.temporary()), target, format, tag.frames.count(), false);
    file.commit();
    frames += tag.frames.count();
    seconds += secondsSince(start);
    judgeDrawing(tag.frames, took);
}

void PieceRecorder::tellSpeed() const
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

/// Makes the scenes of these frames, so that it does not count as drawing.
void PieceRecorder::makeScenes(video::FrameRange range)
{
    for (std::int64_t frame = range.first; frame < range.end; ++frame) {
        stage.prepare(stage.sceneAt(video::timeOfFrame(frame, format.fps)));
    }
}

void PieceRecorder::show(std::int64_t frame) const
{
    const double time = video::timeOfFrame(frame, format.fps);
    stage.show(stage.sceneAt(time), time);
}

/// Draws the frames and sends them off. Gives the seconds from a frame to the next.
std::vector<double> PieceRecorder::encode(video::FrameRange range, video::VideoEncoder& encoder,
                                          stage::Progress& progress) const
{
    std::vector<double> took;
    Clock::time_point last = Clock::now();
    for (std::int64_t frame = range.first; frame < range.end; ++frame) {
        video::CancelSignals::check();
        show(frame);
        window.readRows(encoder.frame());
        encoder.send();
        progress.step();
        took.push_back(secondsSince(last));
        last = Clock::now();
    }
    return took;
}

/// Judges by some frames, drawn once more, what all would take without an encoder. At once, as machines have
/// other work too; a few in a row, as the first after another is slower.
void PieceRecorder::judgeDrawing(video::FrameRange range, const std::vector<double>& took)
{
    constexpr std::int64_t inARow = 4;
    constexpr std::int64_t framesForARow = 200; // 2 % of them are drawn twice
    Sample sample;
    for (const std::int64_t middle :
         video::spreadOver(range, std::max<std::int64_t>(range.count() / framesForARow, 2)))
    {
        const std::int64_t first = std::max(middle - inARow / 2, range.first);
        drawAlone({first, std::min(first + inARow, range.end)}, range, took, sample);
    }
    secondsAlone += std::accumulate(took.begin(), took.end(), 0.0) * sample.alone / sample.encoded;
}

/// Draws the frames of `row` once more. The first counts only where there is no other.
void PieceRecorder::drawAlone(video::FrameRange row, video::FrameRange range, const std::vector<double>& took,
                              Sample& sample)
{
    for (std::int64_t frame = row.first; frame < row.end; ++frame) {
        video::CancelSignals::check();
        const Clock::time_point start = Clock::now();
        show(frame);
        window.renderer().finish();
        if (frame > row.first || row.count() == 1) {
            sample.alone += secondsSince(start);
            sample.encoded += took[static_cast<std::size_t>(frame - range.first)];
            ++samples;
        }
    }
}

} // namespace tools::capture
