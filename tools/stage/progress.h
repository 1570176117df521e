#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace tools::stage {

/// Says on standard error how far a long piece of work is: on a terminal in one line that changes, otherwise
/// in a line now and then.
class Progress {
public:
    /// Of `total` frames, `done` need no work any more.
    Progress(std::int64_t total, std::int64_t done);
    /// Ends the line on a terminal.
    ~Progress();

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Another frame is done.
    void step();

private:
    using Clock = std::chrono::steady_clock;

    std::int64_t total;
    std::int64_t done;
    std::int64_t before; ///< what was done when the work began
    Clock::time_point start;
    Clock::time_point next; ///< when to say something
    bool terminal;
    bool midLine = false;
};

/// "frame 1200 of 10913, 5.21 frames/s, 31 min left".
std::string progressText(std::int64_t done, std::int64_t total, double framesPerSecond);

} // namespace tools::stage
