#include "tests/support/run_tool.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace {

/// The text of a file, which is removed.
std::string take(const char* path)
{
    std::string text;
    {
        std::ifstream file(path);
        text.assign(std::istreambuf_iterator<char>(file), {});
    }
    std::filesystem::remove(path);
    return text;
}

} // namespace

ToolResult runTool(const std::string& commandLine)
{
    // Only tests give command lines. NOLINTNEXTLINE(cert-env33-c)
    const int status = std::system((commandLine + " >.tool-output 2>.tool-error").c_str());
    ToolResult result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, {}, {}};
    result.output = take(".tool-output");
    result.error = take(".tool-error");
    return result;
}
