#include "engine/default_material.h"

#include "engine/scene.h"

namespace lumeth {

DefaultMaterial::DefaultMaterial(zund::Renderer& renderer, float aspect)
    : Material(renderer, Scene::material_vert, Scene::material_frag, nullptr),
      aspect(aspect),
      uniforms(renderer, program)
{
}

std::vector<zund::UniformCommand> DefaultMaterial::getUniformCommands(const glm::mat4& worldToView,
                                                                      const DisplayObject& object,
                                                                      const DisplayListItem& item,
                                                                      const std::vector<Light>& /*lights*/,
                                                                      double /*time*/)
{
    return uniforms.getCommands(aspect, worldToView, object, item);
}

std::vector<zund::UniformArrayCommand>
DefaultMaterial::getUniformArrayCommands(const DisplayObject& /*object*/, const DisplayListItem& /*item*/,
                                         const std::vector<Light>& lights, double /*time*/)
{
    return uniforms.getArrayCommands(lights);
}

} // namespace lumeth
