#pragma once

#include "tools/modelcheck/finding.h"
#include "tools/modelcheck/imported_mesh.h"
#include "tools/modelcheck/surface.h"

namespace tools::modelcheck {

constexpr float smallestFacet = 6.0F; ///< in pixels
constexpr float largestCorner = 2.0F; ///< in pixels

/// Edges where what is shaded as one curve is seen to be a polygon: the triangles on both sides are wider
/// than `smallestFacet`, and leave the curve by more than `largestCorner`. `pixel` is the size of one in
/// model units.
Finding facets(const ImportedMesh& mesh, const Surface& surface, float pixel);

} // namespace tools::modelcheck
