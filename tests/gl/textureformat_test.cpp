#include "gl/textureformat.h"

#include "tests/support/message_of.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using zund::TextureFormat;
using zund::toGLFormat;

TEST(TextureFormat, HasFixedNumbers)
{
    EXPECT_EQ(static_cast<int>(TextureFormat::None), 0);
    EXPECT_EQ(static_cast<int>(TextureFormat::RGB8), 1);
    EXPECT_EQ(static_cast<int>(TextureFormat::RGB16F), 2);
}

TEST(TextureFormat, BecomesTheDriversInternalFormat)
{
    EXPECT_EQ(toGLFormat(TextureFormat::RGB8), 0x8051);
    EXPECT_EQ(toGLFormat(TextureFormat::RGB16F), 0x881B);
}

TEST(TextureFormat, RejectsNone)
{
    EXPECT_EQ(messageOf<std::runtime_error>([] { toGLFormat(TextureFormat::None); }),
              "unknown texture format");
}

TEST(TextureFormat, RejectsValuesWithoutAName)
{
    for (const int value : {-1, 3, 4, 0x8051, 0x881B}) {
        EXPECT_EQ(messageOf<std::runtime_error>([&] { toGLFormat(static_cast<TextureFormat>(value)); }),
                  "unknown texture format")
            << value;
    }
}

TEST(TextureFormat, StaysRejectedAfterBeingAskedFor)
{
    EXPECT_THROW(toGLFormat(TextureFormat::None), std::runtime_error);
    EXPECT_THROW(toGLFormat(TextureFormat::None), std::runtime_error);
    EXPECT_EQ(toGLFormat(TextureFormat::RGB8), 0x8051);
}

} // namespace
