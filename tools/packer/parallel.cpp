#include "tools/packer/parallel.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

namespace tools::packer {

unsigned coreCount()
{
    return std::max(std::thread::hardware_concurrency(), 1U);
}

void forEachInParallel(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work)
{
    std::atomic<std::size_t> next = 0;
    const auto takeTurns = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            work(i);
        }
    };
    std::vector<std::jthread> helpers;
    for (std::size_t i = 1; i < std::min<std::size_t>(threads, count); ++i) {
        helpers.emplace_back(takeTurns);
    }
    takeTurns();
} // the helpers are joined here

} // namespace tools::packer
