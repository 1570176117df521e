#include "tools/modelcheck/crossings.h"

#include <algorithm>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <set>
#include <span>
#include <utility>

namespace tools::modelcheck {

namespace {

/// Of the diagonal: a point that is as near to a triangle's plane lies on it.
constexpr double smallestDepth = 1e-5;

bool areNeighbours(const Surface::Triangle& one, const Surface::Triangle& other)
{
    return std::find_first_of(one.begin(), one.end(), other.begin(), other.end()) != one.end();
}

/// Looks which triangles the edges of others go through.
class Search {
public:
    Search(const ImportedMesh& mesh, const Surface& surface, const RayCaster& caster)
        : mesh(mesh),
          surface(surface),
          caster(caster),
          component(surface.connectedComponents()),
          folds(mesh.triangles.size(), false)
    {
    }

    Crossings run()
    {
        for (const auto sides : surface.sidesByEdge()) {
            lookAlong(sides);
        }
        for (std::size_t i = 0; i < folds.size(); ++i) {
            if (folds[i]) {
                found.folds.add(middleOf(cornersOf(mesh, mesh.triangles[i])));
            }
        }
        return found;
    }

private:
    void lookAlong(std::span<const Surface::Side> sides)
    {
        const glm::vec3 ends[] = {mesh.positions[sides[0].edge[0]], mesh.positions[sides[0].edge[1]]};
        caster.forEachBetween(ends[0], ends[1], [&](unsigned int crossed) {
            if (cuts(crossed, ends)) {
                for (const Surface::Side& side : sides) {
                    note(side, crossed);
                }
            }
        });
    }

    /// Whether some of the points lie clearly on either side of the triangle's plane.
    bool cuts(unsigned int triangle, std::span<const glm::vec3> points) const
    {
        const auto corners = cornersOf(mesh, mesh.triangles[triangle]);
        const glm::dvec3 origin = corners[0];
        const glm::dvec3 normal =
            glm::cross(glm::dvec3(corners[1]) - origin, glm::dvec3(corners[2]) - origin);
        const double depth = smallestDepth * surface.diagonal() * glm::length(normal);
        bool above = false;
        bool below = false;
        for (const glm::vec3& point : points) {
            const double height = glm::dot(normal, glm::dvec3(point) - origin);
            above = above || height > depth;
            below = below || height < -depth;
        }
        return above && below;
    }

    void note(const Surface::Side& side, unsigned int crossed)
    {
        const Surface::Triangle& own = surface.weldedTriangles()[side.triangle];
        const Surface::Triangle& other = surface.weldedTriangles()[crossed];
        // A side that lies in a face may touch the foot of what stands there.
        if (areNeighbours(own, other) || !cuts(side.triangle, cornersOf(mesh, mesh.triangles[crossed]))) {
            return;
        }
        const auto parts = std::minmax(component[own[0]], component[other[0]]);
        if (parts.first == parts.second) {
            folds[side.triangle] = true;
        } else if (crossing.emplace(parts).second) {
            found.parts.add(surface.middleOfEdge(side.edge));
        }
    }

    const ImportedMesh& mesh;
    const Surface& surface;
    const RayCaster& caster;
    std::vector<unsigned int> component;
    std::vector<bool> folds;                                  ///< by triangle
    std::set<std::pair<unsigned int, unsigned int>> crossing; ///< connected components
    Crossings found;
};

} // namespace

Crossings findCrossings(const ImportedMesh& mesh, const Surface& surface, const RayCaster& caster)
{
    return Search(mesh, surface, caster).run();
}

} // namespace tools::modelcheck
