#include "tools/stage/hidden_window.h"

#include "gl/renderer-impl.h"
#include "tools/common/error.h"
#include "tools/stage/show_context.h"

#include <GL/glew.h>
#include <SDL.h>
#include <algorithm>
#include <fmt/format.h>

namespace tools::stage {

namespace {

[[noreturn]] void fail(const std::string& what)
{
    throw Error("capture", what);
}

/// From rows that count from the bottom to rows that count from the top.
void flipRows(picture::RgbImage& image)
{
    const auto row = static_cast<std::ptrdiff_t>(std::size_t{image.size.width} * 3);
    auto top = image.pixels.begin();
    auto bottom = image.pixels.end();
    for (std::uint32_t i = 0; i < image.size.height / 2; ++i) {
        bottom -= row;
        std::swap_ranges(top, top + row, bottom);
        top += row;
    }
}

} // namespace

HiddenWindow::HiddenWindow(picture::Size size) : pictureSize(size)
{
    SDL_SetHintWithPriority(SDL_HINT_VIDEODRIVER, "offscreen", SDL_HINT_OVERRIDE);
    if (SDL_Init(SDL_INIT_VIDEO) < 0) {
        fail(fmt::format("no video without a window: {}", SDL_GetError()));
    }
    try {
        open();
    } catch (const std::exception&) {
        close(); // the destructor does not run
        throw;
    }
}

HiddenWindow::~HiddenWindow()
{
    close();
}

void HiddenWindow::open()
{
    askForShowContext();
    const auto width = static_cast<int>(pictureSize.width);
    const auto height = static_cast<int>(pictureSize.height);
    window = SDL_CreateWindow("capture", 0, 0, width, height, SDL_WINDOW_OPENGL | SDL_WINDOW_HIDDEN);
    if (window == nullptr) {
        fail(fmt::format("no window of {}x{}: {}", width, height, SDL_GetError()));
    }
    context = std::make_unique<zund::RendererImpl>(window, true);
    int givenWidth = 0;
    int givenHeight = 0;
    SDL_GL_GetDrawableSize(window, &givenWidth, &givenHeight);
    if (givenWidth != width || givenHeight != height) {
        fail(fmt::format("asked for a window of {}x{}, got {}x{}", width, height, givenWidth, givenHeight));
    }
}

void HiddenWindow::close()
{
    context.reset(); // while the window still exists
    if (window != nullptr) {
        SDL_DestroyWindow(window);
    }
    SDL_Quit();
}

picture::RgbImage HiddenWindow::read() const
{
    picture::RgbImage image{pictureSize, {}};
    image.pixels.resize(std::size_t{3} * pictureSize.width * pictureSize.height);
    readRows(image.pixels);
    flipRows(image);
    return image;
}

void HiddenWindow::readRows(std::span<std::uint8_t> pixels) const
{
    glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
    glReadBuffer(GL_BACK);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, static_cast<GLsizei>(pictureSize.width), static_cast<GLsizei>(pictureSize.height),
                 GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    const GLenum error = glGetError();
    if (error != GL_NO_ERROR) {
        fail(fmt::format("cannot read a picture of {}x{}: OpenGL error 0x{:X}", pictureSize.width,
                         pictureSize.height, error));
    }
}

} // namespace tools::stage
