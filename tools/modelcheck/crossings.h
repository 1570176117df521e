#pragma once

#include "tools/modelcheck/finding.h"
#include "tools/modelcheck/imported_mesh.h"
#include "tools/modelcheck/ray_caster.h"
#include "tools/modelcheck/surface.h"

namespace tools::modelcheck {

/// Where surfaces go through each other.
struct Crossings {
    /// Triangles that go through another one of their own connected component, without being its neighbour at
    /// a vertex: surfaces that fold over, insets that are wider than their corner.
    Finding folds;
    Finding parts; ///< pairs of connected components that go through each other
};

/// `caster` is of the mesh.
Crossings findCrossings(const ImportedMesh& mesh, const Surface& surface, const RayCaster& caster);

} // namespace tools::modelcheck
