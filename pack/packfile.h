#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace pack {

/// The read-only archive of the textures, mapped into memory. Its files are used in place: nothing is copied
/// or decoded, and no page is read before a caller touches it.
///
/// Its layout is told in pack/format.h.
class Packfile {
public:
    /// A record of the table of contents.
    struct Chunk {
        std::string name;
        std::uint32_t length; ///< carried along; nothing reads it
        std::uint32_t offset; ///< in bytes, from the start of the data area
        bool last;
    };

    /// Maps the file at `path`. Only the table is checked: the data area is trusted.
    /// Throws `std::system_error` "Failed to open packfile", "failed to stat packfile", "failed to mmap
    /// packfile"; `std::runtime_error` "packfile is empty", "invalid packfile", "failed to read chunk,
    /// unexpected end of data", "failed to read name".
    Packfile(const std::string& path);
    ~Packfile();

    Packfile(const Packfile&) = delete;
    Packfile& operator=(const Packfile&) = delete;

    /// First byte of the named file; with `skipHeader` 128 bytes further on, behind a DDS header. Borrowed:
    /// dies with the pack. No length comes with it: callers know what they asked for. Throws
    /// `std::out_of_range` "No such file in pack: NAME".
    const void* getFile(const std::string& name, bool skipHeader) const;

    /// Parses one record; `remaining` bytes lie from `data` to the end of the mapping.
    static Chunk readChunk(const void* data, std::size_t remaining);

    /// Checks the magic and parses the table of a pack of `size` bytes. Of two records of one name the first
    /// stays.
    static std::unordered_map<std::string, Chunk> readHeader(const void* data, std::size_t size);

private:
    std::unordered_map<std::string, Chunk> chunks;
    const void* data = nullptr; ///< start of the mapping
    std::size_t size = 0;       ///< of the mapping, in bytes
    std::size_t dataOffset = 0; ///< of the data area in the mapping
};

} // namespace pack
