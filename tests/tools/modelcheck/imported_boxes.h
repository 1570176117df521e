#pragma once

#include "tools/modelcheck/imported_mesh.h"
#include "tools/standins/model_boxes.h"

#include <cstddef>
#include <span>

/// Boxes as the show's loader uploads them. Each has 6 sides of 4 vertices and 2 triangles, in the order +x,
/// -x, +y, -y, +z, -z. With nothing wrong, and no overlap on the texture if it is one box.
tools::ImportedMesh importedBoxes(std::span<const tools::Box> boxes);

/// The lid of the toilet's stand-in: a box that fits where the scene puts the lid.
tools::ImportedMesh importedLid();

/// Turns the triangles from `first` on round, and the normals of their corners: what was outside is inside.
void turnInsideOut(tools::ImportedMesh& mesh, std::size_t first);
