// Loaded into the real show before all of its libraries, by LD_PRELOAD. Writes down, a line each in the file
// that WITNESS_LOG names:
//
//   file PATH        a file was asked for: by a relative path, by one of the show's name, or by the program
//   itself variable NAME    the program itself asked for a variable of the environment play TIME        the
//   music was started position P TIME  the position of the music was asked for, and was P swap TIME        a
//   frame was presented
//
// TIME is that of the monotonic clock. Positions and times are in seconds. All calls go on to where they
// belong.
#include <SDL.h>
#include <SDL_mixer.h>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/auxv.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

template<typename Function>
Function* next(const char* name)
{
    auto* function = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
    if (function == nullptr) {
        std::abort();
    }
    return function;
}

int openLog()
{
    const char* path = next<char*(const char*)>("getenv")("WITNESS_LOG");
    return path == nullptr ? -1
                           : static_cast<int>(syscall(SYS_openat, AT_FDCWD, path,
                                                      O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
}

/// A descriptor; -1: none.
int logFile()
{
    static const int file = openLog();
    return file;
}

double now()
{
    timespec time = {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// Whether a call comes from the program and from no library.
bool isOfTheProgram(const void* caller)
{
    Dl_info info = {};
    constexpr std::uintptr_t page = 4096;
    const std::uintptr_t start = getauxval(AT_PHDR) & ~(page - 1);
    return dladdr(caller, &info) != 0 && reinterpret_cast<std::uintptr_t>(info.dli_fbase) == start;
}

void noteFile(const char* path, const void* caller)
{
    if (path[0] != '/' || isOfTheProgram(caller)) {
        dprintf(logFile(), "file %s\n", path);
    }
}

void noteVariable(const char* name, const void* caller)
{
    if (isOfTheProgram(caller)) {
        dprintf(logFile(), "variable %s\n", name);
    }
}

} // namespace

#define CALLER __builtin_return_address(0)

// Their parameters are named as in the libraries' own headers. Forwarding looks a function up each time: few
// are called.
extern "C" {

int open(const char* file, int oflag, ...)
{
    std::va_list arguments;
    va_start(arguments, oflag);
    const auto mode = va_arg(arguments, mode_t); // of no meaning where no file is made
    va_end(arguments);
    noteFile(file, CALLER);
    return next<int(const char*, int, ...)>("open")(file, oflag, mode);
}

int open64(const char* file, int oflag, ...)
{
    std::va_list arguments;
    va_start(arguments, oflag);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    noteFile(file, CALLER);
    return next<int(const char*, int, ...)>("open64")(file, oflag, mode);
}

FILE* fopen(const char* filename, const char* modes)
{
    noteFile(filename, CALLER);
    return next<FILE*(const char*, const char*)>("fopen")(filename, modes);
}

FILE* fopen64(const char* filename, const char* modes)
{
    noteFile(filename, CALLER);
    return next<FILE*(const char*, const char*)>("fopen64")(filename, modes);
}

int stat(const char* file, struct stat* buf)
{
    noteFile(file, CALLER);
    return next<int(const char*, struct stat*)>("stat")(file, buf);
}

int access(const char* name, int type) noexcept
{
    noteFile(name, CALLER);
    return next<int(const char*, int)>("access")(name, type);
}

char* getenv(const char* name)
{
    noteVariable(name, CALLER);
    return next<char*(const char*)>("getenv")(name);
}

char* secure_getenv(const char* name)
{
    noteVariable(name, CALLER);
    return next<char*(const char*)>("secure_getenv")(name);
}

int Mix_PlayMusic(Mix_Music* music, int loops)
{
    const int result = next<int(Mix_Music*, int)>("Mix_PlayMusic")(music, loops);
    dprintf(logFile(), "play %.9f\n", now());
    return result;
}

double Mix_GetMusicPosition(Mix_Music* music)
{
    const double position = next<double(Mix_Music*)>("Mix_GetMusicPosition")(music);
    dprintf(logFile(), "position %.9f %.9f\n", position, now());
    return position;
}

void SDL_GL_SwapWindow(SDL_Window* window)
{
    next<void(SDL_Window*)>("SDL_GL_SwapWindow")(window);
    dprintf(logFile(), "swap %.9f\n", now());
}

} // extern "C"
