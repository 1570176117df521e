#include "engine/model_loader.h"

#include "tests/engine/matrices.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/write_file.h"

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;
using testing::SizeIs;
using testing::ThrowsMessage;

namespace {

// --- Model files, made here ---

template<typename Value>
void appendValue(std::string& bytes, Value value)
{
    char raw[sizeof(value)];
    std::memcpy(raw, &value, sizeof(value));
    bytes.append(raw, sizeof(value));
}

/// Appends a chunk: its length, its kind of four characters, its bytes filled up to a multiple of 4.
void appendChunk(std::string& file, const std::string& kind, std::string bytes, char padding)
{
    while (bytes.size() % 4 != 0) {
        bytes += padding;
    }
    appendValue(file, static_cast<std::uint32_t>(bytes.size()));
    file += kind + bytes;
}

/// A binary glTF file of a JSON text and a block of data.
std::string glbOf(const std::string& json, const std::string& data)
{
    std::string chunks;
    appendChunk(chunks, "JSON", json, ' ');
    if (!data.empty()) {
        appendChunk(chunks, std::string("BIN\0", 4), data, '\0');
    }
    std::string file = "glTF";
    appendValue(file, std::uint32_t{2});
    appendValue(file, static_cast<std::uint32_t>(12 + chunks.size()));
    return file + chunks;
}

/// A square in the plane z = 0.5, seen from +z, of four corners and two triangles.
const std::vector<float> squarePositions = {
    -1.0F, -1.0F, 0.5F, 1.0F, -1.0F, 0.5F, 1.0F, 1.0F, 0.5F, -1.0F, 1.0F, 0.5F,
};
const std::vector<float> squareNormals = {0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F,
                                          0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F};
/// As they stand in a glTF file, whose v grows downwards; the importer turns that round.
const std::vector<float> squareUvs = {0.125F, 0.75F, 0.875F, 0.75F, 0.875F, 0.0F, 0.125F, 0.0F};
const std::vector<std::uint32_t> squareIndices = {0, 1, 2, 0, 2, 3};

/// Builds the file of a square, with parts left out or replaced.
struct SquareFile {
    std::string nodes = R"([{"mesh": 0}])";
    std::string scene = "0"; ///< indices of the nodes at the top
    bool hasPositions = true;
    bool hasNormals = true;
    bool hasUvs = true;
    int uvComponents = 2;
    int meshes = 1;
    int primitives = 1; ///< of each mesh

    std::string build() const
    {
        std::string data;
        std::string views;
        std::string accessors;
        std::string attributes;
        int next = 0;
        const auto add = [&](const std::string& attribute, const std::string& type, int component,
                             std::size_t count, const auto& values, const std::string& more = "") {
            const std::size_t offset = data.size();
            for (const auto value : values) {
                appendValue(data, value);
            }
            const std::string comma = next == 0 ? "" : ", ";
            views += comma + R"({"buffer": 0, "byteOffset": )" + std::to_string(offset) +
                     R"(, "byteLength": )" + std::to_string(data.size() - offset) + "}";
            accessors += comma + R"({"bufferView": )" + std::to_string(next) + R"(, "componentType": )" +
                         std::to_string(component) + R"(, "count": )" + std::to_string(count) +
                         R"(, "type": ")" + type + "\"" + more + "}";
            if (!attribute.empty()) {
                attributes +=
                    (attributes.empty() ? "" : ", ") + ("\"" + attribute + "\": ") + std::to_string(next);
            }
            return next++;
        };
        const int indices = add("", "SCALAR", 5125, squareIndices.size(), squareIndices);
        if (hasPositions) {
            add("POSITION", "VEC3", 5126, 4, squarePositions,
                R"(, "min": [-1, -1, 0.5], "max": [1, 1, 0.5])");
        }
        if (hasNormals) {
            add("NORMAL", "VEC3", 5126, 4, squareNormals);
        }
        if (hasUvs) {
            std::vector<float> uvs;
            for (std::size_t i = 0; i < 4; ++i) {
                uvs.insert(uvs.end(), {squareUvs[2 * i], squareUvs[2 * i + 1]});
                uvs.insert(uvs.end(), static_cast<std::size_t>(uvComponents - 2), 0.5F);
            }
            add("TEXCOORD_0", "VEC" + std::to_string(uvComponents), 5126, 4, uvs);
        }
        std::string primitiveList;
        for (int i = 0; i < primitives; ++i) {
            primitiveList += std::string(i == 0 ? "" : ", ") + R"({"attributes": {)" + attributes +
                             R"(}, "indices": )" + std::to_string(indices) + "}";
        }
        std::string meshList;
        for (int i = 0; i < meshes; ++i) {
            meshList += std::string(i == 0 ? "" : ", ") + R"({"primitives": [)" + primitiveList + "]}";
        }
        std::string json = R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [)" + scene +
                           R"(]}], "nodes": )" + nodes;
        if (meshes == 0) {
            return glbOf(json + "}", "");
        }
        json += R"(, "meshes": [)" + meshList + R"(], "accessors": [)" + accessors +
                R"(], "bufferViews": [)" + views + R"(], "buffers": [{"byteLength": )" +
                std::to_string(data.size()) + "}]}";
        return glbOf(json, data);
    }
};

