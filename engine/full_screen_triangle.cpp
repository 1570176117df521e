#include "engine/full_screen_triangle.h"

#include "gl/vertex.h"

#include <vector>

namespace lumeth {

zund::VertexArray createFullScreenTriangle(zund::Renderer& renderer, float z, std::span<const float> uvs)
{
    const zund::Vertex corners[] = {{-1.0F, -1.0F, z}, {3.0F, -1.0F, z}, {-1.0F, 3.0F, z}};
    const unsigned int indices[] = {0, 1, 2};
    std::vector<float> positions;
    for (const zund::Vertex& corner : corners) {
        positions.insert(positions.end(), {corner.x, corner.y, corner.z});
    }
    return renderer.createIndexedBuffer(positions.data(), positions.size(), indices, std::size(indices),
                                        uvs.data(), uvs.size(), nullptr, 0, nullptr, 0, nullptr, 0);
}

} // namespace lumeth
