#include "tools/capture/position_options.h"

#include "tools/common/error.h"
#include "tools/stage/values.h"
#include "tools/timeline/show_row.h"

namespace tools::capture {

void addPositionOptions(CLI::App& command, PositionOptions& options)
{
    CLI::Option_group* const position =
        command.add_option_group("Position", "where in the show; at most one of");
    position->add_option("--row", options.row, "row of the timeline");
    position->add_option("--time", options.time, "seconds of the music");
    position->add_option("--bar", options.bar, "BAR, BAR:BEAT or BAR:BEAT:ROW");
    position->require_option(0, 1);
}

std::optional<double> readPosition(const PositionOptions& options)
{
    if (!options.row.empty()) {
        return timeline::timeOfRow(timeline::parseShowRow(options.row));
    }
    if (!options.bar.empty()) {
        return timeline::timeOfRow(timeline::parseBar(options.bar));
    }
    if (options.time.empty()) {
        return std::nullopt;
    }
    const std::string place = "--time " + options.time;
    const double seconds = stage::parseNumber(place, options.time);
    if (seconds < 0.0) {
        throw Error(place, "the show starts at 0");
    }
    return seconds;
}

} // namespace tools::capture
