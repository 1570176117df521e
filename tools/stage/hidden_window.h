#pragma once

#include "gl/renderer.h"
#include "tools/picture/rgb_image.h"

#include <cstdint>
#include <memory>
#include <span>

struct SDL_Window;

namespace tools::stage {

/// The show's renderer in a window that no screen shows, of any size. One at a time; main thread only.
class HiddenWindow {
public:
    /// Throws `Error` "capture: REASON" if the driver cannot give a window of that size, and what the
    /// renderer throws.
    explicit HiddenWindow(picture::Size size);
    ~HiddenWindow();

    HiddenWindow(const HiddenWindow&) = delete;
    HiddenWindow& operator=(const HiddenWindow&) = delete;

    zund::Renderer& renderer() { return *context; }
    picture::Size size() const { return pictureSize; }

    /// What has been drawn since the last clearing.
    picture::RgbImage read() const;

    /// The same, as OpenGL has it: 3 bytes a pixel, red first, in rows from the bottom. `pixels` holds just
    /// as many.
    void readRows(std::span<std::uint8_t> pixels) const;

private:
    void open();
    void close();

    picture::Size pictureSize;
    SDL_Window* window = nullptr;
    std::unique_ptr<zund::Renderer> context;
};

} // namespace tools::stage
