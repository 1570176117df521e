#include "pack/packfile.h"

#include "tests/pack/system_calls.h"
#include "tests/support/message_of.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/write_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <sys/mman.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace {

using pack::Packfile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr std::size_t recordSize = 265;

/// The code of the `std::system_error` that `action` throws.
template<class Action>
std::error_code codeOf(Action action)
{
    try {
        action();
    } catch (const std::system_error& error) {
        return error.code();
    }
    ADD_FAILURE() << "no std::system_error was thrown";
    return {};
}

/// Four bytes, the lowest first.
std::string field(std::uint32_t value)
{
    std::string bytes;
    for (unsigned int shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(value >> shift & 0xFF);
    }
    return bytes;
}

/// A record with whatever bytes for a name, filled up with NUL to 256.
std::string record(std::string name, std::uint32_t offset, char mark, std::uint32_t length = 0)
{
    name.resize(256, '\0');
    return name + field(length) + field(offset) + mark;
}

/// Descriptors of this process that are open on a file.
std::vector<int> descriptorsOf(const std::filesystem::path& path)
{
    std::vector<int> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the listing's own descriptor
        if (std::filesystem::read_symlink(entry.path(), gone) == path) {
            found.push_back(std::stoi(entry.path().filename()));
        }
    }
    return found;
}

/// How often a file is mapped into this process.
std::size_t mappingsOf(const std::filesystem::path& path)
{
    std::ifstream maps("/proc/self/maps");
    std::size_t count = 0;
    for (std::string line; std::getline(maps, line);) {
        count += line.find(path.string()) != std::string::npos ? 1 : 0;
    }
    return count;
}

/// Has one pack file of its own, to be written by each test.
class PackfileTest : public testing::Test {
protected:
    /// Writes the file; gives its path.
    const std::string& written(const std::string& content)
    {
        writeFile(path, content);
        return path;
    }

    /// Gives back what a failure in the table leaves behind.
    void releaseLeftovers()
    {
        for (const int descriptor : descriptorsOf(path)) {
            close(descriptor);
        }
        for (const SystemCalls::Mapping& mapping : systemCalls.mappings) {
            munmap(mapping.result, mapping.length);
        }
        systemCalls.mappings.clear();
    }

    /// The text of the `std::runtime_error` that a pack of this content fails with.
    std::string failureOf(const std::string& content)
    {
        const WatchedSystemCalls watched;
        std::string text = messageOf<std::runtime_error>([&] { const Packfile pack(written(content)); });
        releaseLeftovers();
        return text;
    }

    TemporaryFolder folder;
    const std::string path = (folder.path() / "test.pack").string();
};

// Good packs.

TEST_F(PackfileTest, FindsEachFileAtItsOffsetFromTheDataArea)
{
    const Packfile pack(
        written("pkf" + record("first", 0, 0) + record("second", 5, 0) + record("third", 2, 1) + "abcdefgh"));
    EXPECT_EQ(std::memcmp(pack.getFile("first", false), "abcdefgh", 8), 0);
    EXPECT_EQ(std::memcmp(pack.getFile("second", false), "fgh", 3), 0);
    EXPECT_EQ(std::memcmp(pack.getFile("third", false), "cdefgh", 6), 0);
}

TEST_F(PackfileTest, SkipsAHeaderOf128Bytes)
{
    const std::string header = "DDS " + std::string(124, 'h');
    const Packfile pack(written("pkf" + record("texture", 3, 1) + "..." + header + "PIXELS"));
    EXPECT_EQ(std::memcmp(pack.getFile("texture", false), "DDS hhh", 7), 0);
    EXPECT_EQ(std::memcmp(pack.getFile("texture", true), "PIXELS", 6), 0);
}

TEST_F(PackfileTest, HandsOutPointersIntoTheMapping)
{
    const WatchedSystemCalls watched;
    const Packfile pack(written("pkf" + record("a", 7, 1) + std::string(16, '.')));
    ASSERT_EQ(systemCalls.mappings.size(), 1U);
    const char* start = static_cast<const char*>(systemCalls.mappings[0].result);
    EXPECT_EQ(pack.getFile("a", false), start + 3 + recordSize + 7);
    EXPECT_EQ(pack.getFile("a", true), start + 3 + recordSize + 7 + 128);
}

