#include "scenes/camera.h"

#include "scenes/orientations.h"

void CameraTracks::lookUp(const tolv::SyncDevice& sync)
{
    positionX = sync.getTrack("camera_pos_x");
    positionY = sync.getTrack("camera_pos_y");
    positionZ = sync.getTrack("camera_pos_z");
    targetX = sync.getTrack("camera_tgt_x");
    targetY = sync.getTrack("camera_tgt_y");
    targetZ = sync.getTrack("camera_tgt_z");
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
