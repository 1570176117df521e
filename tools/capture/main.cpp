#include "scenes/catalogue.h"
#include "tools/capture/contact_sheet.h"
#include "tools/capture/film.h"
#include "tools/common/command_line.h"
#include "tools/common/error.h"
#include "tools/picture/picture_file.h"
#include "tools/stage/hidden_window.h"
#include "tools/stage/overrides.h"
#include "tools/stage/scene_tracks.h"
#include "tools/stage/stage.h"
#include "tools/stage/stage_folder.h"
#include "tools/stage/values.h"
#include "tools/timeline/bar_position.h"
#include "tools/timeline/show_row.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <filesystem>
#include <fmt/format.h>
#include <string>
#include <vector>

namespace {

constexpr const char* examples = R"(Examples:
  capture still --bar 34:2 still.png
  capture still --time 63.5 --size 3840x2160 --assets build/release/show/assets still.png
  capture sheet --every 4 sheet.png
  capture sheet --from 88 --to 92 --every 0.25 --columns 8 montage.png
  capture scene --scene burger --set box_open=-0.6 --set burger_text=1 --eye 0,0.5,2.5 --target 0,0,1 burger.png
  capture still --bar 20 - | ffplay -f rawvideo -pixel_format rgb24 -video_size 1920x1080 -
  capture video show.mp4                                  # the whole show; docs/video.md tells more
  capture video --from 72 --to 88 --size 1280x720 --fps 30 toilet.mp4
  capture video --range 2/8 part-2.mp4                    # an eighth, without sound
  capture join part-*.mp4 show.mp4

A still shows what the show draws at that position. A bar is BAR, BAR:BEAT or BAR:BEAT:ROW, counted from 0, with 4
beats a bar and 16 rows a beat. --eye is a point of world space in every scene, also in the people's, whose tracks hold
angle, height and radius. OUT is a name that ends in .png or in .rgb, for 3 bytes a pixel, or - for the latter to
standard output.)";

constexpr const char* stillSize = "1920x1080";
constexpr const char* sheetStillSize = "480x270";

struct Options {
    std::string output;
    std::filesystem::path assets = "assets"; ///< a folder
    std::string size;                        ///< empty: as the subcommand has it
    // position: at most one
    std::string row;
    std::string time;
    std::string bar;
    // sheet
    std::string every = "4";
    std::string from = "0";
    std::string to = "97";
    std::uint32_t columns = 5;
    // video; --from is that of the sheet
    std::string fps = "60";
    std::string videoEnd; ///< empty: the show's
    std::string range;    ///< empty: all of it
    bool overwrite = false;
    // join
    std::vector<std::filesystem::path> parts; ///< and last the file to write
    // scene
    std::string scene;
    std::vector<std::string> set;
    std::string eye;
    std::string target;
};

/// The position that the command line asks for, in seconds. Throws without one, but for `fallback`.
double readTime(const Options& options, const char* fallback)
{
    if (!options.row.empty()) {
        return tools::timeline::timeOfRow(tools::timeline::parseShowRow(options.row));
    }
    if (!options.bar.empty()) {
        return tools::timeline::timeOfRow(tools::timeline::parseBar(options.bar));
    }
    const std::string time = options.time.empty() ? fallback : options.time;
    if (time.empty()) {
        throw tools::Error("capture still", "give one of --row ROW, --time SECONDS and --bar BAR");
    }
    const double seconds = tools::stage::parseNumber("--time " + time, time);
    if (seconds < 0.0) {
        throw tools::Error("--time " + time, "the show starts at 0");
    }
    return seconds;
}

void captureStill(const Options& options)
{
    const double time = readTime(options, "");
    const tools::picture::PictureFile file(options.output);
    const tools::picture::Size size =
        tools::stage::parsePictureSize("--size", options.size.empty() ? stillSize : options.size);
    tools::picture::RgbImage picture;
    {
        const tools::stage::StageFolder folder(options.assets, {});
        tools::stage::HiddenWindow window(size);
        tools::stage::Stage stage(window, options.assets.string());
        picture = stage.draw(stage.sceneAt(time), time);
    }
    file.write(picture);
}

/// What stands under a still of the sheet.
std::string caption(std::int32_t row, float scene)
{
    const std::string_view name = catalogue::nameOf(scene);
    return fmt::format("bar {} row {} {}", tools::timeline::barPosition(row), row,
                       name.empty() ? "no scene" : name);
}

