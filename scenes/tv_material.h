#pragma once

#include "engine/material.h"
#include "engine/phong_uniforms.h"

/// The stock material with a picture that tears sideways in bursts, where the emission map is lit.
class TvMaterial : public lumeth::Material {
public:
    /// `aspect` is width by height of what is drawn into.
    TvMaterial(zund::Renderer& renderer, float aspect);

    std::vector<zund::UniformCommand> getUniformCommands(glm::mat4 const& worldToView,
                                                         lumeth::DisplayObject const& object,
                                                         lumeth::DisplayListItem const& item,
                                                         std::vector<lumeth::Light> const& lights,
                                                         double time) override;
    std::vector<zund::UniformArrayCommand> getUniformArrayCommands(lumeth::DisplayObject const& object,
                                                                   lumeth::DisplayListItem const& item,
                                                                   std::vector<lumeth::Light> const& lights,
                                                                   double time) override;

private:
    float aspect;
    lumeth::PhongUniforms uniforms;
    zund::Uniform timeUniform;
};
