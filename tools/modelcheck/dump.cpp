#include "tools/modelcheck/dump.h"

#include <fmt/format.h>
#include <glm/gtc/type_ptr.hpp>
#include <iterator>

namespace tools::modelcheck {

namespace {

template<typename Vector>
void append(std::string& text, const Vector& vector)
{
    constexpr std::size_t count = sizeof(Vector) / sizeof(float);
    const float* const numbers = glm::value_ptr(vector);
    for (std::size_t i = 0; i < count; ++i) {
        fmt::format_to(std::back_inserter(text), " {:a}", numbers[i]);
    }
}

} // namespace

std::string dump(const ImportedMesh& mesh)
{
    std::string text = "root";
    append(text, mesh.root);
    for (std::size_t i = 0; i < mesh.positions.size(); ++i) {
        text += "\nvertex";
        append(text, mesh.positions[i]);
        append(text, mesh.uvs[i]);
        append(text, mesh.normals[i]);
        append(text, mesh.tangents[i]);
        append(text, mesh.bitangents[i]);
    }
    for (const auto& [first, second, third] : mesh.triangles) {
        fmt::format_to(std::back_inserter(text), "\ntriangle {} {} {}", first, second, third);
    }
    return text + "\n";
}

} // namespace tools::modelcheck
