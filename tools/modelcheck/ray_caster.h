#pragma once

#include "tools/modelcheck/imported_mesh.h"

#include <vector>

namespace tools::modelcheck {

/// Answers whether rays meet a model: a tree of blocks around its triangles, as each ray meets few of them.
class RayCaster {
public:
    /// Keeps nothing of the mesh, all of whose positions are finite. It has a triangle.
    explicit RayCaster(const ImportedMesh& mesh);

    /// Whether the ray meets a triangle, from whichever side. Those that it starts on don't count.
    [[nodiscard]] bool hits(const glm::vec3& origin, const glm::vec3& direction) const;

private:
    struct Face {
        std::array<glm::vec3, 3> corners;
        glm::vec3 middle;
    };
    /// The block around some faces. Those of a leaf, or two blocks of half each: the first comes next.
    struct Block {
        glm::vec3 low;
        glm::vec3 high;
        std::size_t first;
        std::size_t count;  ///< of faces; 0 if there are blocks inside
        std::size_t second; ///< the other block
    };

    void addBlock(std::size_t first, std::size_t count);
    [[nodiscard]] bool hitsIn(std::size_t index, const glm::vec3& origin, const glm::vec3& direction) const;

    std::vector<Face> faces; ///< those of a block side by side
    std::vector<Block> blocks;
};

} // namespace tools::modelcheck
