#include "gl/exception.h"
#include "tests/gl/handle_layout.h"
#include "tests/gl/recorded_renderer.h"

#include <GL/glew.h>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

// --- Meshes ---

template<typename Value>
std::vector<std::byte> bytesOf(const std::vector<Value>& values)
{
    std::vector<std::byte> bytes(values.size() * sizeof(Value));
    std::memcpy(bytes.data(), values.data(), bytes.size());
    return bytes;
}

/// A mesh of one triangle whose attributes all differ.
const std::vector<float> positions = {-1.0F, -1.0F, 0.0F, 3.0F, -1.0F, 0.0F, -1.0F, 3.0F, 0.0F};
const std::vector<unsigned int> indices = {0, 2, 1, 4000000000U};
const std::vector<float> uvs = {0.0F, 0.1F, 0.2F, 0.3F, 0.4F, 0.5F};
const std::vector<float> normals = {1.0F, 1.1F, 1.2F, 1.3F, 1.4F, 1.5F, 1.6F, 1.7F, 1.8F};
const std::vector<float> tangents = {2.0F, 2.1F, 2.2F, 2.3F, 2.4F, 2.5F, 2.6F, 2.7F, 2.8F};
const std::vector<float> bitangents = {3.0F, 3.1F, 3.2F, 3.3F, 3.4F, 3.5F, 3.6F, 3.7F, 3.8F};

struct Presence {
    const char* name;
    bool uvs;
    bool normals;
    bool tangents;
    bool bitangents;
    int buffers; ///< that are generated
};

class IndexedBuffer : public testing::TestWithParam<Presence> {
protected:
    IndexedBuffer() { gl.take(); }

    static const float* dataIf(bool present, const std::vector<float>& values)
    {
        return present ? values.data() : nullptr;
    }

    zund::VertexArray create()
    {
        const Presence& has = GetParam();
        return renderer.createIndexedBuffer(
            positions.data(), positions.size(), indices.data(), indices.size(), dataIf(has.uvs, uvs),
            uvs.size(), dataIf(has.normals, normals), normals.size(), dataIf(has.tangents, tangents),
            tangents.size(), dataIf(has.bitangents, bitangents), bitangents.size());
    }

    GlRecorder gl;
    zund::RendererImpl renderer{nullptr, true};
};

TEST_P(IndexedBuffer, GeneratesAllNamesThenUploadsWhatIsPresentInOrderOfLocations)
{
    const Presence& has = GetParam();
    std::vector<std::string> expected = {"glGenVertexArrays(1)"};
    expected.insert(expected.end(), static_cast<std::size_t>(has.buffers), "glGenBuffers(1)");
    expected.emplace_back("glBindVertexArray(1)");
    const auto expectUpload = [&](int location, int components, int buffer, const std::vector<float>& values,
                                  bool null = false) {
        const std::string place = std::to_string(location);
        expected.push_back("glBindBuffer(GL_ARRAY_BUFFER, " + std::to_string(buffer) + ")");
        expected.push_back("glBufferData(GL_ARRAY_BUFFER, " + std::to_string(values.size() * 4) +
                           (null ? ", null" : ", data") + ", GL_STATIC_DRAW)");
        expected.push_back("glVertexAttribPointer(" + place + ", " + std::to_string(components) +
                           ", GL_FLOAT, GL_FALSE, 0, null)");
        expected.push_back("glEnableVertexAttribArray(" + place + ")");
    };
    // Buffers 1 to 3 are those of positions, indices and texture coordinates.
    expectUpload(0, 3, 1, positions);
    if (has.uvs) {
        expectUpload(1, 2, 3, uvs);
    }
    if (has.normals) {
        expectUpload(2, 3, 4, normals);
    }
    if (has.tangents) {
        const int first = has.normals ? 5 : 4;
        expectUpload(3, 3, first, tangents);
        expectUpload(4, 3, first + 1, bitangents, !has.bitangents);
    }
    expected.emplace_back("glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 2)");
    expected.emplace_back("glBufferData(GL_ELEMENT_ARRAY_BUFFER, 16, data, GL_STATIC_DRAW)");
    expected.emplace_back("glBindVertexArray(0)");

    create();
    EXPECT_THAT(gl.take(), ElementsAreArray(expected));
}

