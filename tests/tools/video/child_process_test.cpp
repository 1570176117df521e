#include "tools/video/child_process.h"

#include "tools/common/error.h"
#include "tools/video/cancel_signals.h"

#include <chrono>
#include <csignal>
#include <gmock/gmock.h>

using testing::ThrowsMessage;
using tools::Error;
using tools::video::Cancelled;
using tools::video::CancelSignals;
using tools::video::ChildProcess;

namespace {

const std::vector<std::uint8_t> bytes(1 << 22, 'x');

TEST(ChildProcess, LeavesItsStatusAndAllThatItSaid)
{
    const ChildProcess::Result result =
        tools::video::runProgram({"sh", "-c", "echo good; echo 'b a d' >&2; exit 3"});
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.output, "good\n");
    EXPECT_EQ(result.errors, "b a d\n");
}

TEST(ChildProcess, TakesArgumentsAsTheyAre)
{
    EXPECT_EQ(tools::video::runProgram({"printf", "%s|", "a b", "'", "$x", ""}).output, "a b|'|$x||");
}

TEST(ChildProcess, ReadsWhatIsWritten)
{
    ChildProcess child({"wc", "-c"}, ChildProcess::Input::Pipe);
    EXPECT_TRUE(child.write(bytes));
    EXPECT_TRUE(child.write(bytes));
    EXPECT_EQ(child.finish().output, "8388608\n");
}

TEST(ChildProcess, ReadsNothingWithoutAPipe)
{
    EXPECT_EQ(tools::video::runProgram({"wc", "-c"}).output, "0\n");
}

TEST(ChildProcess, SaysWhenItReadsNoMore)
{
    ChildProcess child({"sh", "-c", "exit 4"}, ChildProcess::Input::Pipe);
    EXPECT_FALSE(child.write(bytes)); // more than a pipe holds
    EXPECT_EQ(child.finish().status, 4);
}

TEST(ChildProcess, IsRefusedWhereThereIsNoSuchProgram)
{
    EXPECT_THAT([] { tools::video::runProgram({"no-such-program"}); },
                ThrowsMessage<Error>("no-such-program: cannot run: No such file or directory"));
}

TEST(ChildProcess, TellsTheSignalThatEndedIt)
{
    EXPECT_EQ(tools::video::runProgram({"sh", "-c", "kill -9 $$"}).status, 128 + 9);
}

TEST(ChildProcess, EndsWithItsOwner)
{
    const auto start = std::chrono::steady_clock::now();
    {
        const ChildProcess child({"sleep", "60"}, ChildProcess::Input::None);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

TEST(ChildProcess, GivesUpWhenASignalAsksForIt)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const CancelSignals signals;
        EXPECT_NO_THROW(CancelSignals::check());
        std::raise(signal);
        EXPECT_THROW(CancelSignals::check(), Cancelled);
        EXPECT_THROW(tools::video::runProgram({"sleep", "60"}), Cancelled);
    }
}

TEST(LastLine, IsTheLastThatSaysSomething)
{
    EXPECT_EQ(tools::video::lastLine("one\ntwo\n\n"), "two");
    EXPECT_EQ(tools::video::lastLine("one"), "one");
    EXPECT_EQ(tools::video::lastLine("one\rtwo \r\n"), "two");
    EXPECT_EQ(tools::video::lastLine(" \n"), "it said nothing");
    EXPECT_EQ(tools::video::lastLine(""), "it said nothing");
}

} // namespace
