#pragma once

#include "tests/standins/model_boxes.h"
#include "tools/modelcheck/imported_mesh.h"

#include <cstddef>
#include <span>

/// Boxes as the show's loader uploads them. Each has 6 sides of 4 vertices and 2 triangles, in the order +x,
/// -x, +y, -y, +z, -z. With nothing wrong, and no overlap on the texture if it is one box.
tools::modelcheck::ImportedMesh importedBoxes(std::span<const standins::Box> boxes);

/// The lid of the toilet's stand-in: a box that fits where the scene puts the lid.
tools::modelcheck::ImportedMesh importedLid();

/// A block with a post that comes out of its top, z = 4. Both have one corner, so that they are one part.
tools::modelcheck::ImportedMesh foldedBoxes();

/// Turns the triangles from `first` on round, and the normals of their corners: what was outside is inside.
void turnInsideOut(tools::modelcheck::ImportedMesh& mesh, std::size_t first);
