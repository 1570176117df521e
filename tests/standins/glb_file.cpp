#include "tests/standins/glb_file.h"

#include "tools/common/bytes.h"

#include <cstdint>
#include <fmt/format.h>
#include <glm/common.hpp>

namespace standins {

namespace {

constexpr std::uint32_t jsonChunk = 0x4E4F534A; // "JSON"
constexpr std::uint32_t binaryChunk = 0x004E4942;
constexpr std::uint32_t version = 2;
constexpr std::size_t headSize = 12; // of the file
constexpr std::size_t chunkHead = 8;

// The views of the buffer stand in the order of the accessors, one each.
constexpr const char* jsonFormat = R"({{"asset":{{"version":"2.0"}},"scene":0,"scenes":[{{"nodes":[0]}}],
"nodes":[{{"name":"{name}","mesh":0}}],
"meshes":[{{"primitives":[{{"attributes":{{"POSITION":0,"NORMAL":1,"TEXCOORD_0":2}},"indices":3}}]}}],
"accessors":[
{{"bufferView":0,"componentType":5126,"count":{vertices},"type":"VEC3","min":[{low}],"max":[{high}]}},
{{"bufferView":1,"componentType":5126,"count":{vertices},"type":"VEC3"}},
{{"bufferView":2,"componentType":5126,"count":{vertices},"type":"VEC2"}},
{{"bufferView":3,"componentType":5123,"count":{indices},"type":"SCALAR"}}],
"bufferViews":[{views}],
"buffers":[{{"byteLength":{bytes}}}]}})";

std::string text(const glm::vec3& vector)
{
    return fmt::format("{},{},{}", vector.x, vector.y, vector.z);
}

glm::vec3 lowest(const Mesh& mesh)
{
    glm::vec3 low = mesh.positions.front();
    for (const glm::vec3& position : mesh.positions) {
        low = glm::min(low, position);
    }
    return low;
}

glm::vec3 highest(const Mesh& mesh)
{
    glm::vec3 high = mesh.positions.front();
    for (const glm::vec3& position : mesh.positions) {
        high = glm::max(high, position);
    }
    return high;
}

/// The buffer so far, with a line of JSON on each part of it.
class Buffer {
public:
    template<typename T>
    void add(const std::vector<T>& values)
    {
        const std::size_t length = sizeof(T) * values.size();
        views += fmt::format(R"({}{{"buffer":0,"byteOffset":{},"byteLength":{}}})", views.empty() ? "" : ",",
                             bytes.size(), length);
        bytes.append(reinterpret_cast<const char*>(values.data()), length);
        bytes.resize((bytes.size() + 3) / 4 * 4); // where floats may start, and chunks end
    }

    std::string bytes;
    std::string views;
};

void appendChunk(std::string& file, std::uint32_t type, const std::string& bytes)
{
    tools::append(file, static_cast<std::uint32_t>(bytes.size()));
    tools::append(file, type);
    file += bytes;
}

} // namespace

std::string encodeGlb(std::string_view name, const Mesh& mesh)
{
    Buffer buffer;
    buffer.add(mesh.positions);
    buffer.add(mesh.normals);
    buffer.add(mesh.uvs);
    buffer.add(mesh.indices);
    std::string json =
        fmt::format(jsonFormat, fmt::arg("name", name), fmt::arg("vertices", mesh.positions.size()),
                    fmt::arg("indices", mesh.indices.size()), fmt::arg("low", text(lowest(mesh))),
                    fmt::arg("high", text(highest(mesh))), fmt::arg("views", buffer.views),
                    fmt::arg("bytes", buffer.bytes.size()));
    json.resize((json.size() + 3) / 4 * 4, ' ');

    std::string file = "glTF";
    tools::append(file, version);
    tools::append(file,
                  static_cast<std::uint32_t>(headSize + 2 * chunkHead + json.size() + buffer.bytes.size()));
    appendChunk(file, jsonChunk, json);
    appendChunk(file, binaryChunk, buffer.bytes);
    return file;
}

} // namespace standins
