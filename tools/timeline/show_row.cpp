#include "tools/timeline/show_row.h"

#include "sync/tools.h"
#include "tools/common/error.h"
#include "tools/timeline/bar_position.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace tools::timeline {

namespace {

std::int32_t parseRowFromZero(const std::string& place, const std::string& text)
{
    std::int32_t row = 0;
    try {
        row = parseRow(text);
    } catch (const std::invalid_argument& reason) {
        throw Error(place, reason.what());
    }
    if (row < 0) {
        throw Error(place, "the rows of the show count from 0");
    }
    return row;
}

} // namespace

std::int32_t parseShowRow(const std::string& text)
{
    return parseRowFromZero("--row " + text, text);
}

std::int32_t parseBar(const std::string& text, const std::string& option)
{
    const auto colons = std::count(text.begin(), text.end(), ':');
    const std::string whole = text + (colons == 0 ? ":0:0" : colons == 1 ? ":0" : "");
    return parseRowFromZero(option + " " + text, whole);
}

double timeOfRow(std::int32_t row)
{
    double time = row / timeToRow(1.0);
    while (timeToRow(time) < row) {
        time = std::nextafter(time, std::numeric_limits<double>::infinity());
    }
    return time;
}

} // namespace tools::timeline