TEST_P(IndexedBuffer, UploadsTheBytesOfEachArray)
{
    const Presence& has = GetParam();
    std::vector<std::vector<std::byte>> expected = {bytesOf(positions)};
    if (has.uvs) {
        expected.push_back(bytesOf(uvs));
    }
    if (has.normals) {
        expected.push_back(bytesOf(normals));
    }
    if (has.tangents) {
        expected.push_back(bytesOf(tangents));
        expected.push_back(has.bitangents ? bytesOf(bitangents) : std::vector<std::byte>());
    }
    expected.push_back(bytesOf(indices));
    create();
    EXPECT_EQ(gl.bufferData, expected);
}

TEST_P(IndexedBuffer, GivesAHandleThatDrawsAllIndices)
{
    const zund::VertexArray vertexArray = create();
    EXPECT_EQ(vertexArray.get(), 1);
    EXPECT_EQ(vertexArray.getIndexes(), 4UL);
}

constexpr Presence presences[] = {
    // name                        uvs    normals tangents bitangents buffers
    {"PositionsOnly", false, false, false, false, 3},
    {"Uvs", true, false, false, false, 3},
    {"Normals", false, true, false, false, 4},
    {"UvsAndNormals", true, true, false, false, 4},
    {"TangentsWithoutNormals", false, false, true, true, 5},
    {"UvsAndTangents", true, false, true, true, 5},
    {"NormalsAndTangents", false, true, true, true, 6},
    {"All", true, true, true, true, 6},
    {"BitangentsWithoutTangents", true, true, false, true, 4},
    {"BitangentsAlone", false, false, false, true, 3},
    {"TangentsWithoutBitangents", true, true, true, false, 6},
};
INSTANTIATE_TEST_SUITE_P(With, IndexedBuffer, testing::ValuesIn(presences),
                         [](const auto& info) { return std::string(info.param.name); });

class RendererGeometry : public RecordedRenderer {};

/// Writes the arguments of its own `genVertexArray` down.
class ListeningRenderer : public zund::RendererImpl {
public:
    ListeningRenderer() : RendererImpl(nullptr, true) {}

    zund::VertexArray genVertexArray(int flags, unsigned long indexes) override
    {
        this->flags.push_back(flags);
        return RendererImpl::genVertexArray(flags, indexes);
    }

    std::vector<int> flags;
};

TEST(IndexedBufferFlags, AreTwoWithoutNormalsAndZeroWithThem)
{
    const GlRecorder gl;
    ListeningRenderer renderer;
    renderer.createIndexedBuffer(positions.data(), 9, indices.data(), 3, nullptr, 0, nullptr, 0, nullptr, 0,
                                 nullptr, 0);
    renderer.createIndexedBuffer(positions.data(), 9, indices.data(), 3, nullptr, 0, normals.data(), 9,
                                 nullptr, 0, nullptr, 0);
    EXPECT_THAT(renderer.flags, ElementsAre(2, 0));
}

TEST_F(RendererGeometry, NeverAsksForErrorsWhenItMakesAMesh)
{
    gl.errors = {GL_OUT_OF_MEMORY};
    EXPECT_NO_THROW(renderer.createIndexedBuffer(positions.data(), 9, indices.data(), 3, nullptr, 0, nullptr,
                                                 0, nullptr, 0, nullptr, 0));
    EXPECT_EQ(gl.errors.size(), 1U);
}

TEST_F(RendererGeometry, HandsNullPositionsAndIndicesToTheDriver)
{
    renderer.createIndexedBuffer(nullptr, 9, nullptr, 3, nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0);
    EXPECT_THAT(gl.takeWithout({"glGen", "glBind", "glVertexAttribPointer", "glEnable"}),
                ElementsAre("glBufferData(GL_ARRAY_BUFFER, 36, null, GL_STATIC_DRAW)",
                            "glBufferData(GL_ELEMENT_ARRAY_BUFFER, 12, null, GL_STATIC_DRAW)"));
}

TEST_F(RendererGeometry, GeneratesVertexArraysOneByOne)
{
    EXPECT_EQ(renderer.genVertexArray(2, 36).get(), 1);
    const zund::VertexArray second = renderer.genVertexArray(0, 3);
    EXPECT_EQ(second.get(), 2);
    EXPECT_EQ(second.getIndexes(), 3UL);
    EXPECT_THAT(gl.take(), ElementsAre("glGenVertexArrays(1)", "glGenVertexArrays(1)"));
}

