#include "tools/stage/progress.h"

#include <cmath>
#include <cstdio>
#include <fmt/format.h>
#include <unistd.h>

namespace tools::stage {

namespace {

/// A stretch of time in the unit that fits it.
std::string durationText(double seconds)
{
    if (seconds < 90.0) {
        return fmt::format("{:.0f} s", std::ceil(seconds));
    }
    const double minutes = std::ceil(seconds / 60.0);
    return minutes < 90.0
               ? fmt::format("{:.0f} min", minutes)
               : fmt::format("{:.0f} h {:.0f} min", std::floor(minutes / 60.0), std::fmod(minutes, 60.0));
}

} // namespace

Progress::Progress(std::int64_t total, std::int64_t done)
    : total(total),
      done(done),
      before(done),
      start(Clock::now()),
      next(start),
      terminal(isatty(STDERR_FILENO) == 1)
{
}

Progress::~Progress()
{
    if (midLine) {
        fmt::print(stderr, "\n");
    }
}

void Progress::step()
{
    ++done;
    const Clock::time_point now = Clock::now();
    if (now < next && done < total) {
        return;
    }
    next = now + (terminal ? std::chrono::milliseconds(500) : std::chrono::seconds(10));
    const double elapsed = std::chrono::duration<double>(now - start).count();
    const std::string text = progressText(done, total, static_cast<double>(done - before) / elapsed);
    if (terminal) {
        fmt::print(stderr, "\r{:<70}", text);
        midLine = true;
    } else {
        fmt::print(stderr, "{}\n", text);
    }
}

std::string progressText(std::int64_t done, std::int64_t total, double framesPerSecond)
{
    return fmt::format("frame {} of {}, {:.3g} frames/s, {} left", done, total, framesPerSecond,
                       durationText(static_cast<double>(total - done) / framesPerSecond));
}

} // namespace tools::stage
