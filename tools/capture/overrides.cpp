#include "tools/capture/overrides.h"

#include "scenes/scene_numbers.h"
#include "tools/capture/values.h"
#include "tools/common/error.h"

#include <cmath>

namespace tools {

namespace {

/// What the scene takes a half turn for.
constexpr float halfTurn = 3.14F;

/// Sets three of the camera's tracks, from the `first` one on.
void setPoint(Overrides& overrides, const SceneTracks& scene, std::size_t first, glm::vec3 point,
              const std::string& place)
{
    for (glm::length_t i = 0; i < glm::vec3::length(); ++i) {
        const std::string track(cameraTracks()[first + static_cast<std::size_t>(i)]);
        checkTrack(scene, track, place);
        overrides[track] = point[i];
    }
}

glm::vec3 polarOf(glm::vec3 eye)
{
    return {std::atan2(eye.z, eye.x) / halfTurn, eye.y, std::hypot(eye.x, eye.z)};
}

} // namespace

void setTrack(Overrides& overrides, const SceneTracks& scene, const std::string& text)
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

void setEye(Overrides& overrides, const SceneTracks& scene, glm::vec3 eye, const std::string& place)
{
    setPoint(overrides, scene, 0, scene.number == scene_numbers::people ? polarOf(eye) : eye, place);
}

void setTarget(Overrides& overrides, const SceneTracks& scene, glm::vec3 target, const std::string& place)
{
    setPoint(overrides, scene, 3, target, place);
}

} // namespace tools
