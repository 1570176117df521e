#pragma once

#include "tests/support/temporary_folder.h"
#include "tests/support/working_folder.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

/// A test that works in an empty folder of its own, so that files go by short names.
class InTemporaryFolder : public testing::Test {
protected:
    /// Makes a file.
    static void write(const std::filesystem::path& path, std::string_view bytes);

    static std::string read(const std::filesystem::path& path);

    /// The names of what lies in a folder, hidden files too, sorted.
    static std::vector<std::string> namesIn(const std::filesystem::path& folder);

private:
    TemporaryFolder folder;
    WorkingFolder working{folder.path()};
};
