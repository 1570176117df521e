#include "pack/packfile.h"
#include "tests/support/in_temporary_folder.h"
#include "tests/support/pictures.h"
#include "tests/support/run_tool.h"
#include "tools/packer/dds.h"
#include "tools/packer/dxt1_encoder.h"

#include <gmock/gmock.h>

using testing::AllOf;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using tools::packer::Effort;
using tools::picture::RgbImage;

namespace {

const std::string packer = PACKER;

class PackerCommand : public InTemporaryFolder {
protected:
    /// Writes two pictures, a.png and b.png, and gives the first.
    static RgbImage writePictures()
    {
        RgbImage first = makePicture({64, 32}, 1);
        write("a.png", encodePng(first));
        write("b.png", encodePng(makePicture({16, 16}, 2)));
        return first;
    }

    /// Packs what `writePictures` wrote with a cache, and gives what it said.
    static std::string packWithCache()
    {
        const ToolResult result = runTool(packer + " --output p.pack --cache cache --any-size a.png b.png");
        EXPECT_EQ(result.status, 0);
        return result.error;
    }
};

TEST_F(PackerCommand, PacksWhatTheShowReads)
{
    const RgbImage first = writePictures();
    const std::string ready = tools::packer::makeDdsHeader({4, 4}) + "8 bytes!";
    write("c.dds", ready);
    const ToolResult result = runTool(packer + " --output p.pack --any-size a.png b.png c.dds");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.error, ContainsRegex("^a\\.png +64x32  DXT1  [0-9]+\\.[0-9] dB  [0-9]+\\.[0-9] s\n"
                                            "b\\.png +16x16  DXT1  [0-9]+\\.[0-9] dB  [0-9]+\\.[0-9] s\n"
                                            "c\\.dds +4x4  DXT1  as it is\n$"));
    const pack::Packfile pack("p.pack");
    const std::string blocks = encodeDxt1(first, Effort::Best, 1).blocks;
    EXPECT_EQ(std::string(static_cast<const char*>(pack.getFile("a.dds", true)), blocks.size()), blocks);
    EXPECT_EQ(std::string(static_cast<const char*>(pack.getFile("c.dds", false)), ready.size()), ready);
    EXPECT_THAT(namesIn("."), ElementsAre("a.png", "b.png", "c.dds", "p.pack"));
}

TEST_F(PackerCommand, EncodesFastIfAsked)
{
    const RgbImage first = writePictures();
    ASSERT_EQ(runTool(packer + " --output p.pack --quick --any-size a.png").status, 0);
    const pack::Packfile pack("p.pack");
    const std::string blocks = encodeDxt1(first, Effort::Quick, 1).blocks;
    EXPECT_NE(blocks, encodeDxt1(first, Effort::Best, 1).blocks);
    EXPECT_EQ(std::string(static_cast<const char*>(pack.getFile("a.dds", true)), blocks.size()), blocks);
}

TEST_F(PackerCommand, EncodesAnUnchangedPictureOnce)
{
    writePictures();
    EXPECT_THAT(packWithCache(), Not(HasSubstr("(cached)")));
    const std::string first = read("p.pack");
    EXPECT_THAT(packWithCache(), ContainsRegex("a\\.png.*\\(cached\\)\nb\\.png.*\\(cached\\)\n"));
    EXPECT_EQ(read("p.pack"), first);
}

TEST_F(PackerCommand, EncodesAChangedPictureAgain)
{
    writePictures();
    packWithCache();
    write("b.png", encodePng(makePicture({16, 16}, 3)));
    EXPECT_THAT(packWithCache(),
                AllOf(ContainsRegex("a\\.png.*\\(cached\\)\n"), ContainsRegex("b\\.png.* s\n")));
}

TEST_F(PackerCommand, EncodesAgainWhatIsDamagedInTheCache)
{
    writePictures();
    packWithCache();
    const std::string first = read("p.pack");
    for (const std::string& name : namesIn("cache")) {
        write("cache/" + name, read("cache/" + name).substr(1));
    }
    EXPECT_THAT(packWithCache(), Not(HasSubstr("(cached)")));
    EXPECT_EQ(read("p.pack"), first);
    EXPECT_THAT(packWithCache(), ContainsRegex("a\\.png.*\\(cached\\)\nb\\.png.*\\(cached\\)\n"));
}

TEST_F(PackerCommand, ListsAndVerifiesAPack)
{
    writePictures();
    ASSERT_EQ(runTool(packer + " --output p.pack --any-size a.png b.png").status, 0);
    const ToolResult list = runTool(packer + " --list p.pack");
    EXPECT_EQ(list.status, 0);
    EXPECT_EQ(list.output, "name        bytes         size      offset\n"
                           "a.dds        1152        64x32           0\n"
                           "b.dds         256        16x16        1152\n");
    const ToolResult verify = runTool(packer + " --verify p.pack --any-size");
    EXPECT_EQ(verify.status, 0);
    EXPECT_EQ(verify.output, "p.pack: 2 files, all well-formed\n");
    const ToolResult strict = runTool(packer + " --verify p.pack");
    EXPECT_EQ(strict.status, 1);
    EXPECT_EQ(strict.error,
              "p.pack: a.dds: the show has no texture 'a'; scenes/catalogue.def holds a row for each\n");
}

