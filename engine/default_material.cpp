#include "engine/default_material.h"

#include "engine/scene.h"

namespace lumeth {

DefaultMaterial::DefaultMaterial(zund::Renderer& renderer, float aspect)
    : Material(renderer, Scene::material_vert, Scene::material_frag, nullptr),
      aspect(aspect),
      uniforms(renderer, program)
{
}

std::vector<zund::UniformCommand> DefaultMaterial::getUniformCommands(glm::mat4 const& worldToView,
                                                                      DisplayObject const& object,
                                                                      DisplayListItem const& item,
                                                                      std::vector<Light> const& /*lights*/,
                                                                      double /*time*/)
{
    return uniforms.getCommands(aspect, worldToView, object, item);
}

std::vector<zund::UniformArrayCommand>
DefaultMaterial::getUniformArrayCommands(DisplayObject const& /*object*/, DisplayListItem const& /*item*/,
                                         std::vector<Light> const& lights, double /*time*/)
{
    return uniforms.getArrayCommands(lights);
}

} // namespace lumeth
