#pragma once

#include "tools/stage/scene_tracks.h"

#include <glm/vec3.hpp>
#include <map>
#include <string>
#include <vector>

namespace tools::stage {

/// Values that stand in for whole tracks, by the tracks' names.
using Overrides = std::map<std::string, float>;

/// Reads TRACK=VALUE into `overrides`; a track that is told twice takes the later value.
/// Throws `Error` "--set TEXT: REASON" for a bad form, or a track that the scene doesn't read.
void setTrack(Overrides& overrides, const catalogue::Scene& scene, const std::string& text);

/// Places the camera of the scene in world space. The people's camera runs on a circle about the y axis, and
/// its tracks are angle, height and radius: they are worked out from the point. Throws `Error` with `place`
/// if the scene has no camera.
void setEye(Overrides& overrides, const catalogue::Scene& scene, glm::vec3 eye, const std::string& place);

/// Points the camera of the scene at a point of world space. Throws as `setEye`.
void setTarget(Overrides& overrides, const catalogue::Scene& scene, glm::vec3 target,
               const std::string& place);

} // namespace tools::stage
