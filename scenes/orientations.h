#pragma once

#include <glm/gtc/quaternion.hpp>
#include <glm/vec3.hpp>

#include <cmath>

/// How the scenes write a rotation. A half turn is 3.14 and not pi: the small deviation is part of the picture.
namespace orientations {

/// x, y, z, w as they stand, never normalised.
inline glm::quat xyzw(float x, float y, float z, float w) { return {w, x, y, z}; }

inline const glm::quat none = xyzw(0.0F, 0.0F, 0.0F, 0.0F);

// Turns about the Y axis, named by their share of a half turn.
inline const glm::quat y01 = xyzw(0.0F, 0.1563558F, 0.0F, 0.9877008F);       // 0.314
inline const glm::quat y04 = xyzw(0.0F, 0.5875275F, 0.0F, 0.8092042F);       // 1.256
inline const glm::quat y05 = xyzw(0.0F, 0.7068252F, 0.0F, 0.7073882F);       // 1.57
inline const glm::quat yMinus05 = xyzw(-0.0F, -0.7068252F, -0.0F, 0.7073882F); // -1.57
inline const glm::quat y06 = xyzw(0.0F, 0.8087361F, 0.0F, 0.5881717F);       // 1.884
inline const glm::quat y10 = xyzw(0.0F, 0.9999997F, 0.0F, 0.0007962743F);    // 3.14
inline const glm::quat y13 = xyzw(0.0F, 0.8914761F, 0.0F, -0.4530678F);      // 4.082

/// The rotation by `angle`, in radians, about an axis of length 1.
inline glm::quat angleAxis(float angle, glm::vec3 const& axis)
{
    const float half = angle * 0.5F;
    const float s = std::sin(half);
    return xyzw(axis.x * s, axis.y * s, axis.z * s, std::cos(half));
}

} // namespace orientations
