#pragma once

#include "tests/standins/model_boxes.h"

#include <cstdint>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <span>
#include <vector>

namespace standins {

/// Triangles with all that a model of the show has at a vertex.
struct Mesh {
    std::vector<glm::vec3> positions;
    std::vector<glm::vec3> normals;
    std::vector<glm::vec2> uvs; ///< from the top left of the picture
    std::vector<std::uint16_t> indices;
};

/// Boxes with flat faces, four vertices each. All boxes share the picture, which is cut into 3 columns for
/// the axes x, y, z and 2 rows for the faces to the positive side, above, and to the negative one.
Mesh meshOf(std::span<const Box> boxes);

} // namespace standins
