#include "tools/video/child_process.h"

#include "tools/common/error.h"
#include "tools/video/cancel_signals.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace tools::video {

namespace {

/// What the program starts with: its standard streams, its own group, and no signal ignored or held back.
class Start {
public:
    Start()
    {
        posix_spawn_file_actions_init(&actions);
        posix_spawnattr_init(&attributes);
        sigset_t none;
        sigset_t usual;
        sigemptyset(&none);
        sigemptyset(&usual);
        for (const int signal : {SIGPIPE, SIGINT, SIGTERM, SIGHUP}) {
            sigaddset(&usual, signal);
        }
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &usual);
        posix_spawnattr_setpgroup(&attributes, 0);
        posix_spawnattr_setflags(&attributes,
                                 POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~Start()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }

    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    void give(int file, int as) { posix_spawn_file_actions_adddup2(&actions, file, as); }
    void giveNothing(int as) { posix_spawn_file_actions_addopen(&actions, as, "/dev/null", O_RDONLY, 0); }

    /// 0, or the error's number.
    int run(pid_t& process, const std::vector<std::string>& command)
    {
        std::vector<char*> arguments;
        arguments.reserve(command.size() + 1);
        for (const std::string& argument : command) {
            arguments.push_back(const_cast<char*>(argument.c_str()));
        }
        arguments.push_back(nullptr);
        return posix_spawnp(&process, arguments[0], &actions, &attributes, arguments.data(), environ);
    }

private:
    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

void closeFile(int& file)
{
    if (file != -1) {
        close(std::exchange(file, -1));
    }
}

/// All that was written into a file in memory.
std::string readAll(int file)
{
    std::string text;
    std::array<char, 65536> block{};
    lseek(file, 0, SEEK_SET);
    for (;;) {
        const ssize_t count = read(file, block.data(), block.size());
        if (count <= 0) {
            return text;
        }
        text.append(block.data(), static_cast<std::size_t>(count));
    }
}

} // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& command, Input kind)
{
    std::signal(SIGPIPE, SIG_IGN); // NOLINT(cert-err33-c)
    output = memfd_create("output", MFD_CLOEXEC);
    errors = memfd_create("errors", MFD_CLOEXEC);
    std::array<int, 2> ends = {-1, -1};
    int code = output == -1 || errors == -1 ? errno : 0;
    if (code == 0 && kind == Input::Pipe && pipe2(ends.data(), O_CLOEXEC) == -1) {
        code = errno;
    }
    if (code == 0) {
        Start start;
        if (kind == Input::Pipe) {
            fcntl(ends[1], F_SETPIPE_SZ, 1 << 20); // fewer turns; the usual size does too
            start.give(ends[0], STDIN_FILENO);
        } else {
            start.giveNothing(STDIN_FILENO);
        }
        start.give(output, STDOUT_FILENO);
        start.give(errors, STDERR_FILENO);
        code = start.run(process, command);
    }
    closeFile(ends[0]);
    input = ends[1];
    if (code != 0) { // the destructor does not run
        process = -1;
        closeInput();
        closeFile(output);
        closeFile(errors);
        throw Error(command[0], std::string("cannot run: ") + std::strerror(code));
    }
}

ChildProcess::~ChildProcess()
{
    closeInput();
    kill();
    reap();
    closeFile(output);
    closeFile(errors);
}

bool ChildProcess::write(std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(input, bytes.data(), bytes.size());
        if (count == -1 && errno == EINTR) {
            continue;
        }
        if (count == -1) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

ChildProcess::Result ChildProcess::finish()
{
    closeInput();
    // Asked again and again: the signal may reach another thread than this one.
    while (process != -1 && waitpid(process, &waitStatus, WNOHANG) == 0) {
        try {
            CancelSignals::check();
        } catch (const Cancelled&) {
            kill();
            reap();
            throw;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(3));
    }
    process = -1;
    const int status = WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : 128 + WTERMSIG(waitStatus);
    return {status, readAll(output), readAll(errors)};
}

void ChildProcess::kill()
{
    if (process != -1) {
        ::kill(process, SIGKILL);
    }
}

void ChildProcess::closeInput()
{
    closeFile(input);
}

void ChildProcess::reap()
{
    while (process != -1 && waitpid(process, &waitStatus, 0) == -1 && errno == EINTR) {
    }
    process = -1;
}

ChildProcess::Result runProgram(const std::vector<std::string>& command)
{
    return ChildProcess(command, ChildProcess::Input::None).finish();
}

std::string lastLine(const std::string& text)
{
    const std::size_t end = text.find_last_not_of(" \r\n");
    if (end == std::string::npos) {
        return "it said nothing";
    }
    const std::size_t before = text.find_last_of("\r\n", end);
    const std::size_t begin = before == std::string::npos ? 0 : before + 1;
    return text.substr(begin, end + 1 - begin);
}

} // namespace tools::video
