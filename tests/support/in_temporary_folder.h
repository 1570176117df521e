#pragma once

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

/// A test that works in an empty folder of its own, so that files go by short names.
class InTemporaryFolder : public testing::Test {
protected:
    InTemporaryFolder();
    ~InTemporaryFolder() override;

    /// Makes a file.
    static void write(const std::filesystem::path& path, std::string_view bytes);

    static std::string read(const std::filesystem::path& path);

    /// The names of what lies in a folder, hidden files too, sorted.
    static std::vector<std::string> namesIn(const std::filesystem::path& folder);

private:
    std::filesystem::path before;
    std::filesystem::path folder;
};
