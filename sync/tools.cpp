#include "sync/tools.h"

double timeToRow(double seconds)
{
    // The double nearest to 2048 / 60. It stands on its own: the rate given to the sync device plays no part.
    constexpr double rowsPerSecond = 34.13333333333333;
    static_assert(rowsPerSecond == tempo::rowsPerSecond);
    return seconds * rowsPerSecond;
}
