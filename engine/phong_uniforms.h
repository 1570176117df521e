#pragma once

#include "engine/light.h"
#include "gl/draw-command.h"
#include "gl/renderer.h"

#include <vector>

namespace lumeth {

struct DisplayListItem;
struct DisplayObject;

/// The uniforms of a program with the stock material's lighting, each under its own name, and their values
/// for one draw. One that the program doesn't use is invalid, and skipped when it is sent.
struct PhongUniforms {
    /// Looks all of them up, in the order of the fields.
    PhongUniforms(zund::Renderer& renderer, const zund::ShaderProgram& program);

    /// The matrices, the texture units and the surface constants: fifteen values.
    std::vector<zund::UniformCommand> getCommands(float aspect, const glm::mat4& worldToView,
                                                  const DisplayObject& object,
                                                  const DisplayListItem& item) const;

    /// Position, diffuse and specular of the first `LIGHTS_MAX` lights, zeros in the slots left over.
    std::vector<zund::UniformArrayCommand> getArrayCommands(const std::vector<Light>& lights) const;

    zund::Uniform modelToView;
    zund::Uniform worldToView;
    zund::Uniform projection;
    zund::Uniform tex_color;
    zund::Uniform tex_normal;
    zund::Uniform tex_emissivity;
    zund::Uniform mat_shaded;
    zund::Uniform mat_textured;
    zund::Uniform mat_transparent;
    zund::Uniform mat_normalmapped;
    zund::Uniform mat_color;
    zund::Uniform mat_ambient;
    zund::Uniform mat_diffuse;
    zund::Uniform mat_specular;
    zund::Uniform mat_shininess;
    zund::Uniform light_position;
    zund::Uniform light_diffuse;
    zund::Uniform light_specular;
};

} // namespace lumeth
