#pragma once

#include "tools/modelcheck/imported_mesh.h"

namespace tools::modelcheck {

/// How much of the picture that a model uses lies under more than one triangle, from 0 to 1; 0 if it uses
/// nothing. Looks at the middles of 1024 by 1024 cells; triangles that only share an edge don't overlap.
double uvOverlap(const ImportedMesh& mesh);

} // namespace tools::modelcheck
