#pragma once

#include "tools/stage/hidden_window.h"
#include "tools/stage/progress.h"
#include "tools/stage/stage.h"
#include "tools/video/video_encoder.h"
#include "tools/video/video_tag.h"

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tools::capture {

/// Draws pieces of a film into files, and knows what the encoding cost beside the drawing.
class PieceRecorder {
public:
    /// `stage` draws into `window`, which has the format's size; both outlive the recorder.
    PieceRecorder(stage::Stage& stage, stage::HiddenWindow& window, const video::VideoFormat& format);

    /// Makes a piece, with `progress` told of each frame. Its file appears under its name only once it is
    /// found to be right. Throws `Error` with the file and the reason, and `Cancelled`.
    void record(const video::VideoTag& tag, const std::filesystem::path& target, stage::Progress& progress);

    /// Says on standard error, in one line, how fast that went and what it would be without an encoder.
    /// Nothing if no piece was made.
    void tellSpeed() const;

private:
    /// What some frames took in the film, and what they took drawn once more.
    struct Sample {
        double encoded = 0.0; ///< in seconds
        double alone = 0.0;   ///< in seconds
    };

    void makeScenes(video::FrameRange range);
    void show(std::int64_t frame) const;
    std::vector<double> encode(video::FrameRange range, video::VideoEncoder& encoder,
                               stage::Progress& progress) const;
    void judgeDrawing(video::FrameRange range, const std::vector<double>& took);
    void drawAlone(video::FrameRange row, video::FrameRange range, const std::vector<double>& took,
                   Sample& sample);

    stage::Stage& stage;
    stage::HiddenWindow& window;
    video::VideoFormat format;
    std::int64_t frames = 0;   ///< of all pieces
    double seconds = 0.0;      ///< that they took
    double secondsAlone = 0.0; ///< that they would take without encoder, by the samples
    std::int64_t samples = 0;  ///< frames drawn once more
};

} // namespace tools::capture
