#pragma once

#include "tools/showcheck/camera_path.h"
#include "tools/showcheck/findings.h"

#include <span>

namespace tools::showcheck {

/// What a camera keeps to between two cuts. Turns are those of the whole picture, about any axis.
struct CameraLimits {
    float scene;             ///< value of the track "scene"
    double speed;            ///< units a second
    double turn;             ///< degrees a second
    double acceleration;     ///< units a second, a second
    double turnAcceleration; ///< degrees a second, a second
};

/// Those of a scene; null for one without a camera.
const CameraLimits* findCameraLimits(float scene);

/// Looks at rows that follow one another. A cut is where the scene changes, or where the camera is elsewhere
/// without having moved there; it has to fall on a beat. Between cuts the camera keeps to its scene's limits.
void judgeCamera(std::span<const CameraRow> rows, Findings& findings);

} // namespace tools::showcheck
