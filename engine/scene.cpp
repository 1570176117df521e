#include "engine/scene.h"

#include "engine/full_screen_triangle.h"
#include "engine/post_shaders.h"
#include "engine/shaders/material_frag.h"
#include "engine/shaders/material_vert.h"

#include <glm/geometric.hpp>

namespace lumeth {

const char* const Scene::material_vert = embedded::material_vert;
const char* const Scene::material_frag = embedded::material_frag;

namespace {

const glm::quat noRotation(0.0F, 0.0F, 0.0F, 0.0F);

} // namespace

Scene::Scene() : graph(DisplayListItem("", glm::vec3(0.0F), noRotation, glm::vec3(1.0F))) {}

void Scene::init(zund::Renderer& renderer, std::pair<int, int> resolution)
{
    this->resolution = resolution;
    aspect = static_cast<float>(resolution.first) / static_cast<float>(resolution.second);
    material = std::make_unique<DefaultMaterial>(renderer, aspect);
    addPostPass(renderer, post_pass0_frag_src, {});
    addPostPass(renderer, post_pass1_frag_src, {});
    quad = createFullScreenTriangle(renderer);
    initSkybox(renderer);
}

void Scene::lookAt(const glm::vec3& eye, const glm::vec3& target, const glm::vec3& up)
{
    const glm::vec3 z = glm::normalize(eye - target);
    const glm::vec3 x = glm::normalize(glm::cross(up, z));
    const glm::vec3 y = glm::cross(z, x);
    graph.value.localMatrix = glm::mat4(
        glm::vec4(x.x, y.x, z.x, 0.0F), glm::vec4(x.y, y.y, z.y, 0.0F), glm::vec4(x.z, y.z, z.z, 0.0F),
        glm::vec4(-glm::dot(x, eye), -glm::dot(y, eye), -glm::dot(z, eye), 1.0F));
}

bool Scene::addObject(std::string name, DisplayObject object)
{
    return objects.insert({std::move(name), std::move(object)}).second;
}

void Scene::addLight(Light light)
{
    lights.push_back(light);
}

tree::Node<DisplayListItem>& Scene::getGraph()
{
    return graph;
}

glm::vec2 Scene::resolutionVector() const
{
    return {resolution.first, resolution.second};
}

} // namespace lumeth
