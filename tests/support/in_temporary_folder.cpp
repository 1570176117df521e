#include "tests/support/in_temporary_folder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

InTemporaryFolder::InTemporaryFolder() : before(std::filesystem::current_path())
{
    std::string name = (std::filesystem::temp_directory_path() / "tools_test_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    folder = name;
    std::filesystem::current_path(folder);
}

InTemporaryFolder::~InTemporaryFolder()
{
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
}

void InTemporaryFolder::write(const std::filesystem::path& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
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
