#pragma once

#include <cstddef>
#include <glm/vec3.hpp>

namespace tools::modelcheck {

/// How often something was met on a model, and where first.
struct Finding {
    std::size_t count = 0;
    glm::vec3 first = glm::vec3(0.0F); ///< in model units; only where `count` is not 0

    void add(const glm::vec3& place)
    {
        if (count++ == 0) {
            first = place;
        }
    }
};

} // namespace tools::modelcheck
