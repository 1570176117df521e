#include "tools/stage/scene_tracks.h"

#include "tools/common/error.h"

#include <algorithm>
#include <fmt/format.h>

namespace tools::stage {

std::vector<std::string_view> tracksOf(const catalogue::Scene& scene)
{
    std::vector<std::string_view> tracks;
    if (scene.camera != catalogue::CameraForm::None) {
        for (const catalogue::Track* const track : catalogue::tracks::camera) {
            tracks.emplace_back(track->name);
        }
    }
    for (const catalogue::Track* const* track = scene.tracks; *track != nullptr; ++track) {
        tracks.emplace_back((*track)->name);
    }
    return tracks;
}

const catalogue::Scene& findScene(std::string_view name)
{
    const catalogue::Scene* const found = catalogue::find(catalogue::allScenes, name);
    if (found == nullptr) {
        std::vector<std::string_view> names;
        for (const catalogue::Scene& scene : catalogue::allScenes) {
            names.emplace_back(scene.name);
        }
        throw Error(fmt::format("--scene {}", name),
                    fmt::format("no such scene; there are {}", fmt::join(names, ", ")));
    }
    return *found;
}

void checkTrack(const catalogue::Scene& scene, std::string_view track, const std::string& place)
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

} // namespace tools::stage
