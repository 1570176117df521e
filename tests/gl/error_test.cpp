#include "gl/error.h"

#include "gl/exception.h"
#include "tests/support/gl_recorder.h"
#include "tests/support/message_of.h"

#include <GL/glew.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

using testing::ElementsAre;

namespace {

struct Wording {
    const char* name;
    unsigned int code;
    const char* text;
};

class CheckGLError : public testing::TestWithParam<Wording> {};

TEST_P(CheckGLError, ThrowsNameAndWordingAsAPlainRuntimeError)
{
    GlRecorder gl;
    gl.errors = {GetParam().code};
    EXPECT_EQ(messageOf<std::runtime_error>([] { zund::Error::CheckGLError("glCompressedTexImage2D"); }),
              std::string("glCompressedTexImage2D error: ") + GetParam().text);
}

constexpr Wording wordings[] = {
    {"InvalidEnum", GL_INVALID_ENUM, "invalid enumerant"},
    {"InvalidValue", GL_INVALID_VALUE, "invalid value"},
    {"InvalidOperation", GL_INVALID_OPERATION, "invalid operation"},
    {"OutOfMemory", GL_OUT_OF_MEMORY, "out of memory"},
};
INSTANTIATE_TEST_SUITE_P(Codes, CheckGLError, testing::ValuesIn(wordings),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(CheckGLError, ReturnsWhereNoErrorIsPending)
{
    GlRecorder gl;
    EXPECT_NO_THROW(zund::Error::CheckGLError("glFlush"));
    EXPECT_THAT(gl.take(), ElementsAre("glGetError()"));
}

TEST(CheckGLError, LeavesASecondErrorForTheNextReader)
{
    GlRecorder gl;
    gl.errors = {GL_INVALID_VALUE, GL_INVALID_OPERATION};
    EXPECT_THROW(zund::Error::CheckGLError("first"), std::runtime_error);
    EXPECT_THAT(gl.errors, ElementsAre(static_cast<unsigned int>(GL_INVALID_OPERATION)));
    EXPECT_EQ(messageOf<std::runtime_error>([] { zund::Error::CheckGLError("second"); }),
              "second error: invalid operation");
    EXPECT_NO_THROW(zund::Error::CheckGLError("third"));
}

TEST(CheckGLError, SaysNothingOfACodeThatHasNoWording)
{
    GlRecorder gl;
    gl.errors = {0x1234};
    EXPECT_EQ(messageOf<std::runtime_error>([] { zund::Error::CheckGLError("glFlush"); }), "glFlush error: ");
}

TEST(Exception, IsARuntimeErrorWithItsText)
{
    EXPECT_TRUE((std::is_base_of_v<std::runtime_error, zund::Exception>));
    EXPECT_EQ(sizeof(zund::Exception), sizeof(std::runtime_error));
    const zund::Exception exception(std::string("some text"));
    EXPECT_STREQ(exception.what(), "some text");
}

} // namespace
