#include "tests/support/test_assets.h"

#include "pack/format.h"
#include "tests/support/write_file.h"

#include <cstring>

namespace {

namespace format = pack::format;

template<typename Value>
void append(std::string& bytes, Value value)
{
    char raw[sizeof(Value)];
    std::memcpy(raw, &value, sizeof value);
    bytes.append(raw, sizeof value);
}

} // namespace

ShowFolder::ShowFolder()
{
    std::filesystem::create_directory(path() / "assets");
}

void ShowFolder::enter()
{
    entered.emplace(path());
}

void ShowFolder::write(const std::string& name, const std::string& bytes) const
{
    writeFile(asset(name), bytes);
}

void ShowFolder::writeTrack(const std::string& name, const std::vector<TestKey>& keys) const
{
    std::string bytes;
    append(bytes, static_cast<std::int32_t>(keys.size()));
    for (const TestKey& key : keys) {
        append(bytes, key.row);
        append(bytes, key.value);
        append(bytes, key.type);
    }
    write("sync_" + name + ".track", bytes);
}

void ShowFolder::writePack(const std::vector<std::pair<std::string, std::string>>& files) const
{
    write("assets.pack", packBytes(files));
}

std::string packBytes(const std::vector<std::pair<std::string, std::string>>& files)
{
    std::string bytes(format::magic);
    std::string data;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto& [name, content] = files[i];
        bytes += name + std::string(format::nameSize - name.size(), '\0');
        append(bytes, static_cast<std::uint32_t>(content.size()));
        append(bytes, static_cast<std::uint32_t>(data.size()));
        append(bytes, static_cast<char>(i + 1 == files.size()));
        data += content;
    }
    return bytes + data;
}

std::string flatTexture(int width, int height, std::uint16_t color)
{
    std::string block;
    append(block, color);
    append(block, color);
    append(block, std::uint32_t{0}); // all texels the first colour
    std::string bytes(format::ddsHeaderSize, '\0');
    const int blocks = (width / 4) * (height / 4);
    bytes.reserve(bytes.size() + block.size() * static_cast<std::size_t>(blocks));
    for (int i = 0; i < blocks; ++i) {
        bytes += block;
    }
    return bytes;
}