// --- Shaders ---

TEST_F(RendererGeometry, CompilesAShaderInFourSteps)
{
    const zund::Shader shader = renderer.createShader(zund::Shader::Vertex, "void main() {}");
    EXPECT_EQ(shader.get(), 1);
    EXPECT_THAT(gl.take(), ElementsAre("glCreateShader(GL_VERTEX_SHADER)", "glShaderSource(1, 1, null)",
                                       "glCompileShader(1)", "glGetShaderiv(1, GL_COMPILE_STATUS)"));
    EXPECT_THAT(gl.shaderSources, ElementsAre("void main() {}"));
}

TEST_F(RendererGeometry, TranslatesTheTypesOfShaders)
{
    renderer.createShader(zund::Shader::Fragment, "");
    renderer.createShader(zund::Shader::Vertex, "");
    renderer.createShader(zund::Shader::Geometry, "");
    EXPECT_THAT(gl.takeWithout({"glShaderSource", "glCompileShader", "glGetShaderiv"}),
                ElementsAre("glCreateShader(GL_FRAGMENT_SHADER)", "glCreateShader(GL_VERTEX_SHADER)",
                            "glCreateShader(GL_GEOMETRY_SHADER)"));
}

TEST_F(RendererGeometry, HandsAnUnknownTypeToTheDriverAsZero)
{
    const zund::Shader shader = renderer.createShader(static_cast<zund::Shader::Type>(3), "");
    EXPECT_EQ(shader.get(), 1);
    EXPECT_EQ(gl.take().front(), "glCreateShader(0)");
}

/// The whole text of an exception, whose NUL characters end it for `what()` alone.
std::string wholeText(const std::exception& exception, std::size_t length)
{
    return {exception.what(), length};
}

TEST_F(RendererGeometry, ThrowsTheCompilersLogPaddedToItsFullLength)
{
    gl.compileStatus = 0;
    gl.infoLog = "0:1: syntax error";
    const std::string begin = "shader compilation error:\n";
    try {
        renderer.createShader(zund::Shader::Fragment, "nonsense");
        FAIL() << "compiled";
    } catch (const zund::Exception& exception) {
        EXPECT_STREQ(exception.what(), "shader compilation error:\n0:1: syntax error");
        EXPECT_EQ(wholeText(exception, begin.size() + 2048 + 1),
                  begin + gl.infoLog + std::string(2048 - gl.infoLog.size(), '\0') + "\n");
    }
    EXPECT_THAT(gl.take(), ElementsAre("glCreateShader(GL_FRAGMENT_SHADER)", "glShaderSource(1, 1, null)",
                                       "glCompileShader(1)", "glGetShaderiv(1, GL_COMPILE_STATUS)",
                                       "glGetShaderInfoLog(1, 2049, null)"));
}

TEST_F(RendererGeometry, CutsALongCompilersLogAtItsFullLength)
{
    gl.compileStatus = 0;
    gl.infoLog = std::string(2047, 'a') + "bc";
    EXPECT_THAT([this] { renderer.createShader(zund::Shader::Fragment, ""); },
                testing::ThrowsMessage<zund::Exception>("shader compilation error:\n" +
                                                        std::string(2047, 'a') + "b\n"));
}

TEST_F(RendererGeometry, TakesAnyStatusButOneForAFailure)
{
    gl.compileStatus = 2;
    EXPECT_THROW(renderer.createShader(zund::Shader::Fragment, ""), zund::Exception);
    gl.linkStatus = -1;
    EXPECT_THROW(renderer.createProgram(zund::Shader(1), zund::Shader(2), nullptr), zund::Exception);
}

// --- Programs ---

TEST_F(RendererGeometry, LinksTwoShadersWithoutAThird)
{
    const zund::ShaderProgram program = renderer.createProgram(zund::Shader(21), zund::Shader(22), nullptr);
    EXPECT_EQ(program.get(), 1);
    EXPECT_THAT(gl.take(), ElementsAre("glCreateProgram()", "glAttachShader(1, 21)", "glAttachShader(1, 22)",
                                       "glLinkProgram(1)", "glGetProgramiv(1, GL_LINK_STATUS)"));
}

