// soak: plays the whole show several times in one process, and watches its memory.
//
//   soak TIMES    in a folder with "assets"; SDL's environment variables say with which window and sound

#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <malloc.h>
#include <vector>

int runShow(); // the entry point, under its test name

namespace {

/// What a show may leave behind, in bytes: the music object, which the mixer leaves to the end of the process
/// (about 220 KiB). The smallest texture of the show is six times as large.
constexpr std::size_t tolerance = 320 * 1024;
constexpr std::size_t settling = 2; ///< shows before libraries have all that they keep for good

/// Bytes that are allocated and not freed.
std::size_t memoryInUse()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Complains if memory grew from show to show: after each stand the bytes in use.
bool grows(const std::vector<std::size_t>& inUse)
{
    if (inUse.size() <= settling) {
        return false;
    }
    const std::size_t shows = inUse.size() - settling;
    const std::size_t first = inUse[settling - 1];
    const std::size_t allowed = first + shows * tolerance;
    if (inUse.back() > allowed) {
        fmt::print(stderr, "soak: {} shows left {} bytes behind, and may leave {} each\n", shows,
                   inUse.back() - first, tolerance);
        return true;
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    const int times = argc == 2 ? std::atoi(argv[1]) : 0;
    if (times < 1) {
        fmt::print(stderr, "soak: wants how often the show is to be played\n");
        return 2;
    }
    std::vector<std::size_t> inUse;
    for (int time = 1; time <= times; ++time) {
        const int status = runShow();
        inUse.push_back(memoryInUse());
        fmt::print("soak: show {} of {}: status {}, {} KiB in use\n", time, times, status,
                   inUse.back() / 1024);
        std::fflush(stdout);
        if (status != 0) {
            return 1;
        }
    }
    return grows(inUse) ? 1 : 0;
}
