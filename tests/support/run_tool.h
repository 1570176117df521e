#pragma once

#include <string>

/// What a program left behind.
struct ToolResult {
    int status; ///< exit status; -1 if it did not end by itself
    std::string output;
    std::string error;
};

/// Runs a command line of the shell in the present folder.
ToolResult runTool(const std::string& commandLine);
