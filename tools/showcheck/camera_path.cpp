#include "tools/showcheck/camera_path.h"

#include "scenes/camera.h"
#include "scenes/scene_numbers.h"

#include <cmath>

namespace tools {

namespace {

constexpr double oneInstant = 1e-6; // of a row

CameraPose poseAt(const CameraTracks& tracks, const tolv::SyncDevice& sync, float scene, double row)
{
    glm::dvec3 eye(tracks.readPosition(sync, row));
    if (scene == scene_numbers::people) {
        const double angle = eye.x * 3.14;
        eye = {std::cos(angle) * eye.z, eye.y, std::sin(angle) * eye.z};
    }
    return {eye, glm::dvec3(tracks.readTarget(sync, row))};
}

} // namespace

std::vector<CameraRow> readCameraPath(const tolv::SyncDevice& sync, std::int32_t first, std::int32_t end)
{
    CameraTracks tracks;
    tracks.lookUp(sync);
    const tolv::SyncTrack sceneTrack = sync.getTrack("scene");
    std::vector<CameraRow> rows;
    for (std::int32_t row = first; row < end; ++row) {
        const float scene = sync.getValue(sceneTrack, row);
        rows.push_back({row, scene, poseAt(tracks, sync, scene, row),
                        poseAt(tracks, sync, scene, row + 1 - oneInstant)});
    }
    return rows;
}

} // namespace tools
