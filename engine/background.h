#pragma once

#include "gl/shaderprogram.h"
#include "gl/uniform.h"

namespace lumeth {

/// A full-screen fragment shader behind all items, in place of the skybox.
struct Background {
    zund::ShaderProgram program;
    zund::Uniform resolutionUniform; ///< "resolution": vec2 of width and height in pixels
    zund::Uniform timeUniform;       ///< "time": float, the position in the music in seconds
};

} // namespace lumeth
