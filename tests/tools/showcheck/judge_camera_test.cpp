#include "tools/showcheck/judge_camera.h"

#include "scenes/catalogue.h"
#include "sync/tools.h"

#include <cmath>
#include <functional>
#include <glm/trigonometric.hpp>
#include <gmock/gmock.h>

using tempo::rowsPerSecond;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using tools::showcheck::CameraPose;
using tools::showcheck::CameraRow;
using tools::showcheck::Findings;

namespace {

using Path = std::function<CameraPose(double row)>;

/// A camera at x that looks ahead.
CameraPose at(double x)
{
    return {{x, 0.0, 0.0}, {x, 0.0, -1.0}};
}

/// One that looks `angle` degrees to the side, and `up` degrees up.
CameraPose facing(double angle, double up = 0.0)
{
    const double side = glm::radians(angle);
    const double rise = glm::radians(up);
    return {{0.0, 0.0, 0.0},
            {std::sin(side) * std::cos(rise), std::sin(rise), -std::cos(side) * std::cos(rise)}};
}

/// The rows of a shot of the toilet, which its camera leads through.
std::vector<CameraRow> shot(std::int32_t first, std::int32_t end, const Path& path,
                            float scene = catalogue::scenes::toilet.number)
{
    std::vector<CameraRow> rows;
    for (std::int32_t row = first; row < end; ++row) {
        rows.push_back({row, scene, path(row), path(row + 1)});
    }
    return rows;
}

std::vector<CameraRow> operator+(std::vector<CameraRow> a, const std::vector<CameraRow>& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

std::vector<std::string> problemsOf(const std::vector<CameraRow>& rows)
{
    Findings findings;
    tools::showcheck::judgeCamera(rows, findings);
    return findings.problems();
}

TEST(Camera, MayMoveUpToItsSpeed)
{
    EXPECT_THAT(problemsOf(shot(0, 64, [](double row) { return at(0.79 * row / rowsPerSecond); })),
                IsEmpty());
    EXPECT_THAT(
        problemsOf(shot(0, 64, [](double row) { return at(0.82 * row / rowsPerSecond); })),
        ElementsAre("0:0:0 (0.00 s) to 0:3:15, toilet: the camera moves at 0.82 units/s, at most 0.80 is "
                    "wanted"));
}

TEST(Camera, HasASpeedForEachScene)
{
    const Path path = [](double row) {
        return at(0.82 * row / rowsPerSecond);
    };
    EXPECT_THAT(problemsOf(shot(0, 64, path, catalogue::scenes::people.number)), IsEmpty());
    EXPECT_THAT(problemsOf(shot(0, 64, path, catalogue::scenes::credits.number)),
                IsEmpty()); // without a camera
}

TEST(Camera, MayTurnUpToItsLimit)
{
    EXPECT_THAT(problemsOf(shot(0, 64, [](double row) { return facing(29.9 * row / rowsPerSecond); })),
                IsEmpty());
    EXPECT_THAT(problemsOf(shot(0, 64, [](double row) { return facing(31.0 * row / rowsPerSecond); })),
                ElementsAre(HasSubstr("the camera turns by 31.0 degrees/s, at most 30.0 is wanted")));
}

TEST(Camera, TurnsThePictureMoreThanItsViewWhereItLooksUp)
{
    // The view moves by 8 degrees a second, the picture spins by nearly 40.
    EXPECT_THAT(problemsOf(shot(0, 64, [](double row) { return facing(40.0 * row / rowsPerSecond, 78.0); })),
                ElementsAre(HasSubstr("the camera turns by 40.0 degrees/s")));
}

/// Within a second from rest to rest, gently.
double eased(double row, double from, double length)
{
    const double t = std::clamp((row - from) / length, 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

TEST(Camera, MayEase)
{
    EXPECT_THAT(problemsOf(shot(0, 64, [](double row) { return at(0.3 * eased(row, 0, 64)); })), IsEmpty());
    EXPECT_THAT(problemsOf(shot(0, 64, [](double row) { return facing(10.0 * eased(row, 0, 64)); })),
                IsEmpty());
}

TEST(Camera, MayNotStopAtOnce)
{
    EXPECT_THAT(
        problemsOf(shot(0, 64, [](double row) { return at(0.5 * std::min(row, 40.0) / rowsPerSecond); })),
        ElementsAre("0:2:8 (1.17 s), toilet: the camera speeds up or slows down by 17.07 units/s2, at most "
                    "4.00 is wanted"));
    EXPECT_THAT(
        problemsOf(
            shot(0, 64, [](double row) { return facing(20.0 * std::min(row, 40.0) / rowsPerSecond); })),
        ElementsAre("0:2:8 (1.17 s), toilet: the camera's turn changes by 683 degrees/s2, at most 150 is "
                    "wanted"));
}

TEST(Camera, MayStopInTheLastRowOfAShot)
{
    const Path path = [](double row) {
        return at(0.5 * std::min(row, 63.0) / rowsPerSecond);
    };
    EXPECT_THAT(problemsOf(shot(0, 64, path) + shot(64, 128, [](double) { return at(5.0); })), IsEmpty());
}

TEST(Camera, MayStartAShotAtAnySpeed)
{
    const Path path = [](double row) {
        return at(5.0 + 0.5 * row / rowsPerSecond);
    };
    EXPECT_THAT(problemsOf(shot(0, 64, [](double) { return at(0.0); }) + shot(64, 128, path)), IsEmpty());
}

TEST(Camera, IsAtFaultWhereItLooksNowhere)
{
    EXPECT_FALSE(problemsOf(shot(0, 4, [](double) { return CameraPose{{1, 1, 1}, {1, 1, 1}}; })).empty());
}

TEST(Cut, MayFallOnAnyBeat)
{
    const Path here = [](double) {
        return at(0.0);
    };
    const Path there = [](double) {
        return at(1.0);
    };
    EXPECT_THAT(problemsOf(shot(0, 16, here) + shot(16, 48, there) + shot(48, 64, here)), IsEmpty());
}

TEST(Cut, MayNotFallBesideTheBeat)
{
    const Path here = [](double) {
        return at(0.0);
    };
    EXPECT_THAT(problemsOf(shot(0, 69, here) + shot(69, 80, [](double) { return at(1.0); })),
                ElementsAre("1:0:5 (2.02 s), toilet: a cut falls 5 rows behind the beat"));
    EXPECT_THAT(problemsOf(shot(0, 79, here) + shot(79, 80, here, catalogue::scenes::credits.number)),
                ElementsAre("1:0:15 (2.31 s), credits: a cut falls 15 rows behind the beat"));
}

TEST(Cut, IsAlsoAJumpOfTheView)
{
    EXPECT_THAT(problemsOf(shot(0, 5, [](double) { return facing(0.0); }) +
                           shot(5, 16, [](double) { return facing(1.0); })),
                ElementsAre(HasSubstr("a cut falls 5 rows behind the beat")));
}

TEST(Cut, IsNoneWhereOnlyTheLastDigitsDiffer)
{
    EXPECT_THAT(
        problemsOf(shot(0, 5, [](double) { return at(0.0); }) + shot(5, 16, [](double) { return at(1e-5); })),
        IsEmpty());
}

TEST(Cut, MayNotSlideFromShotToShot)
{
    const Path slide = [](double row) {
        return at(row <= 63.0 ? 0.0 : 2.0 * (row - 63.0));
    };
    const std::vector<std::string> problems = problemsOf(
        shot(0, 64, slide) + shot(
                                 64, 128, [](double) { return at(2.0); }, catalogue::scenes::room.number));
    EXPECT_THAT(problems,
                testing::Contains("0:3:15 (1.85 s), toilet: the camera slides 20.00 jumps to another "
                                  "place within a row, where it should cut"));
}

} // namespace
