#include "tools/showcheck/judge_camera.h"

#include "scenes/catalogue.h"
#include "sync/tools.h"
#include "tools/stage/values.h"
#include "tools/timeline/show_row.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <glm/mat3x3.hpp>
#include <glm/trigonometric.hpp>

namespace tools::showcheck {

namespace {

// Speeds by how far away what there is to see stands. At 30 degrees a second it crosses the picture in 1.5 s.
// A camera that stops from 0.12 units a second, or from 4.4 degrees, within a row breaks an acceleration of
// 4, or of 150; one that eases over a beat does not.
// clang-format off
constexpr CameraLimits limits[] = {
    // scene                            speed  turn   acceleration  of turn
    {catalogue::scenes::room.number,    1.0,   30.0,  4.0,          150.0},
    {catalogue::scenes::bottle.number,  0.8,   30.0,  4.0,          150.0},
    {catalogue::scenes::burger.number,  0.3,   30.0,  2.0,          150.0},
    {catalogue::scenes::toilet.number,  0.8,   30.0,  4.0,          150.0},
    {catalogue::scenes::people.number,  1.2,   30.0,  6.0,          150.0},
};
// clang-format on

/// True if there is one row, or none for a scene without a camera.
constexpr bool hasItsLimits(const catalogue::Scene& scene)
{
    const auto rows = std::count_if(std::begin(limits), std::end(limits),
                                    [&scene](const CameraLimits& row) { return row.scene == scene.number; });
    return rows == (scene.camera == catalogue::CameraForm::None ? 0 : 1);
}
static_assert(std::all_of(std::begin(catalogue::allScenes), std::end(catalogue::allScenes), hasItsLimits),
              "a scene's camera has no limits, or two rows of them");

// Less is a rounding error.
constexpr double leastJump = 1e-3;     // units
constexpr double leastJumpTurn = 0.05; // degrees
// What no camera does within a row.
constexpr double slide = 0.1;     // units
constexpr double slideTurn = 5.0; // degrees

/// The camera's axes: to the right, up, and backwards.
glm::dmat3 axesOf(const CameraPose& pose)
{
    const glm::dvec3 z = glm::normalize(pose.eye - pose.target);
    const glm::dvec3 x = glm::normalize(glm::cross(glm::dvec3(0.0, 1.0, 0.0), z));
    return {x, glm::cross(z, x), z};
}

/// The way from one pose to another.
struct Step {
    glm::dvec3 move; ///< units
    glm::dvec3 turn; ///< axis, as long as the angle in degrees

    bool isBeyond(double distance, double angle) const
    {
        // Not a number counts as far.
        return !(glm::length(move) <= distance && glm::length(turn) <= angle);
    }
};

Step stepBetween(const CameraPose& from, const CameraPose& to)
{
    const glm::dmat3 a = axesOf(from);
    const glm::dmat3 b = axesOf(to);
    glm::dvec3 axis(0.0); // as long as the angle's sine
    double cosine = -0.5;
    for (int i = 0; i < 3; ++i) {
        axis += 0.5 * glm::cross(a[i], b[i]);
        cosine += 0.5 * glm::dot(a[i], b[i]);
    }
    const double sine = glm::length(axis);
    const double angle = glm::degrees(std::atan2(sine, cosine));
    return {to.eye - from.eye, sine > 0.0 ? axis * (angle / sine) : axis};
}

Place placeOf(const CameraRow& row)
{
    return {row.row, timeline::timeOfRow(row.row), row.scene};
}

bool isCut(const CameraRow& before, const CameraRow& row)
{
    if (before.scene != row.scene) {
        return true;
    }
    return findCameraLimits(row.scene) != nullptr &&
           stepBetween(before.end, row.begin).isBeyond(leastJump, leastJumpTurn);
}

void judgeStep(const Step& step, const CameraLimits& allowed, const Place& place, Findings& findings)
{
    findings.add(Check::Speed, place, glm::length(step.move) * tempo::rowsPerSecond, allowed.speed);
    findings.add(Check::Turn, place, glm::length(step.turn) * tempo::rowsPerSecond, allowed.turn);
    const double slides = std::max(glm::length(step.move) / slide, glm::length(step.turn) / slideTurn);
    findings.add(Check::SlidingCut, place, slides, 1.0);
}

void judgeChange(const Step& before, const Step& step, const CameraLimits& allowed, const Place& place,
                 Findings& findings)
{
    constexpr double rate = tempo::rowsPerSecond * tempo::rowsPerSecond;
    findings.add(Check::Acceleration, place, glm::length(step.move - before.move) * rate,
                 allowed.acceleration);
    findings.add(Check::TurnAcceleration, place, glm::length(step.turn - before.turn) * rate,
                 allowed.turnAcceleration);
}

} // namespace

const CameraLimits* findCameraLimits(float scene)
{
    const auto* const found = std::find_if(std::begin(limits), std::end(limits),
                                           [scene](const CameraLimits& row) { return row.scene == scene; });
    return found == std::end(limits) ? nullptr : found;
}

void judgeCamera(std::span<const CameraRow> rows, Findings& findings)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const CameraRow& row = rows[i];
        const bool isFirst = i == 0 || isCut(rows[i - 1], row);
        if (isFirst && i > 0) {
            findings.add(Check::OffBeat, placeOf(row), row.row % tempo::rowsPerBeat, 0.0);
        }
        const CameraLimits* const allowed = findCameraLimits(row.scene);
        if (allowed == nullptr) {
            continue;
        }
        const Step step = stepBetween(row.begin, row.end);
        judgeStep(step, *allowed, placeOf(row), findings);
        // A shot's last row stands still, which is over before it is seen.
        const bool isLast = i + 1 < rows.size() && isCut(row, rows[i + 1]);
        if (!isFirst && !isLast) {
            judgeChange(stepBetween(rows[i - 1].begin, rows[i - 1].end), step, *allowed, placeOf(row),
                        findings);
        }
    }
}

} // namespace tools::showcheck
