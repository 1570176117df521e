#pragma once

#include "engine/material.h"
#include "engine/phong_uniforms.h"

/// The stock material with a picture that tears sideways in bursts, where the emission map is lit.
class TvMaterial : public lumeth::Material {
public:
    /// `aspect` is width by height of what is drawn into.
    TvMaterial(zund::Renderer& renderer, float aspect);

    std::vector<zund::UniformCommand> getUniformCommands(const glm::mat4& worldToView,
                                                         const lumeth::DisplayObject& object,
                                                         const lumeth::DisplayListItem& item,
                                                         const std::vector<lumeth::Light>& lights,
                                                         double time) override;
    std::vector<zund::UniformArrayCommand> getUniformArrayCommands(const lumeth::DisplayObject& object,
                                                                   const lumeth::DisplayListItem& item,
                                                                   const std::vector<lumeth::Light>& lights,
                                                                   double time) override;

private:
    float aspect;
    lumeth::PhongUniforms uniforms;
    zund::Uniform timeUniform;
};
