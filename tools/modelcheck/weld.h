#pragma once

#include <glm/vec3.hpp>
#include <span>
#include <vector>

namespace tools::modelcheck {

/// Welds vertices that lie at one point, as those do that a hard edge or a seam of the texture has split.
/// Gives for each vertex the one that represents it: two at most `distance` apart have the same.
std::vector<unsigned int> weld(std::span<const glm::vec3> positions, float distance);

} // namespace tools::modelcheck
