#include "tests/sync/c_library.h"

#include <sys/types.h>

CLibrary cLibrary;

namespace {

/// Whether this call is the one to fail.
bool failsNow(int& callsBeforeFailure)
{
    if (!cLibrary.watching || callsBeforeFailure == CLibrary::never) {
        return false;
    }
    return callsBeforeFailure-- == 0;
}

} // namespace

// The names are the linker's: a call of NAME arrives at __wrap_NAME, and __real_NAME is what it was meant
// for. NOLINTBEGIN(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
extern "C" {

void* __real_malloc(std::size_t size);
void* __real_realloc(void* memory, std::size_t size);
char* __real_strdup(const char* text);
ssize_t __real_send(int socket, const void* data, std::size_t size, int flags);

void* __wrap_malloc(std::size_t size)
{
    if (failsNow(cLibrary.mallocsBeforeFailure)) {
        return nullptr;
    }
    void* memory = __real_malloc(size);
    if (cLibrary.watching) {
        cLibrary.mallocResults.push_back(memory);
    }
    return memory;
}

void* __wrap_realloc(void* memory, std::size_t size)
{
    return failsNow(cLibrary.reallocsBeforeFailure) ? nullptr : __real_realloc(memory, size);
}

char* __wrap_strdup(const char* text)
{
    if (failsNow(cLibrary.strdupsBeforeFailure)) {
        return nullptr;
    }
    char* copy = __real_strdup(text);
    if (cLibrary.watching) {
        cLibrary.strdupResults.push_back(copy);
    }
    return copy;
}

ssize_t __wrap_send(int socket, const void* data, std::size_t size, int flags)
{
    if (cLibrary.watching) {
        cLibrary.sends.push_back({size, flags});
    }
    return failsNow(cLibrary.sendsBeforeFailure) ? cLibrary.failedSendResult
                                                 : __real_send(socket, data, size, flags);
}

/// An allocation of an impossible size gives null under AddressSanitizer too, as it does without.
const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
