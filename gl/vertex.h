#pragma once

#include <glm/vec3.hpp>

namespace zund {

/// A corner of the full-screen triangle: `x`, `y`, `z` and a texture coordinate.
struct Vertex : glm::vec3 {
    Vertex(float x, float y, float z) : glm::vec3(x, y, z) {}

    /// The position, in place.
    glm::vec3& getPos() { return *this; }
    const glm::vec3& getPos() const { return *this; }

    float u = 0.0F;
    float v = 0.0F;
};

} // namespace zund