TEST_F(PackfileTest, GivesTheSamePointerAtEachCall)
{
    const Packfile pack(written("pkf" + record("a", 1, 1) + "xy"));
    EXPECT_EQ(pack.getFile("a", false), pack.getFile("a", false));
}

TEST_F(PackfileTest, ReadsOffsetsWithTheLowestByteFirst)
{
    const WatchedSystemCalls watched;
    const Packfile pack(written("pkf" + record("a", 0, 0) + record("b", 0x01020304, 1)));
    const char* origin = static_cast<const char*>(pack.getFile("a", false));
    EXPECT_EQ(pack.getFile("b", false), origin + 0x01020304);
}

TEST_F(PackfileTest, DoesNotLimitOffsetsToTheFile)
{
    const Packfile pack(written("pkf" + record("a", 0, 0) + record("b", 0xFFFFFFFF, 1)));
    const char* origin = static_cast<const char*>(pack.getFile("a", false));
    EXPECT_EQ(pack.getFile("b", false), origin + 0xFFFFFFFFUL);
}

TEST_F(PackfileTest, AddsTheHeaderTo32BitsAndWrapsAround)
{
    const Packfile pack(written("pkf" + record("a", 0, 0) + record("fits", 0xFFFFFF7F, 0) +
                                record("wraps", 0xFFFFFF80, 0) + record("b", 0xFFFFFFFF, 1) +
                                std::string(200, '.')));
    const char* origin = static_cast<const char*>(pack.getFile("a", false));
    EXPECT_EQ(pack.getFile("fits", true), origin + 0xFFFFFFFFUL);
    EXPECT_EQ(pack.getFile("wraps", true), origin);
    EXPECT_EQ(pack.getFile("b", true), origin + 127);
}

TEST_F(PackfileTest, TakesAnyMarkButZeroForTheLastRecord)
{
    for (const int mark : {1, 2, 0x7F, 0x80, 0xFF}) {
        const Packfile pack(written("pkf" + record("a", 0, static_cast<char>(mark)) + "x"));
        EXPECT_EQ(*static_cast<const char*>(pack.getFile("a", false)), 'x') << mark;
    }
}

TEST_F(PackfileTest, DoesNotReadTheLength)
{
    const Packfile pack(written("pkf" + record("a", 1, 0, 0) + record("b", 1, 1, 0xFFFFFFFF) + "xy"));
    EXPECT_EQ(pack.getFile("a", false), pack.getFile("b", false));
    EXPECT_EQ(*static_cast<const char*>(pack.getFile("a", false)), 'y');
}

TEST_F(PackfileTest, AcceptsANameOf255Characters)
{
    const std::string name(255, 'n');
    const Packfile pack(written("pkf" + record(name, 0, 1) + "x"));
    EXPECT_EQ(*static_cast<const char*>(pack.getFile(name, false)), 'x');
}

TEST_F(PackfileTest, AcceptsAnEmptyName)
{
    const Packfile pack(written("pkf" + record("", 0, 1) + "x"));
    EXPECT_EQ(*static_cast<const char*>(pack.getFile("", false)), 'x');
}

TEST_F(PackfileTest, EndsANameAtItsFirstNul)
{
    const Packfile pack(written("pkf" + record(std::string("ab\0cd", 5), 0, 1) + "x"));
    EXPECT_EQ(*static_cast<const char*>(pack.getFile("ab", false)), 'x');
    EXPECT_THROW(static_cast<void>(pack.getFile(std::string("ab\0cd", 5), false)), std::out_of_range);
}

TEST_F(PackfileTest, AcceptsATableWithoutData)
{
    const Packfile pack(written("pkf" + record("a", 0, 1)));
    EXPECT_NO_THROW(static_cast<void>(pack.getFile("a", false)));
}

TEST_F(PackfileTest, ReadsTheDataAreaAsRecordsAfterAMissingMark)
{
    const Packfile pack(written("pkf" + record("a", 0, 0) + record("not meant as a record", 9, 1)));
    const char* origin = static_cast<const char*>(pack.getFile("a", false));
    EXPECT_EQ(pack.getFile("not meant as a record", false), origin + 9);
}

