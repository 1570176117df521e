#pragma once

#include <CLI/App.hpp>
#include <optional>
#include <string>

namespace tools::capture {

/// A position in the show, told in one of three ways. Empty: not in that one.
struct PositionOptions {
    std::string row;  ///< of the timeline
    std::string time; ///< seconds of the music
    std::string bar;  ///< BAR, BAR:BEAT or BAR:BEAT:ROW
};

/// Lets the command line set one of them at most.
void addPositionOptions(CLI::App& command, PositionOptions& options);

/// The position in seconds; nothing if none was told. Throws `Error` with the option and the reason.
std::optional<double> readPosition(const PositionOptions& options);

} // namespace tools::capture
