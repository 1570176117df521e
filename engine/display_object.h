#pragma once

#include "engine/material.h"
#include "gl/texture.h"
#include "gl/vertex-array.h"

#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <memory>

namespace lumeth {

/// What is drawn: a mesh with its textures, its material and the constants of its surface. Where it is drawn
/// is told by the `DisplayListItem`s that name it. A new one is all zeros.
struct DisplayObject {
    glm::mat4 modelMatrix{0.0F};     ///< the mesh's own transform, inside the item's
    zund::Texture colorTexture;      ///< unit 0; invalid: flat `color`
    zund::Texture normalTexture;     ///< unit 1, in tangent space; invalid: the surface's own normal
    zund::Texture emissivityTexture; ///< unit 2; invalid: emits nothing
    zund::VertexArray vertexArray;
    std::unique_ptr<Material> material; ///< null: the scene's stock material
    glm::vec3 color{0.0F};              ///< gamma-encoded
    float ambient = 0.0F;               ///< scales the fixed ambient light
    float diffuse = 0.0F;               ///< scales every light's diffuse term
    float specular = 0.0F;              ///< scales every light's specular term
    float shininess = 0.0F;             ///< Phong exponent
    bool transparent = false;           ///< cuts holes where the colour is pure black
};

} // namespace lumeth
