#pragma once

#include <CLI/App.hpp>
#include <functional>

namespace tools {

/// The main function of a tool: reads the command line into what `app` was told, then runs `work`. What is
/// left to the callbacks of subcommands has run before.
///
/// Gives the exit status: 0, or 1 after what went wrong stands on standard error as one sentence.
int runTool(
    CLI::App& app, int argc, const char* const* argv, const std::function<void()>& work = [] {});

} // namespace tools
