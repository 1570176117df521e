#include "sync/tools.h"
#include "tools/common/command_line.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"
#include "tools/trackc/compile.h"
#include "tools/trackc/track_file.h"
#include "tools/trackc/track_text.h"

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
  The type fills the stretch up to the next key: step, linear, smooth or ramp.

Examples:
  trackc art/timeline/*.csv --output build/assets
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
        const auto style = options.bars ? tools::RowStyle::Bars : tools::RowStyle::Plain;
        fmt::print("{}",
                   tools::printTrackText(tools::decodeTrack(tools::readFile(file), file.string()), style));
        return;
    }
    for (const tools::CompiledTrack& track : tools::compileTracks(options.files, options.output)) {
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
    app.add_option("FILE", options.files, "NAME.csv for the track NAME; with --dump one track file")
        ->required();
    app.add_option("-o,--output", options.output, "folder for the files sync_NAME.track");
    app.add_flag("--dump", options.dump, "print the text form of a track file");
    app.add_flag("--bars", options.bars, "print rows as bar:beat:row");
    app.footer(examples);
    return tools::runTool(app, argc, argv, [&options] { run(options); });
}