TEST_F(RendererGeometry, LinksThreeShadersInTheOrderGiven)
{
    const zund::Shader third(5);
    renderer.createProgram(zund::Shader(7), zund::Shader(6), &third);
    EXPECT_THAT(gl.take(),
                ElementsAre("glCreateProgram()", "glAttachShader(1, 7)", "glAttachShader(1, 6)",
                            "glAttachShader(1, 5)", "glLinkProgram(1)", "glGetProgramiv(1, GL_LINK_STATUS)"));
}

TEST_F(RendererGeometry, ThrowsTheLinkersLogPaddedToItsFullLength)
{
    gl.linkStatus = 0;
    gl.infoLog = "error: no vertex shader";
    const std::string begin = "program linking error:\n";
    try {
        renderer.createProgram(zund::Shader(21), zund::Shader(22), nullptr);
        FAIL() << "linked";
    } catch (const zund::Exception& exception) {
        EXPECT_STREQ(exception.what(), "program linking error:\nerror: no vertex shader");
        EXPECT_EQ(wholeText(exception, begin.size() + 2048 + 1),
                  begin + gl.infoLog + std::string(2048 - gl.infoLog.size(), '\0') + "\n");
    }
    EXPECT_THAT(gl.take(), ElementsAre("glCreateProgram()", "glAttachShader(1, 21)", "glAttachShader(1, 22)",
                                       "glLinkProgram(1)", "glGetProgramiv(1, GL_LINK_STATUS)",
                                       "glGetProgramInfoLog(1, 2049, null)"));
}

// --- Deletes ---

TEST_F(RendererGeometry, DeletesAShaderAndResetsThatHandleAlone)
{
    zund::Shader shader(4);
    const zund::Shader copy = shader;
    renderer.deleteShader(shader);
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteShader(4)"));
    EXPECT_EQ(shader.get(), -1);
    EXPECT_EQ(copy.get(), 4);
}

TEST_F(RendererGeometry, DeletesAProgramAndResetsThatHandleAlone)
{
    zund::ShaderProgram program(4);
    const zund::ShaderProgram copy = program;
    renderer.deleteProgram(program);
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteProgram(4)"));
    EXPECT_EQ(program.get(), -1);
    EXPECT_EQ(copy.get(), 4);
}

TEST_F(RendererGeometry, DeletesAVertexArrayByItsNameAsABuffer)
{
    zund::VertexArray vertexArray(4, 1, 36);
    const zund::VertexArray copy = vertexArray;
    renderer.deleteVertexArray(vertexArray);
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteBuffers(1, [4])"));
    EXPECT_EQ(vertexArray.get(), -1);
    EXPECT_EQ(vertexArray.getIndexes(), 0UL);
    EXPECT_EQ(flagsOf(vertexArray), 0);
    EXPECT_EQ(copy.get(), 4);
    EXPECT_EQ(copy.getIndexes(), 36UL);
}

TEST_F(RendererGeometry, DeletesABufferAndZeroesItsNameAndItsFirstWordInThatHandleAlone)
{
    zund::VertexBuffer buffer = bufferOf(4, 10, 20);
    const zund::VertexBuffer copy = buffer;
    renderer.deleteBuffer(buffer);
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteBuffers(1, [4])"));
    EXPECT_EQ(buffer.get(), 0U);
    EXPECT_THAT(layoutOf(buffer).words, ElementsAre(0U, 20U)); // the second is no part of a move
    EXPECT_EQ(copy.get(), 4U);
}

TEST_F(RendererGeometry, DoesNotTestWhatItDeletes)
{
    zund::Shader shader;
    zund::ShaderProgram program;
    zund::VertexArray vertexArray;
    zund::VertexBuffer buffer;
    renderer.deleteShader(shader);
    renderer.deleteProgram(program);
    renderer.deleteVertexArray(vertexArray);
    renderer.deleteBuffer(buffer);
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteShader(4294967295)", "glDeleteProgram(4294967295)",
                                       "glDeleteBuffers(1, [4294967295])", "glDeleteBuffers(1, [0])"));
}

} // namespace
