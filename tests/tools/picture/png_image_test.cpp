#include "tools/picture/png_image.h"

#include "tests/support/pictures.h"
#include "tools/common/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAreArray;
using testing::StartsWith;
using testing::TestWithParam;
using testing::ThrowsMessage;
using testing::ValuesIn;
using tools::Error;
using tools::picture::decodePng;
using tools::picture::Size;

namespace {

using namespace std::string_view_literals;

struct Kind {
    const char* name;
    std::string_view pixels; ///< of 2x1 texels
    PngKind kind;
    std::uint8_t decoded[6];
};

// clang-format off
// NOLINTBEGIN(modernize-raw-string-literal): these are bytes
constexpr Kind kinds[] = {
    {"Rgb",             "\1\2\3\4\5\6"sv,        {2, 8}, {1, 2, 3, 4, 5, 6}},
    {"RgbaWithoutIts",  "\1\2\3\0\4\5\6\x80"sv,  {6, 8}, {1, 2, 3, 4, 5, 6}},
    {"Grey",            "\7\x50"sv,              {0, 8}, {7, 7, 7, 80, 80, 80}},
    {"GreyAlpha",       "\7\0\x50\xFF"sv,        {4, 8}, {7, 7, 7, 80, 80, 80}},
    {"GreyOfOneBit",    "\x40"sv,                {0, 1}, {0, 0, 0, 255, 255, 255}},
    {"Palette",         "\0\5"sv,                {3, 8}, {0, 0, 0, 5, 10, 15}},
    {"PaletteOf4Bits",  "\x2F"sv,                {3, 4}, {2, 4, 6, 15, 30, 45}},
};
// NOLINTEND(modernize-raw-string-literal)
// clang-format on

class PngKinds : public TestWithParam<Kind> {};

TEST_P(PngKinds, DecodeToRgb)
{
    const std::string png = encodePng({2, 1}, GetParam().kind, std::string(GetParam().pixels));
    const tools::picture::RgbImage image = decodePng(png, "p.png");
    EXPECT_EQ(image.size, (Size{2, 1}));
    EXPECT_THAT(image.pixels, ElementsAreArray(GetParam().decoded));
    EXPECT_EQ(tools::picture::readPngSize(png, "p.png"), (Size{2, 1}));
}

INSTANTIATE_TEST_SUITE_P(Kinds, PngKinds, ValuesIn(kinds), [](const auto& info) { return info.param.name; });

TEST(PngImage, IsRefusedWith16BitsAChannel)
{
    const std::string png = encodePng({1, 1}, {0, 16}, "\1\2");
    EXPECT_THAT([&] { tools::picture::readPngSize(png, "p.png"); },
                ThrowsMessage<Error>("p.png: has 16 bits a channel, expected at most 8"));
}

TEST(PngImage, IsRefusedCutOffAtAnyByte)
{
    const tools::picture::RgbImage image = makePicture({8, 8}, 1);
    const std::string png = encodePng(image);
    // The last 4 bytes, the checksum of the empty end mark, say nothing and are not looked at.
    for (std::size_t length = 0; length < png.size() - 4; ++length) {
        const std::string cut = png.substr(0, length);
        EXPECT_THAT([&] { decodePng(cut, "p.png"); },
                    ThrowsMessage<Error>(StartsWith("p.png: no sound PNG: ")))
            << length;
    }
    for (std::size_t length = png.size() - 4; length <= png.size(); ++length) {
        EXPECT_EQ(decodePng(png.substr(0, length), "p.png").pixels, image.pixels);
    }
}

TEST(PngImage, IsRefusedWithAChangedByteInItsPicture)
{
    std::string png = encodePng(makePicture({8, 8}, 1));
    png[png.find("IDAT") + 20] ^= 1;
    EXPECT_THAT([&] { decodePng(png, "p.png"); },
                ThrowsMessage<Error>("p.png: no sound PNG: IDAT stream error"));
}

TEST(PngImage, IsRefusedWithAChangedChecksum)
{
    std::string png = encodePng(makePicture({8, 8}, 1));
    png[png.find("IHDR") + 17] ^= 1;
    EXPECT_THAT([&] { decodePng(png, "p.png"); },
                ThrowsMessage<Error>("p.png: no sound PNG: invalid chunk checksum"));
}

TEST(PngImage, IsRefusedWithoutThePngMark)
{
    EXPECT_THAT(
        [] { tools::picture::readPngSize("no picture at all, but long enough for a header", "p.png"); },
        ThrowsMessage<Error>("p.png: no sound PNG: invalid signature"));
}

} // namespace
