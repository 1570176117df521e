#include "scenes/full_frame.h"

#include "engine/full_screen_triangle.h"
#include "scenes/shaders/scroller_vert.h"

const char* const scroller_vert = embedded::scroller_vert;
const char* const credits_vert = embedded::scroller_vert;

zund::VertexArray createFullFrameTriangle(zund::Renderer& renderer, float z)
{
    constexpr float uvs[] = {0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F};
    return lumeth::createFullScreenTriangle(renderer, z, uvs);
}

float aspectOf(const std::pair<int, int>& size)
{
    return static_cast<float>(size.first) / static_cast<float>(size.second);
}
