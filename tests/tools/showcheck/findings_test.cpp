#include "tools/showcheck/findings.h"

#include "scenes/catalogue.h"

#include <cmath>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using tools::showcheck::Check;
using tools::showcheck::Findings;
using tools::showcheck::Place;

namespace {

/// A frame of 24 a second.
Place frame(std::int64_t number, float scene = catalogue::scenes::toilet.number)
{
    return {number, static_cast<double>(number) / 24.0, scene};
}

TEST(Findings, TellWhereAndBeyondWhat)
{
    Findings findings;
    findings.add(Check::Speed, frame(45), 1.5, 0.8);
    EXPECT_THAT(
        findings.problems(),
        ElementsAre("1:0:0 (1.88 s), toilet: the camera moves at 1.50 units/s, at most 0.80 is wanted"));
}

TEST(Findings, LeaveOutWhatKeepsToItsLimit)
{
    Findings findings;
    findings.add(Check::Speed, frame(0), 0.8, 0.8);
    findings.add(Check::Contrast, frame(0), 12.0, 12.0);
    findings.add(Check::OffBeat, frame(0), 0.0, 0.0);
    EXPECT_THAT(findings.problems(), IsEmpty());
}

TEST(Findings, KnowWhichLimitsAreLowerOnes)
{
    Findings findings;
    findings.add(Check::Brightness, frame(0), 29.9, 30.0);
    findings.add(Check::Contrast, frame(0), 0.0, 12.0);
    findings.add(Check::Black, frame(0), 0.0, 30.0);
    EXPECT_THAT(
        findings.problems(),
        ElementsAre("0:0:0 (0.00 s), toilet: the picture's mean luminance is 29.9 of 255, at least 30.0 "
                    "is wanted",
                    "0:0:0 (0.00 s), toilet: the picture's luminance deviates by 0.0 of 255 from its "
                    "mean, at least 12.0 is wanted"));
}

TEST(Findings, TellWhatLastsOnceWithItsWorstFigure)
{
    Findings findings;
    findings.add(Check::Turn, frame(45), 31.0, 30.0);
    findings.add(Check::Turn, frame(46), 47.0, 30.0);
    findings.add(Check::Turn, frame(47), 40.0, 30.0);
    EXPECT_THAT(
        findings.problems(),
        ElementsAre("1:0:0 (1.88 s) to 1:0:2, toilet: the camera turns by 47.0 degrees/s, at most 30.0 is "
                    "wanted"));
}

TEST(Findings, TellWhatComesAgainOrInAnotherSceneAgain)
{
    Findings findings;
    findings.add(Check::Turn, frame(0), 31.0, 30.0);
    findings.add(Check::Turn, frame(2), 31.0, 30.0);
    findings.add(Check::Turn, frame(3, catalogue::scenes::room.number), 31.0, 30.0);
    findings.add(Check::Speed, frame(4, catalogue::scenes::room.number), 31.0, 30.0);
    EXPECT_THAT(findings.problems(), SizeIs(4));
}

TEST(Findings, ComeInTheOrderOfTheShow)
{
    Findings findings;
    findings.add(Check::Turn, frame(90, 0.0F), 31.0, 30.0);
    findings.add(Check::OffBeat, frame(45), 5.0, 0.0);
    EXPECT_THAT(findings.problems(),
                ElementsAre("1:0:0 (1.88 s), toilet: a cut falls 5 rows behind the beat",
                            "2:0:0 (3.75 s), no scene: the camera turns by 31.0 degrees/s, at most 30.0 is "
                            "wanted"));
}

TEST(Findings, TakeNoNumberForAProblem)
{
    Findings findings;
    findings.add(Check::Speed, frame(0), std::nan(""), 1.0);
    findings.add(Check::Brightness, frame(0), std::nan(""), 1.0);
    EXPECT_THAT(findings.problems(), SizeIs(2));
}

TEST(Findings, SumUpWhatCameNearestToItsLimit)
{
    Findings findings;
    findings.add(Check::Speed, frame(0), 0.5, 1.0);
    findings.add(Check::Speed, frame(45), 0.4, 0.5);
    findings.add(Check::Speed, frame(90), 0.7, 1.0);
    findings.add(Check::Contrast, frame(45), 20.0, 12.0);
    findings.add(Check::Contrast, frame(90), 90.0, 12.0);
    EXPECT_THAT(findings.summary(),
                ElementsAre("deviation of luminance     20.000   at least  12.000   1:0:0 (1.88 s), toilet",
                            "speed                       0.400   at most    0.500   1:0:0 (1.88 s), toilet"));
}

} // namespace
