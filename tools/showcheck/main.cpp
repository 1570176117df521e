#include "scenes/catalogue.h"
#include "sync/syncdevice.h"
#include "sync/tools.h"
#include "tools/common/command_line.h"
#include "tools/common/error.h"
#include "tools/showcheck/camera_path.h"
#include "tools/showcheck/findings.h"
#include "tools/showcheck/flashes.h"
#include "tools/showcheck/judge_camera.h"
#include "tools/showcheck/near_plane_cut.h"
#include "tools/showcheck/near_plane_meter.h"
#include "tools/showcheck/picture_statistics.h"
#include "tools/stage/hidden_window.h"
#include "tools/stage/progress.h"
#include "tools/stage/stage.h"
#include "tools/stage/stage_folder.h"
#include "tools/stage/values.h"
#include "tools/timeline/bar_position.h"
#include "tools/timeline/show_row.h"
#include "tools/video/frames.h"
#include "tools/video/video_encoder.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <numeric>
#include <string>
#include <vector>

namespace {

constexpr const char* examples = R"(Examples:
  showcheck --assets build/release/show/assets
  showcheck --from 72 --to 88 --size 480x270

Draws every frame of the show and reads every row of its timeline. A problem is a line on standard error, with where in
the show it begins; docs/showcheck.md tells what is looked at, and what is allowed.)";

struct Options {
    std::filesystem::path assets = "assets"; ///< a folder
    std::string size = "192x108";
    std::string fps = "24";
    std::string from = "0";
    std::string to; ///< empty: the show's end
};

/// Rows of the timeline from `first` up to but without `end`.
struct RowRange {
    std::int32_t first;
    std::int32_t end;
};

/// The row that ends the show.
std::int32_t endOfShow(const tools::stage::Stage& stage)
{
    constexpr auto longestShow = static_cast<std::int32_t>(3600 * tempo::rowsPerSecond); // an hour
    for (std::int32_t row = 0; row < longestShow; ++row) {
        if (stage.sceneAt(tools::timeline::timeOfRow(row)) == catalogue::endOfShow) {
            return row;
        }
    }
    throw tools::Error("showcheck", "the track scene ends the show nowhere");
}

RowRange readRange(const Options& options, const tools::stage::Stage& stage)
{
    RowRange range{tools::timeline::parseBar(options.from, "--from"), endOfShow(stage)};
    if (range.first >= range.end) {
        throw tools::Error("--from " + options.from, "the show is over there");
    }
    if (!options.to.empty()) {
        range.end = std::min(range.end, tools::timeline::parseBar(options.to, "--to"));
    }
    if (range.first >= range.end) {
        throw tools::Error("--to " + options.to, "lies not behind --from " + options.from);
    }
    return range;
}

/// Draws each frame and looks at it.
class Viewer {
public:
    Viewer(const std::string& assetsName, const tools::video::VideoFormat& format)
        : format(format),
          window(format.size),
          nearPlaneMeter(window.renderer(), format.size),
          shown(window, nearPlaneMeter, assetsName),
          flashMeter(format),
          pixels(std::size_t{3} * format.size.width * format.size.height)
    {
    }

    const tools::stage::Stage& stage() const { return shown; }

    void view(tools::video::FrameRange frames, tools::showcheck::Findings& findings)
    {
        std::vector<tools::showcheck::Place> places;
        {
            tools::stage::Progress progress(frames.count(), 0);
            for (std::int64_t frame = frames.first; frame < frames.end; ++frame) {
                places.push_back(viewFrame(frame, findings));
                progress.step();
            }
        }
        flashes = flashMeter.finish();
        for (std::size_t i = 0; i < flashes.size(); ++i) {
            findings.add(tools::showcheck::Check::Flashes, places[i], flashes[i],
                         tools::showcheck::mostBadness);
        }
        printWorstSeconds(places);
    }

private:
    tools::showcheck::Place viewFrame(std::int64_t frame, tools::showcheck::Findings& findings)
    {
        const double time = tools::video::timeOfFrame(frame, format.fps);
        const float scene = shown.sceneAt(time);
        const tools::showcheck::Place place{frame, time, scene};
        shown.show(scene, time);
        tools::showcheck::judgeNearPlane(
            tools::showcheck::measureNearPlane(format.size, nearPlaneMeter.depths()), place, findings);
        window.readRows(pixels);
        tools::showcheck::judgePicture(tools::showcheck::measurePicture(format.size, pixels), place,
                                       findings);
        flashMeter.add(pixels);
        return place;
    }

