#include "tests/pack/system_calls.h"

#include <cerrno>
#include <cstdarg>
#include <sys/mman.h>
#include <sys/stat.h>

SystemCalls systemCalls;

// The names are the linker's: a call of NAME arrives at __wrap_NAME, and __real_NAME is what it was meant
// for. NOLINTBEGIN(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
extern "C" {

int __real_close(int file);
int __real_fstat(int file, struct stat* status);
void* __real_mmap(void* address, std::size_t length, int protection, int flags, int file, off_t offset);
int __real_munmap(void* address, std::size_t length);
int __real_open(const char* path, int flags, ...);

int __wrap_close(int file)
{
    const int result = __real_close(file);
    if (systemCalls.watching) {
        systemCalls.calls.emplace_back("close");
        if (systemCalls.closeError != 0) {
            errno = systemCalls.closeError;
            return -1;
        }
    }
    return result;
}

int __wrap_fstat(int file, struct stat* status)
{
    if (systemCalls.watching) {
        systemCalls.calls.emplace_back("fstat");
        if (systemCalls.fstatError != 0) {
            errno = systemCalls.fstatError;
            return -1;
        }
    }
    return __real_fstat(file, status);
}

void* __wrap_mmap(void* address, std::size_t length, int protection, int flags, int file, off_t offset)
{
    if (!systemCalls.watching) {
        return __real_mmap(address, length, protection, flags, file, offset);
    }
    systemCalls.calls.emplace_back("mmap");
    void* result = MAP_FAILED;
    if (systemCalls.mmapError != 0) {
        errno = systemCalls.mmapError;
    } else {
        result = __real_mmap(address, length, protection, flags, file, offset);
    }
    systemCalls.mappings.push_back({address, length, protection, flags, offset, result});
    return result;
}

int __wrap_open(const char* path, int flags, ...)
{
    std::va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t); // of no meaning where no file is made
    va_end(arguments);
    if (systemCalls.watching) {
        systemCalls.calls.emplace_back("open");
        systemCalls.opened.emplace_back(path, flags);
    }
    return __real_open(path, flags, mode);
}

int __wrap_munmap(void* address, std::size_t length)
{
    if (systemCalls.watching) {
        systemCalls.calls.emplace_back("munmap");
        systemCalls.unmapped.emplace_back(address, length);
    }
    return __real_munmap(address, length);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-inconsistent-declaration-parameter-name)
