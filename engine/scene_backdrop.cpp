// The part of the scene that stands behind all items: background shader or skybox.

#include "engine/perspective.h"
#include "engine/post_shaders.h"
#include "engine/scene.h"
#include "engine/shaders/skybox_frag.h"
#include "engine/shaders/skybox_vert.h"

#define GLM_ENABLE_EXPERIMENTAL
#include <glm/gtx/matrix_decompose.hpp>

namespace lumeth {

namespace {

// clang-format off
constexpr float cubeCorners[] = {
     2.0F,  2.0F,  2.0F,
     2.0F,  2.0F, -2.0F,
     2.0F, -2.0F,  2.0F,
     2.0F, -2.0F, -2.0F,
    -2.0F,  2.0F,  2.0F,
    -2.0F,  2.0F, -2.0F,
    -2.0F, -2.0F,  2.0F,
    -2.0F, -2.0F, -2.0F,
};
constexpr unsigned int cubeIndices[] = {
    7, 3, 1,  1, 5, 7,
    6, 7, 5,  5, 4, 6,
    3, 2, 0,  0, 1, 3,
    2, 6, 4,  4, 0, 2,
    6, 2, 3,  3, 7, 6,
    5, 1, 0,  0, 4, 5,
};
// clang-format on

constexpr const char* skybox_vert_src = embedded::skybox_vert;
constexpr const char* skybox_frag_src = embedded::skybox_frag;

// The sky's own lens, wider than that of the objects.
constexpr float fieldOfView = 2.0943952F; // two thirds of pi
constexpr float nearPlane = 1.0F;
constexpr float farPlane = 20.0F;

} // namespace

void Scene::initSkybox(zund::Renderer& renderer)
{
    skyboxVertexArray =
        renderer.createIndexedBuffer(cubeCorners, std::size(cubeCorners), cubeIndices, std::size(cubeIndices),
                                     nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0);
    const zund::Shader vertex = renderer.createShader(zund::Shader::Vertex, skybox_vert_src);
    const zund::Shader fragment = renderer.createShader(zund::Shader::Fragment, skybox_frag_src);
    skyboxProgram = renderer.createProgram(vertex, fragment, nullptr);
    skyboxProjection = renderer.getUniform(skyboxProgram, "projection");
    skyboxTextured = renderer.getUniform(skyboxProgram, "textured");
    skyboxBackgroundColor = renderer.getUniform(skyboxProgram, "background_color");
}

void Scene::setSkyboxColor(glm::vec3 color)
{
    skyboxColor = color;
}

void Scene::setBackground(zund::Renderer& renderer, const char* fragmentSource)
{
    const zund::Shader vertex = renderer.createShader(zund::Shader::Vertex, post_vert_src);
    const zund::Shader fragment = renderer.createShader(zund::Shader::Fragment, fragmentSource);
    background = std::make_unique<Background>();
    background->program = renderer.createProgram(vertex, fragment, nullptr);
    background->resolutionUniform = renderer.getUniform(background->program, "resolution");
    background->timeUniform = renderer.getUniform(background->program, "time");
}

zund::DrawCommand Scene::drawBackground(double time)
{
    zund::DrawCommand command;
    command.vertexArray = quad;
    command.program = background->program;
    command.frameBuffer = passes.front().frameBuffer;
    command.uniforms = {
        {background->resolutionUniform, resolutionVector()},
        {background->timeUniform, static_cast<float>(time)},
    };
    return command;
}

zund::DrawCommand Scene::drawSkybox()
{
    const glm::mat4 projection = matPerspective(fieldOfView, aspect, nearPlane, farPlane);
    glm::vec3 scale(1.0F);
    glm::quat orientation(1.0F, 0.0F, 0.0F, 0.0F);
    glm::vec3 translation(0.0F);
    glm::vec3 skew(0.0F);
    glm::vec4 perspective(0.0F);
    glm::decompose(graph.value.localMatrix, scale, orientation, translation, skew, perspective);
    // The camera only turns the sky: its place plays no part.
    const glm::mat4 rotation = glm::mat4_cast(orientation);

    zund::DrawCommand command;
    command.vertexArray = skyboxVertexArray;
    command.textures[0] = skyboxTexture;
    command.program = skyboxProgram;
    command.frameBuffer = passes.front().frameBuffer;
    command.uniforms = {
        {skyboxProjection, projection * rotation},
        {skyboxTextured, skyboxTexture.isValid()},
        {skyboxBackgroundColor, skyboxColor},
    };
    return command;
}

} // namespace lumeth