TEST_F(PackfileTest, KeepsTheFirstOfTwoRecordsOfOneName)
{
    const auto table = [](const std::string& content) {
        return Packfile::readHeader(content.data(), content.size());
    }("pkf" + record("a", 11, 0, 1) + record("a", 22, 0, 2) + record("b", 33, 1, 3));
    ASSERT_EQ(table.size(), 2U);
    EXPECT_EQ(table.at("a").offset, 11U);
    EXPECT_EQ(table.at("a").length, 1U);
    EXPECT_FALSE(table.at("a").last);
    EXPECT_EQ(table.at("b").offset, 33U);
}

TEST_F(PackfileTest, StartsTheDataAreaARecordEarlyForEachNameThatStandsTwice)
{
    const WatchedSystemCalls watched;
    const Packfile pack(
        written("pkf" + record("a", 0, 0) + record("a", 0, 0) + record("a", 0, 0) + record("b", 0, 1) + "x"));
    ASSERT_EQ(systemCalls.mappings.size(), 1U);
    const char* start = static_cast<const char*>(systemCalls.mappings[0].result);
    EXPECT_EQ(pack.getFile("a", false), start + 3 + 4 * recordSize - 2 * recordSize);
}

TEST_F(PackfileTest, FindsTheLastOfAThousandRecords)
{
    std::string content = "pkf";
    for (int i = 0; i < 1000; ++i) {
        content += record("file" + std::to_string(i), static_cast<std::uint32_t>(i), i == 999 ? 1 : 0);
    }
    const Packfile pack(written(content + std::string(999, '.') + "x"));
    EXPECT_EQ(*static_cast<const char*>(pack.getFile("file999", false)), 'x');
}

// Failures.

TEST_F(PackfileTest, FailsOnAMissingFile)
{
    const auto open = [&] {
        const Packfile pack(path);
    };
    EXPECT_EQ(messageOf<std::system_error>(open),
              std::string("Failed to open packfile: ") + std::strerror(ENOENT));
    EXPECT_EQ(codeOf(open), std::error_code(ENOENT, std::generic_category()));
}

TEST_F(PackfileTest, FailsOnAPathThroughAFile)
{
    const auto open = [&] {
        const Packfile pack(written("pkf") + "/inside");
    };
    EXPECT_EQ(messageOf<std::system_error>(open),
              std::string("Failed to open packfile: ") + std::strerror(ENOTDIR));
    EXPECT_EQ(codeOf(open), std::error_code(ENOTDIR, std::generic_category()));
}

TEST_F(PackfileTest, FailsWithoutAStatusAndTellsItsErrorNotThatOfTheClose)
{
    const WatchedSystemCalls watched;
    systemCalls.fstatError = EOVERFLOW;
    systemCalls.closeError = EIO;
    const auto open = [&] {
        const Packfile pack(written("pkf" + record("a", 0, 1)));
    };
    EXPECT_EQ(messageOf<std::system_error>(open),
              std::string("failed to stat packfile: ") + std::strerror(EOVERFLOW));
    EXPECT_EQ(codeOf(open), std::error_code(EOVERFLOW, std::generic_category()));
    EXPECT_THAT(systemCalls.calls, ElementsAre("open", "fstat", "close", "open", "fstat", "close"));
    EXPECT_THAT(descriptorsOf(path), IsEmpty());
}

TEST_F(PackfileTest, FailsOnAnEmptyFileWithoutMappingIt)
{
    const WatchedSystemCalls watched;
    const auto open = [&] {
        const Packfile pack(written(""));
    };
    EXPECT_EQ(messageOf<std::runtime_error>(open), "packfile is empty");
    EXPECT_THAT(systemCalls.calls, ElementsAre("open", "fstat", "close"));
    EXPECT_THAT(descriptorsOf(path), IsEmpty());
}

