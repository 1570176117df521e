#include "scenes/text_layer_material.h"

#include "scenes/full_frame.h"

TextLayerMaterial::TextLayerMaterial(zund::Renderer& renderer, float aspect, char const* fragmentSource)
    : Material(renderer, scroller_vert, fragmentSource, nullptr),
      aspect(aspect),
      timeUniform(renderer.getUniform(program, "time"))
{
}

std::vector<zund::UniformCommand> TextLayerMaterial::getUniformCommands(
    glm::mat4 const& /*worldToView*/, lumeth::DisplayObject const& /*object*/,
    lumeth::DisplayListItem const& /*item*/, std::vector<lumeth::Light> const& /*lights*/, double time)
{
    return {{timeUniform, static_cast<float>(time)}};
}

std::vector<zund::UniformArrayCommand>
TextLayerMaterial::getUniformArrayCommands(lumeth::DisplayObject const& /*object*/,
                                           lumeth::DisplayListItem const& /*item*/,
                                           std::vector<lumeth::Light> const& /*lights*/, double /*time*/)
{
    return {};
}
