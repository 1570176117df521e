#pragma once

#include "engine/material.h"
#include "engine/phong_uniforms.h"

namespace lumeth {

/// The stock material: Phong lighting in tangent space, with colour, normal and emission maps.
class DefaultMaterial : public Material {
public:
    /// `aspect` is width by height of what is drawn into.
    DefaultMaterial(zund::Renderer& renderer, float aspect);

    std::vector<zund::UniformCommand>
    getUniformCommands(glm::mat4 const& worldToView, DisplayObject const& object, DisplayListItem const& item,
                       std::vector<Light> const& lights, double time) override;
    std::vector<zund::UniformArrayCommand> getUniformArrayCommands(DisplayObject const& object,
                                                                   DisplayListItem const& item,
                                                                   std::vector<Light> const& lights,
                                                                   double time) override;

private:
    float aspect;
    PhongUniforms uniforms;
};

} // namespace lumeth
