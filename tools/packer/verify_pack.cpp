#include "tools/packer/verify_pack.h"

#include "tools/common/read_file.h"
#include "tools/packer/dds.h"
#include "tools/packer/pack_format.h"
#include "tools/packer/texture_rules.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace tools::packer {

namespace {

/// "PACK: NAME"
std::string placeOf(const std::filesystem::path& pack, const PackEntry& entry)
{
    return pack.string() + ": " + entry.name;
}

} // namespace

std::string listPack(const std::filesystem::path& pack)
{
    const std::string bytes = readFile(pack);
    const std::vector<PackEntry> entries = readPackTable(bytes, pack.string());
    std::size_t nameWidth = 4;
    for (const PackEntry& entry : entries) {
        nameWidth = std::max(nameWidth, entry.name.size());
    }
    std::string table =
        fmt::format("{:{}}  {:>10}  {:>11}  {:>10}\n", "name", nameWidth, "bytes", "size", "offset");
    for (const PackEntry& entry : entries) {
        const picture::Size size = checkDds(packFileOf(bytes, entry, entries.size()), placeOf(pack, entry));
        table += fmt::format("{:{}}  {:>10}  {:>11}  {:>10}\n", entry.name, nameWidth, entry.length,
                             fmt::format("{}x{}", size.width, size.height), entry.offset);
    }
    return table;
}

std::string verifyPack(const std::filesystem::path& pack, bool anySize)
{
    const std::string bytes = readFile(pack);
    const std::vector<PackEntry> entries = readPackTable(bytes, pack.string());
    for (const PackEntry& entry : entries) {
        const std::string place = placeOf(pack, entry);
        const picture::Size size = checkDds(packFileOf(bytes, entry, entries.size()), place);
        if (!anySize) {
            checkTexture(std::filesystem::path(entry.name).stem().string(), size, place);
        }
    }
    return fmt::format("{}: {} {}, all well-formed", pack.string(), entries.size(),
                       entries.size() == 1 ? "file" : "files");
}

} // namespace tools::packer
