#include "tests/standins/box_mesh.h"

namespace standins {

namespace {

/// A side of a box as seen from outside.
struct Face {
    glm::vec3 normal;
    glm::vec3 right;
    glm::vec3 up;
    glm::vec2 cell; ///< column and row of its part of the picture
};

// clang-format off
constexpr Face faces[] = {
    // normal                right                 up                    cell
    {{ 1.0F,  0.0F,  0.0F}, { 0.0F, 0.0F, -1.0F}, {0.0F, 1.0F,  0.0F}, {0.0F, 0.0F}},
    {{-1.0F,  0.0F,  0.0F}, { 0.0F, 0.0F,  1.0F}, {0.0F, 1.0F,  0.0F}, {0.0F, 1.0F}},
    {{ 0.0F,  1.0F,  0.0F}, { 1.0F, 0.0F,  0.0F}, {0.0F, 0.0F, -1.0F}, {1.0F, 0.0F}},
    {{ 0.0F, -1.0F,  0.0F}, { 1.0F, 0.0F,  0.0F}, {0.0F, 0.0F,  1.0F}, {1.0F, 1.0F}},
    {{ 0.0F,  0.0F,  1.0F}, { 1.0F, 0.0F,  0.0F}, {0.0F, 1.0F,  0.0F}, {2.0F, 0.0F}},
    {{ 0.0F,  0.0F, -1.0F}, {-1.0F, 0.0F,  0.0F}, {0.0F, 1.0F,  0.0F}, {2.0F, 1.0F}},
};
constexpr glm::vec2 corners[] = { // to the right and up, counter-clockwise
    {-1.0F, -1.0F}, {1.0F, -1.0F}, {1.0F, 1.0F}, {-1.0F, 1.0F},
};
// clang-format on
constexpr int triangles[] = {0, 1, 2, 0, 2, 3};

void addFace(Mesh& mesh, const Box& box, const Face& face)
{
    const std::size_t first = mesh.positions.size();
    const glm::vec3 middle = 0.5F * (box.low + box.high);
    const glm::vec3 half = 0.5F * (box.high - box.low);
    for (const glm::vec2& corner : corners) {
        mesh.positions.push_back(middle + half * (face.normal + corner.x * face.right + corner.y * face.up));
        mesh.normals.push_back(face.normal);
        const glm::vec2 inCell(0.5F + 0.5F * corner.x, 0.5F - 0.5F * corner.y);
        mesh.uvs.push_back((face.cell + inCell) / glm::vec2(3.0F, 2.0F));
    }
    for (const int index : triangles) {
        mesh.indices.push_back(static_cast<std::uint16_t>(first + static_cast<std::size_t>(index)));
    }
}

} // namespace

Mesh meshOf(std::span<const Box> boxes)
{
    Mesh mesh;
    for (const Box& box : boxes) {
        for (const Face& face : faces) {
            addFace(mesh, box, face);
        }
    }
    return mesh;
}

} // namespace standins
