#include "scenes/catalogue.h"
#include "tools/capture/commands.h"
#include "tools/capture/picture_options.h"
#include "tools/capture/position_options.h"
#include "tools/capture/still.h"
#include "tools/common/error.h"
#include "tools/picture/picture_file.h"
#include "tools/stage/overrides.h"
#include "tools/stage/scene_tracks.h"
#include "tools/stage/values.h"

#include <fmt/format.h>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace tools::capture {

namespace {

struct SceneOptions {
    PictureOptions picture;
    PositionOptions position; ///< none: the start of the show
    std::string scene;
    std::vector<std::string> set; ///< TRACK=VALUE each
    std::string eye;              ///< X,Y,Z; empty: as the tracks have it
    std::string target;           ///< the same
};

stage::Overrides readOverrides(const SceneOptions& options, const catalogue::Scene& scene)
{
    stage::Overrides overrides;
    for (const std::string& text : options.set) {
        stage::setTrack(overrides, scene, text);
    }
    if (!options.eye.empty() && options.eye == options.target) {
        throw Error("--target " + options.target, "the camera stands there");
    }
    if (!options.eye.empty()) {
        stage::setEye(overrides, scene, stage::parsePoint("--eye", options.eye), "--eye " + options.eye);
    }
    if (!options.target.empty()) {
        stage::setTarget(overrides, scene, stage::parsePoint("--target", options.target),
                         "--target " + options.target);
    }
    return overrides;
}

void captureScene(const SceneOptions& options)
{
    const catalogue::Scene& scene = stage::findScene(options.scene);
    const stage::Overrides overrides = readOverrides(options, scene);
    const double time = readPosition(options.position).value_or(0.0);
    const picture::PictureFile file(options.picture.output);
    file.write(drawStill(options.picture, overrides, scene.number, time));
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

void addSceneOptions(CLI::App& command, SceneOptions& options)
{
    command.add_option("--scene", options.scene, sceneNames())->required();
    command.add_option("--set", options.set, "TRACK=VALUE, in place of the track; may come again")
        ->allow_extra_args(false);
    command.add_option("--eye", options.eye, "X,Y,Z: where the camera stands, in world space");
    command.add_option("--target", options.target, "X,Y,Z: what it looks at");
}

} // namespace

void addSceneCommand(CLI::App& app)
{
    CLI::App* const command = app.add_subcommand("scene", "a scene by its name, with tracks of one's own");
    const auto options = std::make_shared<SceneOptions>();
    addPictureOptions(*command, options->picture);
    addPositionOptions(*command, options->position);
    addSceneOptions(*command, *options);
    command->callback([options] { captureScene(*options); });
}

} // namespace tools::capture
