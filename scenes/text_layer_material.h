#pragma once

#include "engine/material.h"

/// What the materials of text layers have in common: they send the time and nothing else. The layer's picture
/// is sampled from unit 0, where the sampler stands by itself.
class TextLayerMaterial : public lumeth::Material {
public:
    TextLayerMaterial(zund::Renderer& renderer, float aspect, char const* fragmentSource);

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
    [[maybe_unused]] float aspect;          ///< kept, not used
    [[maybe_unused]] zund::Uniform uniform; ///< never looked up, on purpose
    zund::Uniform timeUniform;
};
