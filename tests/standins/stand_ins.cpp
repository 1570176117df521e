#include "tests/standins/stand_ins.h"

#include "tests/standins/box_mesh.h"
#include "tests/standins/glb_file.h"
#include "tests/standins/model_boxes.h"
#include "tests/standins/texture_bars.h"
#include "tools/common/atomic_file.h"
#include "tools/common/bytes.h"
#include "tools/common/error.h"
#include "tools/packer/dds.h"
#include "tools/packer/pack_format.h"
#include "tools/packer/texture_rules.h"

#include <fmt/format.h>
#include <vector>

namespace standins {

namespace {

constexpr std::uint32_t barUnits = 60; ///< of width and height, see `Bar`

[[noreturn]] void failUnknown(std::string_view name, const char* kind)
{
    throw tools::Error(std::string(name), fmt::format("the show has no such {}", kind));
}

/// A block of 4x4 texels that all have one colour, exactly so for pure black.
std::string blockOf(Color color)
{
    const auto packed =
        static_cast<std::uint16_t>((color.red >> 3) << 11 | (color.green >> 2) << 5 | color.blue >> 3);
    std::string block;
    tools::append(block, packed);
    tools::append(block, packed);
    tools::append(block, std::uint32_t{0}); // all texels the first colour
    return block;
}

bool covers(const Bar& bar, std::uint32_t x, std::uint32_t y)
{
    const auto column = static_cast<int>(x);
    const auto row = static_cast<int>(y);
    return column >= bar.left && column < bar.right && row >= bar.top && row < bar.bottom;
}

/// The colour of the 60th across and the 60th down.
Color colorAt(const TextureBars& texture, std::uint32_t x, std::uint32_t y)
{
    Color color = texture.ground;
    for (const Bar& bar : texture.bars) {
        if (covers(bar, x, y)) {
            color = bar.color;
        }
    }
    return color;
}

/// A row of blocks, at the 60th `y` from the top.
std::string blockRow(const TextureBars& texture, std::uint32_t width, std::uint32_t y)
{
    std::string row;
    const std::uint32_t blocks = width / 4;
    for (std::uint32_t block = 0; block < blocks; ++block) {
        row += blockOf(colorAt(texture, block * barUnits / blocks, y));
    }
    return row;
}

void writeFile(const std::filesystem::path& path, const std::string& bytes)
{
    tools::AtomicFile(path, bytes).commit();
}

} // namespace

std::string modelFile(std::string_view name)
{
    const ModelBoxes* const model = findModel(name);
    if (model == nullptr) {
        failUnknown(name, "model");
    }
    return encodeGlb(name, meshOf(model->boxes));
}

std::string textureFile(std::string_view name)
{
    const catalogue::Texture* const row = catalogue::find(catalogue::allTextures, name);
    if (row == nullptr) {
        failUnknown(name, "texture");
    }
    const TextureBars texture = barsOf(row->kind);
    const tools::picture::Size size = tools::packer::sizeOf(*row);
    std::vector<std::string> rows;
    for (std::uint32_t y = 0; y < barUnits; ++y) {
        rows.push_back(blockRow(texture, size.width, y));
    }
    std::string bytes = tools::packer::makeDdsHeader(size);
    const std::uint32_t blocks = size.height / 4;
    bytes.reserve(bytes.size() + blocks * rows.front().size());
    for (std::uint32_t block = 0; block < blocks; ++block) {
        bytes += rows[block * barUnits / blocks];
    }
    return bytes;
}

void writeStandInAssets(const std::filesystem::path& folder)
{
    tools::makeFolder(folder);
    for (const ModelBoxes& model : standInModels()) {
        writeFile(folder / (std::string(model.name) + ".glb"), modelFile(model.name));
    }
    std::vector<tools::packer::PackInput> textures;
    for (const catalogue::Texture& texture : catalogue::allTextures) {
        textures.push_back({texture.file, textureFile(texture.name)});
    }
    writeFile(folder / "assets.pack", tools::packer::encodePack(textures));
}

} // namespace standins