class ModelLoader : public testing::Test {
protected:
    std::string write(const std::string& name, const std::string& bytes) const
    {
        const std::filesystem::path path = folder.path() / name;
        writeFile(path, bytes);
        return path.string();
    }

    std::string write(const SquareFile& file) const { return write("square.glb", file.build()); }

    /// Loads, and keeps what is said on standard output.
    lumeth::DisplayObject load(const std::string& path, bool negateV = false)
    {
        testing::internal::CaptureStdout();
        try {
            lumeth::DisplayObject object = loadModel(renderer, path, negateV);
            said = testing::internal::GetCapturedStdout();
            return object;
        } catch (...) {
            said = testing::internal::GetCapturedStdout();
            throw;
        }
    }

    void expectRefusal(const std::string& path, const std::string& text)
    {
        EXPECT_THAT([&] { load(path); }, ThrowsMessage<std::runtime_error>(text));
        EXPECT_THAT(renderer.take(), IsEmpty()) << "nothing is uploaded";
    }

    TemporaryFolder folder;
    RecordingRenderer renderer;
    std::string said;
};

TEST_F(ModelLoader, UploadsAllFiveAttributesAndTheIndices)
{
    const lumeth::DisplayObject object = load(write(SquareFile{}));
    // Floats, not vertices: 4 corners of 3, 6 indices, 4 corners of 2.
    EXPECT_THAT(renderer.take(), ElementsAre("createIndexedBuffer(12, 6, 8, 12, 12, 12) = 1"));
    const RecordingRenderer::Mesh& mesh = renderer.meshes.at(0);
    EXPECT_EQ(mesh.positions, squarePositions);
    EXPECT_EQ(mesh.normals, squareNormals);
    EXPECT_THAT(mesh.indices, ElementsAre(0U, 1U, 2U, 0U, 2U, 3U));
    EXPECT_EQ(object.vertexArray.get(), 1);
    EXPECT_EQ(object.vertexArray.getIndexes(), 6UL);
}

TEST_F(ModelLoader, PointsTangentsAlongUAndBitangentsAlongTheImportersV)
{
    load(write(SquareFile{}));
    const RecordingRenderer::Mesh& mesh = renderer.meshes.at(0);
    // u grows with x, the importer's v (1 less that of the file) with y.
    const std::vector<float> tangents = {1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F,
                                         1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F};
    const std::vector<float> bitangents = {0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F,
                                           0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F};
    EXPECT_THAT(mesh.tangents, Pointwise(testing::FloatNear(1e-6F), tangents));
    EXPECT_THAT(mesh.bitangents, Pointwise(testing::FloatNear(1e-6F), bitangents));
}