tools::capture::ContactSheet drawSheet(const Options& options, tools::picture::Size size,
                                       const std::vector<std::int32_t>& rows)
{
    tools::capture::ContactSheet sheet(size, static_cast<std::uint32_t>(rows.size()), options.columns);
    const tools::stage::StageFolder folder(options.assets, {});
    tools::stage::HiddenWindow window(size);
    tools::stage::Stage stage(window, options.assets.string());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const double time = tools::timeline::timeOfRow(rows[i]);
        const float scene = stage.sceneAt(time);
        const std::string text = caption(rows[i], scene);
        sheet.add(stage.draw(scene, time), text);
        fmt::print(stderr, "{} of {}: {}\n", i + 1, rows.size(), text);
    }
    return sheet;
}

double barOption(const std::string& option, const std::string& text)
{
    return tools::stage::parseNumber(option + " " + text, text);
}

void captureSheet(const Options& options)
{
    const std::vector<std::int32_t> rows =
        tools::capture::sheetRows(barOption("--every", options.every), barOption("--from", options.from),
                                  barOption("--to", options.to));
    const tools::picture::PictureFile file(options.output);
    const tools::picture::Size size =
        tools::stage::parsePictureSize("--size", options.size.empty() ? sheetStillSize : options.size);
    file.write(drawSheet(options, size, rows).picture());
}

tools::stage::Overrides readOverrides(const Options& options, const catalogue::Scene& scene)
{
    tools::stage::Overrides overrides;
    for (const std::string& text : options.set) {
        tools::stage::setTrack(overrides, scene, text);
    }
    if (!options.eye.empty() && options.eye == options.target) {
        throw tools::Error("--target " + options.target, "the camera stands there");
    }
    if (!options.eye.empty()) {
        tools::stage::setEye(overrides, scene, tools::stage::parsePoint("--eye", options.eye),
                             "--eye " + options.eye);
    }
    if (!options.target.empty()) {
        tools::stage::setTarget(overrides, scene, tools::stage::parsePoint("--target", options.target),
                                "--target " + options.target);
    }
    return overrides;
}

void captureScene(const Options& options)
{
    const catalogue::Scene& scene = tools::stage::findScene(options.scene);
    const tools::stage::Overrides overrides = readOverrides(options, scene);
    const double time = readTime(options, "0");
    const tools::picture::PictureFile file(options.output);
    const tools::picture::Size size =
        tools::stage::parsePictureSize("--size", options.size.empty() ? stillSize : options.size);
    tools::picture::RgbImage picture;
    {
        const tools::stage::StageFolder folder(options.assets, overrides);
        tools::stage::HiddenWindow window(size);
        tools::stage::Stage stage(window, options.assets.string());
        picture = stage.draw(scene.number, time);
    }
    file.write(picture);
}

void captureVideo(const Options& options)
{
    tools::capture::FilmOptions film;
    film.output = options.output;
    film.assets = options.assets;
    film.format.size =
        tools::stage::parsePictureSize("--size", options.size.empty() ? stillSize : options.size);
    film.format.fps = tools::video::parseFps(options.fps);
    film.fromRow = tools::timeline::parseBar(options.from, "--from");
    if (!options.videoEnd.empty()) {
        film.toRow = tools::timeline::parseBar(options.videoEnd, "--to");
    }
    if (!options.range.empty()) {
        film.share = tools::video::parseShare(options.range);
    }
    film.overwrite = options.overwrite;
    tools::capture::film(film);
}

void joinVideo(const Options& options)
{
    if (options.parts.size() < 2) {
        throw tools::Error("capture join", "name the parts, and behind them the file to write");
    }
    tools::capture::FilmOptions film;
    film.output = options.parts.back();
    film.assets = options.assets;
    film.overwrite = options.overwrite;
    tools::capture::joinFilm({options.parts.begin(), options.parts.end() - 1}, film);
}

void addCommonOptions(CLI::App& command, Options& options, const char* size)
{
    command.add_option("OUT", options.output, "the file to write: NAME.png, NAME.rgb, or -")->required();
    command.add_option("--assets", options.assets, "folder of models, pack and tracks (assets)");
    command.add_option("--size", options.size, fmt::format("WIDTHxHEIGHT of a still, in pixels ({})", size));
}

