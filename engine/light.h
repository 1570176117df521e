#pragma once

#include <cstddef>
#include <glm/vec3.hpp>

namespace lumeth {

/// The number of lights that reach the shaders: the first ones of a scene's list. Stands in the GLSL texts
/// too.
constexpr std::size_t LIGHTS_MAX = 8;

/// A point light in world space. It does not fade with distance.
struct Light {
    glm::vec3 position;
    glm::vec3 diffuse;  ///< colour and strength, not limited to 1
    glm::vec3 specular; ///< colour and strength, not limited to 1
};

} // namespace lumeth
