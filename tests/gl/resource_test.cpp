#include "gl/framebuffer.h"
#include "gl/renderbuffer.h"
#include "gl/shader.h"
#include "gl/shaderprogram.h"
#include "gl/texture.h"
#include "gl/uniform.h"
#include "gl/vertex-array.h"
#include "gl/vertex-buffer.h"
#include "gl/vertex.h"
#include "tests/gl/handle_layout.h"
#include "tests/gl/recorded_renderer.h"

#include <GL/glew.h>
#include <cstring>
#include <gmock/gmock.h>
#include <type_traits>
#include <utility>

using testing::IsEmpty;

namespace {

/// A second name for an object, so that moving it to itself isn't seen by the compiler.
template<typename T>
T& same(T& object)
{
    return object;
}

// --- All handles that hold a name and nothing else ---

template<typename Handle>
class PlainHandle : public testing::Test {
};

struct HandleName {
    template<typename Handle>
    static std::string GetName(int /*index*/)
    {
        if (std::is_same_v<Handle, zund::FrameBuffer>) {
            return "FrameBuffer";
        }
        if (std::is_same_v<Handle, zund::RenderBuffer>) {
            return "RenderBuffer";
        }
        if (std::is_same_v<Handle, zund::Shader>) {
            return "Shader";
        }
        if (std::is_same_v<Handle, zund::ShaderProgram>) {
            return "ShaderProgram";
        }
        return "Uniform";
    }
};

using PlainHandles =
    testing::Types<zund::FrameBuffer, zund::RenderBuffer, zund::Shader, zund::ShaderProgram, zund::Uniform>;
TYPED_TEST_SUITE(PlainHandle, PlainHandles, HandleName);

TYPED_TEST(PlainHandle, IsAResourceWithAVirtualDestructor)
{
    EXPECT_TRUE((std::is_base_of_v<zund::Resource, TypeParam>));
    EXPECT_TRUE(std::has_virtual_destructor_v<TypeParam>);
    EXPECT_EQ(sizeof(TypeParam), sizeof(zund::Resource));
}

TYPED_TEST(PlainHandle, StartsInvalid)
{
    const TypeParam handle;
    EXPECT_FALSE(handle.isValid());
    EXPECT_EQ(handle.get(), -1);
}

TYPED_TEST(PlainHandle, IsInvalidWhenMadeFromMinusOne)
{
    EXPECT_FALSE(TypeParam(-1).isValid());
}

TYPED_TEST(PlainHandle, TakesZeroForAValidName)
{
    EXPECT_TRUE(TypeParam(0).isValid());
    EXPECT_EQ(TypeParam(0).get(), 0);
}

TYPED_TEST(PlainHandle, TakesOtherNegativeNumbersForValid)
{
    EXPECT_TRUE(TypeParam(-2).isValid());
    EXPECT_EQ(TypeParam(-2).get(), -2);
}

TYPED_TEST(PlainHandle, SharesItsNameWithItsCopies)
{
    const TypeParam handle(7);
    const TypeParam copy(handle); // NOLINT(performance-unnecessary-copy-initialization)
    TypeParam assigned(8);
    assigned = handle;
    EXPECT_EQ(handle.get(), 7);
    EXPECT_EQ(copy.get(), 7);
    EXPECT_EQ(assigned.get(), 7);
}

TYPED_TEST(PlainHandle, IsInvalidAfterBeingMovedFrom)
{
    TypeParam handle(7);
    const TypeParam moved(std::move(handle));
    EXPECT_EQ(moved.get(), 7);
    EXPECT_EQ(handle.get(), -1); // NOLINT(bugprone-use-after-move)

    TypeParam second(8);
    TypeParam assigned(9);
    assigned = std::move(second);
    EXPECT_EQ(assigned.get(), 8);
    EXPECT_EQ(second.get(), -1); // NOLINT(bugprone-use-after-move)
}

TYPED_TEST(PlainHandle, StaysAsItIsWhenMovedToItself)
{
    TypeParam handle(7);
    handle = std::move(same(handle));
    EXPECT_EQ(handle.get(), 7);
}

// --- Handles with more to them ---

TEST(Texture, StartsInvalidAndWithoutType)
{
    const zund::Texture texture;
    EXPECT_EQ(texture.get(), -1);
    EXPECT_EQ(texture.getType(), 0U);
}

TEST(Texture, HoldsNameAndType)
{
    const zund::Texture texture(5, GL_TEXTURE_1D);
    EXPECT_TRUE(texture.isValid());
    EXPECT_EQ(texture.get(), 5);
    EXPECT_EQ(texture.getType(), 0x0DE0U);
}

TEST(Texture, CopiesItsTypeAlong)
{
    const zund::Texture texture(5, GL_TEXTURE_CUBE_MAP);
    const zund::Texture copy(texture); // NOLINT(performance-unnecessary-copy-initialization)
    zund::Texture assigned;
    assigned = texture;
    EXPECT_EQ(copy.get(), 5);
    EXPECT_EQ(copy.getType(), 0x8513U);
    EXPECT_EQ(assigned.get(), 5);
    EXPECT_EQ(assigned.getType(), 0x8513U);
}

TEST(Texture, KeepsItsTypeWhenMovedFrom)
{
    zund::Texture texture(5, GL_TEXTURE_2D);
    const zund::Texture moved(std::move(texture));
    EXPECT_EQ(moved.get(), 5);
    EXPECT_EQ(moved.getType(), 0x0DE1U);
    EXPECT_EQ(texture.get(), -1); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(texture.getType(), 0x0DE1U);

    zund::Texture second(6, GL_TEXTURE_1D);
    zund::Texture assigned;
    assigned = std::move(second);
    EXPECT_EQ(assigned.get(), 6);
    EXPECT_EQ(assigned.getType(), 0x0DE0U);
    EXPECT_EQ(second.get(), -1); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(second.getType(), 0x0DE0U);
}

TEST(Texture, StaysAsItIsWhenMovedToItself)
{
    zund::Texture texture(5, GL_TEXTURE_2D);
    texture = std::move(same(texture));
    EXPECT_EQ(texture.get(), 5);
    EXPECT_EQ(texture.getType(), 0x0DE1U);
}

TEST(VertexArray, StartsInvalidAndEmpty)
{
    const zund::VertexArray vertexArray;
    EXPECT_EQ(vertexArray.get(), -1);
    EXPECT_EQ(vertexArray.getIndexes(), 0UL);
    EXPECT_EQ(flagsOf(vertexArray), 0);
}

TEST(VertexArray, HoldsNameAndCount)
{
    const zund::VertexArray vertexArray(4, 0, 36UL);
    EXPECT_EQ(vertexArray.get(), 4);
    EXPECT_EQ(vertexArray.getIndexes(), 36UL);
}

TEST(VertexArray, KeepsTheLowestBitOfItsFlagsAlone)
{
    EXPECT_EQ(flagsOf(zund::VertexArray(4, 0, 3UL)), 0);
    EXPECT_EQ(flagsOf(zund::VertexArray(4, 1, 3UL)), 1);
    EXPECT_EQ(flagsOf(zund::VertexArray(4, 2, 3UL)), 0);
    EXPECT_EQ(flagsOf(zund::VertexArray(4, 3, 3UL)), 1);
    EXPECT_EQ(flagsOf(zund::VertexArray(4, -1, 3UL)), 1);
}

TEST(VertexArray, CopiesCountAndFlagsAlong)
{
    const zund::VertexArray vertexArray(4, 1, 36UL);
    const zund::VertexArray copy(vertexArray); // NOLINT(performance-unnecessary-copy-initialization)
    zund::VertexArray assigned;
    assigned = vertexArray;
    EXPECT_EQ(copy.get(), 4);
    EXPECT_EQ(copy.getIndexes(), 36UL);
    EXPECT_EQ(flagsOf(copy), 1);
    EXPECT_EQ(assigned.get(), 4);
    EXPECT_EQ(assigned.getIndexes(), 36UL);
    EXPECT_EQ(flagsOf(assigned), 1);
}

TEST(VertexArray, KeepsCountAndFlagsWhenMovedFrom)
{
    zund::VertexArray vertexArray(4, 1, 36UL);
    const zund::VertexArray moved(std::move(vertexArray));
    EXPECT_EQ(moved.get(), 4);
    EXPECT_EQ(moved.getIndexes(), 36UL);
    EXPECT_EQ(flagsOf(moved), 1);
    EXPECT_EQ(vertexArray.get(), -1); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(vertexArray.getIndexes(), 36UL);
    EXPECT_EQ(flagsOf(vertexArray), 1);
}

TEST(VertexArray, StaysAsItIsWhenMovedToItself)
{
    zund::VertexArray vertexArray(4, 1, 36UL);
    vertexArray = std::move(same(vertexArray));
    EXPECT_EQ(vertexArray.get(), 4);
    EXPECT_EQ(vertexArray.getIndexes(), 36UL);
    EXPECT_EQ(flagsOf(vertexArray), 1);
}

TEST(Shader, NumbersItsTypesFromFragmentOn)
{
    EXPECT_EQ(static_cast<int>(zund::Shader::Fragment), 0);
    EXPECT_EQ(static_cast<int>(zund::Shader::Vertex), 1);
    EXPECT_EQ(static_cast<int>(zund::Shader::Geometry), 2);
}

// --- Buffers, which are no resources ---

TEST(VertexBuffer, IsNoResourceAndHasNoVirtualFunctions)
{
    EXPECT_FALSE((std::is_base_of_v<zund::Resource, zund::VertexBuffer>));
    EXPECT_FALSE(std::is_polymorphic_v<zund::VertexBuffer>);
}

TEST(VertexBuffer, StartsWithNameZeroAndEmptyWords)
{
    const zund::VertexBuffer buffer;
    EXPECT_EQ(buffer.get(), 0U);
    EXPECT_EQ(layoutOf(buffer).words[0], 0U);
    EXPECT_EQ(layoutOf(buffer).words[1], 0U);
}

TEST(VertexBuffer, MovesNameAndFirstWordAndLeavesTheSecondWhereItIs)
{
    zund::VertexBuffer source = bufferOf(3, 10, 20);
    zund::VertexBuffer target = bufferOf(4, 30, 40);
    target = std::move(source);
    EXPECT_EQ(target.get(), 3U);
    EXPECT_EQ(layoutOf(target).words[0], 10U);
    EXPECT_EQ(layoutOf(target).words[1], 40U);
    EXPECT_EQ(source.get(), 0U); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(layoutOf(source).words[0], 0U);
    EXPECT_EQ(layoutOf(source).words[1], 20U);
}

TEST(VertexBuffer, StaysAsItIsWhenMovedToItself)
{
    zund::VertexBuffer buffer = bufferOf(3, 10, 20);
    buffer = std::move(same(buffer));
    EXPECT_EQ(buffer.get(), 3U);
    EXPECT_EQ(layoutOf(buffer).words[0], 10U);
    EXPECT_EQ(layoutOf(buffer).words[1], 20U);
}

// --- Vertices ---

TEST(Vertex, IsAPositionWithAnEmptyTextureCoordinate)
{
    zund::Vertex vertex(-1.0F, 3.0F, 0.5F);
    float floats[5] = {};
    static_assert(sizeof(vertex) == sizeof(floats));
    std::memcpy(floats, static_cast<const void*>(&vertex), sizeof(floats));
    EXPECT_THAT(floats, testing::ElementsAre(-1.0F, 3.0F, 0.5F, 0.0F, 0.0F));
}

TEST(Vertex, GivesItsPositionInPlace)
{
    zund::Vertex vertex(1.0F, 2.0F, 3.0F);
    EXPECT_EQ(static_cast<void*>(&vertex.getPos()), static_cast<void*>(&vertex));
    vertex.getPos() = glm::vec3(4.0F, 5.0F, 6.0F);
    EXPECT_EQ(vertex.x, 4.0F);
    EXPECT_EQ(vertex.y, 5.0F);
    EXPECT_EQ(vertex.z, 6.0F);
}

// --- What handles leave alone ---

class Handles : public RecordedRenderer {};

TEST_F(Handles, DeleteNothingWhenTheyAreDestroyed)
{
    {
        const zund::Texture texture = renderer.createTexture1d(4);
        const zund::FrameBuffer frameBuffer = renderer.createFrameBuffer();
        const zund::RenderBuffer renderBuffer = renderer.createRenderBuffer2d(4, 4);
        const zund::VertexArray vertexArray = renderer.genVertexArray(0, 3);
        const zund::Shader shader = renderer.createShader(zund::Shader::Vertex, "");
        const zund::ShaderProgram program = renderer.createProgram(shader, shader, nullptr);
        const zund::Uniform uniform = renderer.getUniform(program, "time");
        const zund::VertexBuffer buffer(3);
        EXPECT_FALSE(gl.take().empty());
    }
    EXPECT_THAT(gl.take(), IsEmpty());
}

} // namespace
