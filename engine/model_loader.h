#pragma once

#include "engine/display_object.h"
#include "gl/renderer.h"

#include <string>

/// Reads a binary glTF file with exactly one mesh, which needs normals and texture coordinates, and uploads
/// it.
///
/// The result has `modelMatrix` and `vertexArray` set, all else is zero. The stored v is 1 - v of the file,
/// or -v with `negateV`. Nothing is cached. Says on standard output how many vertices there are. Throws
/// `std::runtime_error`, before anything is uploaded: "failed to import model", "no meshes found!", "only one
/// mesh in model supported", "no vertices?!", "no normals?!", "no tangents?!", "unexpected number of uv
/// components".
lumeth::DisplayObject loadModel(zund::Renderer& renderer, const std::string& path, bool negateV);
