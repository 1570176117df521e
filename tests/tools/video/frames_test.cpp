#include "tools/video/frames.h"

#include "tools/common/error.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;
using tools::Error;
using tools::video::FrameRange;

namespace {

TEST(Frames, StandAtWholeParts)
{
    EXPECT_EQ(tools::video::timeOfFrame(0, 60), 0.0);
    EXPECT_EQ(tools::video::timeOfFrame(7, 60), 7.0 / 60.0);
    EXPECT_EQ(tools::video::timeOfFrame(10912, 60), 10912.0 / 60.0);
}

TEST(Frames, StartAtOrBehindTheirRow)
{
    EXPECT_EQ(tools::video::firstFrameOfRow(0, 60), 0);
    EXPECT_EQ(tools::video::firstFrameOfRow(64, 24), 45);         // bar 1 at 1.875 s, just so
    EXPECT_EQ(tools::video::firstFrameOfRow(64, 60), 113);        // 112.5
    EXPECT_EQ(tools::video::firstFrameOfRow(97 * 64, 60), 10913); // the end of the show at 181.875 s: 10912.5
    EXPECT_EQ(tools::video::firstFrameOfRow(97 * 64, 24), 4365);
}

TEST(Frames, StartOnBarsAtEachRateWhereTheyCan)
{
    for (int fps = 24; fps <= 120; ++fps) {
        for (int bar = 0; bar <= 97; ++bar) {
            const int eighths = bar * 15 * fps; // a bar takes 15/8 s
            ASSERT_EQ(tools::video::firstFrameOfRow(64 * bar, fps), (eighths + 7) / 8)
                << bar << " at " << fps;
        }
    }
}

TEST(Frames, StartWithARoundedSample)
{
    EXPECT_EQ(tools::video::sampleOfFrame(0, 60, 44100), 0);
    EXPECT_EQ(tools::video::sampleOfFrame(1, 60, 44100), 735);
    EXPECT_EQ(tools::video::sampleOfFrame(10913, 60, 44100), 8021055);
    EXPECT_EQ(tools::video::sampleOfFrame(1, 24, 44100), 1838); // 1837.5
    EXPECT_EQ(tools::video::sampleOfFrame(1, 119, 44100), 371); // 370.6
    EXPECT_EQ(tools::video::sampleOfFrame(2, 24, 44100), 3675);
}

TEST(Shares, StartOnWholeUnitsWhereThereAreEnough)
{
    EXPECT_EQ(tools::video::shareOf({0, 10913}, {1, 8}, 60), (FrameRange{0, 1320})); // 182 units
    EXPECT_EQ(tools::video::shareOf({0, 10913}, {2, 8}, 60), (FrameRange{1320, 2700}));
    EXPECT_EQ(tools::video::shareOf({0, 10913}, {8, 8}, 60), (FrameRange{9540, 10913}));
    EXPECT_EQ(tools::video::shareOf({23, 113}, {1, 3}, 24),
              (FrameRange{23, 47})); // 4 units, the last one short
    EXPECT_EQ(tools::video::shareOf({23, 113}, {2, 3}, 24), (FrameRange{47, 71}));
    EXPECT_EQ(tools::video::shareOf({23, 113}, {3, 3}, 24), (FrameRange{71, 113}));
    EXPECT_EQ(tools::video::shareOf({23, 113}, {2, 4}, 24),
              (FrameRange{45, 68})); // 3 whole units are too few
}

TEST(Shares, FollowOneAnotherAndDifferByAUnitAtMost)
{
    for (const FrameRange whole : {FrameRange{0, 10913}, FrameRange{113, 225}, FrameRange{5, 12}}) {
        for (int of = 1; of <= 7; ++of) {
            for (const std::int64_t unit : {1, 24, 60}) {
                const std::int64_t step = of <= whole.count() / unit ? unit : 1;
                std::int64_t next = whole.first;
                for (int number = 1; number <= of; ++number) {
                    const FrameRange share = tools::video::shareOf(whole, {number, of}, unit);
                    EXPECT_EQ(share.first, next);
                    EXPECT_GT(share.count(), whole.count() / of - step);
                    EXPECT_LT(share.count(), whole.count() / of + 1 + step);
                    next = share.end;
                }
                EXPECT_EQ(next, whole.end);
            }
        }
    }
}

TEST(Shares, AreRefusedWhereThereAreMoreThanFrames)
{
    EXPECT_EQ(tools::video::shareOf({10, 13}, {3, 3}, 1), (FrameRange{12, 13}));
    EXPECT_THAT(
        [] {
            tools::video::shareOf({10, 13}, {1, 4}, 1);
        },
        ThrowsMessage<Error>("--range 1/4: there are only 3 frames"));
}

TEST(Pieces, HaveOneLengthButForTheLast)
{
    EXPECT_THAT(tools::video::piecesOf({5, 12}, 3),
                ElementsAre(FrameRange{5, 8}, FrameRange{8, 11}, FrameRange{11, 12}));
    EXPECT_THAT(tools::video::piecesOf({5, 8}, 3), ElementsAre(FrameRange{5, 8}));
    EXPECT_THAT(tools::video::piecesOf({5, 5}, 3), IsEmpty());
}

TEST(Samples, AreSpreadOverTheRange)
{
    EXPECT_THAT(tools::video::spreadOver({100, 200}, 2), ElementsAre(125, 175));
    EXPECT_THAT(tools::video::spreadOver({100, 103}, 9), ElementsAre(100, 101, 102));
    EXPECT_THAT(tools::video::spreadOver({100, 100}, 9), IsEmpty());
}

TEST(Share, IsReadAsNumberAndCount)
{
    const tools::video::Share share = tools::video::parseShare("2/8");
    EXPECT_EQ(share.number, 2);
    EXPECT_EQ(share.of, 8);
}

TEST(Share, IsRefusedInAnyOtherForm)
{
    for (const std::string text :
         {"", "2", "/", "2/", "/8", "0/8", "9/8", "-1/8", "2/8/9", "2 /8", "2:8", "1/99999999999"})
    {
        EXPECT_THAT([&] { tools::video::parseShare(text); },
                    ThrowsMessage<Error>("--range " + text + ": expected N/M, as 2/8, with N from 1 to M"));
    }
}

TEST(Fps, IsAWholeNumberFrom24To120)
{
    EXPECT_EQ(tools::video::parseFps("24"), 24);
    EXPECT_EQ(tools::video::parseFps("120"), 120);
    for (const std::string text : {"", "23", "121", "29.97", "60fps", "-30", " 30"}) {
        EXPECT_THAT([&] { tools::video::parseFps(text); },
                    ThrowsMessage<Error>("--fps " + text + ": expected a whole number from 24 to 120"));
    }
}

TEST(VideoSize, IsEven)
{
    EXPECT_NO_THROW(tools::video::checkVideoSize({2, 1080}));
    for (const tools::picture::Size size : {tools::picture::Size{1921, 1080}, tools::picture::Size{1920, 1}})
    {
        EXPECT_THAT(
            [&] { tools::video::checkVideoSize(size); },
            ThrowsMessage<Error>("--size " + std::to_string(size.width) + "x" + std::to_string(size.height) +
                                 ": a video has even sides, as a sample of its colour covers 2x2 pixels"));
    }
}

} // namespace
