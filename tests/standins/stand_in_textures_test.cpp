#include "pack/format.h"
#include "tests/standins/stand_ins.h"
#include "tests/standins/texture_bars.h"
#include "tests/support/in_temporary_folder.h"
#include "tools/common/bytes.h"
#include "tools/common/error.h"
#include "tools/packer/dds.h"
#include "tools/packer/dxt1_block.h"
#include "tools/packer/pack_format.h"
#include "tools/packer/texture_rules.h"

#include <array>
#include <gmock/gmock.h>
#include <utility>

using catalogue::Texture;
using catalogue::TextureKind;
using testing::ThrowsMessage;
using tools::packer::Dxt1Block;

namespace {

using TexelColor = std::array<int, 3>;
constexpr TexelColor pureBlack = {0, 0, 0};

/// A texture file, block by block.
class Blocks {
public:
    explicit Blocks(const Texture& texture)
        : file(standins::textureFile(texture.name)),
          columns(static_cast<std::size_t>(texture.width) / 4),
          rows(static_cast<std::size_t>(texture.height) / 4)
    {
    }

    Dxt1Block at(std::size_t column, std::size_t row) const
    {
        const std::size_t place = pack::format::ddsHeaderSize + 8 * (row * columns + column);
        return {tools::load<std::uint16_t>(file, place), tools::load<std::uint16_t>(file, place + 2),
                tools::load<std::uint32_t>(file, place + 4)};
    }

    /// The one colour of a block. Fails if it has several, or rounding could change it.
    TexelColor colorAt(std::size_t column, std::size_t row) const
    {
        const Dxt1Block block = at(column, row);
        EXPECT_EQ(block.color0, block.color1);
        EXPECT_EQ(block.codes, 0U);
        return tools::packer::paletteOf(block)[0];
    }

    /// Share of the blocks that are pure black.
    double blackShare() const
    {
        std::size_t black = 0;
        for (std::size_t i = 0; i < columns * rows; ++i) {
            black += colorAt(i % columns, i / columns) == pureBlack ? 1 : 0;
        }
        return static_cast<double>(black) / static_cast<double>(columns * rows);
    }

    std::string file;
    std::size_t columns;
    std::size_t rows;
};

class StandInTexture : public testing::TestWithParam<Texture> {};

TEST_P(StandInTexture, IsADdsFileOfTheSizeThatItsSceneUploads)
{
    const std::string file = standins::textureFile(GetParam().name);
    EXPECT_EQ(file.size(), pack::format::ddsHeaderSize + static_cast<std::size_t>(GetParam().width) *
                                                             static_cast<std::size_t>(GetParam().height) / 2);
    EXPECT_EQ(tools::packer::checkDds(file, "file"), tools::packer::sizeOf(GetParam()));
}

/// How much of a texture is hole, by its kind.
std::pair<double, double> blackShareOf(TextureKind kind)
{
    switch (kind) {
    case TextureKind::Emission:
        return {0.9, 0.95};
    case TextureKind::Cutout:
        return {0.45, 0.55};
    case TextureKind::Lettering:
    case TextureKind::Picture:
        return {0.7, 0.85};
    default:
        return {0.0, 0.0};
    }
}

TEST_P(StandInTexture, IsPureBlackWhereItsSceneShallShowThrough)
{
    const double share = Blocks(GetParam()).blackShare();
    const auto [low, high] = blackShareOf(GetParam().kind);
    EXPECT_GE(share, low);
    EXPECT_LE(share, high);
}

TEST_P(StandInTexture, IsAlmostBlackInPlacesWhereBlackIsAHole)
{
    const Blocks blocks(GetParam());
    bool almost = false;
    for (std::size_t row = 0; row < blocks.rows; row += 4) {
        for (std::size_t column = 0; column < blocks.columns; column += 4) {
            almost = almost || blocks.colorAt(column, row) == TexelColor{0, 4, 0};
        }
    }
    const TextureKind kind = GetParam().kind;
    EXPECT_EQ(almost, kind == TextureKind::Lettering || kind == TextureKind::Cutout);
}

TEST_P(StandInTexture, IsNotItsOwnMirrorImageUnlessItIsPlain)
{
    const Blocks blocks(GetParam());
    bool upsideDown = true;
    bool fromBehind = true;
    for (std::size_t row = 0; row < blocks.rows; row += 4) {
        for (std::size_t column = 0; column < blocks.columns; column += 4) {
            const TexelColor here = blocks.colorAt(column, row);
            upsideDown = upsideDown && here == blocks.colorAt(column, blocks.rows - 1 - row);
            fromBehind = fromBehind && here == blocks.colorAt(blocks.columns - 1 - column, row);
        }
    }
    const bool plain = GetParam().kind == TextureKind::Normal;
    EXPECT_EQ(upsideDown, plain);
    EXPECT_EQ(fromBehind, plain);
}

INSTANTIATE_TEST_SUITE_P(All, StandInTexture, testing::ValuesIn(catalogue::allTextures),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(StandInTextures, AreBlackAtTheirBordersWhereTheyAreType)
{
    for (const Texture& texture : catalogue::allTextures) {
        if (texture.kind == TextureKind::Lettering) {
            const Blocks blocks(texture);
            for (std::size_t i = 0; i < blocks.columns; ++i) {
                ASSERT_EQ(blocks.colorAt(i, 0), pureBlack) << texture.name;
                ASSERT_EQ(blocks.colorAt(i, blocks.rows - 1), pureBlack) << texture.name;
            }
            for (std::size_t i = 0; i < blocks.rows; ++i) {
                ASSERT_EQ(blocks.colorAt(0, i), pureBlack) << texture.name;
                ASSERT_EQ(blocks.colorAt(blocks.columns - 1, i), pureBlack) << texture.name;
            }
        }
    }
}

TEST(StandInTextures, HaveFlatNormalMaps)
{
    for (const catalogue::Texture& texture : catalogue::allTextures) {
        if (texture.kind == TextureKind::Normal) {
            EXPECT_EQ(Blocks(texture).colorAt(7, 9), (TexelColor{132, 130, 255})) << texture.name;
        }
    }
}

TEST(StandInTextures, AreRefusedUnderAnyOtherName)
{
    EXPECT_THAT([] { standins::textureFile("carpet"); },
                ThrowsMessage<tools::Error>("carpet: the show has no such texture"));
}

class StandInAssets : public InTemporaryFolder {};

TEST_F(StandInAssets, FillAFolderWithAllModelsAndAPackOfAllTextures)
{
    standins::writeStandInAssets("new/assets");
    EXPECT_EQ(namesIn("new/assets").size(), std::size(catalogue::allModels) + 1);
    EXPECT_EQ(read("new/assets/hat.glb"), standins::modelFile(catalogue::models::hat.name));
    const std::string pack = read("new/assets/assets.pack");
    const std::vector<tools::packer::PackEntry> entries = tools::packer::readPackTable(pack, "assets.pack");
    ASSERT_EQ(entries.size(), std::size(catalogue::allTextures));
    EXPECT_EQ(entries.front().name, catalogue::allTextures[0].file);
    EXPECT_EQ(tools::packer::packFileOf(pack, entries.back(), entries.size()),
              standins::textureFile(std::rbegin(catalogue::allTextures)->name));
}

TEST_F(StandInAssets, NameTheFolderThatCannotBeMade)
{
    write("file", "");
    EXPECT_THAT([] { standins::writeStandInAssets("file/assets"); },
                ThrowsMessage<tools::Error>("file/assets: cannot make the folder: Not a directory"));
}

} // namespace
