#pragma once

#include "tools/modelcheck/finding.h"
#include "tools/modelcheck/imported_mesh.h"

#include <array>
#include <vector>

namespace tools::modelcheck {

/// The faces of a model, with the vertices that lie at one point taken for one, so that what an edge or a
/// seam has split counts as joined. Borrows the mesh, all of whose positions are finite.
class Surface {
public:
    explicit Surface(const ImportedMesh& mesh);

    /// From the lowest to the highest corner of the block around the model, in model units.
    [[nodiscard]] float diagonal() const { return size; }

    /// Triangles too small or too narrow to show: their direction would be the noise of rounding.
    [[nodiscard]] Finding trianglesWithoutArea() const;
    /// Triangles that lie just where another lies, whichever way round.
    [[nodiscard]] Finding doubledTriangles() const;
    /// Triangles that are wound clockwise as seen from where their normals point.
    [[nodiscard]] Finding trianglesAgainstNormals() const;
    /// Edges with a triangle on one side only.
    [[nodiscard]] Finding openEdges() const;
    /// Those of them that are neither inside the model nor covered by it.
    [[nodiscard]] Finding visibleOpenEdges() const;
    /// Closed parts, each counted once, whose triangles face inwards.
    [[nodiscard]] Finding partsInsideOut() const;

private:
    using Triangle = std::array<unsigned int, 3>;
    using Edge = std::array<unsigned int, 2>;

    [[nodiscard]] glm::vec3 middleOfEdge(const Edge& edge) const;
    [[nodiscard]] bool hasArea(const std::array<glm::vec3, 3>& corners) const;
    /// For each vertex, one of the part that it belongs to.
    [[nodiscard]] std::vector<unsigned int> partOfEachVertex() const;

    const ImportedMesh& mesh;
    float size;
    std::vector<Triangle> triangles; ///< of welded vertices
    std::vector<Edge> open;          ///< in order of their vertices
};

} // namespace tools::modelcheck
