#include "pack/packfile.h"

#include "pack/format.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace pack {

namespace {

/// A field of a record; records stand at odd addresses.
std::uint32_t readField(const char* at)
{
    std::uint32_t value = 0;
    std::memcpy(&value, at, sizeof value);
    return value;
}

/// Closes the descriptor and throws what `errno` stood at before.
[[noreturn]] void failWithErrno(int file, const char* text)
{
    const std::error_code code(errno, std::generic_category());
    close(file);
    throw std::system_error(code, text);
}

} // namespace

Packfile::Packfile(const std::string& path)
{
    const int file = open(path.c_str(), O_RDONLY);
    if (file == -1) {
        throw std::system_error(errno, std::generic_category(), "Failed to open packfile");
    }
    struct stat status = {};
    if (fstat(file, &status) == -1) {
        failWithErrno(file, "failed to stat packfile");
    }
    size = static_cast<std::size_t>(status.st_size);
    if (size == 0) {
        close(file);
        throw std::runtime_error("packfile is empty");
    }
    void* mapping = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (mapping == MAP_FAILED) {
        failWithErrno(file, "failed to mmap packfile");
    }
    data = mapping;
    // A bad table leaves descriptor and mapping behind: the program ends on it.
    chunks = readHeader(data, size);
    // By the number of names, not of records: a pack holds no name twice.
    dataOffset = format::dataStart(chunks.size());
    close(file);
}

Packfile::~Packfile()
{
    if (data != nullptr) {
        munmap(const_cast<void*>(data), size);
        data = nullptr;
        size = 0;
    }
}

const void* Packfile::getFile(const std::string& name, bool skipHeader) const
{
    const auto found = chunks.find(name);
    if (found == chunks.end()) {
        throw std::out_of_range("No such file in pack: " + name);
    }
    std::uint32_t position = found->second.offset;
    if (skipHeader) {
        position += std::uint32_t{format::ddsHeaderSize};
    }
    return static_cast<const char*>(data) + dataOffset + position;
}

Packfile::Chunk Packfile::readChunk(const void* data, std::size_t remaining)
{
    if (remaining < format::recordSize) {
        throw std::runtime_error("failed to read chunk, unexpected end of data");
    }
    const auto* record = static_cast<const char*>(data);
    if (record[format::nameSize - 1] != '\0') {
        throw std::runtime_error("failed to read name");
    }
    return {std::string(record), readField(record + format::lengthAt), readField(record + format::offsetAt),
            record[format::markAt] != 0};
}

std::unordered_map<std::string, Packfile::Chunk> Packfile::readHeader(const void* data, std::size_t size)
{
    if (size < format::magic.size() || std::memcmp(data, format::magic.data(), format::magic.size()) != 0) {
        throw std::runtime_error("invalid packfile");
    }
    const char* cursor = static_cast<const char*>(data) + format::magic.size();
    const char* const end = static_cast<const char*>(data) + size;
    std::unordered_map<std::string, Chunk> table;
    for (;;) {
        const Chunk chunk = readChunk(cursor, static_cast<std::size_t>(end - cursor));
        table.insert({chunk.name, chunk});
        if (chunk.last) {
            return table;
        }
        cursor += format::recordSize;
    }
}

} // namespace pack
