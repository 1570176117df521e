#include "tools/capture/commands.h"
#include "tools/common/command_line.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

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

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Draws frames of the show into files, without a window.", "capture");
    app.require_subcommand(1);
    app.footer(examples);
    // In the order in which the help lists them.
    tools::capture::addStillCommand(app);
    tools::capture::addSheetCommand(app);
    tools::capture::addSceneCommand(app);
    tools::capture::addVideoCommand(app);
    tools::capture::addJoinCommand(app);
    return tools::runTool(app, argc, argv);
}
