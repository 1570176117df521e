#include "tests/tools/modelcheck/imported_boxes.h"

#include "tests/standins/box_mesh.h"

#include <algorithm>
#include <set>
#include <utility>

using tools::modelcheck::ImportedMesh;

namespace {

/// Two more directions along the axes, square to a normal that is along one.
void addFrame(ImportedMesh& mesh, const glm::vec3& normal)
{
    mesh.tangents.emplace_back(normal.y, normal.z, normal.x);
    mesh.bitangents.emplace_back(normal.z, normal.x, normal.y);
}

} // namespace

ImportedMesh importedBoxes(std::span<const standins::Box> boxes)
{
    const standins::Mesh boxMesh = standins::meshOf(boxes);
    ImportedMesh mesh;
    mesh.positions = boxMesh.positions;
    mesh.normals = boxMesh.normals;
    mesh.uvs = boxMesh.uvs;
    for (const glm::vec3& normal : boxMesh.normals) {
        addFrame(mesh, normal);
    }
    for (std::size_t i = 0; i < boxMesh.indices.size(); i += 3) {
        mesh.triangles.push_back({boxMesh.indices[i], boxMesh.indices[i + 1], boxMesh.indices[i + 2]});
    }
    return mesh;
}

ImportedMesh importedLid()
{
    return importedBoxes(standins::findModel("toilet_lid")->boxes);
}

ImportedMesh foldedBoxes()
{
    const standins::Box boxes[] = {{{0.0F, 0.0F, 0.0F}, {4.0F, 4.0F, 4.0F}},
                                   {{1.0F, 2.0F, 1.0F}, {1.5F, 2.5F, 9.0F}}};
    ImportedMesh mesh = importedBoxes(boxes);
    std::ranges::replace(mesh.positions, boxes[1].low, boxes[0].low);
    return mesh;
}

void turnInsideOut(ImportedMesh& mesh, std::size_t first)
{
    std::set<unsigned int> corners;
    for (std::size_t i = first; i < mesh.triangles.size(); ++i) {
        std::swap(mesh.triangles[i][1], mesh.triangles[i][2]);
        corners.insert(mesh.triangles[i].begin(), mesh.triangles[i].end());
    }
    for (const unsigned int corner : corners) {
        mesh.normals[corner] = -mesh.normals[corner];
    }
}
