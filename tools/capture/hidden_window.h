#pragma once

#include "gl/renderer.h"
#include "tools/packer/rgb_image.h"

#include <cstdint>
#include <memory>
#include <span>

struct SDL_Window;

namespace tools {

/// The show's renderer in a window that no screen shows, of any size. One at a time; main thread only.
class HiddenWindow {
public:
    /// Throws `Error` "capture: REASON" if the driver cannot give a window of that size, and what the
    /// renderer throws.
    explicit HiddenWindow(Size size);
    ~HiddenWindow();

    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;

    zund::Renderer& renderer() { return *context; }
    Size size() const { return pictureSize; }

    /// What has been drawn since the last clearing.
    RgbImage read() const;

    /// The same, as OpenGL has it: 3 bytes a pixel, red first, in rows from the bottom. `pixels` holds just
    /// as many.
    void readRows(std::span<std::uint8_t> pixels) const;

private:
    void open();
    void close();

    Size pictureSize;
    SDL_Window* window = nullptr;
    std::unique_ptr<zund::Renderer> context;
};

} // namespace tools
