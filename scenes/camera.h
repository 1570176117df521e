#pragma once

#include "engine/scene.h"
#include "sync/syncdevice.h"

#include <cmath>
#include <glm/vec3.hpp>

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

/// Where a camera stands on its orbit about the upright axis: the tracks of its place hold the angle in half
/// turns, the height and the radius. In the precision of the vector.
template<typename Vector>
Vector orbitPlace(const Vector& polar)
{
    const auto angle = polar.x * static_cast<typename Vector::value_type>(3.14);
    return Vector(std::cos(angle) * polar.z, polar.y, polar.z * std::sin(angle));
}

/// What the tracks hold for a place on an orbit: `orbitPlace` turned round.
inline glm::vec3 orbitTracks(const glm::vec3& place)
{
    return {std::atan2(place.z, place.x) / 3.14F, place.y, std::hypot(place.x, place.z)};
}

/// Points the camera of a scene, upright.
void pointCamera(lumeth::Scene& scene, const glm::vec3& position, const glm::vec3& target);
