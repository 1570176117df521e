#include "sync/tools.h"
#include "tools/common/command_line.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"
#include "tools/timeline/track_file.h"
#include "tools/timeline/track_text.h"
#include "tools/trackc/compile.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <filesystem>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace {

constexpr const char* examples = R"(Text form, one key a line: row, value, type
  # comments and empty lines are free
  0,      4, step      # a row is a whole number
  12:2:8, 5, linear    # or bar:beat:row from 0, at 16 rows a beat and 64 a bar
  repeat 56:0:0, 72:0:0, 0:1:0   # from, up to but without, every so many rows
    0, 0.6, smooth               # rows count from each start
    8, 0.2, smooth
  end
  The type fills the stretch up to the next key: step, linear, smooth or ramp.

Text form of shots.txt, which gives the tracks scene, camera_pos_x to z and camera_tgt_x to z:
  # row,  scene, place of the camera, what it looks at, type
  16:0:0, bottle,  0 0.9 3.4,  0 0 2,  smooth   # a cut, and the first key of its camera
  18:0:0,          0 0.4 3.2,  0 0 2            # where the camera is led; smooth, if nothing is said
  last,            0 0.1 2.9,  0 0 2            # the row before the next cut
  32:0:0, credits                               # a scene without a camera

Examples:
  trackc art/timeline/*.csv art/timeline/shots.txt --output build/assets
  trackc --dump build/assets/sync_scene.track
  trackc --dump --bars build/assets/sync_scene.track)";

struct Options {
    std::vector<std::filesystem::path> files;
    std::filesystem::path output;
    bool dump = false;
    bool bars = false;
};

/// What CLI11 cannot say by itself.
void checkOptions(const Options& options)
{
    if (options.dump && options.files.size() != 1) {
        throw tools::Error("trackc", "--dump takes one track file");
    }
    if (options.dump != options.output.empty()) {
        throw tools::Error("trackc", "give either --output FOLDER or --dump");
    }
    if (options.bars && !options.dump) {
        throw tools::Error("trackc", "--bars goes with --dump");
    }
}

void run(const Options& options)
{
    checkOptions(options);
    if (options.dump) {
        const std::filesystem::path& file = options.files.front();
        const auto style = options.bars ? tools::timeline::RowStyle::Bars : tools::timeline::RowStyle::Plain;
        fmt::print("{}", tools::timeline::printTrackText(
                             tools::timeline::decodeTrack(tools::readFile(file), file.string()), style));
        return;
    }
    for (const tools::trackc::CompiledTrack& track :
         tools::trackc::compileTracks(options.files, options.output)) {
        fmt::print("{}: {} {}, {:.1f} s\n", track.name, track.keys, track.keys == 1 ? "key" : "keys",
                   track.lastRow / timeToRow(1.0));
    }
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    CLI::App app(
        "Compiles the tracks of the timeline from their text form into track files, or prints one back.",
        "trackc");
    app.add_option("FILE", options.files,
                   "NAME.csv for the track NAME, or shots.txt; with --dump one track file")
        ->required();
    app.add_option("-o,--output", options.output, "folder for the files sync_NAME.track");
    app.add_flag("--dump", options.dump, "print the text form of a track file");
    app.add_flag("--bars", options.bars, "print rows as bar:beat:row");
    app.footer(examples);
    return tools::runTool(app, argc, argv, [&options] { run(options); });
}
