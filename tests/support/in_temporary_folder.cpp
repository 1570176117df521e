#include "tests/support/in_temporary_folder.h"

#include "tests/support/write_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

void InTemporaryFolder::write(const std::filesystem::path& path, std::string_view bytes)
{
    writeFile(path, bytes);
}

std::string InTemporaryFolder::read(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> InTemporaryFolder::namesIn(const std::filesystem::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}
