#include "tools/timeline/show_row.h"

#include "sync/tools.h"
#include "tools/common/error.h"

#include <gmock/gmock.h>

using testing::ThrowsMessage;
using tools::Error;

namespace {

TEST(Position, IsReadAsARowOrABar)
{
    EXPECT_EQ(tools::timeline::parseShowRow("296"), 296);
    EXPECT_EQ(tools::timeline::parseShowRow("4:2:8"), 296);
    EXPECT_EQ(tools::timeline::parseBar("4"), 256);
    EXPECT_EQ(tools::timeline::parseBar("4:2"), 288);
    EXPECT_EQ(tools::timeline::parseBar("4:2:8"), 296);
}

TEST(Position, IsRefusedWithTheReason)
{
    EXPECT_THAT([] { tools::timeline::parseShowRow("-1"); },
                ThrowsMessage<Error>("--row -1: the rows of the show count from 0"));
    EXPECT_THAT([] { tools::timeline::parseBar("4:4"); },
                ThrowsMessage<Error>("--bar 4:4: row '4:4:0': a beat is 0 to 3"));
    EXPECT_THAT([] { tools::timeline::parseBar("-4"); },
                ThrowsMessage<Error>("--bar -4: row '-4:0:0': bars count from 0"));
}

TEST(TimeOfRow, StandsOnItsRowAndNotBefore)
{
    for (int row = 0; row < 7000; ++row) {
        const double found = timeToRow(tools::timeline::timeOfRow(row));
        ASSERT_GE(found, row);
        ASSERT_NEAR(found, row, 1e-9);
    }
    EXPECT_EQ(tools::timeline::timeOfRow(0), 0.0);
}

} // namespace
