#pragma once

#include "tests/support/temporary_folder.h"
#include "tests/support/working_folder.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// One key of a track file: row, value, type.
struct TestKey {
    std::int32_t row;
    float value;
    std::int8_t type;
};

/// A folder of its own for one test, with an empty `assets/` in it; goes with the object.
class ShowFolder {
public:
    ShowFolder();

    const std::filesystem::path& path() const { return folder.path(); }
    std::filesystem::path asset(const std::string& name) const { return path() / "assets" / name; }

    /// Makes this the working directory, until the folder goes.
    void enter();

    void write(const std::string& name, const std::string& bytes) const;
    void writeTrack(const std::string& name, const std::vector<TestKey>& keys) const;
    /// Files by name, in the order given.
    void writePack(const std::vector<std::pair<std::string, std::string>>& files) const;

private:
    TemporaryFolder folder;
    std::optional<WorkingFolder> entered;
};

/// The bytes of a pack.
std::string packBytes(const std::vector<std::pair<std::string, std::string>>& files);

/// A DDS file of that size in one colour of 5, 6 and 5 bits; its header is empty, as no one reads it.
std::string flatTexture(int width, int height, std::uint16_t color);
