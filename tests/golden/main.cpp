// golden: draws the stills of the show, and compares them with the pictures that are kept of them; records
// their frames.

#include "tests/golden/frame_comparison.h"
#include "tests/golden/frame_stage.h"
#include "tests/golden/golden_folder.h"
#include "tests/golden/still_stage.h"
#include "tools/common/atomic_file.h"
#include "tools/common/command_line.h"
#include "tools/common/error.h"
#include "tools/common/quiet_output.h"
#include "tools/picture/picture_file.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <cstdio>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Options {
    fs::path pictures;              ///< folder of the golden ones
    fs::path assets;                ///< folder of what they are drawn from
    fs::path differences;           ///< folder for what failed
    fs::path frames;                ///< folder of the recorded ones
    std::vector<std::string> names; ///< of the stills; empty: all
};

std::vector<const Still*> chosen(const Options& options)
{
    std::vector<const Still*> some;
    for (const Still& still : stills()) {
        if (options.names.empty() ||
            std::find(options.names.begin(), options.names.end(), still.name) != options.names.end())
        {
            some.push_back(&still);
        }
    }
    if (!options.names.empty() && some.size() != options.names.size()) {
        throw tools::Error("golden", "no such still; tests/golden/still.cpp names them all");
    }
    return some;
}

/// Calls `use` with each chosen still and its picture.
void drawStills(const Options& options,
                const std::function<void(const Still&, const tools::picture::RgbImage&)>& use)
{
    const std::vector<const Still*> some = chosen(options);
    const tools::QuietOutput quiet;
    drawBySoftware();
    tools::stage::HiddenWindow window(stillSize);
    StillStage stage(window, window.renderer(), options.assets);
    for (const Still* const still : some) {
        use(*still, stage.draw(*still));
    }
}

void check(const Options& options)
{
    std::vector<std::string> faults = faultsOf(options.pictures);
    std::size_t compared = 0;
    drawStills(options, [&](const Still& still, const tools::picture::RgbImage& picture) {
        if (!fs::exists(goldenFile(options.pictures, still))) {
            return; // told already
        }
        const std::string fault = checkStill(still, picture, options.pictures, options.differences);
        ++compared;
        if (!fault.empty()) {
            faults.push_back(fault);
        }
    });
    for (const std::string& fault : faults) {
        fmt::print(stderr, "{}\n", fault);
    }
    fmt::print("golden: {} pictures compared, {} faults\n", compared, faults.size());
    if (!faults.empty()) {
        throw tools::Error("golden",
                           "the pictures are not as they were; if that is meant, scripts/golden makes "
                           "them anew");
    }
}

void make(const Options& options)
{
    tools::makeFolder(options.pictures);
    drawStills(options, [&](const Still& still, const tools::picture::RgbImage& picture) {
        const fs::path file = goldenFile(options.pictures, still);
        tools::AtomicFile(file, tools::picture::encodePicture(picture)).commit();
        fmt::print(stderr, "{}\n", file.string());
    });
}

void record(const Options& options)
{
    const std::vector<const Still*> some = chosen(options);
    tools::makeFolder(options.frames);
    const FrameStage stage;
    for (const Still* const still : some) {
        const fs::path file = frameFile(options.frames, *still);
        tools::AtomicFile(file, stage.record(*still)).commit();
        fmt::print(stderr, "{}\n", file.string());
    }
}

void addNames(CLI::App& command, Options& options)
{
    command.add_option("NAME", options.names, "only these stills");
}

void addOptions(CLI::App& command, Options& options)
{
    command.add_option("--pictures", options.pictures, "folder of the golden pictures")->required();
    command.add_option("--assets", options.assets, "folder of models, pack and tracks")->required();
    addNames(command, options);
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    CLI::App app("Compares pictures of the show with those that are kept of it.", "golden");
    app.require_subcommand(1);
    CLI::App* const checking = app.add_subcommand("check", "draws them and compares");
    addOptions(*checking, options);
    checking->add_option("--differences", options.differences, "folder for what fails")->required();
    CLI::App* const making =
        app.add_subcommand("make", "draws them and keeps them, in place of the former ones");
    addOptions(*making, options);
    CLI::App* const recording =
        app.add_subcommand("record", "records their frames, in place of the former ones");
    recording->add_option("--frames", options.frames, "folder of the recorded frames")->required();
    addNames(*recording, options);
    return tools::runTool(app, argc, argv, [&] {
        // The process goes elsewhere while it draws.
        for (fs::path* const path :
             {&options.pictures, &options.assets, &options.differences, &options.frames}) {
            *path = fs::current_path() / *path;
        }
        if (checking->parsed()) {
            check(options);
        } else if (making->parsed()) {
            make(options);
        } else {
            record(options);
        }
    });
}
