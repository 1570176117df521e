// Part of each test program: if it ends before its last test has, it fails. What is tested may call
// std::exit(0), and all tests behind that one would pass unrun.
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <unistd.h>

namespace {

pid_t running = 0; ///< the process of a run that goes on; children of it may end as they like

class WholeRun : public testing::EmptyTestEventListener {
    void OnTestProgramStart(const testing::UnitTest& /*unitTest*/) override { running = getpid(); }
    void OnTestProgramEnd(const testing::UnitTest& /*unitTest*/) override { running = 0; }
};

void failIfRunning()
{
    if (running == getpid()) {
        std::cerr << "the program ended before its last test had\n" << std::flush;
        _exit(EXIT_FAILURE);
    }
}

[[maybe_unused]] const bool isListening = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new WholeRun);
    return std::atexit(failIfRunning) == 0;
}();

} // namespace
