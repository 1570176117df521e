#include "tools/showcheck/camera_path.h"

#include "scenes/camera.h"
#include "scenes/catalogue.h"

namespace tools::showcheck {

namespace {

constexpr double oneInstant = 1e-6; // of a row

CameraPose poseAt(const CameraTracks& tracks, const tolv::SyncDevice& sync, float scene, double row)
{
    const glm::dvec3 place(tracks.readPosition(sync, row));
    const catalogue::Scene* const found = catalogue::findScene(scene);
    const bool onOrbit = found != nullptr && found->camera == catalogue::CameraForm::Orbit;
    return {onOrbit ? orbitPlace(place) : place, glm::dvec3(tracks.readTarget(sync, row))};
}

} // namespace

std::vector<CameraRow> readCameraPath(const tolv::SyncDevice& sync, std::int32_t first, std::int32_t end)
{
    CameraTracks tracks;
    tracks.lookUp(sync);
    const tolv::SyncTrack sceneTrack = sync.getTrack(catalogue::tracks::scene.name);
    std::vector<CameraRow> rows;
    for (std::int32_t row = first; row < end; ++row) {
        const float scene = sync.getValue(sceneTrack, row);
        rows.push_back({row, scene, poseAt(tracks, sync, scene, row),
                        poseAt(tracks, sync, scene, row + 1 - oneInstant)});
    }
    return rows;
}

} // namespace tools::showcheck
