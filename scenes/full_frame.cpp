#include "scenes/full_frame.h"

#include "scenes/shaders/full_frame_vert.h"

#include <iterator>

const char* const scroller_vert = full_frame_vert;
const char* const credits_vert = full_frame_vert;

zund::VertexArray createFullFrameTriangle(zund::Renderer& renderer, float z)
{
    const float positions[] = {-1.0F, -1.0F, z, 3.0F, -1.0F, z, -1.0F, 3.0F, z};
    const unsigned int indices[] = {0, 1, 2};
    const float uvs[] = {0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F};
    return renderer.createIndexedBuffer(positions, std::size(positions), indices, std::size(indices), uvs,
                                        std::size(uvs), nullptr, 0, nullptr, 0, nullptr, 0);
}

float aspectOf(const std::pair<int, int>& size)
{
    return static_cast<float>(size.first) / static_cast<float>(size.second);
}