void addPosition(CLI::App& command, Options& options)
{
    CLI::Option_group* const position =
        command.add_option_group("Position", "where in the show; at most one of");
    position->add_option("--row", options.row, "row of the timeline");
    position->add_option("--time", options.time, "seconds of the music");
    position->add_option("--bar", options.bar, "BAR, BAR:BEAT or BAR:BEAT:ROW");
    position->require_option(0, 1);
}

void addSheetOptions(CLI::App& command, Options& options)
{
    command.add_option("--every", options.every, "bars from one still to the next; a fraction is fine (4)");
    command.add_option("--from", options.from, "first bar (0)");
    command.add_option("--to", options.to, "last bar (97)");
    command.add_option("--columns", options.columns, "stills side by side (5)")->check(CLI::Range(1, 1000));
}

/// "room, credits, ... or people"
std::string sceneNames()
{
    std::string names;
    for (const catalogue::Scene& scene : catalogue::allScenes) {
        const bool isLast = &scene == std::end(catalogue::allScenes) - 1;
        names += fmt::format("{}{}", names.empty() ? "" : isLast ? " or " : ", ", scene.name);
    }
    return names;
}

void addSceneOptions(CLI::App& command, Options& options)
{
    command.add_option("--scene", options.scene, sceneNames())->required();
    command.add_option("--set", options.set, "TRACK=VALUE, in place of the track; may come again")
        ->allow_extra_args(false);
    command.add_option("--eye", options.eye, "X,Y,Z: where the camera stands, in world space");
    command.add_option("--target", options.target, "X,Y,Z: what it looks at");
}

void addVideoOptions(CLI::App& command, Options& options)
{
    command.add_option("OUT", options.output, "the file to write: NAME.mp4")->required();
    command.add_option("--assets", options.assets, "folder of models, pack, tracks and music (assets)");
    command.add_option("--size", options.size,
                       fmt::format("WIDTHxHEIGHT of the picture, in pixels, both even ({})", stillSize));
    command.add_option("--fps", options.fps, "frames a second, 24 to 120 (60)");
    command.add_option("--from", options.from, "BAR, BAR:BEAT or BAR:BEAT:ROW where it starts (0)");
    command.add_option("--to", options.videoEnd, "and where it ends (with the show)");
    command.add_option("--range", options.range,
                       "N/M: only the Nth of M equal parts, without sound, for join");
    command.add_flag("--overwrite", options.overwrite, "replace a file that is there");
}

void addJoinOptions(CLI::App& command, Options& options)
{
    command
        .add_option("PART... OUT", options.parts,
                    "what capture video --range made, in any order; then NAME.mp4")
        ->required();
    command.add_option("--assets", options.assets, "folder with the music, and all that was drawn (assets)");
    command.add_flag("--overwrite", options.overwrite, "replace a file that is there");
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    CLI::App app("Draws frames of the show into files, without a window.", "capture");
    app.require_subcommand(1);
    app.footer(examples);

    CLI::App* const still = app.add_subcommand("still", "one frame, as the show has it");
    addCommonOptions(*still, options, stillSize);
    addPosition(*still, options);
    CLI::App* const sheet = app.add_subcommand("sheet", "a contact sheet of the show");
    addCommonOptions(*sheet, options, sheetStillSize);
    addSheetOptions(*sheet, options);
    CLI::App* const scene = app.add_subcommand("scene", "a scene by its name, with tracks of one's own");
    addCommonOptions(*scene, options, stillSize);
    addPosition(*scene, options);
    addSceneOptions(*scene, options);
    CLI::App* const video =
        app.add_subcommand("video", "the show, or some bars of it, as an MP4 file with its music");
    addVideoOptions(*video, options);
    CLI::App* const join =
        app.add_subcommand("join", "puts the parts of a video together, and adds the music");
    addJoinOptions(*join, options);

    return tools::runTool(app, argc, argv, [&] {
        if (still->parsed()) {
            captureStill(options);
        } else if (sheet->parsed()) {
            captureSheet(options);
        } else if (video->parsed()) {
            captureVideo(options);
        } else if (join->parsed()) {
            joinVideo(options);
        } else {
            captureScene(options);
        }
    });
}
