#pragma once

#include "gl/framebuffer.h"
#include "gl/renderbuffer.h"
#include "gl/shaderprogram.h"
#include "gl/texture.h"
#include "gl/uniform.h"

#include <array>
#include <string>
#include <utility>

namespace lumeth::PostProcessing {

/// Further samplers of a pass by their uniform's name, at texture units 2 to 7; an empty name is no sampler.
using ExtraInputs = std::array<std::pair<std::string, zund::Texture>, 6>;

/// One full-screen pass. It owns the picture that it reads; what comes before draws into that.
struct Pass {
    struct ExtraInput {
        zund::Uniform uniform;
        zund::Texture texture;
    };

    zund::ShaderProgram program;
    zund::Uniform resolutionUniform;  ///< "resolution": vec2 of width and height in pixels
    zund::Texture inputTexture;       ///< the picture that this pass reads, in linear colour
    zund::Uniform fboUniform;         ///< "fbo": sampler of `inputTexture`
    zund::Uniform fboOriginalUniform; ///< "fbo_original": sampler of the first pass's input
    zund::RenderBuffer depthBuffer;
    zund::FrameBuffer frameBuffer; ///< holds `inputTexture` and `depthBuffer`
    std::array<ExtraInput, 6> extraInputs;
};

} // namespace lumeth::PostProcessing
