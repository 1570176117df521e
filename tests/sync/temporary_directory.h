#pragma once

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

/// A directory of its own below the one for temporary files. Removed with all that lies in it.
class TemporaryDirectory {
public:
    TemporaryDirectory()
    {
        std::string pattern = testing::TempDir() + "vesperal-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("cannot make a directory from " + pattern);
        }
        directory = pattern;
    }
    ~TemporaryDirectory()
    {
        std::error_code ignored;
        std::filesystem::remove_all(directory, ignored);
    }

    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return directory; }

private:
    std::filesystem::path directory;
};