TEST_F(ModelLoader, StoresOneLessTheImportersV)
{
    load(write(SquareFile{}), false);
    // The importer gives 0.25 where the file has 0.75: 0.75 is stored again.
    EXPECT_THAT(renderer.meshes.at(0).uvs,
                ElementsAre(0.125F, 0.75F, 0.875F, 0.75F, 0.875F, 0.0F, 0.125F, 0.0F));
}

TEST_F(ModelLoader, StoresTheImportersVNegatedWhenTold)
{
    load(write(SquareFile{}), true);
    EXPECT_THAT(renderer.meshes.at(0).uvs,
                ElementsAre(0.125F, -0.25F, 0.875F, -0.25F, 0.875F, -1.0F, 0.125F, -1.0F));
}

TEST_F(ModelLoader, SaysTheNumberOfVerticesOnBothLines)
{
    load(write(SquareFile{}));
    EXPECT_EQ(said, "mesh info:\n  vertices: 4\n  faces: 4\n");
}

TEST_F(ModelLoader, LeavesAllButGeometryAndMatrixZero)
{
    const lumeth::DisplayObject object = load(write(SquareFile{}));
    EXPECT_EQ(object.modelMatrix, glm::mat4(1.0F));
    EXPECT_FALSE(object.colorTexture.isValid());
    EXPECT_FALSE(object.normalTexture.isValid());
    EXPECT_FALSE(object.emissivityTexture.isValid());
    EXPECT_EQ(object.material, nullptr);
    EXPECT_EQ(object.color, glm::vec3(0.0F));
    EXPECT_EQ(object.ambient, 0.0F);
    EXPECT_EQ(object.diffuse, 0.0F);
    EXPECT_EQ(object.specular, 0.0F);
    EXPECT_EQ(object.shininess, 0.0F);
    EXPECT_FALSE(object.transparent);
}

TEST_F(ModelLoader, PutsTheRootsTranslationInTheFourthColumn)
{
    SquareFile file;
    file.nodes = R"([{"mesh": 0, "translation": [5, 6, 7]}])";
    expectNear(load(write(file)).modelMatrix,
               placed(glm::vec3(5.0F, 6.0F, 7.0F), glm::quat(1.0F, 0.0F, 0.0F, 0.0F), glm::vec3(1.0F)), 0.0F);
}

TEST_F(ModelLoader, KeepsWhatTheRootsMatrixDoes)
{
    SquareFile file;
    // Scales by 2, 3, 4, then a quarter turn about z: x goes to y, y to -x.
    file.nodes = R"([{"mesh": 0, "translation": [5, 6, 7], "rotation": [0, 0, 0.70710678, 0.70710678],
                      "scale": [2, 3, 4]}])";
    const glm::mat4 expected(glm::vec4(0.0F, 2.0F, 0.0F, 0.0F), glm::vec4(-3.0F, 0.0F, 0.0F, 0.0F),
                             glm::vec4(0.0F, 0.0F, 4.0F, 0.0F), glm::vec4(5.0F, 6.0F, 7.0F, 1.0F));
    expectNear(load(write(file)).modelMatrix, expected, 1e-6F);
}

TEST_F(ModelLoader, KeepsEachElementOfTheRootsMatrix)
{
    SquareFile file;
    file.nodes = R"([{"mesh": 0, "matrix": [1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 10, 0, 11, 12, 13, 1]}])";
    const glm::mat4 expected(glm::vec4(1.0F, 2.0F, 3.0F, 0.0F), glm::vec4(4.0F, 5.0F, 6.0F, 0.0F),
                             glm::vec4(7.0F, 8.0F, 10.0F, 0.0F), glm::vec4(11.0F, 12.0F, 13.0F, 1.0F));
    EXPECT_EQ(load(write(file)).modelMatrix, expected);
}

