#include "engine/scene.h"

#include "engine/post_shaders.h"
#include "engine/shaders/material_frag.h"
#include "engine/shaders/material_vert.h"
#include "gl/vertex.h"

#include <glm/geometric.hpp>

namespace lumeth {

const char* const Scene::material_vert = ::material_vert;
const char* const Scene::material_frag = ::material_frag;

namespace {

/// The triangle of all full-screen draws: it covers the whole of clip space.
zund::VertexArray createFullScreenTriangle(zund::Renderer& renderer)
{
    const zund::Vertex corners[] = {{-1.0F, -1.0F, 0.0F}, {3.0F, -1.0F, 0.0F}, {-1.0F, 3.0F, 0.0F}};
    const unsigned int indices[] = {0, 1, 2};
    std::vector<float> positions;
    for (const zund::Vertex& corner : corners) {
        positions.insert(positions.end(), {corner.x, corner.y, corner.z});
    }
    return renderer.createIndexedBuffer(positions.data(), positions.size(), indices, std::size(indices),
                                        nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0);
}

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
