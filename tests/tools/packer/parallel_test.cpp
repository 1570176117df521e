#include "tools/packer/parallel.h"

#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

using testing::Each;

namespace {

TEST(ForEachInParallel, CallsOnceForEachNumber)
{
    for (const unsigned threads : {1U, 2U, 7U}) {
        std::vector<std::atomic<int>> calls(1000);
        tools::packer::forEachInParallel(calls.size(), threads, [&](std::size_t i) { ++calls[i]; });
        const std::vector<int> counts(calls.begin(), calls.end());
        EXPECT_THAT(counts, Each(1));
    }
}

TEST(ForEachInParallel, CallsNothingForNone)
{
    tools::packer::forEachInParallel(0, 4, [](std::size_t) { ADD_FAILURE(); });
}

TEST(CoreCount, IsAtLeastOne)
{
    EXPECT_GE(tools::packer::coreCount(), 1U);
}

} // namespace
