#include "tools/video/video_tag.h"

#include <gtest/gtest.h>

using tools::video::VideoTag;

namespace {

const VideoTag tag{{{1920, 1080}, 60}, {600, 1200}, {0, 10913}, "0123456789abcdef", "fedcba9876543210"};
constexpr const char* text = "vesperal: frames 600 to 1199 of 0 to 10912, 60 a second, 1920x1080, assets "
                             "0123456789abcdef, program fedcba9876543210";

TEST(VideoTag, IsASentence)
{
    EXPECT_EQ(tools::video::writeTag(tag), text);
}

TEST(VideoTag, IsReadBack)
{
    EXPECT_EQ(tools::video::readTag(text), tag);
}

TEST(VideoTag, IsNothingElse)
{
    const std::string whole = text;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(tools::video::readTag(whole.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_EQ(tools::video::readTag(whole + "0"), std::nullopt);
    EXPECT_EQ(
        tools::video::readTag("vesperal: frames 99999999999999999999 to 1199 of 0 to 10912, 60 a second, "
                              "1920x1080, assets 0123456789abcdef, program fedcba9876543210"),
        std::nullopt);
}

} // namespace
