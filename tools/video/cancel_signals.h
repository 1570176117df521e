#pragma once

#include <csignal>
#include <stdexcept>

namespace tools::video {

/// Thrown where work stops because its user asked for it.
class Cancelled : public std::runtime_error {
public:
    Cancelled() : std::runtime_error("cancelled") {}
};

/// While it lives, an interrupt (Ctrl+C), a request to terminate and a hang-up ask for an end instead of
/// bringing it about, so that what is half done can be cleared away. One at a time.
class CancelSignals {
public:
    CancelSignals();
    ~CancelSignals();

    CancelSignals(const CancelSignals&) = delete;
    CancelSignals& operator=(const CancelSignals&) = delete;

    /// Throws `Cancelled` if a signal has asked for it.
    static void check();

private:
    static constexpr int signals[] = {SIGINT, SIGTERM, SIGHUP};

    struct sigaction before[3] = {};
};

} // namespace tools::video
