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
#include <map>

using catalogue::Texture;
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

/// Textures with holes, and how much of them is hole.
const std::map<std::string_view, std::pair<double, double>> blackShares = {
    {"tv_emit", {0.9, 0.95}},      {"bigplant", {0.45, 0.55}}, {"unlimited", {0.8, 0.9}},
    {"pants", {0.7, 0.9}},         {"burgertext", {0.7, 0.9}}, {"queue_main", {0.6, 0.8}},
    {"queue_border", {0.9, 0.99}}, {"title", {0.7, 0.9}},
};

TEST_P(StandInTexture, IsPureBlackWhereItsSceneShallShowThrough)
{
    const double share = Blocks(GetParam()).blackShare();
    const auto found = blackShares.find(GetParam().name);
    const auto [low, high] = found == blackShares.end() ? std::pair(0.0, 0.0) : found->second;
    EXPECT_GE(share, low);
    EXPECT_LE(share, high);
}

INSTANTIATE_TEST_SUITE_P(All, StandInTexture, testing::ValuesIn(catalogue::allTextures),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(StandInTextures, KeepFullPicturesBlackAtTheirBorders)
{
    for (const char* const name : {"pants", "burgertext", "queue_main", "queue_border", "title"}) {
        const Blocks blocks(*catalogue::find(catalogue::allTextures, name));
        for (std::size_t i = 0; i < blocks.columns; ++i) {
            ASSERT_EQ(blocks.colorAt(i, 0), pureBlack) << name;
            ASSERT_EQ(blocks.colorAt(i, blocks.rows - 1), pureBlack) << name;
        }
    }
}

TEST(StandInTextures, MeetThemselvesWhereTheBandComesRound)
{
    const Blocks blocks(catalogue::textures::unlimited);
    for (std::size_t row = 0; row < blocks.rows; ++row) {
        ASSERT_EQ(blocks.colorAt(0, row), pureBlack);
        ASSERT_EQ(blocks.colorAt(blocks.columns - 1, row), pureBlack);
    }
    for (std::size_t column = 0; column < blocks.columns; ++column) { // it lies across the upper edge
        ASSERT_EQ(blocks.colorAt(column, 0), blocks.colorAt(column, blocks.rows - 1));
    }
}

TEST(StandInTextures, HaveFlatNormalMaps)
{
    for (const char* const name : {"sofa_norm", "coffeetable_norm", "plywood_norm"}) {
        EXPECT_EQ(Blocks(*catalogue::find(catalogue::allTextures, name)).colorAt(7, 9),
                  (TexelColor{132, 130, 255}))
            << name;
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
    EXPECT_EQ(namesIn("new/assets").size(), 22U);
    EXPECT_EQ(read("new/assets/sofa_legs.glb"), standins::modelFile("sofa_legs"));
    const std::string pack = read("new/assets/assets.pack");
    const std::vector<tools::packer::PackEntry> entries = tools::packer::readPackTable(pack, "assets.pack");
    ASSERT_EQ(entries.size(), 17U);
    EXPECT_EQ(entries.front().name, "room_diff.dds");
    EXPECT_EQ(tools::packer::packFileOf(pack, entries.back(), entries.size()),
              standins::textureFile("title"));
}

TEST_F(StandInAssets, NameTheFolderThatCannotBeMade)
{
    write("file", "");
    EXPECT_THAT([] { standins::writeStandInAssets("file/assets"); },
                ThrowsMessage<tools::Error>("file/assets: cannot make the folder: Not a directory"));
}

} // namespace
