#pragma once

#include "engine/material.h"

/// What the materials of text layers have in common: they send the time and nothing else. The layer's picture
/// is sampled from unit 0, where the sampler stands by itself.
class TextLayerMaterial : public lumeth::Material {
public:
    TextLayerMaterial(zund::Renderer& renderer, float aspect, const char* fragmentSource);

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
    [[maybe_unused]] float aspect; ///< not used: what is drawn in clip space needs none
    [[maybe_unused]] zund::Uniform
        uniform; ///< never looked up: that would be another call to the driver for each layer
    zund::Uniform timeUniform;
};
