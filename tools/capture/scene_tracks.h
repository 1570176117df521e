#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tools {

/// A scene, and the tracks that it reads.
struct SceneTracks {
    std::string_view name;
    std::span<const std::string_view> others; ///< besides those of the camera
    float number;
    bool hasCamera;
};

/// What the camera of every scene that has one reads: position, then target.
std::span<const std::string_view> cameraTracks();

/// The scene of that name. Throws `Error` "--scene NAME: no such scene; there are ...".
const SceneTracks& findScene(std::string_view name);

/// Throws `Error` with `place` if the scene doesn't read the track; the sentence names those that it reads.
void checkTrack(const SceneTracks& scene, std::string_view track, const std::string& place);

} // namespace tools
