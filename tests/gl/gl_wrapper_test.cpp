#include "gl/gl-wrapper.h"

#include "tests/gl/slots.h"
#include "tests/support/gl_recorder.h"

#include <GL/glew.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class GLWrapper : public testing::Test {
protected:
    GlRecorder gl;
    zund::GLWrapper wrapper;
    zund::GLInterface& table = wrapper;
};

TEST_F(GLWrapper, HasNoDataAndAbstractTableAbove)
{
    EXPECT_EQ(sizeof(zund::GLWrapper), sizeof(void*));
    EXPECT_TRUE(std::is_abstract_v<zund::GLInterface>);
    EXPECT_TRUE(std::has_virtual_destructor_v<zund::GLInterface>);
}

TEST_F(GLWrapper, CallsNothingWhenItIsDestroyed)
{
    {
        const zund::GLWrapper another;
    }
    EXPECT_THAT(gl.take(), IsEmpty());
}

TEST_F(GLWrapper, ForwardsGetErrorAndItsResult)
{
    gl.errors = {GL_INVALID_VALUE, GL_OUT_OF_MEMORY};
    EXPECT_EQ(table.GetError(), 0x501U);
    EXPECT_EQ(table.GetError(), 0x505U);
    EXPECT_EQ(table.GetError(), 0U);
    EXPECT_THAT(gl.take(), ElementsAre("glGetError()", "glGetError()", "glGetError()"));
}

TEST_F(GLWrapper, ForwardsDeleteShader)
{
    table.DeleteShader(17);
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteShader(17)"));
}

TEST_F(GLWrapper, ForwardsCreateShaderAndItsResult)
{
    EXPECT_EQ(table.CreateShader(GL_GEOMETRY_SHADER), 1U);
    EXPECT_EQ(table.CreateShader(0x1234), 2U);
    EXPECT_THAT(gl.take(), ElementsAre("glCreateShader(GL_GEOMETRY_SHADER)", "glCreateShader(0x1234)"));
}

TEST_F(GLWrapper, ForwardsGenVertexArraysToTheCallersNames)
{
    unsigned int names[3] = {};
    table.GenVertexArrays(3, names);
    EXPECT_THAT(gl.take(), ElementsAre("glGenVertexArrays(3)"));
    EXPECT_THAT(names, ElementsAre(1U, 2U, 3U));
}

TEST_F(GLWrapper, ForwardsDeleteVertexArrays)
{
    const unsigned int names[] = {4, 9};
    table.DeleteVertexArrays(2, names);
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteVertexArrays(2, [4, 9])"));
}

TEST_F(GLWrapper, ForwardsBindVertexArray)
{
    table.BindVertexArray(4294967295U);
    EXPECT_THAT(gl.take(), ElementsAre("glBindVertexArray(4294967295)"));
}

TEST_F(GLWrapper, ForwardsGenBuffersToTheCallersNames)
{
    unsigned int names[2] = {};
    table.GenBuffers(2, names);
    EXPECT_THAT(gl.take(), ElementsAre("glGenBuffers(2)"));
    EXPECT_THAT(names, ElementsAre(1U, 2U));
}

TEST_F(GLWrapper, ForwardsDeleteBuffers)
{
    const unsigned int names[] = {5, 6, 8};
    table.DeleteBuffers(3, names);
    EXPECT_THAT(gl.take(), ElementsAre("glDeleteBuffers(3, [5, 6, 8])"));
}

TEST_F(GLWrapper, ForwardsBindBuffer)
{
    table.BindBuffer(GL_ELEMENT_ARRAY_BUFFER, 12);
    EXPECT_THAT(gl.take(), ElementsAre("glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 12)"));
}

TEST_F(GLWrapper, ForwardsBufferDataWithItsBytes)
{
    const unsigned char bytes[] = {7, 0, 255};
    table.BufferData(GL_ARRAY_BUFFER, 3, bytes, GL_STATIC_DRAW);
    EXPECT_THAT(gl.take(), ElementsAre("glBufferData(GL_ARRAY_BUFFER, 3, data, GL_STATIC_DRAW)"));
    ASSERT_EQ(gl.bufferData.size(), 1U);
    EXPECT_THAT(gl.bufferData[0], ElementsAre(std::byte{7}, std::byte{0}, std::byte{255}));
}

