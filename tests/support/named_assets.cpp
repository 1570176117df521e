#include "tests/support/named_assets.h"

#include "scenes/catalogue.h"
#include "tests/standins/box_mesh.h"
#include "tests/standins/glb_file.h"

#include <fmt/format.h>
#include <iterator>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t indicesOfABox = 36;
constexpr std::size_t textureBytes = 136; // a header, and one block behind it

/// A row of that many boxes.
std::string boxes(std::size_t count)
{
    std::vector<standins::Box> row;
    for (std::size_t i = 0; i < count; ++i) {
        const auto x = static_cast<float>(2 * i);
        row.push_back({{x, 0.0F, 0.0F}, {x + 1.0F, 1.0F, 1.0F}});
    }
    return standins::encodeGlb("boxes", standins::meshOf(row));
}

} // namespace

void writeNamedAssets(const ShowFolder& folder)
{
    // The model at place N is N + 1 boxes, so that its count of indices names it.
    std::size_t count = 0;
    for (const catalogue::Model& model : catalogue::allModels) {
        folder.write(fmt::format("{}.glb", model.name), boxes(++count));
    }
    std::vector<std::pair<std::string, std::string>> files;
    for (const catalogue::Texture& texture : catalogue::allTextures) {
        files.emplace_back(texture.file, std::string(textureBytes, 't'));
    }
    folder.writePack(files);
}

std::string meshName(const RecordingRenderer::Mesh& mesh)
{
    const std::size_t indices = mesh.indices.size();
    if (mesh.normals.empty()) {
        if (indices != 3) {
            return "sky cube";
        }
        return mesh.uvs.empty() ? "full-screen triangle"
                                : fmt::format("full-frame triangle at z {}", mesh.positions.at(2));
    }
    const std::size_t count = indices / indicesOfABox;
    if (indices % indicesOfABox != 0 || count == 0 || count > std::size(catalogue::allModels)) {
        return fmt::format("unknown, of {} indices", indices);
    }
    return std::string(catalogue::allModels[count - 1].name);
}

std::string textureName(const RecordingRenderer::Texture& texture, const pack::Packfile& pack)
{
    for (const catalogue::Texture& row : catalogue::allTextures) {
        if (pack.getFile(row.file, true) == texture.data) {
            return std::string(row.name);
        }
    }
    return "from nowhere in the pack";
}
