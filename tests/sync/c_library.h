#pragma once

#include <cstddef>
#include <vector>

/// The C library as the code under test sees it: the linker sends its `malloc`, `realloc`, `strdup` and
/// `send` here. Each works as ever until a test has it fail.
struct CLibrary {
    static constexpr int never = -1;

    /// A call of `send`.
    struct Send {
        std::size_t size;
        int flags;

        bool operator==(const Send&) const = default;
    };

    bool watching = false; ///< nothing is written down or fails without it
    // How many calls each still lets through before the one that fails.
    int mallocsBeforeFailure = never;
    int reallocsBeforeFailure = never;
    int strdupsBeforeFailure = never;
    int sendsBeforeFailure = never;
    long failedSendResult = -1;
    // What came out, in the order of the calls.
    std::vector<void*> mallocResults;
    std::vector<char*> strdupResults;
    std::vector<Send> sends;
};

extern CLibrary cLibrary;

/// Watches the C library for as long as it lives, from a fresh start.
class WatchedCLibrary {
public:
    WatchedCLibrary()
    {
        cLibrary = {};
        cLibrary.mallocResults.reserve(64);
        cLibrary.strdupResults.reserve(64);
        cLibrary.sends.reserve(64);
        cLibrary.watching = true;
    }
    ~WatchedCLibrary() { cLibrary = {}; }

    WatchedCLibrary(const WatchedCLibrary&) = delete;
    WatchedCLibrary& operator=(const WatchedCLibrary&) = delete;
};
