#include "scenes/tv_material.h"

#include "engine/scene.h"
#include "scenes/shaders/tv_frag.h"

TvMaterial::TvMaterial(zund::Renderer& renderer, float aspect)
    : Material(renderer, lumeth::Scene::material_vert, tv_frag, nullptr),
      aspect(aspect),
      uniforms(renderer, program),
      timeUniform(renderer.getUniform(program, "time"))
{
}

std::vector<zund::UniformCommand> TvMaterial::getUniformCommands(glm::mat4 const& worldToView,
                                                                 lumeth::DisplayObject const& object,
                                                                 lumeth::DisplayListItem const& item,
                                                                 std::vector<lumeth::Light> const& /*lights*/,
                                                                 double time)
{
    std::vector<zund::UniformCommand> commands = uniforms.getCommands(aspect, worldToView, object, item);
    commands.emplace_back(timeUniform, static_cast<float>(time));
    return commands;
}

std::vector<zund::UniformArrayCommand>
TvMaterial::getUniformArrayCommands(lumeth::DisplayObject const& /*object*/,
                                    lumeth::DisplayListItem const& /*item*/,
                                    std::vector<lumeth::Light> const& lights, double /*time*/)
{
    return uniforms.getArrayCommands(lights);
}