TEST_F(ModelLoader, AppliesNoOtherNodesTransform)
{
    SquareFile file;
    file.nodes = R"([{"mesh": 0, "children": [1], "translation": [1, 0, 0]}, {"translation": [0, 9, 0]}])";
    expectNear(load(write(file)).modelMatrix,
               placed(glm::vec3(1.0F, 0.0F, 0.0F), glm::quat(1.0F, 0.0F, 0.0F, 0.0F), glm::vec3(1.0F)), 0.0F);
    EXPECT_EQ(renderer.meshes.at(0).positions, squarePositions);
}

TEST_F(ModelLoader, LoadsTheSameFileAgainEachTime)
{
    const std::string path = write(SquareFile{});
    EXPECT_EQ(load(path).vertexArray.get(), 1);
    EXPECT_EQ(load(path).vertexArray.get(), 2);
    EXPECT_THAT(renderer.meshes, SizeIs(2));
}

TEST_F(ModelLoader, RefusesAMissingFile)
{
    expectRefusal((folder.path() / "nobody.glb").string(), "failed to import model");
    expectRefusal("", "failed to import model");
    EXPECT_EQ(said, "");
}

TEST_F(ModelLoader, RefusesWhatIsNoModel)
{
    expectRefusal(write("empty.glb", ""), "failed to import model");
    expectRefusal(write("text.glb", "some text that is longer than a header\n"), "failed to import model");
    expectRefusal(write("square.unknown", "text"), "failed to import model");
}

TEST_F(ModelLoader, RefusesAFileCutOffAtAnyByte)
{
    const std::string whole = SquareFile{}.build();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        SCOPED_TRACE(length);
        expectRefusal(write("cut.glb", whole.substr(0, length)), "failed to import model");
    }
}

TEST_F(ModelLoader, RefusesAFileWithoutMeshes)
{
    SquareFile file;
    file.meshes = 0;
    file.nodes = R"([{"name": "alone"}])";
    expectRefusal(write(file), "no meshes found!");
}

TEST_F(ModelLoader, RefusesTwoMeshes)
{
    SquareFile file;
    file.meshes = 2;
    file.nodes = R"([{"mesh": 0, "children": [1]}, {"mesh": 1}])";
    expectRefusal(write(file), "only one mesh in model supported");
}

TEST_F(ModelLoader, RefusesAMeshOfTwoParts)
{
    SquareFile file;
    file.primitives = 2;
    expectRefusal(write(file), "only one mesh in model supported");
}

TEST_F(ModelLoader, RefusesAMeshThatHangsBelowTheRoot)
{
    SquareFile file;
    file.nodes = R"([{"children": [1]}, {"mesh": 0}])";
    expectRefusal(write(file), "no meshes found!");
}

TEST_F(ModelLoader, RefusesAMeshWithoutNormalsAfterSayingItsSize)
{
    SquareFile file;
    file.hasNormals = false;
    expectRefusal(write(file), "no normals?!");
    EXPECT_EQ(said, "mesh info:\n  vertices: 4\n  faces: 4\n");
}

TEST_F(ModelLoader, MissesTheTangentsOfAMeshWithoutTextureCoordinates)
{
    SquareFile file;
    file.hasUvs = false;
    expectRefusal(write(file), "no tangents?!");
}

TEST_F(ModelLoader, MissesTheNormalsBeforeTheTangents)
{
    SquareFile file;
    file.hasNormals = false;
    file.hasUvs = false;
    expectRefusal(write(file), "no normals?!");
}

TEST_F(ModelLoader, RefusesTextureCoordinatesOfThreeComponents)
{
    SquareFile file;
    file.uvComponents = 3;
    expectRefusal(write(file), "unexpected number of uv components");
}

TEST_F(ModelLoader, RefusesAMeshWithoutPositionsAsTheImporterDoes)
{
    SquareFile file;
    file.hasPositions = false;
    expectRefusal(write(file), "failed to import model");
}

} // namespace
