#include "tools/modelcheck/weld.h"

#include <algorithm>
#include <glm/geometric.hpp>
#include <numeric>

namespace tools::modelcheck {

namespace {

// A unit vector, aslant to the axes: along it the many points of a flat side don't all come at once.
constexpr glm::dvec3 sweepAxis(0.48, 0.60, 0.64);

} // namespace

std::vector<unsigned int> weld(std::span<const glm::vec3> positions, float distance)
{
    std::vector<double> along;
    along.reserve(positions.size());
    for (const glm::vec3& position : positions) {
        along.push_back(glm::dot(glm::dvec3(position), sweepAxis));
    }
    std::vector<unsigned int> order(positions.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(),
              [&](unsigned int a, unsigned int b) { return along[a] < along[b]; });

    std::vector<unsigned int> representative(positions.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        const unsigned int vertex = order[i];
        representative[vertex] = vertex;
        for (std::size_t j = i; j > 0 && along[vertex] - along[order[j - 1]] <= distance; --j) {
            const unsigned int other = order[j - 1];
            if (glm::distance(positions[vertex], positions[other]) <= distance) {
                representative[vertex] = representative[other];
                break;
            }
        }
    }
    return representative;
}

} // namespace tools::modelcheck
