#pragma once

#include <glm/mat4x4.hpp>

namespace lumeth {

/// Perspective projection whose field of view, in radians, is the horizontal one: a wider screen shows less
/// above and below. `aspect` is width by height; `near` and `far` are distances from the eye, above 0.
glm::mat4 matPerspective(float fieldOfView, float aspect, float near, float far);

} // namespace lumeth
