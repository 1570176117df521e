#pragma once

#include "engine/scene.h"
#include "sync/syncdevice.h"

/// The six camera tracks, one set that all 3D scenes share.
struct CameraTracks {
    tolv::SyncTrack targetX;
    tolv::SyncTrack targetY;
    tolv::SyncTrack targetZ;
    tolv::SyncTrack positionX;
    tolv::SyncTrack positionY;
    tolv::SyncTrack positionZ;

    /// Looks the tracks up: those of the position first.
    void lookUp(const tolv::SyncDevice& sync);

    glm::vec3 readPosition(const tolv::SyncDevice& sync, double row) const;
    glm::vec3 readTarget(const tolv::SyncDevice& sync, double row) const;
};

/// Points the camera of a scene, upright.
void pointCamera(lumeth::Scene& scene, const glm::vec3& position, const glm::vec3& target);
