#include "tests/support/shader_files.h"

#include "tools/common/read_file.h"

#include <filesystem>
#include <map>

namespace {

/// File names by text.
std::map<std::string, std::string> readShaders()
{
    std::map<std::string, std::string> names;
    for (const char* const folder : {SHADER_FOLDERS}) {
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names[tools::readFile(entry.path())] = entry.path().filename().string();
        }
    }
    return names;
}

} // namespace

std::string shaderFile(const std::string& text)
{
    static const std::map<std::string, std::string> names = readShaders();
    const auto found = names.find(text);
    return found != names.end() ? found->second : "unknown\n" + text;
}
