#pragma once

#include "gl/renderer.h"

#include <utility>

// Pictures over the whole frame: the credits, and the text layers of the other scenes. Neither camera nor
// node moves them.

/// Vertex shader of full-frame pictures: passes clip space x and y on as "position".
extern const char* const scroller_vert;
/// The same under the name that the credits know.
extern const char* const credits_vert;

/// The triangle that covers the whole of clip space at depth `z`: 0 in the middle, -1 before everything.
zund::VertexArray createFullFrameTriangle(zund::Renderer& renderer, float z);

/// Width by height.
float aspectOf(const std::pair<int, int>& size);
