#pragma once

#include <filesystem>
#include <string_view>

namespace tools {

/// A file that appears whole or not at all: it is written aside, in the same folder, and takes its name in
/// `commit`. Without that the file of that name stays as it was, and nothing is left behind.
///
/// Several are made first and committed afterwards where they belong together.
class AtomicFile {
public:
    /// Writes `bytes` aside. The folder must exist. Throws `Error` "PATH: cannot write: REASON".
    AtomicFile(std::filesystem::path target, std::string_view bytes);
    ~AtomicFile();

    AtomicFile(AtomicFile&& other) noexcept;
    AtomicFile& operator=(AtomicFile&&) = delete;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// Gives the file its name, in place of what had it. Throws as the constructor does.
    void commit();

private:
    std::filesystem::path path;
    std::filesystem::path aside; ///< empty once committed
};

/// Makes a folder, with those above it. Throws `Error` "PATH: cannot make the folder: REASON".
void makeFolder(const std::filesystem::path& path);

} // namespace tools
