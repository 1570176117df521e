#pragma once

#include "gl/gl-interface.h"
#include "gl/renderer.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

struct SDL_Window;

namespace tolv {

/// Somewhere to show frames.
class DisplayInterface {
public:
    virtual ~DisplayInterface() = default;
    virtual void Swap() = 0;
    virtual std::pair<int, int> getResolution() const = 0;
};

/// SDL's video side: the window and the renderer in it, with the GL context. Main thread only.
class Display : public DisplayInterface {
public:
    /// Opens a window of a named size, "720p", "1080p" or "2160p". With `fullscreen` it takes the desktop's
    /// size instead. With `depthTest` every draw is depth-tested. Throws `tolv::Exception`: "Unknown
    /// resolution string: ", "SDL_Init failed", "Failed to create window: "; and what the renderer throws.
    /// SDL is shut down again by then.
    Display(zund::GLInterface& gl, const std::string& resolution, bool fullscreen, bool doubleBuffer,
            bool depthTest);
    /// Destroys the renderer, then the window, then ends SDL.
    ~Display() override;

    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Presents the frame, and does nothing else.
    void Swap() override;
    /// Width and height of what is drawn into, in pixels, asked of SDL at each call.
    std::pair<int, int> getResolution() const override;
    /// The renderer in the window; dies with the display.
    zund::Renderer& getContext();

    /// Width and height of a named size. Throws `tolv::Exception` "Unknown resolution string: NAME".
    static std::pair<int, int> resolutionNameToSize(const std::string& name);

private:
    static const std::unordered_map<std::string, std::pair<int, int>> resolutions;

    void initSdl();
    void configureWindow(bool doubleBuffer);
    SDL_Window* createWindow(const std::pair<int, int>& size);

    [[maybe_unused]] zund::GLInterface& gl; ///< kept; the renderer calls the driver itself
    SDL_Window* window = nullptr;
    std::unique_ptr<zund::Renderer> context;
    bool fullscreen;
};

} // namespace tolv
