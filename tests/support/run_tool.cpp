#include "tests/support/run_tool.h"

#include "tests/support/temporary_folder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace {

std::string textOf(const std::filesystem::path& path)
{
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

ToolResult runTool(const std::string& commandLine)
{
    // Not in the present folder, which may be that of other tests as well.
    const TemporaryFolder folder;
    const std::filesystem::path output = folder.path() / "output";
    const std::filesystem::path error = folder.path() / "error";
    // Only tests give command lines. NOLINTNEXTLINE(cert-env33-c)
    const int status = std::system((commandLine + " >" + output.string() + " 2>" + error.string()).c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, textOf(output), textOf(error)};
}
