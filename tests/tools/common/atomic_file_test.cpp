#include "tools/common/atomic_file.h"

#include "tests/support/in_temporary_folder.h"
#include "tools/common/error.h"
#include "tools/common/read_file.h"

#include <csignal>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using testing::ElementsAre;
using testing::StartsWith;
using testing::ThrowsMessage;
using tools::AtomicFile;
using tools::Error;

namespace {

class AtomicFileTest : public InTemporaryFolder {};
class ReadFile : public InTemporaryFolder {};

TEST_F(AtomicFileTest, HasItsNameAndBytesAfterTheCommit)
{
    AtomicFile("new", std::string_view("a\0b", 3)).commit();
    EXPECT_EQ(read("new"), std::string("a\0b", 3));
    EXPECT_THAT(namesIn("."), ElementsAre("new"));
}

TEST_F(AtomicFileTest, LeavesTheOldFileUntilTheCommit)
{
    write("file", "old");
    AtomicFile file("file", "new");
    EXPECT_EQ(read("file"), "old");
    file.commit();
    EXPECT_EQ(read("file"), "new");
}

TEST_F(AtomicFileTest, LeavesNothingBehindWithoutACommit)
{
    write("file", "old");
    {
        const AtomicFile file("file", "new");
        EXPECT_EQ(namesIn(".").size(), 2U);
    }
    EXPECT_EQ(read("file"), "old");
    EXPECT_THAT(namesIn("."), ElementsAre("file"));
}

TEST_F(AtomicFileTest, IsWrittenByAnotherProgramInATemporaryFileBesideItThatEndsAsItDoes)
{
    std::filesystem::create_directory("folder");
    AtomicFile file("folder/video.mp4");
    EXPECT_EQ(file.temporary().parent_path(), std::filesystem::current_path() / "folder");
    EXPECT_THAT(file.temporary().filename().string(), StartsWith(std::string(AtomicFile::temporaryPrefix)));
    EXPECT_EQ(file.temporary().extension(), ".mp4");
    write(file.temporary(), "pictures");
    file.commit();
    EXPECT_EQ(read("folder/video.mp4"), "pictures");
    EXPECT_THAT(namesIn("folder"), ElementsAre("video.mp4"));
}

TEST_F(AtomicFileTest, RefusesAFolderOfItsNameBeforeAnotherProgramIsAtWork)
{
    std::filesystem::create_directory("video.mp4");
    EXPECT_THAT([] { AtomicFile("video.mp4"); },
                ThrowsMessage<Error>("video.mp4: cannot write: Is a directory"));
    EXPECT_THAT(namesIn("."), ElementsAre("video.mp4"));
}

TEST_F(AtomicFileTest, LeavesAloneWhatAKilledProcessOfItsNumberLeftBehind)
{
    const std::string prefix = std::string(AtomicFile::temporaryPrefix) + std::to_string(getpid()) + "-";
    const std::string last = AtomicFile("file").temporary().filename();
    const std::string next = prefix + std::to_string(std::stoi(last.substr(prefix.size())) + 1);
    write(next, "left behind");
    AtomicFile("file", "new").commit();
    EXPECT_EQ(read("file"), "new");
    EXPECT_EQ(read(next), "left behind");
}

TEST_F(AtomicFileTest, CanBeMovedBeforeTheCommit)
{
    AtomicFile first("file", "new");
    AtomicFile second(std::move(first));
    second.commit();
    EXPECT_THAT(namesIn("."), ElementsAre("file"));
}

TEST_F(AtomicFileTest, IsReadableByWhomTheUserAllows)
{
    const mode_t before = umask(022);
    AtomicFile("file", "new").commit();
    umask(before);
    struct stat status = {};
    ASSERT_EQ(stat("file", &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0644U);
}

TEST_F(AtomicFileTest, CanHaveTheLongestName)
{
    const std::string name(255, 'n');
    AtomicFile(name, "new").commit();
    EXPECT_EQ(read(name), "new");
}

TEST_F(AtomicFileTest, RefusesAFolderThatIsNotThere)
{
    EXPECT_THAT([] { AtomicFile("none/file", "new"); },
                ThrowsMessage<Error>("none/file: cannot write: No such file or directory"));
}

TEST_F(AtomicFileTest, LeavesNothingBehindWhenWritingFails)
{
    write("file", "old");
    // A write beyond the limit fails, with the signal ignored.
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {1000, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_THAT([] { AtomicFile("file", std::string(2000, 'n')); },
                ThrowsMessage<Error>("file: cannot write: File too large"));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(read("file"), "old");
    EXPECT_THAT(namesIn("."), ElementsAre("file"));
}

TEST_F(AtomicFileTest, LeavesNothingBehindWhenAFolderHasItsName)
{
    std::filesystem::create_directory("file");
    EXPECT_THAT([] { AtomicFile("file", "new").commit(); },
                ThrowsMessage<Error>("file: cannot write: Is a directory"));
    EXPECT_THAT(namesIn("."), ElementsAre("file"));
}

TEST_F(AtomicFileTest, FolderIsMadeWithThoseAboveIt)
{
    tools::makeFolder("a/b/c");
    EXPECT_TRUE(std::filesystem::is_directory("a/b/c"));
}

TEST_F(AtomicFileTest, FolderIsRefusedWhereAFileIs)
{
    write("file", "");
    EXPECT_THAT([] { tools::makeFolder("file/below"); },
                ThrowsMessage<Error>("file/below: cannot make the folder: Not a directory"));
}

TEST_F(ReadFile, GivesAllBytes)
{
    const std::string bytes(200000, '\xFF');
    write("file", bytes);
    EXPECT_EQ(tools::readFile("file"), bytes);
}

TEST_F(ReadFile, GivesNothingForAnEmptyFile)
{
    write("file", "");
    EXPECT_EQ(tools::readFile("file"), "");
}

TEST_F(ReadFile, RefusesAFileThatIsNotThere)
{
    EXPECT_THAT([] { tools::readFile("none"); },
                ThrowsMessage<Error>("none: cannot read: No such file or directory"));
}

TEST_F(ReadFile, RefusesAFolder)
{
    EXPECT_THAT([] { tools::readFile("."); }, ThrowsMessage<Error>(".: cannot read: Is a directory"));
}

} // namespace
