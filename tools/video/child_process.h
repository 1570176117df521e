#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <sys/types.h>
#include <vector>

namespace tools::video {

/// Another program, found on the PATH, that runs beside this one. Ctrl+C does not reach it; what it says is
/// kept. Broken pipes no longer end this process once there has been one.
class ChildProcess {
public:
    enum class Input : std::uint8_t { None, Pipe };

    /// What a program left behind.
    struct Result {
        int status;         ///< exit status; 128 and the signal's number if a signal ended it
        std::string output; ///< all of standard output
        std::string errors; ///< all of standard error
    };

    /// Starts a program: its name, then its arguments. Throws `Error` "NAME: cannot run: REASON".
    ChildProcess(const std::vector<std::string>& command, Input kind);
    /// Kills the program if it still runs.
    ~ChildProcess();

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Hands bytes to its standard input, and waits until they are taken. False if it reads no more. The one
    /// call for which another thread is fine, until `finish`.
    bool write(std::span<const std::uint8_t> bytes);

    /// Closes its standard input and waits for its end. Throws `Cancelled`, having killed it, if a signal
    /// asks for that meanwhile. Once only.
    Result finish();

    /// Ends the program at once; a `write` that waits for it gives up.
    void kill();

private:
    void closeInput();
    void reap();

    pid_t process = -1; ///< -1: none
    int input = -1;
    int output = -1;
    int errors = -1;
    int waitStatus = 0;
};

/// Runs a program without input to its end. Throws as the constructor and `finish` do.
ChildProcess::Result runProgram(const std::vector<std::string>& command);

/// The last line of what a program said, without its end; "it said nothing" if that's so.
std::string lastLine(const std::string& text);

} // namespace tools::video
