#pragma once

#include <cmath>
#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <gtest/gtest.h>

/// Compares element by element, [column][row].
inline void expectNear(const glm::mat4& actual, const glm::mat4& expected, float tolerance)
{
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            EXPECT_NEAR(actual[column][row], expected[column][row], tolerance)
                << "[" << column << "][" << row << "]";
        }
    }
}

/// The matrix of a quaternion by the textbook's formula, without normalisation.
inline glm::mat4 rotationOf(const glm::quat& q)
{
    const float x = q.x;
    const float y = q.y;
    const float z = q.z;
    const float w = q.w;
    return {glm::vec4(1.0F - 2.0F * (y * y + z * z), 2.0F * (x * y + w * z), 2.0F * (x * z - w * y), 0.0F),
            glm::vec4(2.0F * (x * y - w * z), 1.0F - 2.0F * (x * x + z * z), 2.0F * (y * z + w * x), 0.0F),
            glm::vec4(2.0F * (x * z + w * y), 2.0F * (y * z - w * x), 1.0F - 2.0F * (x * x + y * y), 0.0F),
            glm::vec4(0.0F, 0.0F, 0.0F, 1.0F)};
}

/// Translation times scale times rotation, written out: rows of the rotation are scaled.
inline glm::mat4 placed(const glm::vec3& position, const glm::quat& orientation, const glm::vec3& scale)
{
    glm::mat4 matrix = rotationOf(orientation);
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            matrix[column][row] *= scale[row];
        }
    }
    for (int row = 0; row < 3; ++row) {
        matrix[3][row] = position[row];
    }
    return matrix;
}

/// The product written out: what `first` does, then `second`.
inline glm::mat4 productOf(const glm::mat4& second, const glm::mat4& first)
{
    glm::mat4 product(0.0F);
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            for (int k = 0; k < 4; ++k) {
                product[column][row] += second[k][row] * first[column][k];
            }
        }
    }
    return product;
}

/// A turn of no special angle about no axis of the coordinates, so that a matrix that is transposed, or
/// multiplied from the other side, is another one.
inline const glm::quat askew(0.8F, 0.36F, -0.288F, 0.384F);

/// A view matrix: rows x, y, z of the camera, each with its distance from the origin.
inline glm::mat4 viewOf(const glm::dvec3& eye, const glm::dvec3& target, const glm::dvec3& up)
{
    const auto unit = [](const glm::dvec3& v) {
        const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
        return glm::dvec3(v.x / length, v.y / length, v.z / length);
    };
    const auto across = [](const glm::dvec3& a, const glm::dvec3& b) {
        return glm::dvec3(a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x);
    };
    const glm::dvec3 z = unit(eye - target);
    const glm::dvec3 x = unit(across(up, z));
    const glm::dvec3 y = across(z, x);
    const glm::dvec3 axes[] = {x, y, z};
    glm::mat4 matrix(0.0F);
    for (int row = 0; row < 3; ++row) {
        const glm::dvec3& axis = axes[row];
        for (int column = 0; column < 3; ++column) {
            matrix[column][row] = static_cast<float>(axis[column]);
        }
        matrix[3][row] = static_cast<float>(-(axis.x * eye.x + axis.y * eye.y + axis.z * eye.z));
    }
    matrix[3][3] = 1.0F;
    return matrix;
}

/// The projection with the horizontal field of view, written out in double precision.
inline glm::mat4 projectionOf(double fieldOfView, double aspect, double near, double far)
{
    const double s = 1.0 / std::tan(fieldOfView / 2.0);
    glm::mat4 matrix(0.0F);
    matrix[0][0] = static_cast<float>(s);
    matrix[1][1] = static_cast<float>(s * aspect);
    matrix[2][2] = static_cast<float>(-(far + near) / (far - near));
    matrix[2][3] = -1.0F;
    matrix[3][2] = static_cast<float>(-2.0 * far * near / (far - near));
    return matrix;
}