TEST_F(GLWrapper, ForwardsASizeAboveThirtyTwoBits)
{
    table.BufferData(GL_ARRAY_BUFFER, 5000000000L, nullptr, GL_STATIC_DRAW);
    EXPECT_THAT(gl.take(), ElementsAre("glBufferData(GL_ARRAY_BUFFER, 5000000000, null, GL_STATIC_DRAW)"));
}

TEST_F(GLWrapper, ForwardsVertexAttribPointer)
{
    table.VertexAttribPointer(3, 2, GL_FLOAT, GL_TRUE, 20, reinterpret_cast<const void*>(12));
    table.VertexAttribPointer(0, 4, 0x1234, GL_FALSE, -1, nullptr);
    EXPECT_THAT(gl.take(), ElementsAre("glVertexAttribPointer(3, 2, GL_FLOAT, GL_TRUE, 20, data)",
                                       "glVertexAttribPointer(0, 4, 0x1234, GL_FALSE, -1, null)"));
}

TEST_F(GLWrapper, ForwardsEnableVertexAttribArray)
{
    table.EnableVertexAttribArray(6);
    EXPECT_THAT(gl.take(), ElementsAre("glEnableVertexAttribArray(6)"));
}

TEST_F(GLWrapper, ForwardsClearColor)
{
    table.ClearColor(0.125F, 0.25F, -0.5F, 8.0F);
    EXPECT_THAT(gl.take(), ElementsAre("glClearColor(0.125, 0.25, -0.5, 8)"));
}

TEST_F(GLWrapper, ForwardsClear)
{
    table.Clear(0x4500);
    EXPECT_THAT(gl.take(), ElementsAre("glClear(0x4500)"));
}

TEST_F(GLWrapper, ForwardsViewport)
{
    table.Viewport(-1, 2, 640, 480);
    EXPECT_THAT(gl.take(), ElementsAre("glViewport(-1, 2, 640, 480)"));
}

TEST_F(GLWrapper, ForwardsEnable)
{
    table.Enable(0x0B71);
    EXPECT_THAT(gl.take(), ElementsAre("glEnable(GL_DEPTH_TEST)"));
}

TEST_F(GLWrapper, GivesTheDriversWordingOfAnError)
{
    EXPECT_STREQ(reinterpret_cast<const char*>(table.ErrorString(GL_INVALID_ENUM)), "invalid enumerant");
    EXPECT_STREQ(reinterpret_cast<const char*>(table.ErrorString(GL_OUT_OF_MEMORY)), "out of memory");
    EXPECT_EQ(table.ErrorString(GL_INVALID_VALUE), gluErrorString(GL_INVALID_VALUE));
    EXPECT_THAT(gl.take(), IsEmpty());
}

TEST_F(GLWrapper, HasItsEntryPointsInAFixedOrderBehindTheDestructor)
{
    using Table = zund::GLInterface;
    const std::size_t slots[] = {
        slotOf(&Table::GetError),
        slotOf(&Table::DeleteShader),
        slotOf(&Table::CreateShader),
        slotOf(&Table::GenVertexArrays),
        slotOf(&Table::DeleteVertexArrays),
        slotOf(&Table::BindVertexArray),
        slotOf(&Table::GenBuffers),
        slotOf(&Table::DeleteBuffers),
        slotOf(&Table::BindBuffer),
        slotOf(&Table::BufferData),
        slotOf(&Table::VertexAttribPointer),
        slotOf(&Table::EnableVertexAttribArray),
        slotOf(&Table::ClearColor),
        slotOf(&Table::Clear),
        slotOf(&Table::Viewport),
        slotOf(&Table::Enable),
        slotOf(&Table::ErrorString),
    };
    EXPECT_THAT(slots, ElementsAre(2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18));
}

} // namespace
