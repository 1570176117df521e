#pragma once

#include "tools/modelcheck/finding.h"
#include "tools/modelcheck/imported_mesh.h"
#include "tools/modelcheck/ray_caster.h"

#include <array>
#include <span>
#include <vector>

namespace tools::modelcheck {

/// The faces of a model on welded vertices, so that what a hard edge or a seam has split counts as joined.
/// Borrows the mesh, all of whose positions are finite.
class Surface {
public:
    using Triangle = std::array<unsigned int, 3>;
    using Edge = std::array<unsigned int, 2>;

    /// A side of a triangle.
    struct Side {
        Edge edge; ///< the lower vertex first
        unsigned int triangle;
    };

    explicit Surface(const ImportedMesh& mesh);

    /// Diagonal of the bounding box, in model units.
    [[nodiscard]] float diagonal() const { return size; }

    /// The mesh's triangles, in its order, with the corners welded.
    [[nodiscard]] const std::vector<Triangle>& weldedTriangles() const { return triangles; }
    /// The sides that lie on one edge, for each edge; collapsed triangles have none.
    [[nodiscard]] std::vector<std::span<const Side>> sidesByEdge() const;
    [[nodiscard]] glm::vec3 middleOfEdge(const Edge& edge) const;
    /// For each vertex the one that represents its connected component; it tells something about welded ones.
    [[nodiscard]] std::vector<unsigned int> connectedComponents() const;

    /// Points, lines and slivers: their face normal would be the noise of rounding.
    [[nodiscard]] Finding degenerateTriangles() const;
    /// Triangles between the same three vertices as another, whichever way they are wound.
    [[nodiscard]] Finding duplicateTriangles() const;
    /// Triangles that are wound clockwise as seen from where their normals point.
    [[nodiscard]] Finding trianglesAgainstNormals() const;
    /// Edges with a triangle on one side only.
    [[nodiscard]] Finding boundaryEdges() const;
    /// Those of them that are neither inside the model nor covered by it. `caster` is of the mesh.
    [[nodiscard]] Finding visibleBoundaryEdges(const RayCaster& caster) const;
    /// Triangles whose back can be seen from outside, through where their connected component is open.
    /// `caster` is of the mesh.
    [[nodiscard]] Finding visibleBacks(const RayCaster& caster) const;
    /// Closed connected components, each counted once, whose triangles face inwards.
    [[nodiscard]] Finding componentsInsideOut() const;

private:
    [[nodiscard]] bool hasArea(const std::array<glm::vec3, 3>& corners) const;

    const ImportedMesh& mesh;
    float size;
    std::vector<Triangle> triangles; ///< of welded vertices
    std::vector<Side> sides;         ///< in order of their edges
    std::vector<Edge> boundary;      ///< in order of their vertices
};

} // namespace tools::modelcheck