TEST_F(PackfileTest, FailsWithoutAMappingAndTellsItsErrorNotThatOfTheClose)
{
    const WatchedSystemCalls watched;
    systemCalls.mmapError = ENOMEM;
    systemCalls.closeError = EIO;
    const auto open = [&] {
        const Packfile pack(written("pkf" + record("a", 0, 1)));
    };
    EXPECT_EQ(messageOf<std::system_error>(open),
              std::string("failed to mmap packfile: ") + std::strerror(ENOMEM));
    EXPECT_EQ(codeOf(open), std::error_code(ENOMEM, std::generic_category()));
    EXPECT_THAT(systemCalls.calls,
                ElementsAre("open", "fstat", "mmap", "close", "open", "fstat", "mmap", "close"));
    EXPECT_THAT(descriptorsOf(path), IsEmpty());
}

struct BadPack {
    const char* name;
    std::string content;
    const char* text;
};

const char* const invalid = "invalid packfile";
const char* const cutOff = "failed to read chunk, unexpected end of data";
const char* const badName = "failed to read name";

// clang-format off
const BadPack badPacks[] = {
    {"OfOneByte",                     "p",                                                    invalid},
    {"OfTwoBytes",                    "pk",                                                   invalid},
    {"WithAnotherMagic",              "pkg" + record("a", 0, 1),                              invalid},
    {"WithAMagicInCapitals",          "PKF" + record("a", 0, 1),                              invalid},
    {"OfAMagicOnly",                  "pkf",                                                  cutOff},
    {"WithOneByteTooFew",             "pkf" + record("a", 0, 1).substr(0, 264),               cutOff},
    {"WithoutALastRecord",            "pkf" + record("a", 0, 0),                              cutOff},
    {"WithTooFewBytesForARecordAfterAMissingMark", "pkf" + record("a", 0, 0) + std::string(264, '\0'), cutOff},
    {"WithoutALastRecordButWithData", "pkf" + record("a", 0, 0) + std::string(265, '\0'),     cutOff},
    {"WithANameOf256Characters",      "pkf" + record(std::string(256, 'n'), 0, 1),            badName},
    {"WithAnUnclosedShortName",       "pkf" + record("a" + std::string(254, '\0') + "b", 0, 1), badName},
    {"WithABadSecondName",            "pkf" + record("a", 0, 0) + record(std::string(256, 'n'), 0, 1), badName},
};
// clang-format on

class BadPackfile : public PackfileTest, public testing::WithParamInterface<BadPack> {};

TEST_P(BadPackfile, FailsWithItsText)
{
    EXPECT_EQ(failureOf(GetParam().content), GetParam().text);
}

TEST_P(BadPackfile, LeavesDescriptorAndMappingBehind)
{
    const WatchedSystemCalls watched;
    EXPECT_ANY_THROW({ const Packfile pack(written(GetParam().content)); });
    EXPECT_THAT(systemCalls.calls, ElementsAre("open", "fstat", "mmap"));
    EXPECT_EQ(descriptorsOf(path).size(), 1U);
    EXPECT_EQ(mappingsOf(path), 1U);
    releaseLeftovers();
}

