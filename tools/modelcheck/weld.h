#pragma once

#include <glm/vec3.hpp>
#include <span>
#include <vector>

namespace tools::modelcheck {

/// Finds which vertices lie at one point, as those do that an edge or a seam of the texture has split. For
/// each, one of them that stands for all: two at most `distance` apart have the same.
std::vector<unsigned int> weld(std::span<const glm::vec3> positions, float distance);

} // namespace tools::modelcheck
