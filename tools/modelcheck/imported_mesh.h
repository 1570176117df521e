#pragma once

#include <array>
#include <filesystem>
#include <glm/mat4x4.hpp>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <vector>

namespace tools::modelcheck {

/// A model as the show's loader hands it to the renderer. The five attributes are of one length.
struct ImportedMesh {
    std::vector<glm::vec3> positions;
    std::vector<glm::vec3> normals;
    std::vector<glm::vec3> tangents;
    std::vector<glm::vec3> bitangents;
    std::vector<glm::vec2> uvs; ///< from the top left of the picture, as they are uploaded
    std::vector<std::array<unsigned int, 3>> triangles;
    glm::mat4 root = glm::mat4(1.0F); ///< transform of the root node
};

/// The corners of a triangle.
inline std::array<glm::vec3, 3> cornersOf(const ImportedMesh& mesh,
                                          const std::array<unsigned int, 3>& triangle)
{
    return {mesh.positions[triangle[0]], mesh.positions[triangle[1]], mesh.positions[triangle[2]]};
}

inline glm::vec3 middleOf(const std::array<glm::vec3, 3>& corners)
{
    return (corners[0] + corners[1] + corners[2]) / 3.0F;
}

/// Reads a model with the show's own loader, which is kept quiet. Throws `Error` "PATH: TEXT", TEXT being
/// what the loader says, or "PATH: its faces are no triangles", or "PATH: a triangle has a corner that is no
/// vertex".
ImportedMesh importModel(const std::filesystem::path& path);

/// Processor time that the show's loader takes for the file, in seconds. Throws as `importModel` does.
double importSeconds(const std::filesystem::path& path);

} // namespace tools::modelcheck
