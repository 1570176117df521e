#include "tools/showcheck/near_plane_cut.h"

#include "scenes/catalogue.h"

#include <functional>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using tools::picture::Size;
using tools::showcheck::Findings;

namespace {

constexpr Size size = {192, 108}; // with bars of 13.5 rows
constexpr tools::showcheck::Place place = {0, 0.0, catalogue::scenes::room.number};

/// What is cut open of a frame with some depths of 0.
tools::showcheck::NearPlaneCut cutOf(const std::function<bool(std::uint32_t x, std::uint32_t y)>& isCut)
{
    std::vector<std::uint16_t> depths;
    for (std::uint32_t y = 0; y < size.height; ++y) {
        for (std::uint32_t x = 0; x < size.width; ++x) {
            depths.push_back(isCut(x, y) ? 0 : 1);
        }
    }
    return tools::showcheck::measureNearPlane(size, depths);
}

std::vector<std::string> problemsOf(const tools::showcheck::NearPlaneCut& cut)
{
    Findings findings;
    tools::showcheck::judgeNearPlane(cut, place, findings);
    return findings.problems();
}

TEST(NearPlane, IsMeasuredBetweenTheBars)
{
    EXPECT_EQ(cutOf([](auto, auto y) { return y < 13 || y >= 95; }).whole, 0.0);
    EXPECT_DOUBLE_EQ(cutOf([](auto x, auto) { return x < 48; }).whole, 0.25);
    EXPECT_EQ(cutOf([](auto x, auto) { return x < 48; }).middle, 0.0);
}

TEST(NearPlane, IsMeasuredInTheMiddleNinth)
{
    const auto inTheMiddle = [](auto x, auto y) {
        return x >= 64 && x < 128 && y >= 40 && y < 68;
    };
    EXPECT_DOUBLE_EQ(cutOf(inTheMiddle).middle, 1.0);
    EXPECT_EQ(cutOf([&](auto x, auto y) { return !inTheMiddle(x, y); }).middle, 0.0);
}

TEST(NearPlane, MayCutAGlimpseAtTheEdge)
{
    EXPECT_THAT(problemsOf(cutOf([](auto x, auto y) { return y == 14 && x < 7; })), IsEmpty());
}

TEST(NearPlane, MayNotCutMoreThere)
{
    EXPECT_THAT(
        problemsOf(cutOf([](auto x, auto y) { return y == 14 && x < 8; })),
        ElementsAre(HasSubstr("room: the near plane cuts open 0.051 % of the picture, at most 0.050 %")));
}

TEST(NearPlane, MayCutNothingInTheMiddle)
{
    EXPECT_THAT(problemsOf(cutOf([](auto x, auto y) { return x == 96 && y == 54; })),
                ElementsAre(HasSubstr("cuts open 0.056 % of the picture's middle, at most 0.000 % may be")));
}

} // namespace
