#include "tools/packer/pack_format.h"

#include "pack/packfile.h"
#include "tests/support/in_temporary_folder.h"
#include "tools/common/error.h"
#include "tools/packer/dds.h"
#include "tools/packer/verify_pack.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

using testing::TestWithParam;
using testing::ThrowsMessage;
using testing::ValuesIn;
using tools::Error;
using tools::packer::encodePack;
using tools::packer::packOffsets;
using tools::packer::readPackTable;

namespace {

class PackFormat : public InTemporaryFolder {};
class VerifiedPack : public InTemporaryFolder {};

std::string makeDds(tools::picture::Size size, char fill)
{
    return tools::packer::makeDdsHeader(size) + std::string(std::size_t{size.width} * size.height / 2, fill);
}

/// Two files of 8 and 3 bytes; its data begins at byte 533.
std::string twoFiles()
{
    return encodePack({{"first.dds", "12345678"}, {"second.dds", "abc"}});
}

TEST_F(PackFormat, IsWhatTheShowReads)
{
    const std::string first = makeDds({8, 8}, 'f');
    const std::string second = makeDds({16, 4}, 's');
    const std::string longName(255, 'n');
    write("p.pack", encodePack({{"first.dds", first}, {longName, second}}));
    const pack::Packfile pack("p.pack");
    const auto bytesOf = [&](const std::string& name, bool skipHeader, std::size_t length) {
        return std::string(static_cast<const char*>(pack.getFile(name, skipHeader)), length);
    };
    EXPECT_EQ(bytesOf("first.dds", false, first.size()), first);
    EXPECT_EQ(bytesOf("first.dds", true, 32), std::string(32, 'f'));
    EXPECT_EQ(bytesOf(longName, false, second.size()), second);
    EXPECT_EQ(bytesOf(longName, true, 32), std::string(32, 's'));
}

TEST_F(PackFormat, HasLengthOffsetAndMarkInEachRecord)
{
    const std::string bytes = twoFiles();
    ASSERT_EQ(bytes.size(), 3U + 2 * 265 + 11);
    const auto table = pack::Packfile::readHeader(bytes.data(), bytes.size());
    EXPECT_EQ(table.at("first.dds").length, 8U);
    EXPECT_EQ(table.at("first.dds").offset, 0U);
    EXPECT_FALSE(table.at("first.dds").last);
    EXPECT_EQ(table.at("second.dds").length, 3U);
    EXPECT_EQ(table.at("second.dds").offset, 8U);
    EXPECT_TRUE(table.at("second.dds").last);
}

TEST_F(PackFormat, ReadsBack)
{
    const std::string bytes = twoFiles();
    const auto entries = readPackTable(bytes, "p.pack");
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].name, "first.dds");
    EXPECT_EQ(tools::packer::packFileOf(bytes, entries[0], 2), "12345678");
    EXPECT_EQ(entries[1].name, "second.dds");
    EXPECT_EQ(tools::packer::packFileOf(bytes, entries[1], 2), "abc");
}

TEST_F(PackFormat, IsRefusedCutOffAtAnyByte)
{
    const std::string whole = twoFiles();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const std::string reason =
            length < 3         ? "no pack: 'pkf' is not at its start"
            : length < 3 + 265 ? "ends inside record 1 of its table"
            : length < 533     ? "ends inside record 2 of its table"
            : length < 533 + 8
                ? fmt::format("first.dds ends at byte 8 of the data, but there are {}", length - 533)
                : fmt::format("second.dds ends at byte 11 of the data, but there are {}", length - 533);
        EXPECT_THAT([&] { readPackTable(cut, "p.pack"); }, ThrowsMessage<Error>("p.pack: " + reason));
    }
}

struct Change {
    const char* name;
    std::size_t at;
    char value;
    const char* sentence;
};

// clang-format off
constexpr Change changes[] = {
    {"Magic",          2,         'g',  "p.pack: no pack: 'pkf' is not at its start"},
    {"NoNul",          3 + 255,   'x',  "p.pack: the name in record 1 has no closing NUL"},
    {"NoNulInSecond",  268 + 255, 'x',  "p.pack: the name in record 2 has no closing NUL"},
    {"EmptyName",      3,         0,    "p.pack: the name in record 1 is empty"},
    {"NoLastMark",     268 + 264, 0,    "p.pack: ends inside record 3 of its table"},
    {"Overlap",        268 + 260, 7,    "p.pack: first.dds and second.dds overlap"},
    {"BehindTheEnd",   268 + 260, 9,    "p.pack: second.dds ends at byte 12 of the data, but there are 11"},
    {"FarBehind",      268 + 263, '\x80', "p.pack: second.dds ends at byte 2147483659 of the data, but there are 11"},
    {"TooLong",        3 + 256,   9,    "p.pack: first.dds and second.dds overlap"},
};
// clang-format on

