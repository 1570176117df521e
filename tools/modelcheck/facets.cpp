#include "tools/modelcheck/facets.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>

namespace tools::modelcheck {

namespace {

constexpr float sameNormal = 0.998F; ///< cosine: normals of one curve that were quantised differ as much

/// Looks at the edges of a model.
class FacetFinder {
public:
    FacetFinder(const ImportedMesh& mesh, const Surface& surface, float pixel)
        : mesh(mesh), surface(surface), pixel(pixel)
    {
    }

    /// Whether the edge of two sides is seen to break a curve.
    [[nodiscard]] bool isCorner(const Surface::Side& one, const Surface::Side& other) const
    {
        return areShadedAsOne(one, other) && isSeen(one, other);
    }

private:
    [[nodiscard]] const glm::vec3& normalAt(const Surface::Side& side, std::size_t end) const
    {
        const Surface::Triangle& welded = surface.weldedTriangles()[side.triangle];
        const auto corner = std::find(welded.begin(), welded.end(), side.edge[end]) - welded.begin();
        return mesh.normals[mesh.triangles[side.triangle][static_cast<std::size_t>(corner)]];
    }

    [[nodiscard]] bool areShadedAsOne(const Surface::Side& one, const Surface::Side& other) const
    {
        return glm::dot(normalAt(one, 0), normalAt(other, 0)) > sameNormal &&
               glm::dot(normalAt(one, 1), normalAt(other, 1)) > sameNormal;
    }

    /// Square to the side's triangle, towards its normals however it is wound; twice its area long.
    [[nodiscard]] glm::vec3 outwards(const Surface::Side& side) const
    {
        const auto corners = cornersOf(mesh, mesh.triangles[side.triangle]);
        const glm::vec3 winding = glm::cross(corners[1] - corners[0], corners[2] - corners[0]);
        return glm::dot(winding, normalAt(side, 0)) < 0.0F ? -winding : winding;
    }

    [[nodiscard]] bool isSeen(const Surface::Side& one, const Surface::Side& other) const
    {
        const glm::vec3 faces[] = {outwards(one), outwards(other)};
        const float areas[] = {glm::length(faces[0]), glm::length(faces[1])};
        const float length = glm::distance(mesh.positions[one.edge[0]], mesh.positions[one.edge[1]]);
        const float width = std::min(areas[0], areas[1]) / length;
        if (!(width > smallestFacet * pixel)) { // nor is it where triangles have no area
            return false;
        }
        const float cosine = glm::dot(faces[0], faces[1]) / (areas[0] * areas[1]);
        const float turn = std::acos(std::clamp(cosine, -1.0F, 1.0F));
        // Between the middle of a chord and its circle, on which the next chord of the width turns so far.
        return width / 2.0F * std::tan(turn / 4.0F) > largestCorner * pixel;
    }

    const ImportedMesh& mesh;
    const Surface& surface;
    float pixel;
};

} // namespace

Finding facets(const ImportedMesh& mesh, const Surface& surface, float pixel)
{
    const FacetFinder finder(mesh, surface, pixel);
    Finding found;
    for (const auto sides : surface.sidesByEdge()) {
        if (sides.size() == 2 && finder.isCorner(sides[0], sides[1])) {
            found.add(surface.middleOfEdge(sides[0].edge));
        }
    }
    return found;
}

} // namespace tools::modelcheck
