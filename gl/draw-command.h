#pragma once

#include "gl/framebuffer.h"
#include "gl/shaderprogram.h"
#include "gl/texture.h"
#include "gl/uniform.h"
#include "gl/vertex-array.h"

#include <array>
#include <glm/mat4x4.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <glm/vec4.hpp>
#include <utility>
#include <variant>
#include <vector>

namespace zund {

/// The value of a uniform. A sampler is the int of its texture unit.
using UniformValue = std::variant<float, int, bool, glm::vec2, glm::vec3, glm::vec4, glm::mat4>;

/// The values of an array uniform, from element 0 on.
using UniformArrayValue =
    std::variant<std::vector<float>, std::vector<glm::vec2>, std::vector<glm::vec3>, std::vector<glm::vec4>>;

using UniformCommand = std::pair<Uniform, UniformValue>;
using UniformArrayCommand = std::pair<Uniform, UniformArrayValue>;

/// One draw or one clear as plain data, for `Renderer::render`. To be made value-initialised, then filled in.
struct DrawCommand {
    bool clear = false;      ///< only clears colour and depth of its target; nothing else of it counts
    bool depthWrite = false; ///< depth mask of this draw
    FrameBuffer frameBuffer; ///< target; invalid: the window
    VertexArray vertexArray; ///< geometry; invalid: nothing is drawn
    ShaderProgram program;   ///< valid where `vertexArray` is
    std::vector<UniformCommand> uniforms;           ///< applied in order
    std::vector<UniformArrayCommand> uniformArrays; ///< applied after `uniforms`, in order
    std::array<Texture, 8> textures;                ///< element i goes to unit i
};

} // namespace zund
