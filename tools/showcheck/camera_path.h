#pragma once

#include "sync/syncdevice.h"

#include <cstdint>
#include <glm/vec3.hpp>
#include <vector>

namespace tools::showcheck {

/// Where the camera stands and what it looks at, in world space.
struct CameraPose {
    glm::dvec3 eye;
    glm::dvec3 target;
};

/// What the timeline has in store for one of its rows.
struct CameraRow {
    std::int32_t row;
    float scene;      ///< value of the track "scene"
    CameraPose begin; ///< at the row
    CameraPose end;   ///< one instant before the next one
};

/// The rows from `first` up to but without `end`, by the tracks as the scenes read them: among the people the
/// place is angle, height and radius.
std::vector<CameraRow> readCameraPath(const tolv::SyncDevice& sync, std::int32_t first, std::int32_t end);

} // namespace tools::showcheck
