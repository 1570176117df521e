#include "tools/showcheck/findings.h"

#include "scenes/catalogue.h"
#include "sync/tools.h"
#include "tools/timeline/bar_position.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <limits>

namespace tools::showcheck {

namespace {

/// How a check is told.
struct Wording {
    Check check;
    bool atMost;          ///< its limit is an upper one
    const char* name;     ///< in the summary
    const char* sentence; ///< of the figure and the limit
};

// clang-format off
constexpr Wording wordings[] = {
    {Check::Brightness,           false, "mean luminance",         "the picture's mean luminance is {:.1f} of 255, at least {:.1f} is wanted"},
    {Check::Black,                true,  "% black",                "{:.1f} % of the picture is black, at most {:.1f} % may be"},
    {Check::Contrast,             false, "deviation of luminance", "the picture's luminance deviates by {:.1f} of 255 from its mean, at least {:.1f} is wanted"},
    {Check::OneTone,              true,  "% of one tone",          "{:.1f} % of the picture is of nearly one luminance, at most {:.1f} % may be"},
    {Check::NearPlane,            true,  "% before near plane",    "the near plane cuts open {:.3f} % of the picture, at most {:.3f} % may be"},
    {Check::NearPlaneInTheMiddle, true,  "% of middle before it",  "the near plane cuts open {:.3f} % of the picture's middle, at most {:.3f} % may be"},
    {Check::Speed,                true,  "speed",                  "the camera moves at {:.2f} units/s, at most {:.2f} is wanted"},
    {Check::Turn,                 true,  "turn",                   "the camera turns by {:.1f} degrees/s, at most {:.1f} is wanted"},
    {Check::Acceleration,         true,  "acceleration",           "the camera speeds up or slows down by {:.2f} units/s2, at most {:.2f} is wanted"},
    {Check::TurnAcceleration,     true,  "acceleration of turn",   "the camera's turn changes by {:.0f} degrees/s2, at most {:.0f} is wanted"},
    {Check::SlidingCut,           true,  "size of a slide",        "the camera slides {:.2f} jumps to another place within a row, where it should cut"},
    {Check::OffBeat,              true,  "rows off the beat",      "a cut falls {:.0f} rows behind the beat"},
    {Check::Flashes,              true,  "flashes",                "the second before flashes with a badness of {:.2f}, at most {:.2f} may be"},
};
// clang-format on

const Wording& wordingOf(Check check)
{
    return *std::find_if(std::begin(wordings), std::end(wordings),
                         [check](const Wording& row) { return row.check == check; });
}

/// How bad a figure is: 1 at its limit, more beyond; where the limit is 0, above 1 beyond.
double severity(const Wording& wording, double figure, double limit)
{
    if (std::isnan(figure)) {
        return std::numeric_limits<double>::infinity();
    }
    if (!wording.atMost) {
        return limit / std::max(figure, 1e-9);
    }
    return limit > 0.0 ? figure / limit : 1.0 + figure;
}

std::string positionOf(const Place& place)
{
    // A frame may stand a rounding error before the row that it means.
    return timeline::barPosition(static_cast<std::int32_t>(std::floor(timeToRow(place.time) + 1e-6)));
}

std::string describe(const Place& place)
{
    return fmt::format("{} ({:.2f} s)", positionOf(place), place.time);
}

std::string sceneOf(const Place& place)
{
    const std::string_view name = catalogue::nameOf(place.scene);
    return name.empty() ? "no scene" : std::string(name);
}

} // namespace

void Findings::add(Check check, const Place& place, double figure, double limit)
{
    const Wording& wording = wordingOf(check);
    const double bad = severity(wording, figure, limit);
    const auto [known, isNew] = worst.try_emplace(check, Worst{place, figure, limit});
    if (!isNew && bad > severity(wording, known->second.figure, known->second.limit)) {
        known->second = {place, figure, limit};
    }
    if (bad <= 1.0) {
        return;
    }
    const auto found = latest.find(check);
    if (found != latest.end()) {
        Run& run = runs[found->second];
        if (run.last.step + 1 == place.step && run.last.scene == place.scene) {
            run.last = place;
            if (bad > severity(wording, run.figure, run.limit)) {
                run.figure = figure;
            }
            return;
        }
    }
    latest[check] = runs.size();
    runs.push_back({check, place, place, figure, limit});
}

std::vector<std::string> Findings::problems() const
{
    std::vector<Run> sorted = runs;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Run& a, const Run& b) { return a.first.time < b.first.time; });
    std::vector<std::string> lines;
    lines.reserve(sorted.size());
    for (const Run& run : sorted) {
        const std::string end = run.last.step == run.first.step ? "" : " to " + positionOf(run.last);
        lines.push_back(
            fmt::format("{}{}, {}: {}", describe(run.first), end, sceneOf(run.first),
                        fmt::format(fmt::runtime(wordingOf(run.check).sentence), run.figure, run.limit)));
    }
    return lines;
}

std::vector<std::string> Findings::summary() const
{
    std::vector<std::string> lines;
    for (const auto& [check, found] : worst) {
        const Wording& wording = wordingOf(check);
        lines.push_back(fmt::format("{:<24} {:>8.3f}   {} {:>7.3f}   {}, {}", wording.name, found.figure,
                                    wording.atMost ? "at most " : "at least", found.limit,
                                    describe(found.place), sceneOf(found.place)));
    }
    return lines;
}

} // namespace tools::showcheck