// A buffer of the exact size lets AddressSanitizer see a read past the end.
TEST_P(BadPackfile, IsRefusedInMemoryWithTheSameText)
{
    const std::vector<char> content(GetParam().content.begin(), GetParam().content.end());
    EXPECT_EQ(messageOf<std::runtime_error>(
                  [&] { static_cast<void>(Packfile::readHeader(content.data(), content.size())); }),
              GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(, BadPackfile, testing::ValuesIn(badPacks),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(PackfileTest, RejectsAFileCutOffAtAnyByteOfItsTable)
{
    const std::string whole = "pkf" + record("a", 0, 0) + record("b", 1, 1) + "xy";
    const std::size_t table = 3 + 2 * recordSize;
    for (std::size_t length = 0; length < table; ++length) {
        const char* expected = length == 0 ? "packfile is empty" : length < 3 ? invalid : cutOff;
        ASSERT_EQ(failureOf(whole.substr(0, length)), expected) << length;
    }
    for (std::size_t length = table; length <= whole.size(); ++length) {
        ASSERT_NO_THROW({ const Packfile pack(written(whole.substr(0, length))); }) << length;
    }
}

TEST_F(PackfileTest, RejectsATableCutOffAtAnyByteOfMemory)
{
    const std::string whole = "pkf" + record("a", 0, 0) + record("b", 1, 1);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::vector<char> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        ASSERT_EQ(messageOf<std::runtime_error>(
                      [&] { static_cast<void>(Packfile::readHeader(cut.data(), cut.size())); }),
                  length < 3 ? invalid : cutOff)
            << length;
    }
}

TEST_F(PackfileTest, FailsOnAnUnknownNameWithATextOfItsOwn)
{
    const Packfile pack(written("pkf" + record("known", 0, 1) + "x"));
    for (const char* name : {"unknown", "Known", "known ", "know", ""}) {
        for (const bool skipHeader : {false, true}) {
            EXPECT_EQ(
                messageOf<std::out_of_range>([&] { static_cast<void>(pack.getFile(name, skipHeader)); }),
                std::string("No such file in pack: ") + name);
        }
    }
}

// readChunk.

TEST(PackfileChunk, HoldsAllFieldsOfTheRecord)
{
    const std::string bytes = record("a name", 0x89ABCDEF, 2, 0x01234567);
    const Packfile::Chunk chunk = Packfile::readChunk(bytes.data(), bytes.size());
    EXPECT_EQ(chunk.name, "a name");
    EXPECT_EQ(chunk.length, 0x01234567U);
    EXPECT_EQ(chunk.offset, 0x89ABCDEFU);
    EXPECT_TRUE(chunk.last);
    const std::string other = record("", 0, 0);
    EXPECT_FALSE(Packfile::readChunk(other.data(), other.size()).last);
}

TEST(PackfileChunk, IsReadFromAnyAddress)
{
    const std::string bytes = record("a", 0x89ABCDEF, 1, 0x01234567);
    for (std::size_t shift = 0; shift < 8; ++shift) {
        const std::string shifted = std::string(shift, '.') + bytes;
        EXPECT_EQ(Packfile::readChunk(shifted.data() + shift, bytes.size()).offset, 0x89ABCDEFU) << shift;
    }
}

TEST(PackfileChunk, FailsOnFewerThan265BytesBeforeItLooksAtThem)
{
    for (const std::size_t remaining : {0UL, 1UL, 255UL, 256UL, 264UL}) {
        const std::vector<char> bytes(remaining, 'n'); // unclosed name as well
        EXPECT_EQ(messageOf<std::runtime_error>(
                      [&] { static_cast<void>(Packfile::readChunk(bytes.data(), remaining)); }),
                  cutOff)
            << remaining;
    }
}

// Resources.

TEST_F(PackfileTest, ClosesTheDescriptorAndKeepsTheMappingWhileItLives)
{
    {
        const Packfile pack(written("pkf" + record("a", 0, 1) + "x"));
        EXPECT_THAT(descriptorsOf(path), IsEmpty());
        EXPECT_EQ(mappingsOf(path), 1U);
    }
    EXPECT_EQ(mappingsOf(path), 0U);
}

TEST_F(PackfileTest, OpensAndMapsTheWholeFileReadOnlyAndUnmapsJustThat)
{
    const WatchedSystemCalls watched;
    const std::string content = "pkf" + record("a", 0, 1) + std::string(10000, 'x');
    {
        const Packfile pack(written(content));
        EXPECT_THAT(systemCalls.calls, ElementsAre("open", "fstat", "mmap", "close"));
    }
    EXPECT_THAT(systemCalls.opened, ElementsAre(Pair(path, O_RDONLY)));
    ASSERT_EQ(systemCalls.mappings.size(), 1U);
    const SystemCalls::Mapping& mapping = systemCalls.mappings[0];
    EXPECT_EQ(mapping.address, nullptr);
    EXPECT_EQ(mapping.length, content.size());
    EXPECT_EQ(mapping.protection, PROT_READ);
    EXPECT_EQ(mapping.flags, MAP_PRIVATE);
    EXPECT_EQ(mapping.offset, 0);
    EXPECT_THAT(systemCalls.calls, ElementsAre("open", "fstat", "mmap", "close", "munmap"));
    EXPECT_THAT(systemCalls.unmapped, ElementsAre(Pair(mapping.result, content.size())));
}

} // namespace
