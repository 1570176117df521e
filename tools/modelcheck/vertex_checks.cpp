#include "tools/modelcheck/vertex_checks.h"

#include <cmath>
#include <glm/geometric.hpp>

namespace tools::modelcheck {

namespace {

constexpr float lengthTolerance = 1e-2F; ///< the shader normalises: this is about what was meant
/// Of a tangent frame, of which an orthonormal one has 1: more than rounding makes.
constexpr float smallestVolume = 1e-4F;
constexpr float uvTolerance = 1e-4F; ///< a fifth of a texel of the largest map

bool isFinite(const glm::vec3& vector)
{
    return std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z);
}

bool isInside(float coordinate)
{
    return coordinate >= -uvTolerance && coordinate <= 1.0F + uvTolerance;
}

/// The vertices for which `isBad` is true of their number.
template<typename Predicate>
Finding findVertices(const ImportedMesh& mesh, Predicate isBad)
{
    Finding found;
    for (std::size_t vertex = 0; vertex < mesh.positions.size(); ++vertex) {
        if (isBad(vertex)) {
            found.add(mesh.positions[vertex]);
        }
    }
    return found;
}

Finding nonUnitVectors(const ImportedMesh& mesh, const std::vector<glm::vec3>& vectors)
{
    return findVertices(mesh, [&vectors](std::size_t vertex) {
        return std::abs(glm::length(vectors[vertex]) - 1.0F) > lengthTolerance;
    });
}

} // namespace

Finding nonFiniteVertices(const ImportedMesh& mesh)
{
    return findVertices(mesh, [&mesh](std::size_t vertex) {
        return !isFinite(mesh.positions[vertex]) || !isFinite(mesh.normals[vertex]) ||
               !isFinite(mesh.tangents[vertex]) || !isFinite(mesh.bitangents[vertex]) ||
               !isFinite(glm::vec3(mesh.uvs[vertex], 0.0F));
    });
}

Finding nonUnitNormals(const ImportedMesh& mesh)
{
    return nonUnitVectors(mesh, mesh.normals);
}

Finding nonUnitTangents(const ImportedMesh& mesh)
{
    return nonUnitVectors(mesh, mesh.tangents);
}

Finding nonUnitBitangents(const ImportedMesh& mesh)
{
    return nonUnitVectors(mesh, mesh.bitangents);
}

Finding degenerateTangentFrames(const ImportedMesh& mesh)
{
    return findVertices(mesh, [&mesh](std::size_t vertex) {
        const glm::vec3 across = glm::cross(mesh.tangents[vertex], mesh.bitangents[vertex]);
        return std::abs(glm::dot(across, mesh.normals[vertex])) < smallestVolume;
    });
}

Finding uvsOutside(const ImportedMesh& mesh)
{
    return findVertices(mesh, [&mesh](std::size_t vertex) {
        return !isInside(mesh.uvs[vertex].x) || !isInside(mesh.uvs[vertex].y);
    });
}

} // namespace tools::modelcheck
