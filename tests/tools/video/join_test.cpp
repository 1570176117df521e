#include "tools/video/join.h"

#include "tests/support/in_temporary_folder.h"
#include "tests/tools/video/decoded.h"
#include "tools/common/error.h"
#include "tools/video/video_encoder.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>

using testing::ThrowsMessage;
using tools::Error;
using tools::picture::RgbImage;
using tools::video::FrameRange;
using tools::video::VideoFormat;
using tools::video::VideoPart;
using tools::video::VideoTag;

namespace {

constexpr VideoFormat format{{32, 18}, 24};

VideoPart part(const char* file, FrameRange frames)
{
    VideoPart made;
    made.file = file;
    made.tag = {format, frames, {10, 40}, "a", "p"};
    made.found.picture.setup = "s";
    return made;
}

TEST(Parts, AreTakenInAnyOrder)
{
    const auto parts =
        tools::video::fitTogether({part("c", {30, 40}), part("a", {10, 20}), part("b", {20, 30})});
    ASSERT_EQ(parts.size(), 3U);
    EXPECT_EQ(parts[0].file, "a");
    EXPECT_EQ(parts[1].file, "b");
    EXPECT_EQ(parts[2].file, "c");
}

struct BadParts {
    const char* name;
    std::function<void(std::vector<VideoPart>&)> change;
    const char* sentence;
};

// clang-format off
const BadParts badParts[] = {
    {"NoFirst",       [](auto& parts) { parts.erase(parts.begin()); },        "b: frames 10 to 19 are missing before it"},
    {"NoMiddle",      [](auto& parts) { parts.erase(parts.begin() + 1); },    "c: frames 20 to 29 are missing before it"},
    {"NoLast",        [](auto& parts) { parts.pop_back(); },                  "b: frames 30 to 39 are missing behind it"},
    {"OneFrameShort", [](auto& parts) { parts[1].tag.frames.end = 29; },      "c: frame 29 is missing before it"},
    {"OneFrameLong",  [](auto& parts) { parts[1].tag.frames.end = 31; },      "c: frame 30 is in b too"},
    {"OneTwice",      [](auto& parts) { parts[1].tag.frames = {10, 20}; },    "b: frame 10 is in a too"},
    {"TooEarly",      [](auto& parts) { parts[0].tag.frames.first = 9; },     "a: starts before the stretch that it is a part of"},
    {"OtherSize",     [](auto& parts) { parts[1].tag.format.size = {2, 2}; }, "b: has another size than a"},
    {"OtherRate",     [](auto& parts) { parts[2].tag.format.fps = 60; },      "c: has another rate of frames than a"},
    {"OtherStretch",  [](auto& parts) { parts[1].tag.whole.end = 50; },       "b: has another stretch of the show than a"},
    {"OtherAssets",   [](auto& parts) { parts[2].tag.assets = "b"; },         "c: has been drawn from other assets than a"},
    {"OtherEncoder",  [](auto& parts) { parts[1].found.picture.setup = ""; }, "b: has been encoded otherwise than a"},
};
// clang-format on

class BadPartsOf : public testing::TestWithParam<BadParts> {};

TEST_P(BadPartsOf, AVideoAreRefusedWithFileAndReason)
{
    std::vector<VideoPart> parts = {part("a", {10, 20}), part("b", {20, 30}), part("c", {30, 40})};
    GetParam().change(parts);
    EXPECT_THAT([&] { tools::video::fitTogether(parts); }, ThrowsMessage<Error>(GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(All, BadPartsOf, testing::ValuesIn(badParts),
                         [](const auto& row) { return row.param.name; });

class Join : public InTemporaryFolder {
protected:
    /// Writes black frames, but for a white one.
    static void encode(const std::string& file, FrameRange frames, FrameRange whole, std::int64_t white)
    {
        const VideoTag tag{format, frames, whole, "0123456789abcdef", "0123456789abcdef"};
        tools::video::VideoEncoder encoder(format, file, tools::video::writeTag(tag));
        for (std::int64_t i = frames.first; i < frames.end; ++i) {
            std::vector<std::uint8_t>& pixels = encoder.frame();
            std::fill(pixels.begin(), pixels.end(), i == white ? 255 : 0);
            encoder.send();
        }
        encoder.finish();
    }

    /// The one frame that is white.
    static std::int64_t whiteFrame(const std::vector<RgbImage>& frames)
    {
        std::int64_t found = -1;
        for (std::size_t i = 0; i < frames.size(); ++i) {
            if (frames[i].pixels[300] > 128) {
                EXPECT_EQ(found, -1);
                found = static_cast<std::int64_t>(i);
            }
        }
        return found;
    }
};

TEST_F(Join, ReadsPartsBack)
{
    encode("a.mp4", {10, 20}, {10, 40}, -1);
    const VideoPart found = tools::video::readPart("a.mp4");
    EXPECT_EQ(found.tag.frames, (FrameRange{10, 20}));
    EXPECT_EQ(found.tag.whole, (FrameRange{10, 40}));
    EXPECT_EQ(found.tag.format, format);
}

TEST_F(Join, RefusesWhatIsNoPart)
{
    EXPECT_THAT([] { tools::video::readPart("none.mp4"); },
                ThrowsMessage<Error>("none.mp4: there is no such file"));
    write("text.mp4", "text");
    EXPECT_THAT(
        [] { tools::video::readPart("text.mp4"); },
        ThrowsMessage<Error>("text.mp4: no video: file:text.mp4: Invalid data found when processing input"));
    {
        tools::video::VideoEncoder encoder(format, "other.mp4", "holiday");
        encoder.frame();
        encoder.send();
        encoder.finish();
    }
    EXPECT_THAT([] { tools::video::readPart("other.mp4"); },
                ThrowsMessage<Error>("other.mp4: is no part of a video; capture video --range makes them"));
    {
        const VideoTag tag{format, {0, 2}, {0, 2}, "0123456789abcdef", "0123456789abcdef"};
        tools::video::VideoEncoder encoder(format, "short.mp4", tools::video::writeTag(tag));
        encoder.frame();
        encoder.send();
        encoder.finish();
    }
    EXPECT_THAT([] { tools::video::readPart("short.mp4"); },
                ThrowsMessage<Error>("short.mp4: holds 1 frames, expected 2"));
}

TEST_F(Join, RefusesAPartCutOffAnywhere)
{
    encode("a.mp4", {0, 3}, {0, 3}, -1);
    const std::string whole = read("a.mp4");
    for (std::size_t length = 0; length < whole.size(); length += whole.size() / 6) {
        write("cut.mp4", whole.substr(0, length));
        EXPECT_THROW(tools::video::readPart("cut.mp4"), Error) << length;
    }
}

TEST_F(Join, KeepsEachFrameAndItsTime)
{
    for (const std::int64_t white : {6, 7, 22}) {
        encode("it's a.mp4", {0, 7}, {0, 30}, white);
        encode("b.mp4", {7, 23}, {0, 30}, white);
        encode("c.mp4", {23, 30}, {0, 30}, white);
        tools::video::joinFiles({"it's a.mp4", "b.mp4", "c.mp4"}, {}, 24, "", "all.mp4");
        tools::video::checkVideo(tools::video::probe("all.mp4"), "all.mp4", format, 30, false);
        EXPECT_EQ(whiteFrame(decodeFrames("all.mp4", format.size, format.fps)), white);
    }
}

TEST_F(Join, LetsPictureAndSoundStartTogether)
{
    // A flash and a click at 0.5 s of the show, in videos that start at several frames of it.
    writeClicks("music.ogg", 3.0, {22050});
    for (const std::int64_t first : {0, 1, 11}) {
        const FrameRange frames{first, first + 31};
        encode("a.mp4", {first, first + 16}, frames, 12);
        encode("b.mp4", {first + 16, first + 31}, frames, 12);
        tools::video::joinFiles({"a.mp4", "b.mp4"}, tools::video::musicOf("music.ogg", frames, format.fps),
                                24, "", "all.mp4");
        const tools::video::Probe found = tools::video::probe("all.mp4");
        tools::video::checkVideo(found, "all.mp4", format, 31, true);

        EXPECT_EQ(whiteFrame(decodeFrames("all.mp4", format.size, format.fps)), 12 - first);
        const std::vector<std::int16_t> sound = decodeSound("all.mp4");
        const auto flash = static_cast<double>(44100 * (12 - first)) / format.fps;
        EXPECT_NEAR(static_cast<double>(loudestSample(sound)), flash, 2.0) << "from frame " << first; // 45 µs
    }
}

TEST_F(Join, FillsUpWithSilenceBehindTheMusic)
{
    writeClicks("music.ogg", 0.3, {4410});
    encode("a.mp4", {0, 30}, {0, 30}, 2);
    tools::video::joinFiles({"a.mp4"}, tools::video::musicOf("music.ogg", {0, 30}, format.fps), 24, "",
                            "all.mp4");
    tools::video::checkVideo(tools::video::probe("all.mp4"), "all.mp4", format, 30, true);
    EXPECT_NEAR(static_cast<double>(loudestSample(decodeSound("all.mp4"))), 4410.0, 2.0);
}

TEST_F(Join, LeavesNothingBesideItsFile)
{
    encode("a.mp4", {0, 3}, {0, 3}, -1);
    tools::video::joinFiles({"a.mp4"}, {}, 24, "", "all.mp4");
    EXPECT_THAT(namesIn("."), testing::ElementsAre("a.mp4", "all.mp4"));
    EXPECT_THAT([] { tools::video::joinFiles({"a.mp4"}, {}, 24, "", "none/all.mp4"); },
                ThrowsMessage<Error>("none/all.mp4.txt: cannot write: No such file or directory"));
}

} // namespace
