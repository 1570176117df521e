#include "tools/capture/film_range.h"

#include "scenes/catalogue.h"
#include "tools/common/error.h"
#include "tools/timeline/bar_position.h"

namespace tools::capture {

namespace {

constexpr int longestShow = 3600; // seconds

bool isOver(const stage::Stage& stage, std::int64_t frame, int fps)
{
    return stage.sceneAt(video::timeOfFrame(frame, fps)) == catalogue::endOfShow;
}

/// The first frame in which the show is over.
std::int64_t endOfShow(const stage::Stage& stage, int fps)
{
    for (std::int64_t frame = 0; frame < std::int64_t{longestShow} * fps; ++frame) {
        if (isOver(stage, frame, fps)) {
            return frame;
        }
    }
    throw Error("capture video", "the track scene ends the show nowhere; --to says where the video ends");
}

std::string fromOption(std::int32_t row)
{
    return "--from " + timeline::barPosition(row);
}

video::FrameRange rangeToTheEnd(const stage::Stage& stage, int fps, std::int32_t fromRow)
{
    const video::FrameRange range{video::firstFrameOfRow(fromRow, fps), endOfShow(stage, fps)};
    if (range.count() <= 0) {
        throw Error(fromOption(fromRow), "the show is over there");
    }
    return range;
}

} // namespace

video::FrameRange filmRange(const stage::Stage& stage, int fps, std::int32_t fromRow,
                            std::optional<std::int32_t> toRow)
{
    if (!toRow) {
        return rangeToTheEnd(stage, fps, fromRow);
    }
    const video::FrameRange range{video::firstFrameOfRow(fromRow, fps), video::firstFrameOfRow(*toRow, fps)};
    const std::string toOption = "--to " + timeline::barPosition(*toRow);
    if (range.count() <= 0) {
        throw Error(toOption, "no frame lies between " + fromOption(fromRow) + " and there");
    }
    if (isOver(stage, range.end - 1, fps)) {
        throw Error(toOption, "the show is over before");
    }
    return range;
}

} // namespace tools::capture
