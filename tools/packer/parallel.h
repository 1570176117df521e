#pragma once

#include <cstddef>
#include <functional>

namespace tools::packer {

/// Threads that the machine runs at once; at least 1.
unsigned coreCount();

/// Calls `work` once for each of 0 to `count` - 1, in no particular order, on up to `threads` threads.
/// `work` must not throw.
void forEachInParallel(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work);

} // namespace tools::packer
