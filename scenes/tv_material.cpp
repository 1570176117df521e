#include "scenes/tv_material.h"

#include "engine/scene.h"
#include "scenes/shaders/tv_frag.h"

TvMaterial::TvMaterial(zund::Renderer& renderer, float aspect)
    : Material(renderer, lumeth::Scene::material_vert, embedded::tv_frag, nullptr),
      aspect(aspect),
      uniforms(renderer, program),
      timeUniform(renderer.getUniform(program, "time"))
{
}

std::vector<zund::UniformCommand> TvMaterial::getUniformCommands(const glm::mat4& worldToView,
                                                                 const lumeth::DisplayObject& object,
                                                                 const lumeth::DisplayListItem& item,
                                                                 const std::vector<lumeth::Light>& /*lights*/,
                                                                 double time)
{
    std::vector<zund::UniformCommand> commands = uniforms.getCommands(aspect, worldToView, object, item);
    commands.emplace_back(timeUniform, static_cast<float>(time));
    return commands;
}

std::vector<zund::UniformArrayCommand>
TvMaterial::getUniformArrayCommands(const lumeth::DisplayObject& /*object*/,
                                    const lumeth::DisplayListItem& /*item*/,
                                    const std::vector<lumeth::Light>& lights, double /*time*/)
{
    return uniforms.getArrayCommands(lights);
}
