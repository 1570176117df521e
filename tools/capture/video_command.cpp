#include "tools/capture/commands.h"
#include "tools/capture/film.h"
#include "tools/stage/values.h"
#include "tools/timeline/show_row.h"

#include <fmt/format.h>
#include <memory>
#include <string>

namespace tools::capture {

namespace {

struct VideoOptions {
    std::filesystem::path output;            ///< NAME.mp4
    std::filesystem::path assets = "assets"; ///< a folder
    std::string size = "1920x1080";          ///< WIDTHxHEIGHT in pixels
    std::string fps = "60";
    std::string from = "0"; ///< BAR, BAR:BEAT or BAR:BEAT:ROW
    std::string to;         ///< the same; empty: the show's end
    std::string range;      ///< N/M; empty: all of it
    bool overwrite = false;
};

FilmOptions filmOptions(const VideoOptions& options)
{
    FilmOptions film;
    film.output = options.output;
    film.assets = options.assets;
    film.format.size = stage::parsePictureSize("--size", options.size);
    film.format.fps = video::parseFps(options.fps);
    film.fromRow = timeline::parseBar(options.from, "--from");
    if (!options.to.empty()) {
        film.toRow = timeline::parseBar(options.to, "--to");
    }
    if (!options.range.empty()) {
        film.share = video::parseShare(options.range);
    }
    film.overwrite = options.overwrite;
    return film;
}

void addVideoOptions(CLI::App& command, VideoOptions& options)
{
    command.add_option("OUT", options.output, "the file to write: NAME.mp4")->required();
    command.add_option("--assets", options.assets, "folder of models, pack, tracks and music (assets)");
    command.add_option("--size", options.size,
                       fmt::format("WIDTHxHEIGHT of the picture, in pixels, both even ({})", options.size));
    command.add_option("--fps", options.fps, "frames a second, 24 to 120 (60)");
    command.add_option("--from", options.from, "BAR, BAR:BEAT or BAR:BEAT:ROW where it starts (0)");
    command.add_option("--to", options.to, "and where it ends (with the show)");
    command.add_option("--range", options.range,
                       "N/M: only the Nth of M equal parts, without sound, for join");
    command.add_flag("--overwrite", options.overwrite, "replace a file that is there");
}

} // namespace

void addVideoCommand(CLI::App& app)
{
    CLI::App* const command =
        app.add_subcommand("video", "the show, or some bars of it, as an MP4 file with its music");
    const auto options = std::make_shared<VideoOptions>();
    addVideoOptions(*command, *options);
    command->callback([options] { film(filmOptions(*options)); });
}

} // namespace tools::capture
