#include "tools/capture/commands.h"
#include "tools/capture/film.h"
#include "tools/common/error.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace tools::capture {

namespace {

struct JoinCommandLine {
    std::vector<std::filesystem::path> files; ///< the parts, and last the file to write
    std::filesystem::path assets = "assets";  ///< a folder
    bool overwrite = false;
};

JoinOptions joinOptions(const JoinCommandLine& line)
{
    if (line.files.size() < 2) {
        throw Error("capture join", "name the parts, and behind them the file to write");
    }
    return {{line.files.begin(), line.files.end() - 1}, line.files.back(), line.assets, line.overwrite};
}

} // namespace

void addJoinCommand(CLI::App& app)
{
    CLI::App* const command =
        app.add_subcommand("join", "puts the parts of a video together, and adds the music");
    const auto line = std::make_shared<JoinCommandLine>();
    command
        ->add_option("PART... OUT", line->files,
                     "what capture video --range made, in any order; then NAME.mp4")
        ->required();
    command->add_option("--assets", line->assets, "folder with the music, and all that was drawn (assets)");
    command->add_flag("--overwrite", line->overwrite, "replace a file that is there");
    command->callback([line] { joinFilm(joinOptions(*line)); });
}

} // namespace tools::capture
