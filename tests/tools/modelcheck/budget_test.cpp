#include "tools/modelcheck/budget.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using tools::modelcheck::describe;
using tools::modelcheck::overBudget;

namespace {

TEST(Budget, DescribesACost)
{
    EXPECT_EQ(
        describe({.models = 21, .vertices = 123456, .bytes = 7'654'321, .imports = 29, .seconds = 1.234}),
        "21 models: 123456 vertices, 7.65 MB, 1.23 s for 29 imports");
    EXPECT_EQ(describe({.models = 1, .vertices = 24, .bytes = 1000, .imports = 1, .seconds = 0.0}),
              "1 model: 24 vertices, 0.00 MB, 0.00 s for 1 import");
}

TEST(Budget, HoldsWhatJustFits)
{
    EXPECT_THAT(
        overBudget({.models = 21, .vertices = 350'000, .bytes = 16'000'000, .imports = 29, .seconds = 2.5}),
        IsEmpty());
}

TEST(Budget, TellsAllThatIsTooMuch)
{
    EXPECT_THAT(
        overBudget({.models = 21, .vertices = 350'001, .bytes = 16'010'000, .imports = 29, .seconds = 2.51}),
        ElementsAre("350001 vertices, the budget is 350000", "16.01 MB, the budget is 16.00 MB",
                    "2.51 s of imports, the budget is 2.50 s"));
}

} // namespace
