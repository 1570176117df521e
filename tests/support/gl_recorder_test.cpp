#include "tests/support/gl_recorder.h"

#include <GL/glew.h>
#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

// Every libGL exports it, though GLEW's header leads the name to a pointer.
#undef glBlendColor
extern "C" void glBlendColor(GLclampf r, GLclampf g, GLclampf b, GLclampf a);

namespace {

using testing::IsEmpty;

class TheGlRecorder : public testing::Test {
protected:
    GlRecorder gl;
};

TEST_F(TheGlRecorder, FailsTheTestAtAnEntryPointThatItDoesNotKnow)
{
    EXPECT_NONFATAL_FAILURE(glBlendFunc(GL_ONE, GL_ONE), "unexpected call of glBlendFunc");
    EXPECT_NONFATAL_FAILURE(glTexImage3D(0, 0, 0, 1, 1, 1, 0, 0, 0, nullptr),
                            "unexpected call of glTexImage3D");
    EXPECT_NONFATAL_FAILURE(glBlendColor(1.0F, 1.0F, 1.0F, 1.0F), "unexpected call of glBlendColor");
}

TEST_F(TheGlRecorder, FailsTheTestAtAFunctionOfAnotherLibraryThatItDoesNotKnow)
{
    EXPECT_NONFATAL_FAILURE(gluPerspective(1.0, 1.0, 1.0, 2.0), "unexpected call of gluPerspective");
    EXPECT_NONFATAL_FAILURE(glewIsSupported("GL_VERSION_4_5"), "unexpected call of glewIsSupported");
    EXPECT_NONFATAL_FAILURE(SDL_GL_GetSwapInterval(), "unexpected call of SDL_GL_GetSwapInterval");
}

TEST_F(TheGlRecorder, WritesARefusedCallNowhere)
{
    EXPECT_NONFATAL_FAILURE(glBlendFunc(GL_ONE, GL_ONE), "");
    EXPECT_THAT(gl.take(), IsEmpty());
}

TEST(TheGlRecorderDeathTest, SaysWhichCallComesWhenThereIsNone)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(glFinish(), "gl_recorder: glFinish is called while there is no recorder");
}

} // namespace
