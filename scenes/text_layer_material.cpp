#include "scenes/text_layer_material.h"

#include "scenes/full_frame.h"

TextLayerMaterial::TextLayerMaterial(zund::Renderer& renderer, float aspect, const char* fragmentSource)
    : Material(renderer, scroller_vert, fragmentSource, nullptr),
      aspect(aspect),
      timeUniform(renderer.getUniform(program, "time"))
{
}

std::vector<zund::UniformCommand> TextLayerMaterial::getUniformCommands(
    const glm::mat4& /*worldToView*/, const lumeth::DisplayObject& /*object*/,
    const lumeth::DisplayListItem& /*item*/, const std::vector<lumeth::Light>& /*lights*/, double time)
{
    return {{timeUniform, static_cast<float>(time)}};
}

std::vector<zund::UniformArrayCommand>
TextLayerMaterial::getUniformArrayCommands(const lumeth::DisplayObject& /*object*/,
                                           const lumeth::DisplayListItem& /*item*/,
                                           const std::vector<lumeth::Light>& /*lights*/, double /*time*/)
{
    return {};
}
