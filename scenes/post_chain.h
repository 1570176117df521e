#pragma once

#include "engine/scene.h"
#include "gl/renderer.h"

/// Gives a scene the chain of all 3D scenes, in place of the default one: letterbox, then gamma.
void usePostChain(lumeth::Scene& scene, zund::Renderer& renderer);
