#include "tools/showcheck/near_plane_meter.h"

#include "tools/common/error.h"

#include <GL/glew.h>
#include <algorithm>
#include <fmt/format.h>
#include <limits>

namespace tools::showcheck {

namespace {

constexpr int cornersOfATriangle = 3;

/// Items of a scene write depths, backdrops and post passes don't.
bool isItem(const zund::DrawCommand& command)
{
    return !command.clear && command.depthWrite;
}

/// No model is a single triangle, every picture over the whole frame is.
bool isTextLayer(const zund::DrawCommand& command)
{
    return isItem(command) && command.vertexArray.getIndexes() == cornersOfATriangle;
}

} // namespace

FrameParts splitFrame(const std::vector<zund::DrawCommand>& commands)
{
    const auto endOfItems = std::find_if(commands.rbegin(), commands.rend(), isItem).base();
    FrameParts parts;
    std::copy_if(commands.begin(), endOfItems, std::back_inserter(parts.models),
                 [](const zund::DrawCommand& command) { return !isTextLayer(command); });
    std::copy_if(commands.begin(), endOfItems, std::back_inserter(parts.rest), isTextLayer);
    parts.rest.insert(parts.rest.end(), endOfItems, commands.end());
    return parts;
}

NearPlaneMeter::NearPlaneMeter(zund::Renderer& target, picture::Size size)
    : renderers::ForwardingRenderer(target),
      size(size),
      depthRows(std::size_t{size.width} * size.height, std::numeric_limits<std::uint16_t>::max())
{
}

void NearPlaneMeter::render(const std::vector<zund::DrawCommand>& commands)
{
    const FrameParts parts = splitFrame(commands);
    const auto item = std::find_if(parts.models.begin(), parts.models.end(), isItem);
    if (item == parts.models.end()) {
        std::fill(depthRows.begin(), depthRows.end(), std::numeric_limits<std::uint16_t>::max());
        ForwardingRenderer::render(commands);
        return;
    }
    // Behind the far plane it makes no difference: the cleared depth is as far, and wins.
    glEnable(GL_DEPTH_CLAMP);
    ForwardingRenderer::render(parts.models);
    glDisable(GL_DEPTH_CLAMP);
    readDepths(item->frameBuffer);
    if (std::find(depthRows.begin(), depthRows.end(), 0) != depthRows.end()) {
        ForwardingRenderer::render(parts.models); // once more, cut open as viewers see it
    }
    ForwardingRenderer::render(parts.rest);
}

void NearPlaneMeter::readDepths(zund::FrameBuffer frameBuffer)
{
    glBindFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLuint>(frameBuffer.get()));
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, static_cast<GLsizei>(size.width), static_cast<GLsizei>(size.height),
                 GL_DEPTH_COMPONENT, GL_UNSIGNED_SHORT, depthRows.data());
    glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
    const GLenum error = glGetError();
    if (error != GL_NO_ERROR) {
        throw Error("showcheck",
                    fmt::format("cannot read the depths of a frame: OpenGL error 0x{:X}", error));
    }
}

} // namespace tools::showcheck
