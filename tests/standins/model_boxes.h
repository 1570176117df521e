#pragma once

#include <glm/vec3.hpp>
#include <span>
#include <string_view>

namespace standins {

/// A block along the axes, between two corners, in the units of its model.
struct Box {
    glm::vec3 low;
    glm::vec3 high;
};

/// A model of the show, roughly: NAME.glb.
struct ModelBoxes {
    std::string_view name;
    std::span<const Box> boxes;
};

/// All models that the scenes load. Origin and size are what the scenes' placements ask for.
std::span<const ModelBoxes> standInModels();

/// The row of `name`, null if the show has no such model.
const ModelBoxes* findModel(std::string_view name);

} // namespace standins