class ChangedPack : public TestWithParam<Change> {};

TEST_P(ChangedPack, IsRefusedWithTheReason)
{
    std::string bytes = twoFiles();
    bytes[GetParam().at] = GetParam().value;
    EXPECT_THAT([&] { readPackTable(bytes, "p.pack"); }, ThrowsMessage<Error>(GetParam().sentence));
}

INSTANTIATE_TEST_SUITE_P(Changes, ChangedPack, ValuesIn(changes),
                         [](const auto& info) { return info.param.name; });

TEST_F(PackFormat, IsRefusedWithANameTwice)
{
    const std::string bytes = encodePack({{"a.dds", "1"}, {"b.dds", "2"}, {"a.dds", "3"}});
    EXPECT_THAT([&] { readPackTable(bytes, "p.pack"); },
                ThrowsMessage<Error>("p.pack: a.dds stands in record 1 and again in record 3"));
}

TEST_F(PackFormat, MayHaveItsFilesInAnyOrder)
{
    std::string bytes = twoFiles();
    bytes[3 + 260] = 3;   // first: bytes 3 to 10
    bytes[268 + 260] = 0; // second: bytes 0 to 2
    EXPECT_NO_THROW(readPackTable(bytes, "p.pack"));
}

TEST(PackOffsets, AreBackToBack)
{
    EXPECT_THAT(packOffsets({{"a", 128}, {"b", 1000}, {"c", 5}}), testing::ElementsAre(0, 128, 1128));
}

TEST(PackOffsets, ReachUpToTheEndOf32Bits)
{
    EXPECT_THAT(packOffsets({{"a", 0xFFFFFFFF - 8}, {"b", 8}}), testing::ElementsAre(0, 0xFFFFFFFF - 8));
}

TEST(PackOffsets, AreRefusedBeyond32Bits)
{
    EXPECT_THAT(([] {
                    packOffsets({{"a.dds", 0xFFFFFFFF}, {"b.dds", 1}});
                }),
                ThrowsMessage<Error>(
                    "b.dds: would end at byte 4294967296 of the pack's data, which counts in 32 bits"));
}

TEST(PackName, IsRefusedBeyond255Characters)
{
    EXPECT_NO_THROW(tools::packer::checkPackName(std::string(255, 'n'), "p"));
    EXPECT_THAT([] { tools::packer::checkPackName(std::string(256, 'n'), "p"); },
                ThrowsMessage<Error>("p: the name in the pack would have 256 characters, at most 255 fit"));
}

TEST_F(VerifiedPack, HasTheSizesOfTheShow)
{
    write("p.pack", encodePack({{"room_diff.dds", makeDds({2048, 2048}, 'x')},
                                {"title.dds", makeDds({3840, 2160}, 'x')}}));
    EXPECT_EQ(tools::packer::verifyPack("p.pack", false), "p.pack: 2 files, all well-formed");
}

TEST_F(VerifiedPack, IsRefusedWithAnotherSize)
{
    write("p.pack", encodePack({{"title.dds", makeDds({8, 8}, 'x')}}));
    EXPECT_THAT([] { tools::packer::verifyPack("p.pack", false); },
                ThrowsMessage<Error>("p.pack: title.dds: 8x8, but the show asks for 3840x2160"));
    EXPECT_EQ(tools::packer::verifyPack("p.pack", true), "p.pack: 1 file, all well-formed");
}

TEST_F(VerifiedPack, IsRefusedWithAFileThatIsNoDds)
{
    write("p.pack", twoFiles());
    EXPECT_THAT([] { tools::packer::verifyPack("p.pack", true); },
                ThrowsMessage<Error>("p.pack: first.dds: 8 bytes are too few for a DDS header"));
}

TEST_F(VerifiedPack, IsRefusedCutOffAtAnyByte)
{
    const std::string whole = encodePack({{"a.dds", makeDds({4, 4}, 'x')}, {"b.dds", makeDds({8, 8}, 'x')}});
    for (std::size_t length = 0; length < whole.size(); ++length) {
        write("p.pack", whole.substr(0, length));
        EXPECT_THROW(tools::packer::verifyPack("p.pack", true), Error);
    }
    write("p.pack", whole);
    EXPECT_EQ(tools::packer::verifyPack("p.pack", true), "p.pack: 2 files, all well-formed");
}

} // namespace
