#include "tools/video/cancel_signals.h"

#include <atomic>
#include <iterator>

namespace tools::video {

namespace {

std::atomic<bool> asked = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler may touch no other");

void ask(int /*signal*/)
{
    asked = true;
}

} // namespace

CancelSignals::CancelSignals()
{
    struct sigaction action = {};
    action.sa_handler = ask;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < std::size(signals); ++i) {
        sigaction(signals[i], nullptr, &before[i]);
        if (before[i].sa_handler != SIG_IGN) { // as under nohup
            sigaction(signals[i], &action, nullptr);
        }
    }
}

CancelSignals::~CancelSignals()
{
    for (std::size_t i = 0; i < std::size(signals); ++i) {
        sigaction(signals[i], &before[i], nullptr);
    }
    asked = false;
}

void CancelSignals::check()
{
    if (asked) {
        throw Cancelled();
    }
}

} // namespace tools::video
