#pragma once

#include "tools/modelcheck/imported_mesh.h"

#include <string>

namespace tools::modelcheck {

/// All numbers of the mesh as text: a line for the root node's matrix (column by column), a line a vertex
/// (position, uv, normal, tangent, bitangent), a line a triangle. In hexadecimal, so that equal text is equal
/// to the bit.
std::string dump(const ImportedMesh& mesh);

} // namespace tools::modelcheck
