#include "tools/modelcheck/ray_caster.h"

#include <algorithm>
#include <glm/common.hpp>
#include <glm/geometric.hpp>

namespace tools::modelcheck {

namespace {

constexpr std::size_t facesInLeaf = 4;

bool meetsBlock(const glm::vec3& low, const glm::vec3& high, const glm::vec3& origin,
                const glm::vec3& direction)
{
    const glm::vec3 toLow = (low - origin) / direction;
    const glm::vec3 toHigh = (high - origin) / direction;
    const glm::vec3 in = glm::min(toLow, toHigh);
    const glm::vec3 out = glm::max(toLow, toHigh);
    return std::min({out.x, out.y, out.z}) >= std::max({in.x, in.y, in.z, 0.0F});
}

/// After Moeller and Trumbore: solves for the distance and two of the barycentric coordinates.
bool meetsTriangle(const std::array<glm::vec3, 3>& corners, const glm::vec3& origin,
                   const glm::vec3& direction)
{
    const glm::vec3 right = corners[1] - corners[0];
    const glm::vec3 up = corners[2] - corners[0];
    const glm::vec3 across = glm::cross(direction, up);
    const float determinant = glm::dot(right, across);
    if (determinant == 0.0F) {
        return false;
    }
    const glm::vec3 from = origin - corners[0];
    const glm::vec3 other = glm::cross(from, right);
    const float u = glm::dot(from, across) / determinant;
    const float v = glm::dot(direction, other) / determinant;
    const float distance = glm::dot(up, other) / determinant;
    return u >= 0.0F && v >= 0.0F && u + v <= 1.0F && distance > 0.0F;
}

glm::length_t longestAxis(const glm::vec3& size)
{
    if (size.x >= size.y && size.x >= size.z) {
        return 0;
    }
    return size.y >= size.z ? 1 : 2;
}

} // namespace

RayCaster::RayCaster(const ImportedMesh& mesh)
{
    for (const auto& triangle : mesh.triangles) {
        const auto corners = cornersOf(mesh, triangle);
        faces.push_back({corners, middleOf(corners)});
    }
    addBlock(0, faces.size());
}

void RayCaster::addBlock(std::size_t first, std::size_t count)
{
    Block block{faces[first].corners[0], faces[first].corners[0], first, count, 0};
    for (std::size_t i = first; i < first + count; ++i) {
        for (const glm::vec3& corner : faces[i].corners) {
            block.low = glm::min(block.low, corner);
            block.high = glm::max(block.high, corner);
        }
    }
    const std::size_t index = blocks.size();
    blocks.push_back(block);
    if (count <= facesInLeaf) {
        return;
    }
    const glm::length_t axis = longestAxis(block.high - block.low);
    const auto start = faces.begin() + static_cast<std::ptrdiff_t>(first);
    const std::size_t half = count / 2;
    std::nth_element(start, start + static_cast<std::ptrdiff_t>(half),
                     start + static_cast<std::ptrdiff_t>(count),
                     [axis](const Face& a, const Face& b) { return a.middle[axis] < b.middle[axis]; });
    addBlock(first, half);
    blocks[index].count = 0;
    blocks[index].second = blocks.size();
    addBlock(first + half, count - half);
}

bool RayCaster::hits(const glm::vec3& origin, const glm::vec3& direction) const
{
    return hitsIn(0, origin, direction);
}

bool RayCaster::hitsIn(std::size_t index, const glm::vec3& origin, const glm::vec3& direction) const
{
    const Block& block = blocks[index];
    if (!meetsBlock(block.low, block.high, origin, direction)) {
        return false;
    }
    if (block.count == 0) {
        return hitsIn(index + 1, origin, direction) || hitsIn(block.second, origin, direction);
    }
    const auto start = faces.begin() + static_cast<std::ptrdiff_t>(block.first);
    return std::any_of(start, start + static_cast<std::ptrdiff_t>(block.count),
                       [&](const Face& face) { return meetsTriangle(face.corners, origin, direction); });
}

} // namespace tools::modelcheck
