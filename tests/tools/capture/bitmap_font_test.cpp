#include "tools/capture/bitmap_font.h"

#include <gmock/gmock.h>
#include <set>
#include <string>

using tools::picture::RgbImage;

namespace {

RgbImage blank(tools::picture::Size size)
{
    return {size, std::vector<std::uint8_t>(std::size_t{3} * size.width * size.height, 0)};
}

/// The picture as lines of dots and blanks.
std::string drawing(const RgbImage& image)
{
    std::string text;
    for (std::size_t i = 0; i < image.pixels.size(); i += 3) {
        text += image.pixels[i] == 0 ? ' ' : '#';
        text += (i / 3 + 1) % image.size.width == 0 ? "\n" : "";
    }
    return text;
}

TEST(BitmapFont, DrawsSmallLettersAsCapitals)
{
    RgbImage image = blank({12, 7});
    tools::capture::drawText(image, "r4", 0, 0, 12, 1);
    EXPECT_EQ(drawing(image), "####     #  \n"
                              "#   #   ##  \n"
                              "#   #  # #  \n"
                              "####  #  #  \n"
                              "# #   ##### \n"
                              "#  #     #  \n"
                              "#   #    #  \n");
}

TEST(BitmapFont, MakesDotsOfTheScale)
{
    RgbImage image = blank({12, 16});
    tools::capture::drawText(image, "-", 1, 1, 12, 2);
    const std::string empty(12, ' ');
    std::string expected;
    for (int y = 0; y < 16; ++y) {
        expected += (y == 7 || y == 8 ? "   ######   " : empty) + "\n";
    }
    EXPECT_EQ(drawing(image), expected);
}

TEST(BitmapFont, CutsOffAtTheRightAndAtThePicture)
{
    RgbImage image = blank({8, 3});
    tools::capture::drawText(image, "EEE", 0, 1, 7, 1);
    EXPECT_EQ(drawing(image), "        \n"
                              "##### # \n"
                              "#     # \n");
}

TEST(BitmapFont, TellsAllItsCharactersApart)
{
    const std::string characters = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ.:- ";
    std::set<std::string> drawings;
    for (const char character : characters) {
        RgbImage image = blank({6, 7});
        tools::capture::drawText(image, std::string(1, character), 0, 0, 6, 1);
        drawings.insert(drawing(image));
    }
    EXPECT_EQ(drawings.size(), characters.size());
}

} // namespace
