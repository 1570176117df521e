#pragma once

#include "tools/modelcheck/imported_mesh.h"
#include "tools/modelcheck/model_rules.h"

namespace tools::modelcheck {

/// Where the model ends, in its own units. It has a vertex.
float measure(const ImportedMesh& mesh, Extent extent);

/// As it stands in a sentence: "lowest x", "distance from the y axis".
const char* nameOf(Extent extent);

} // namespace tools::modelcheck
