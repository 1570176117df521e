#pragma once

#include "gl/renderer.h"

#include <span>

namespace lumeth {

/// The triangle of all full-screen draws, which covers the whole of clip space at depth `z`: 0 in the middle,
/// -1 before everything. `uvs` holds two coordinates for each of its corners, lower left, right, top; empty
/// for none.
zund::VertexArray createFullScreenTriangle(zund::Renderer& renderer, float z = 0.0F,
                                           std::span<const float> uvs = {});

} // namespace lumeth
