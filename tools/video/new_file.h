#pragma once

#include <filesystem>

namespace tools::video {

/// A file that another program writes, and that takes its name when it is whole. Until then it has a name
/// beside it; without `commit` it is removed.
class NewFile {
public:
    /// Makes an empty file aside. Throws `Error` "TARGET: cannot write: REASON".
    explicit NewFile(std::filesystem::path target);
    ~NewFile();

    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Where to write it, as an absolute path that ends as the target does.
    const std::filesystem::path& aside() const { return asidePath; }

    /// Gives the file its name, in place of what had it. Throws as the constructor does.
    void commit();

private:
    std::filesystem::path target;
    std::filesystem::path asidePath; ///< empty once committed
};

/// The start of the names that files have until they are whole.
constexpr const char* asidePrefix = ".new-";

} // namespace tools::video