TEST_F(PackerCommand, LeavesTheOldPackAloneIfAFileIsBad)
{
    writePictures();
    write("p.pack", "old");
    const std::string png = read("a.png");
    write("a.png", png.substr(0, png.size() - 20)); // its header is sound: this shows while it is decoded
    const ToolResult result = runTool(packer + " --output p.pack --any-size b.png a.png");
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error, ContainsRegex("a\\.png: no sound PNG: [^\n]*\n$"));
    EXPECT_EQ(read("p.pack"), "old");
    EXPECT_THAT(namesIn("."), ElementsAre("a.png", "b.png", "p.pack"));
}

TEST_F(PackerCommand, RefusesANameThatIsTooLong)
{
    const std::string name(252, 'n');
    write(name, encodePng(makePicture({4, 4}, 1)));
    const ToolResult result = runTool(packer + " --output p.pack --any-size " + name);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, name + ": the name in the pack would have 256 characters, at most 255 fit\n");
}

TEST_F(PackerCommand, RefusesADdsFileCutOffAnywhere)
{
    const std::string whole = tools::packer::makeDdsHeader({4, 4}) + "8 bytes!";
    for (const std::size_t length : {0U, 3U, 127U, 128U, 135U}) {
        write("c.dds", whole.substr(0, length));
        const ToolResult result = runTool(packer + " --output p.pack --any-size c.dds");
        EXPECT_EQ(result.status, 1);
        const std::string count = std::to_string(length < 128 ? length : length - 128);
        EXPECT_EQ(result.error,
                  "c.dds: " + count +
                      (length < 128 ? " bytes are too few for a DDS header\n"
                                    : " bytes follow the DDS header, but 4x4 in DXT1 takes 8\n"));
        EXPECT_FALSE(std::filesystem::exists("p.pack"));
    }
}

struct BadCommand {
    const char* name;
    const char* arguments;
    const char* sentence;
};

// Beside a.png, of 64x32 texels, title.png, of 8x8, odd.png, of 6x4, and text.png, which is none.
// clang-format off
constexpr BadCommand badCommands[] = {
    {"NoAction",         "a.png",                         "packer: give one of --output PACK, --list PACK and --verify PACK\n"},
    {"TwoActions",       "--list p --verify p",           "packer: give one of --output PACK, --list PACK and --verify PACK\n"},
    {"NoFile",           "--output p.pack",               "packer: files go with --output, and it needs at least one\n"},
    {"FileToList",       "--list p a.png",                "packer: files go with --output, and it needs at least one\n"},
    {"UnknownOption",    "--fast",                        "packer: The following argument was not expected: --fast; see packer --help\n"},
    {"UnknownTexture",   "-o p.pack a.png",               "a.png: the show has no texture 'a'; scenes/catalogue.def holds a row for each\n"},
    {"AnotherSize",      "-o p.pack title.png",           "title.png: 8x8, but the show asks for 3840x2160\n"},
    {"NoMultipleOf4",    "-o p.pack odd.png --any-size",  "odd.png: 6x4 is not a multiple of 4 in both directions\n"},
    {"NameTwice",        "-o p.pack a.png ./a.png --any-size", "./a.png: a.dds comes from a.png already\n"},
    {"NoPng",            "-o p.pack text.png --any-size", "text.png: no sound PNG: invalid signature\n"},
    {"MissingFile",      "-o p.pack none.png",            "none.png: cannot read: No such file or directory\n"},
    {"NoFolder",         "-o none/p.pack a.png --any-size --quick", "none/p.pack: cannot write: No such file or directory\n"},
    {"MissingPack",      "--verify none.pack",            "none.pack: cannot read: No such file or directory\n"},
    {"NoPack",           "--list text.png",               "text.png: no pack: 'pkf' is not at its start\n"},
};
// clang-format on

class BadPackerCommand : public InTemporaryFolder, public testing::WithParamInterface<BadCommand> {};

TEST_P(BadPackerCommand, IsRefusedInOneSentence)
{
    write("a.png", encodePng(makePicture({64, 32}, 1)));
    write("title.png", encodePng(makePicture({8, 8}, 1)));
    write("odd.png", encodePng(makePicture({6, 4}, 1)));
    write("text.png", "This is text, and it is longer than the header of a picture.");
    const ToolResult result = runTool(packer + " " + GetParam().arguments);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.error, testing::EndsWith(GetParam().sentence));
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(namesIn("."), ElementsAre("a.png", "odd.png", "text.png", "title.png"));
}

INSTANTIATE_TEST_SUITE_P(Commands, BadPackerCommand, testing::ValuesIn(badCommands),
                         [](const auto& info) { return info.param.name; });

TEST_F(PackerCommand, HelpsWithExamples)
{
    const ToolResult result = runTool(packer + " --help");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    EXPECT_THAT(result.output, HasSubstr("packer --output assets.pack --cache cache art/textures/*.png"));
    EXPECT_THAT(result.output, HasSubstr("packer --verify assets.pack"));
}

} // namespace
