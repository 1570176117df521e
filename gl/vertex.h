#pragma once

#include <cstddef>
#include <glm/vec3.hpp>

namespace zund {

/// A corner of the full-screen triangle: a position and a texture coordinate.
struct Vertex {
    Vertex(float x, float y, float z) : x(x), y(y), z(z) {}

    /// The position, in place.
    glm::vec3& getPos() { return reinterpret_cast<glm::vec3&>(x); }
    const glm::vec3& getPos() const { return reinterpret_cast<const glm::vec3&>(x); }

    float x;
    float y;
    float z;
    float u = 0.0F;
    float v = 0.0F;
};
// What `getPos` rests on: three floats one behind the other, in both.
static_assert(sizeof(glm::vec3) == 3 * sizeof(float) && offsetof(Vertex, z) == 2 * sizeof(float));

} // namespace zund
