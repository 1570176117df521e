#include "tools/packer/dds.h"

#include "tools/common/bytes.h"
#include "tools/common/error.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::TestWithParam;
using testing::ThrowsMessage;
using testing::ValuesIn;
using tools::Error;
using tools::packer::checkDds;
using tools::picture::Size;

namespace {

std::string makeDds(Size size)
{
    return tools::packer::makeDdsHeader(size) + std::string(std::size_t{size.width} * size.height / 2, 'x');
}

TEST(DdsHeader, HasTheFieldsOfOneLevelInDxt1)
{
    const std::string header = tools::packer::makeDdsHeader({3840, 2160});
    ASSERT_EQ(header.size(), 128U);
    const auto field = [&](std::size_t at) {
        return tools::load<std::uint32_t>(header, at);
    };
    EXPECT_EQ(header.substr(0, 4), "DDS ");
    EXPECT_EQ(field(4), 124U);
    EXPECT_EQ(field(8), 0x81007U); // caps, height, width, pixel format, linear size
    EXPECT_EQ(field(12), 2160U);
    EXPECT_EQ(field(16), 3840U);
    EXPECT_EQ(field(20), 4147200U);
    EXPECT_EQ(field(76), 32U);
    EXPECT_EQ(field(80), 4U); // has a four-character code
    EXPECT_EQ(header.substr(84, 4), "DXT1");
    EXPECT_EQ(field(108), 0x1000U); // texture
}

TEST(DdsHeader, IsFoundWellFormed)
{
    EXPECT_EQ(checkDds(makeDds({8, 4}), "f.dds"), (Size{8, 4}));
    EXPECT_EQ(checkDds(makeDds({2048, 2048}), "f.dds"), (Size{2048, 2048}));
}

TEST(Dds, MayCountItsOneLevel)
{
    std::string dds = makeDds({4, 4});
    dds[28] = 1;
    EXPECT_NO_THROW(checkDds(dds, "f.dds"));
}

TEST(Dds, MayLeaveOutTheLinearSize)
{
    std::string dds = makeDds({4, 4});
    dds[10] = 0; // the flag
    dds[20] = 0; // the size
    EXPECT_NO_THROW(checkDds(dds, "f.dds"));
}

TEST(Dds, IsRefusedCutOffAtAnyByte)
{
    const std::string whole = makeDds({8, 8});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const std::string sentence =
            length < 128 ? fmt::format("f.dds: {} bytes are too few for a DDS header", length)
                         : fmt::format("f.dds: {} bytes follow the DDS header, but 8x8 in DXT1 takes 32",
                                       length - 128);
        EXPECT_THAT([&] { checkDds(cut, "f.dds"); }, ThrowsMessage<Error>(sentence));
    }
}

struct Change {
    const char* name;
    std::size_t at;
    char value;
    const char* sentence;
};

// Of a file of 8x8 texels.
// clang-format off
constexpr Change changes[] = {
    {"Magic",            0,   'd',    "f.dds: no DDS file: 'DDS ' is not at its start"},
    {"HeaderSize",       4,   123,    "f.dds: the DDS header is damaged"},
    {"NoWidth",          8,   3,      "f.dds: the DDS header is damaged"},
    {"FormatSize",       76,  31,     "f.dds: the DDS header is damaged"},
    {"NoFourCc",         80,  0x40,   "f.dds: the DDS file is not in DXT1"},
    {"Dxt5",             87,  '5',    "f.dds: the DDS file is not in DXT1"},
    {"TwoLevels",        28,  2,      "f.dds: the DDS file holds more than one level"},
    {"Volume",           24,  2,      "f.dds: the DDS file holds more than one level"},
    {"Cubemap",          113, 2,      "f.dds: the DDS file holds more than one level"},
    {"WidthOf10",        16,  10,     "f.dds: 10x8 is not a multiple of 4 in both directions"},
    {"HeightOf6",        12,  6,      "f.dds: 8x6 is not a multiple of 4 in both directions"},
    {"NoHeight",         12,  0,      "f.dds: 8x0 is not a multiple of 4 in both directions"},
    {"WidthOf12",        16,  12,     "f.dds: 32 bytes follow the DDS header, but 12x8 in DXT1 takes 48"},
    {"LinearSize",       20,  31,     "f.dds: the DDS header says 31 bytes, but 8x8 in DXT1 takes 32"},
};
// clang-format on

class ChangedDds : public TestWithParam<Change> {};

TEST_P(ChangedDds, IsRefusedWithTheReason)
{
    std::string dds = makeDds({8, 8});
    dds[GetParam().at] = GetParam().value;
    EXPECT_THAT([&] { checkDds(dds, "f.dds"); }, ThrowsMessage<Error>(GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(Changes, ChangedDds, ValuesIn(changes),
                         [](const auto& info) { return info.param.name; });

} // namespace
