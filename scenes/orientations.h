#pragma once

#include <cmath>
#include <glm/gtc/quaternion.hpp>
#include <glm/vec3.hpp>

/// How the scenes write a rotation. A half turn is 3.14 and not pi: the small deviation is part of the
/// picture.
namespace orientations {

/// x, y, z, w as they stand, never normalised.
constexpr glm::quat xyzw(float x, float y, float z, float w)
{
    return {w, x, y, z};
}

/// Turns nothing, the same as the identity.
constexpr glm::quat none = xyzw(0.0F, 0.0F, 0.0F, 0.0F);

// Turns about the Y axis, named by their share of a half turn, in tenths.
constexpr glm::quat y01 = xyzw(0.0F, 0.1563558F, 0.0F, 0.9877008F);         // 0.314
constexpr glm::quat y04 = xyzw(0.0F, 0.5875275F, 0.0F, 0.8092042F);         // 1.256
constexpr glm::quat y05 = xyzw(0.0F, 0.7068252F, 0.0F, 0.7073882F);         // 1.57
constexpr glm::quat yMinus05 = xyzw(-0.0F, -0.7068252F, -0.0F, 0.7073882F); // -1.57
constexpr glm::quat y06 = xyzw(0.0F, 0.8087361F, 0.0F, 0.5881717F);         // 1.884
constexpr glm::quat y10 = xyzw(0.0F, 0.9999997F, 0.0F, 0.0007962743F);      // 3.14
constexpr glm::quat y13 = xyzw(0.0F, 0.8914761F, 0.0F, -0.4530678F);        // 4.082

constexpr glm::vec3 xAxis = {1.0F, 0.0F, 0.0F};
constexpr glm::vec3 yAxis = {0.0F, 1.0F, 0.0F};

/// The rotation by `angle`, in radians, about an axis of length 1.
inline glm::quat angleAxis(float angle, const glm::vec3& axis)
{
    const float half = angle * 0.5F;
    const float s = std::sin(half);
    return xyzw(axis.x * s, axis.y * s, axis.z * s, std::cos(half));
}

} // namespace orientations
