#include "tools/capture/contact_sheet.h"

#include "tools/common/error.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::ThrowsMessage;
using tools::Error;
using tools::capture::ContactSheet;
using tools::capture::sheetRows;
using tools::picture::RgbImage;
using tools::picture::Size;

namespace {

RgbImage filled(Size size, std::uint8_t level)
{
    return {size, std::vector<std::uint8_t>(std::size_t{3} * size.width * size.height, level)};
}

std::uint8_t levelAt(const RgbImage& image, std::size_t x, std::size_t y)
{
    return image.pixels.at(3 * (y * image.size.width + x));
}

TEST(ContactSheet, HasAGapAroundEachStillAndAStripBelow)
{
    EXPECT_EQ(ContactSheet::textHeight({480, 270}), 22U);
    EXPECT_EQ(ContactSheet({480, 270}, 25, 5).picture().size, (Size{4 + 5 * 484, 4 + 5 * (270 + 22 + 4)}));
    EXPECT_EQ(ContactSheet({160, 90}, 7, 3).picture().size, (Size{4 + 3 * 164, 4 + 3 * (90 + 11 + 4)}));
}

TEST(ContactSheet, IsNoWiderThanItsStills)
{
    EXPECT_EQ(ContactSheet({160, 90}, 2, 5).picture().size, (Size{4 + 2 * 164, 4 + 105}));
}

TEST(ContactSheet, FillsItsRowsFromTheLeft)
{
    const Size size = {40, 20};
    ContactSheet sheet(size, 3, 2);
    const std::uint8_t levels[] = {100, 150, 200};
    for (const std::uint8_t level : levels) {
        sheet.add(filled(size, level), "");
    }
    const RgbImage& picture = sheet.picture();
    EXPECT_EQ(levelAt(picture, 4, 4), 100);
    EXPECT_EQ(levelAt(picture, 43, 23), 100);
    EXPECT_EQ(levelAt(picture, 44, 23), 40); // the gap
    EXPECT_EQ(levelAt(picture, 43, 24), 40);
    EXPECT_EQ(levelAt(picture, 48, 4), 150);
    EXPECT_EQ(levelAt(picture, 4, 4 + 20 + 11 + 4), 200);
}

TEST(ContactSheet, WritesUnderTheStillAndNoFurther)
{
    const Size size = {40, 20};
    ContactSheet sheet(size, 2, 2);
    sheet.add(filled(size, 100), "EEEEEEEEEEEEEEEEEEEE");
    const RgbImage& picture = sheet.picture();
    EXPECT_EQ(levelAt(picture, 4, 26), 235);
    EXPECT_EQ(levelAt(picture, 4, 23), 100);
    for (std::size_t y = 0; y < picture.size.height; ++y) {
        ASSERT_EQ(levelAt(picture, 44, y), 40);
    }
}

TEST(ContactSheet, IsRefusedTooLarge)
{
    EXPECT_THAT(
        [] {
            ContactSheet({1920, 1080}, 100, 10);
        },
        ThrowsMessage<Error>("capture: the sheet would be 19244x11724, at most 16384x16384 fit; take fewer "
                             "or smaller stills"));
}

TEST(SheetRows, StepByBars)
{
    EXPECT_THAT(sheetRows(4, 0, 10), ElementsAre(0, 256, 512));
    EXPECT_THAT(sheetRows(4, 88, 96), ElementsAre(5632, 5888, 6144));
    EXPECT_THAT(sheetRows(0.25, 1, 1.5), ElementsAre(64, 80, 96));
    EXPECT_THAT(sheetRows(5, 7, 7), ElementsAre(448));
}

TEST(SheetRows, AreRefusedWithTheOption)
{
    EXPECT_THAT([] { sheetRows(0, 0, 1); },
                ThrowsMessage<Error>("--every 0: expected at least a row, which is 1/64 of a bar"));
    EXPECT_THAT([] { sheetRows(-4, 0, 1); },
                ThrowsMessage<Error>("--every -4: expected at least a row, which is 1/64 of a bar"));
    EXPECT_THAT([] { sheetRows(1, -1, 1); },
                ThrowsMessage<Error>("--from -1: expected a bar of the show, from 0 on"));
    EXPECT_THAT([] { sheetRows(1, 0, 1e7); },
                ThrowsMessage<Error>("--to 10000000: expected a bar of the show, from 0 on"));
    EXPECT_THAT([] { sheetRows(1, 5, 4); }, ThrowsMessage<Error>("--to 4: lies before --from 5"));
    EXPECT_THAT([] { sheetRows(1, 0, 4096); },
                ThrowsMessage<Error>("capture: the sheet would hold 4097 stills, at most 4096 fit"));
}

} // namespace
