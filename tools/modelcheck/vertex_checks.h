#pragma once

#include "tools/modelcheck/finding.h"
#include "tools/modelcheck/imported_mesh.h"

namespace tools::modelcheck {

/// Vertices with a NaN or an infinity anywhere.
Finding nonFiniteVertices(const ImportedMesh& mesh);

// What follows is about meshes in which all is finite.

Finding nonUnitNormals(const ImportedMesh& mesh);
Finding nonUnitTangents(const ImportedMesh& mesh);
Finding nonUnitBitangents(const ImportedMesh& mesh);

/// Vertices whose normal, tangent and bitangent lie nearly in one plane. The stock shader orthogonalises
/// them, with or without a normal map, and has nothing left to normalise then.
Finding degenerateTangentFrames(const ImportedMesh& mesh);

/// Vertices whose texture coordinates lie outside of the picture.
Finding uvsOutside(const ImportedMesh& mesh);

} // namespace tools::modelcheck
