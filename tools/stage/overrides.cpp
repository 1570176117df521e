#include "tools/stage/overrides.h"

#include "scenes/camera.h"
#include "tools/common/error.h"
#include "tools/stage/values.h"

namespace tools::stage {

namespace {

/// Sets three of the camera's tracks, from the `first` one on.
void setPoint(Overrides& overrides, const catalogue::Scene& scene, std::size_t first, glm::vec3 point,
              const std::string& place)
{
    for (glm::length_t i = 0; i < glm::vec3::length(); ++i) {
        const std::string track = catalogue::tracks::camera[first + static_cast<std::size_t>(i)]->name;
        checkTrack(scene, track, place);
        overrides[track] = point[i];
    }
}

} // namespace

void setTrack(Overrides& overrides, const catalogue::Scene& scene, const std::string& text)
{
    const std::string place = "--set " + text;
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        throw Error(place, "expected TRACK=VALUE");
    }
    const std::string track = text.substr(0, equals);
    checkTrack(scene, track, place);
    overrides[track] = static_cast<float>(parseNumber(place, text.substr(equals + 1)));
}

void setEye(Overrides& overrides, const catalogue::Scene& scene, glm::vec3 eye, const std::string& place)
{
    const bool onOrbit = scene.camera == catalogue::CameraForm::Orbit;
    setPoint(overrides, scene, 0, onOrbit ? orbitTracks(eye) : eye, place);
}

void setTarget(Overrides& overrides, const catalogue::Scene& scene, glm::vec3 target,
               const std::string& place)
{
    setPoint(overrides, scene, 3, target, place);
}

} // namespace tools::stage
