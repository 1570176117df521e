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
    getUniformCommands(const glm::mat4& worldToView, const DisplayObject& object, const DisplayListItem& item,
                       const std::vector<Light>& lights, double time) override;
    std::vector<zund::UniformArrayCommand> getUniformArrayCommands(const DisplayObject& object,
                                                                   const DisplayListItem& item,
                                                                   const std::vector<Light>& lights,
                                                                   double time) override;

private:
    float aspect;
    PhongUniforms uniforms;
};

} // namespace lumeth
