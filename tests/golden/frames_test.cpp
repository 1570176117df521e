// The stills without a driver: whether their scenes tell it what they told it when the frames were recorded.

#include "tests/golden/frame_comparison.h"
#include "tests/golden/frame_stage.h"
#include "tests/support/in_temporary_folder.h"
#include "tools/common/error.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

void PrintTo(const Still& still, std::ostream* stream)
{
    *stream << still.name;
}

namespace {

class Frame : public testing::TestWithParam<Still> {};

TEST_P(Frame, IsAsItWasRecorded)
{
    const FrameStage stage;
    EXPECT_EQ(checkFrame(GetParam(), stage.record(GetParam()), GOLDEN_FRAMES), "")
        << "If that is meant, scripts/golden --frames records all anew.";
}

INSTANTIATE_TEST_SUITE_P(Of, Frame, testing::ValuesIn(stills().begin(), stills().end()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Frames, AreThoseOfTheStillsEachOnce)
{
    EXPECT_THAT(frameFaultsOf(GOLDEN_FRAMES), IsEmpty());
}

TEST(Frames, AreTheSameWhateverWasRecordedBefore)
{
    const Still& first = stills().front();
    const FrameStage stage;
    const std::string frame = stage.record(first);
    static_cast<void>(stage.record(stills().back()));
    EXPECT_EQ(stage.record(first), frame);
}

const std::string recordedFrame = "clear\n"
                                  "  into the window\n"
                                  "\n"
                                  "draw sofa\n"
                                  "  vec3 mat_color 0.5 0.25 -8\n"
                                  "  vec2s places\n"
                                  "    1 2\n"
                                  "    3 4\n"
                                  "  float time nan\n"
                                  "  program post.vert + sky.frag\n";

struct Change {
    const char* name;
    const char* from;
    const char* to;
    const char* fault; ///< empty: counts as the same
};

// Four units in the last place of 8 are 3.8e-6.
const Change changes[] = {
    {"Nothing", "", "", ""},
    {"TheLastPlace", "-8\n", "-7.9999967\n", ""},
    {"TheLastPlaceOfTheLargest", "0.25", "0.2500037", ""},
    {"FivePlaces", "-8\n", "-7.999995\n",
     "frames/room_sofa.txt:5, draw sofa: recorded 'vec3 mat_color 0.5 0.25 -8', came 'vec3 mat_color 0.5 "
     "0.25 "
     "-7.999995'"},
    {"ASmallNumber", "0.25", "0.250005",
     "frames/room_sofa.txt:5, draw sofa: recorded 'vec3 mat_color 0.5 0.25 -8', came 'vec3 mat_color 0.5 "
     "0.250005 -8'"},
    {"ASign", "-8\n", "8\n",
     "frames/room_sofa.txt:5, draw sofa: recorded 'vec3 mat_color 0.5 0.25 -8', came 'vec3 mat_color 0.5 "
     "0.25 "
     "8'"},
    {"ALetter", "sky", "sly",
     "frames/room_sofa.txt:10, draw sofa: recorded 'program post.vert + sky.frag', came 'program post.vert + "
     "sly.frag'"},
    {"NotANumber", "nan", "1",
     "frames/room_sofa.txt:9, draw sofa: recorded 'float time nan', came 'float time 1'"},
    {"OneNumberLess", " -8", "",
     "frames/room_sofa.txt:5, draw sofa: recorded 'vec3 mat_color 0.5 0.25 -8', came 'vec3 mat_color 0.5 "
     "0.25'"},
    {"OneNumberMore", "0.5 ", "0.5 0.5 ",
     "frames/room_sofa.txt:5, draw sofa: recorded 'vec3 mat_color 0.5 0.25 -8', came 'vec3 mat_color 0.5 0.5 "
     "0.25 -8'"},
    {"ARow", "3 4", "3 5", "frames/room_sofa.txt:8, draw sofa, vec2s places: recorded '3 4', came '3 5'"},
    {"ACommand", "clear\n  into the window\n\n", "",
     "frames/room_sofa.txt:1, clear: recorded 'clear', came 'draw sofa'"},
    {"TheLastLine", "  program post.vert + sky.frag\n", "",
     "frames/room_sofa.txt:10, draw sofa: recorded 'program post.vert + sky.frag', came no more"},
    {"ALineMore", "sky.frag\n", "sky.frag\n  int fbo 0\n",
     "frames/room_sofa.txt:11, draw sofa: recorded no more, came 'int fbo 0'"},
};

class FrameChange : public InTemporaryFolder, public testing::WithParamInterface<Change> {};

TEST_P(FrameChange, IsToldByTheFirstLineThatDiffers)
{
    const Still& sofa = stills()[2];
    std::filesystem::create_directory("frames");
    write(frameFile("frames", sofa), recordedFrame);
    std::string frame = recordedFrame;
    const std::string from = GetParam().from;
    ASSERT_NE(frame.find(from), std::string::npos);
    frame.replace(frame.find(from), from.size(), GetParam().to);
    EXPECT_EQ(checkFrame(sofa, frame, "frames"), GetParam().fault);
}

INSTANTIATE_TEST_SUITE_P(Of, FrameChange, testing::ValuesIn(changes),
                         [](const auto& row) { return std::string(row.param.name); });

class FramesFolder : public InTemporaryFolder {};

TEST_F(FramesFolder, LacksAFrameAndRecordsNone)
{
    std::filesystem::create_directory("frames");
    for (const Still& still : stills().subspan(1)) {
        write(frameFile("frames", still), recordedFrame);
    }
    write("frames/room_kitchen.txt", recordedFrame);
    EXPECT_THAT(frameFaultsOf("frames"),
                ElementsAre("frames/room_television.txt: this recorded frame is missing",
                            "frames/room_kitchen.txt: there is no still of this name"));
    EXPECT_THAT([] { checkFrame(stills()[0], recordedFrame, "frames"); },
                ThrowsMessage<tools::Error>("frames/room_television.txt: this recorded frame is missing"));
    EXPECT_FALSE(std::filesystem::exists("frames/room_television.txt"));
}

} // namespace
