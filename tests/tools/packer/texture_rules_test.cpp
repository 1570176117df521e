#include "tools/packer/texture_rules.h"

#include "tools/common/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ThrowsMessage;
using tools::Error;
using tools::packer::checkTexture;

namespace {

TEST(TextureRules, AllowWhatTheShowAsksFor)
{
    EXPECT_NO_THROW(checkTexture("room_diff", {2048, 2048}, "p"));
    EXPECT_NO_THROW(checkTexture("title", {3840, 2160}, "p"));
}

TEST(TextureRules, RefuseAnotherSize)
{
    EXPECT_THAT(
        [] {
            checkTexture("title", {2048, 2048}, "title.png");
        },
        ThrowsMessage<Error>("title.png: 2048x2048, but the show asks for 3840x2160"));
    EXPECT_THAT(
        [] {
            checkTexture("sofa_norm", {2048, 1024}, "p");
        },
        ThrowsMessage<Error>("p: 2048x1024, but the show asks for 2048x2048"));
}

TEST(TextureRules, RefuseAnotherName)
{
    EXPECT_THAT(
        [] {
            checkTexture("titel", {3840, 2160}, "titel.png");
        },
        ThrowsMessage<Error>(
            "titel.png: the show has no texture 'titel'; scenes/catalogue.def holds a row for each"));
}

} // namespace
