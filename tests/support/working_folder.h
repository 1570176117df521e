#pragma once

#include <filesystem>
#include <system_error>

/// Makes a folder the working directory for as long as it lives.
class WorkingFolder {
public:
    explicit WorkingFolder(const std::filesystem::path& folder) : before(std::filesystem::current_path())
    {
        std::filesystem::current_path(folder);
    }
    ~WorkingFolder()
    {
        std::error_code ignored;
        std::filesystem::current_path(before, ignored);
    }

    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    std::filesystem::path before;
};
