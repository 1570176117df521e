#include "tools/capture/scene_tracks.h"

#include "scenes/scene_numbers.h"
#include "tools/common/error.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <vector>

namespace tools {

namespace {

// clang-format off
constexpr std::string_view camera[] = {
    "camera_pos_x", "camera_pos_y", "camera_pos_z", "camera_tgt_x", "camera_tgt_y", "camera_tgt_z",
};
constexpr std::string_view roomTracks[] = {"debug"};
constexpr std::string_view burgerTracks[] = {
    "burger_rotate", "burger_pitch", "box_open", "burger_open", "burger_random", "burger_text",
};
constexpr std::string_view toiletTracks[] = {"burger_rotate", "lid_rotate"};
constexpr std::string_view peopleTracks[] = {"hat_r"};

constexpr SceneTracks scenes[] = {
    // name      others         number                  camera
    {"room",    roomTracks,    scene_numbers::room,    true},
    {"credits", {},            scene_numbers::credits, false},
    {"bottle",  {},            scene_numbers::bottle,  true},
    {"burger",  burgerTracks,  scene_numbers::burger,  true},
    {"toilet",  toiletTracks,  scene_numbers::toilet,  true},
    {"people",  peopleTracks,  scene_numbers::people,  true},
};
// clang-format on

std::string allScenes()
{
    std::string text;
    for (const SceneTracks& scene : scenes) {
        text += fmt::format("{}{}", text.empty() ? "" : ", ", scene.name);
    }
    return text;
}

std::vector<std::string_view> tracksOf(const SceneTracks& scene)
{
    std::vector<std::string_view> tracks;
    if (scene.hasCamera) {
        tracks.assign(std::begin(camera), std::end(camera));
    }
    tracks.insert(tracks.end(), scene.others.begin(), scene.others.end());
    return tracks;
}

} // namespace

std::span<const std::string_view> cameraTracks()
{
    return camera;
}

const SceneTracks& findScene(std::string_view name)
{
    const auto* const found = std::find_if(std::begin(scenes), std::end(scenes),
                                           [name](const SceneTracks& scene) { return scene.name == name; });
    if (found == std::end(scenes)) {
        throw Error(fmt::format("--scene {}", name), "no such scene; there are " + allScenes());
    }
    return *found;
}

void checkTrack(const SceneTracks& scene, std::string_view track, const std::string& place)
{
    const std::vector<std::string_view> tracks = tracksOf(scene);
    if (tracks.empty()) {
        throw Error(place, fmt::format("the {} scene reads no tracks", scene.name));
    }
    if (std::find(tracks.begin(), tracks.end(), track) == tracks.end()) {
        throw Error(place, fmt::format("the {} scene reads no track '{}'; it reads {}", scene.name, track,
                                       fmt::join(tracks, ", ")));
    }
}

} // namespace tools
