#include "scenes/camera.h"

#include "scenes/catalogue.h"
#include "scenes/orientations.h"

void CameraTracks::lookUp(const tolv::SyncDevice& sync)
{
    namespace tracks = catalogue::tracks;
    positionX = sync.getTrack(tracks::camera_pos_x.name);
    positionY = sync.getTrack(tracks::camera_pos_y.name);
    positionZ = sync.getTrack(tracks::camera_pos_z.name);
    targetX = sync.getTrack(tracks::camera_tgt_x.name);
    targetY = sync.getTrack(tracks::camera_tgt_y.name);
    targetZ = sync.getTrack(tracks::camera_tgt_z.name);
}

glm::vec3 CameraTracks::readPosition(const tolv::SyncDevice& sync, double row) const
{
    return {sync.getValue(positionX, row), sync.getValue(positionY, row), sync.getValue(positionZ, row)};
}

glm::vec3 CameraTracks::readTarget(const tolv::SyncDevice& sync, double row) const
{
    return {sync.getValue(targetX, row), sync.getValue(targetY, row), sync.getValue(targetZ, row)};
}

void pointCamera(lumeth::Scene& scene, const glm::vec3& position, const glm::vec3& target)
{
    scene.lookAt(position, target, orientations::yAxis);
}
