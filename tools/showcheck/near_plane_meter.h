#pragma once

#include "tools/picture/rgb_image.h"
#include "tools/renderers/forwarding_renderer.h"

#include <cstdint>
#include <span>
#include <vector>

namespace tools::showcheck {

/// A renderer between a scene and the one of a window, that finds out what of each frame the near plane cuts
/// off. The window shows what it would show without it.
///
/// Models are drawn first without being cut: what would be, leaves depth 0. So does a text layer, which lies
/// on the near plane to cover all: it would count as cut, and is drawn only once the depths are read. Its
/// turn among the models makes no difference to the depth test.
class NearPlaneMeter : public renderers::ForwardingRenderer {
public:
    /// For frames of that size. `target` draws on the current context, and outlives the meter.
    NearPlaneMeter(zund::Renderer& target, picture::Size size);

    /// The depths of the models of the last frame, one a pixel in rows from the bottom; all at the far plane
    /// for a frame without models. Borrowed: changes with the next frame.
    std::span<const std::uint16_t> depths() const { return depthRows; }

    void render(const std::vector<zund::DrawCommand>& commands) override;

private:
    void readDepths(zund::FrameBuffer frameBuffer);

    picture::Size size;
    std::vector<std::uint16_t> depthRows;
};

/// The commands of a frame in the order in which the meter plays them.
struct FrameParts {
    std::vector<zund::DrawCommand>
        models;                          ///< and all that comes before the last of them, but for text layers
    std::vector<zund::DrawCommand> rest; ///< text layers, then what carries the picture to the window
};
FrameParts splitFrame(const std::vector<zund::DrawCommand>& commands);

} // namespace tools::showcheck
