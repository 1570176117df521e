// The part of the scene that carries the picture through the post passes to the screen.

#include "engine/post_shaders.h"
#include "engine/scene.h"

namespace lumeth {

PostProcessing::Pass Scene::createPostPass(zund::Renderer& renderer, const std::pair<int, int>& size,
                                           const char* fragmentSource)
{
    PostProcessing::Pass pass;
    pass.inputTexture = renderer.createTexture2d(zund::TextureFormat::RGB16F, size.first, size.second);
    pass.depthBuffer = renderer.createRenderBuffer2d(size.first, size.second);
    pass.frameBuffer = renderer.createFrameBuffer();
    renderer.framebufferTexture(pass.frameBuffer, pass.inputTexture);
    renderer.framebufferRenderbuffer(pass.frameBuffer, pass.depthBuffer);
    const zund::Shader vertex = renderer.createShader(zund::Shader::Vertex, post_vert_src);
    const zund::Shader fragment = renderer.createShader(zund::Shader::Fragment, fragmentSource);
    pass.program = renderer.createProgram(vertex, fragment, nullptr);
    pass.resolutionUniform = renderer.getUniform(pass.program, "resolution");
    return pass;
}

void Scene::addPostPass(zund::Renderer& renderer, const char* fragmentSource,
                        PostProcessing::ExtraInputs extraInputs)
{
    PostProcessing::Pass pass = createPostPass(renderer, resolution, fragmentSource);
    pass.fboUniform = renderer.getUniform(pass.program, "fbo");
    pass.fboOriginalUniform = renderer.getUniform(pass.program, "fbo_original");
    for (std::size_t i = 0; i < extraInputs.size(); ++i) {
        const auto& [name, texture] = extraInputs[i];
        pass.extraInputs[i].uniform = renderer.getUniform(pass.program, name);
        pass.extraInputs[i].texture = texture;
    }
    passes.push_back(pass);
}

void Scene::resetPostPasses()
{
    passes.clear();
}

std::vector<zund::DrawCommand> Scene::drawPostprocess()
{
    std::vector<zund::DrawCommand> commands;
    for (std::size_t i = 0; i < passes.size(); ++i) {
        const PostProcessing::Pass& pass = passes[i];

        zund::DrawCommand command;
        command.vertexArray = quad;
        command.program = pass.program;
        command.uniforms = {
            {pass.resolutionUniform, resolutionVector()},
            {pass.fboUniform, 0},
            {pass.fboOriginalUniform, 1},
        };
        command.textures[0] = pass.inputTexture;
        command.textures[1] = passes.front().inputTexture;
        for (std::size_t j = 0; j < pass.extraInputs.size(); ++j) {
            const PostProcessing::Pass::ExtraInput& extra = pass.extraInputs[j];
            if (extra.uniform.isValid()) {
                command.uniforms.emplace_back(extra.uniform, static_cast<int>(j + 2));
            }
            command.textures[j + 2] = extra.texture;
        }
        if (i + 1 < passes.size()) {
            command.frameBuffer = passes[i + 1].frameBuffer;
        }
        commands.push_back(command);
    }
    return commands;
}

} // namespace lumeth
