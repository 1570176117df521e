#include "engine/phong_uniforms.h"

#include "engine/display_list_item.h"
#include "engine/display_object.h"
#include "engine/perspective.h"

namespace lumeth {

namespace {

// The lens of all objects.
constexpr float fieldOfView = 0.7853982F; // a quarter of pi
constexpr float nearPlane = 0.5F;
constexpr float farPlane = 20.0F;

} // namespace

PhongUniforms::PhongUniforms(zund::Renderer& renderer, const zund::ShaderProgram& program)
    : modelToView(renderer.getUniform(program, "modelToView")),
      worldToView(renderer.getUniform(program, "worldToView")),
      projection(renderer.getUniform(program, "projection")),
      tex_color(renderer.getUniform(program, "tex_color")),
      tex_normal(renderer.getUniform(program, "tex_normal")),
      tex_emissivity(renderer.getUniform(program, "tex_emissivity")),
      mat_shaded(renderer.getUniform(program, "mat_shaded")),
      mat_textured(renderer.getUniform(program, "mat_textured")),
      mat_transparent(renderer.getUniform(program, "mat_transparent")),
      mat_normalmapped(renderer.getUniform(program, "mat_normalmapped")),
      mat_color(renderer.getUniform(program, "mat_color")),
      mat_ambient(renderer.getUniform(program, "mat_ambient")),
      mat_diffuse(renderer.getUniform(program, "mat_diffuse")),
      mat_specular(renderer.getUniform(program, "mat_specular")),
      mat_shininess(renderer.getUniform(program, "mat_shininess")),
      light_position(renderer.getUniform(program, "light_position")),
      light_diffuse(renderer.getUniform(program, "light_diffuse")),
      light_specular(renderer.getUniform(program, "light_specular"))
{
}

std::vector<zund::UniformCommand> PhongUniforms::getCommands(float aspect, const glm::mat4& view,
                                                             const DisplayObject& object,
                                                             const DisplayListItem& item) const
{
    return {
        {modelToView, item.worldMatrix * object.modelMatrix},
        {worldToView, view},
        {projection, matPerspective(fieldOfView, aspect, nearPlane, farPlane)},
        // The units that the draw pass binds the object's textures to.
        {tex_color, 0},
        {tex_normal, 1},
        {tex_emissivity, 2},
        {mat_shaded, true},
        {mat_textured, object.colorTexture.isValid()},
        {mat_normalmapped, object.normalTexture.isValid()},
        {mat_color, object.color},
        {mat_ambient, object.ambient},
        {mat_diffuse, object.diffuse},
        {mat_specular, object.specular},
        {mat_shininess, object.shininess},
        {mat_transparent, object.transparent},
    };
}

std::vector<zund::UniformArrayCommand> PhongUniforms::getArrayCommands(const std::vector<Light>& lights) const
{
    std::vector<glm::vec3> positions(LIGHTS_MAX, glm::vec3(0.0F));
    std::vector<glm::vec3> diffuses(LIGHTS_MAX, glm::vec3(0.0F));
    std::vector<glm::vec3> speculars(LIGHTS_MAX, glm::vec3(0.0F));
    for (std::size_t i = 0; i < LIGHTS_MAX && i < lights.size(); ++i) {
        positions[i] = lights[i].position;
        diffuses[i] = lights[i].diffuse;
        speculars[i] = lights[i].specular;
    }
    return {{light_position, positions}, {light_diffuse, diffuses}, {light_specular, speculars}};
}

} // namespace lumeth
