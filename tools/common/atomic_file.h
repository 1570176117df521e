#pragma once

#include <filesystem>
#include <string_view>

namespace tools {

/// A file that appears whole or not at all: it is written to a temporary file in the same folder, which takes
/// its name in `commit`. Without that the file of that name stays as it was, and nothing is left behind.
///
/// Several are made first and committed afterwards where they belong together.
class AtomicFile {
public:
    /// The start of the names of temporary files.
    static constexpr std::string_view temporaryPrefix = ".new-";

    /// Writes `bytes` to the temporary file. The folder must exist. Throws `Error` "TARGET: cannot write:
    /// REASON".
    AtomicFile(std::filesystem::path target, std::string_view bytes);

    /// Leaves the temporary file empty, for another program to write: that ends as `target` does, as programs
    /// go by it. Throws as above.
    explicit AtomicFile(std::filesystem::path target);
    ~AtomicFile();

    AtomicFile(AtomicFile&& other) noexcept;
    AtomicFile& operator=(AtomicFile&&) = delete;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    /// The temporary file, as an absolute path; empty once committed.
    const std::filesystem::path& temporary() const { return temporaryPath; }

    /// Gives the file its name, in place of what had it. Throws as the constructors do.
    void commit();

private:
    int createTemporary(const std::filesystem::path& ending);

    std::filesystem::path target;
    std::filesystem::path temporaryPath;
};

/// Makes a folder, with those above it. Throws `Error` "PATH: cannot make the folder: REASON".
void makeFolder(const std::filesystem::path& path);

} // namespace tools