    /// The seconds that flash most, none within another.
    void printWorstSeconds(const std::vector<tools::showcheck::Place>& places) const
    {
        constexpr std::size_t count = 5;
        std::vector<std::size_t> order(flashes.size());
        std::iota(order.begin(), order.end(), 0U);
        std::stable_sort(order.begin(), order.end(),
                         [this](std::size_t a, std::size_t b) { return flashes[a] > flashes[b]; });
        std::vector<double> told;
        for (const std::size_t i : order) {
            const double time = places[i].time;
            if (told.size() < count && std::none_of(told.begin(), told.end(), [time](double other) {
                    return std::abs(other - time) < 1.0;
                }))
            {
                told.push_back(time);
                fmt::print("{:.2f} flashes in the second before {:.2f} s, {}\n", flashes[i], time,
                           catalogue::nameOf(places[i].scene));
            }
        }
    }

    tools::video::VideoFormat format;
    tools::stage::HiddenWindow window;
    tools::showcheck::NearPlaneMeter nearPlaneMeter;
    tools::stage::Stage shown;
    tools::showcheck::FlashMeter flashMeter;
    std::vector<std::uint8_t> pixels;
    std::vector<double> flashes;
};

tools::showcheck::Findings check(const Options& options)
{
    const tools::video::VideoFormat format{tools::stage::parsePictureSize("--size", options.size),
                                           tools::video::parseFps(options.fps)};
    const tools::stage::StageFolder folder(options.assets, {});
    Viewer viewer(options.assets.string(), format);
    const RowRange rows = readRange(options, viewer.stage());

    tools::showcheck::Findings findings;
    const tolv::SyncDevice sync("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    // With the rows beside, as a cut shows only there.
    tools::showcheck::judgeCamera(
        tools::showcheck::readCameraPath(sync, std::max(rows.first - 1, 0), rows.end + 1), findings);
    viewer.view({tools::video::firstFrameOfRow(rows.first, format.fps),
                 tools::video::firstFrameOfRow(rows.end, format.fps)},
                findings);
    return findings;
}

void run(const Options& options)
{
    tools::video::checkFfmpeg();
    const tools::showcheck::Findings findings = check(options);
    for (const std::string& line : findings.summary()) {
        fmt::print("{}\n", line);
    }
    std::fflush(stdout); // before what is said last
    const std::vector<std::string> problems = findings.problems();
    for (const std::string& problem : problems) {
        fmt::print(stderr, "{}\n", problem);
    }
    if (!problems.empty()) {
        throw tools::Error("showcheck", fmt::format("{} {}", problems.size(),
                                                    problems.size() == 1 ? "problem" : "problems"));
    }
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    CLI::App app("Looks at all of the show for what would disturb a viewer.", "showcheck");
    app.add_option("--assets", options.assets, "folder of models, pack and tracks (assets)");
    app.add_option("--size", options.size, "WIDTHxHEIGHT of the frames, in pixels (192x108)");
    app.add_option("--fps", options.fps, "frames a second, 24 to 120 (24, as the player shows)");
    app.add_option("--from", options.from, "BAR, BAR:BEAT or BAR:BEAT:ROW where it starts (0)");
    app.add_option("--to", options.to, "and where it ends (with the show)");
    app.footer(examples);
    return tools::runTool(app, argc, argv, [&options] { run(options); });
}
