#include "tools/modelcheck/extents.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace tools::modelcheck {

namespace {

struct Measure {
    const char* name;
    Extent extent;
    float sign;                             ///< of the result
    float (*of)(const glm::vec3& position); ///< the farthest counts
};

// clang-format off
constexpr Measure measures[] = {
    {"lowest x",                  Extent::LowX,   -1.0F, [](const glm::vec3& at) { return -at.x; }},
    {"highest x",                 Extent::HighX,   1.0F, [](const glm::vec3& at) { return at.x; }},
    {"lowest y",                  Extent::LowY,   -1.0F, [](const glm::vec3& at) { return -at.y; }},
    {"highest y",                 Extent::HighY,   1.0F, [](const glm::vec3& at) { return at.y; }},
    {"lowest z",                  Extent::LowZ,   -1.0F, [](const glm::vec3& at) { return -at.z; }},
    {"highest z",                 Extent::HighZ,   1.0F, [](const glm::vec3& at) { return at.z; }},
    {"farthest x to either side", Extent::FarX,    1.0F, [](const glm::vec3& at) { return std::abs(at.x); }},
    {"farthest z to either side", Extent::FarZ,    1.0F, [](const glm::vec3& at) { return std::abs(at.z); }},
    {"radius about the y axis",   Extent::Radius,  1.0F, [](const glm::vec3& at) { return std::hypot(at.x, at.z); }},
};
// clang-format on

const Measure& find(Extent extent)
{
    return *std::find_if(std::begin(measures), std::end(measures),
                         [extent](const Measure& row) { return row.extent == extent; });
}

} // namespace

float measure(const ImportedMesh& mesh, Extent extent)
{
    const Measure& row = find(extent);
    float farthest = row.of(mesh.positions.front());
    for (const glm::vec3& position : mesh.positions) {
        farthest = std::max(farthest, row.of(position));
    }
    return row.sign * farthest;
}

const char* nameOf(Extent extent)
{
    return find(extent).name;
}

} // namespace tools::modelcheck
