#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tools::showcheck {

/// What is looked at.
enum class Check : std::uint8_t {
    Brightness,
    Black,
    Contrast,
    OneTone,
    NearPlane,
    NearPlaneInTheMiddle,
    Speed,
    Turn,
    Acceleration,
    TurnAcceleration,
    SlidingCut,
    OffBeat,
    Flashes,
};

/// Where in the show something was measured.
struct Place {
    std::int64_t step; ///< number of the frame, or of the row; those of one check follow one another
    double time;       ///< seconds
    float scene;       ///< value of the track "scene"
};

/// Compares what was measured with what is allowed, and keeps what goes beyond.
class Findings {
public:
    /// Takes note of a measurement. It is a problem if it is beyond `limit`, or not a number.
    void add(Check check, const Place& place, double figure, double limit);

    /// "BAR:BEAT:ROW (SECONDS s), SCENE: SENTENCE" for each problem, in the order of the show. Where one
    /// lasts for several steps, it is told once, with where it ends and the worst figure.
    std::vector<std::string> problems() const;

    /// A line for each check that measured anything: the figure that came nearest to its limit or went
    /// furthest beyond, and where that was.
    std::vector<std::string> summary() const;

private:
    /// A problem that lasts from one place to another.
    struct Run {
        Check check;
        Place first;
        Place last;
        double figure; ///< the worst
        double limit;
    };

    struct Worst {
        Place place;
        double figure;
        double limit;
    };

    std::vector<Run> runs;
    std::map<Check, std::size_t> latest; ///< in `runs`
    std::map<Check, Worst> worst;
};

} // namespace tools::showcheck
