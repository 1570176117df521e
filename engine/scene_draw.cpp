// The part of the scene that turns it into the command list of a frame.

#include "engine/scene.h"

#include <stdexcept>

namespace lumeth {

void Scene::draw(zund::Renderer& renderer, double time)
{
    std::vector<zund::DrawCommand> commands;
    for (const PostProcessing::Pass& pass : passes) {
        zund::DrawCommand clearPass;
        clearPass.clear = true;
        clearPass.frameBuffer = pass.frameBuffer;
        commands.push_back(clearPass);
    }

    commands.push_back(background != nullptr ? drawBackground(time) : drawSkybox());

    graph.visit([&](tree::Node<DisplayListItem>* parent, tree::Node<DisplayListItem>* node) {
        DisplayListItem& item = node->value;
        // For hidden and empty items too: their children stand on it.
        item.worldMatrix =
            parent != nullptr ? parent->value.worldMatrix * item.localMatrix : item.localMatrix;
        if (item.objectName.empty() || !item.visible) {
            return;
        }
        commands.push_back(drawDisplayItem(graph.value.localMatrix, item, passes.front().frameBuffer, time));
    });

    zund::DrawCommand clearScreen;
    clearScreen.clear = true;
    commands.push_back(clearScreen);

    const std::vector<zund::DrawCommand> post = drawPostprocess();
    commands.insert(commands.end(), post.begin(), post.end());

    renderer.render(commands);
}

zund::DrawCommand Scene::drawDisplayItem(const glm::mat4& worldToView, const DisplayListItem& item,
                                         const zund::FrameBuffer& frameBuffer, double time)
{
    const auto found = objects.find(item.objectName);
    if (found == objects.end()) {
        throw std::out_of_range("_Map_base::at"); // what `at` says differs by library
    }
    const DisplayObject& object = found->second;

    zund::DrawCommand command;
    command.depthWrite = true;
    command.textures[0] = object.colorTexture;
    command.textures[1] = object.normalTexture;
    command.textures[2] = object.emissivityTexture;
    command.vertexArray = object.vertexArray;
    command.frameBuffer = frameBuffer;

    Material& shading = object.material != nullptr ? *object.material : *material;
    command.program = shading.program;
    command.uniforms = shading.getUniformCommands(worldToView, object, item, lights, time);
    command.uniformArrays = shading.getUniformArrayCommands(object, item, lights, time);
    return command;
}

} // namespace lumeth
