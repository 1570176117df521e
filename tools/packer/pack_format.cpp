#include "tools/packer/pack_format.h"

#include "pack/format.h"
#include "tools/common/bytes.h"
#include "tools/common/error.h"

#include <algorithm>
#include <fmt/format.h>
#include <limits>
#include <map>

namespace tools::packer {

namespace {

using namespace pack::format;

/// The records up to the last one, each checked by itself.
std::vector<PackEntry> readRecords(std::string_view bytes, const std::string& place)
{
    if (!bytes.starts_with(magic)) {
        throw Error(place, "no pack: 'pkf' is not at its start");
    }
    std::vector<PackEntry> entries;
    for (bool last = false; !last;) {
        const std::size_t at = dataStart(entries.size());
        const std::size_t number = entries.size() + 1;
        if (bytes.size() - at < recordSize) {
            throw Error(place, fmt::format("ends inside record {} of its table", number));
        }
        const std::string_view record = bytes.substr(at, recordSize);
        if (record[nameSize - 1] != '\0') {
            throw Error(place, fmt::format("the name in record {} has no closing NUL", number));
        }
        const std::string name(record.data());
        if (name.empty()) {
            throw Error(place, fmt::format("the name in record {} is empty", number));
        }
        entries.push_back(
            {name, load<std::uint32_t>(record, lengthAt), load<std::uint32_t>(record, offsetAt)});
        last = record[markAt] != '\0';
    }
    return entries;
}

void checkNames(const std::vector<PackEntry>& entries, const std::string& place)
{
    std::map<std::string_view, std::size_t> recordOf;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto [first, isNew] = recordOf.insert({entries[i].name, i + 1});
        if (!isNew) {
            throw Error(place, fmt::format("{} stands in record {} and again in record {}", entries[i].name,
                                           first->second, i + 1));
        }
    }
}

/// The end in the data area.
std::uint64_t endOf(const PackEntry& entry)
{
    return std::uint64_t{entry.offset} + entry.length;
}

void checkPlaces(std::vector<PackEntry> entries, std::uint64_t available, const std::string& place)
{
    for (const PackEntry& entry : entries) {
        if (endOf(entry) > available) {
            throw Error(place, fmt::format("{} ends at byte {} of the data, but there are {}", entry.name,
                                           endOf(entry), available));
        }
    }
    std::stable_sort(entries.begin(), entries.end(), [](const PackEntry& left, const PackEntry& right) {
        return left.offset < right.offset;
    });
    for (std::size_t i = 1; i < entries.size(); ++i) {
        if (entries[i].offset < endOf(entries[i - 1])) {
            throw Error(place, fmt::format("{} and {} overlap", entries[i - 1].name, entries[i].name));
        }
    }
}

} // namespace

std::vector<std::uint32_t> packOffsets(const std::vector<std::pair<std::string, std::uint64_t>>& lengths)
{
    std::vector<std::uint32_t> offsets;
    std::uint64_t end = 0;
    for (const auto& [name, length] : lengths) {
        offsets.push_back(static_cast<std::uint32_t>(end));
        end += length;
        if (end > std::numeric_limits<std::uint32_t>::max()) {
            throw Error(name,
                        fmt::format("would end at byte {} of the pack's data, which counts in 32 bits", end));
        }
    }
    return offsets;
}

void checkPackName(const std::string& name, const std::string& place)
{
    if (name.size() >= nameSize) {
        throw Error(place, fmt::format("the name in the pack would have {} characters, at most {} fit",
                                       name.size(), nameSize - 1));
    }
}

std::string encodePack(const std::vector<PackInput>& files)
{
    std::vector<std::pair<std::string, std::uint64_t>> lengths;
    lengths.reserve(files.size());
    for (const PackInput& file : files) {
        lengths.emplace_back(file.name, file.bytes.size());
    }
    const std::vector<std::uint32_t> offsets = packOffsets(lengths);
    std::string bytes(magic);
    for (std::size_t i = 0; i < files.size(); ++i) {
        std::string name = files[i].name;
        name.resize(nameSize);
        bytes += name;
        append(bytes, static_cast<std::uint32_t>(files[i].bytes.size()));
        append(bytes, offsets[i]);
        append(bytes, static_cast<std::int8_t>(i + 1 == files.size() ? 1 : 0));
    }
    for (const PackInput& file : files) {
        bytes += file.bytes;
    }
    return bytes;
}

std::vector<PackEntry> readPackTable(std::string_view bytes, const std::string& place)
{
    std::vector<PackEntry> entries = readRecords(bytes, place);
    checkNames(entries, place);
    checkPlaces(entries, bytes.size() - dataStart(entries.size()), place);
    return entries;
}

std::string_view packFileOf(std::string_view bytes, const PackEntry& entry, std::size_t count)
{
    return bytes.substr(dataStart(count) + entry.offset, entry.length);
}

} // namespace tools::packer
