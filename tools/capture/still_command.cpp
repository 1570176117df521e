#include "tools/capture/commands.h"
#include "tools/capture/picture_options.h"
#include "tools/capture/position_options.h"
#include "tools/capture/still.h"
#include "tools/common/error.h"
#include "tools/picture/picture_file.h"

#include <memory>

namespace tools::capture {

namespace {

struct StillOptions {
    PictureOptions picture;
    PositionOptions position;
};

void captureStill(const StillOptions& options)
{
    const std::optional<double> time = readPosition(options.position);
    if (!time) {
        throw Error("capture still", "give one of --row ROW, --time SECONDS and --bar BAR");
    }
    const picture::PictureFile file(options.picture.output);
    file.write(drawStill(options.picture, {}, {}, *time));
}

} // namespace

void addStillCommand(CLI::App& app)
{
    CLI::App* const command = app.add_subcommand("still", "one frame, as the show has it");
    const auto options = std::make_shared<StillOptions>();
    addPictureOptions(*command, options->picture);
    addPositionOptions(*command, options->position);
    command->callback([options] { captureStill(*options); });
}

} // namespace tools::capture
