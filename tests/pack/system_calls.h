#pragma once

#include <cstddef>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

/// The system calls as the code under test sees them: the linker sends its `open`, `fstat`, `mmap`,
/// `munmap` and `close` here. Each works as ever until a test has it fail.
struct SystemCalls {
    /// The arguments of a call of `mmap`, and its result.
    struct Mapping {
        const void* address;
        std::size_t length;
        int protection;
        int flags;
        off_t offset;
        void* result;
    };

    bool watching = false; ///< nothing is written down or fails without it
    int fstatError = 0;    ///< what `fstat` fails with; 0: it works
    int mmapError = 0;     ///< what `mmap` fails with; 0: it works
    int closeError = 0;    ///< what `close` leaves in `errno`, having closed
    std::vector<std::string> calls;
    std::vector<std::pair<std::string, int>> opened; ///< path and flags
    std::vector<Mapping> mappings;
    std::vector<std::pair<void*, std::size_t>> unmapped;
};

extern SystemCalls systemCalls;

/// Watches the system calls for as long as it lives, from a fresh start.
class WatchedSystemCalls {
public:
    WatchedSystemCalls()
    {
        systemCalls = {};
        systemCalls.watching = true;
    }
    ~WatchedSystemCalls() { systemCalls = {}; }

    WatchedSystemCalls(const WatchedSystemCalls&) = delete;
    WatchedSystemCalls& operator=(const WatchedSystemCalls&) = delete;
};
