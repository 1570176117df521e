#include "tests/golden/still.h"

#include "tools/stage/scene_tracks.h"

#include <algorithm>
#include <iterator>

namespace {

namespace scenes = catalogue::scenes;
namespace tracks = catalogue::tracks;

// The torn television stands in a row where its shader tears, which is from 0.67 to 1.33 seconds. The noise
// that it tears by is a sine of thousands: where processors round it differently, it can jump from one end to
// the other. So the picture is small, and the row a late one, in which the tear is narrow.
// clang-format off
constexpr Still table[] = {
    // name               scene              row   place                   target                  others
    {"room_television",   &scenes::room,      8, { 0.02F, 0.20F,  0.84F}, { 0.00F, 0.16F,  1.70F}, {}},
    {"room_torn",         &scenes::room,     32, { 0.34F, 0.36F, -0.30F}, { 0.06F, 0.06F,  1.75F}, {}},
    {"room_sofa",         &scenes::room,     60, { 0.20F, 0.40F,  1.30F}, { 0.00F, 0.21F, -0.60F}, {}},
    {"room_slippers",     &scenes::room,     61, { 0.62F, 0.02F,  0.62F}, { 0.22F, -0.14F, -0.30F}, {}},
    {"room_table",        &scenes::room,     62, { 0.55F, 0.26F,  1.30F}, { 0.00F, -0.06F,  0.56F}, {}},
    {"room_plant",        &scenes::room,     63, {-0.50F, 0.36F,  1.70F}, {-1.82F, 0.15F,  1.38F}, {}},
    {"room_house",        &scenes::room,     64, { 4.40F, 1.45F,  0.45F}, {-0.25F, 0.18F,  0.50F}, {}},
    {"bottle_ring",       &scenes::bottle,  100, { 0.10F, 0.48F,  0.22F}, { 0.00F, 0.00F,  2.00F}, {}},
    {"bottle_above",      &scenes::bottle,  300, { 0.15F, 1.25F,  0.75F}, { 0.00F, 0.02F,  2.00F}, {}},
    {"bottle_below",      &scenes::bottle,  500, { 0.90F, -0.30F,  0.70F}, { 0.00F, 0.02F,  2.00F}, {}},
    {"burger_shut",       &scenes::burger,  600, { 0.10F, 0.15F,  0.42F}, { 0.00F, 0.02F,  1.00F}, {{&tracks::burger_rotate, 0.30F}}},
    {"burger_open",       &scenes::burger,  601, {-0.06F, 0.19F,  0.43F}, { 0.00F, 0.04F,  1.00F}, {{&tracks::burger_rotate, 0.47F}, {&tracks::box_open, -0.62F}}},
    {"burger_layers",     &scenes::burger,  602, { 0.10F, 0.13F,  0.40F}, { 0.00F, 0.06F,  1.00F}, {{&tracks::burger_rotate, 0.70F}, {&tracks::box_open, -0.62F}, {&tracks::burger_open, 0.105F}}},
    {"burger_tumbling",   &scenes::burger,  603, {-0.08F, 0.14F,  0.36F}, { 0.00F, 0.07F,  1.00F}, {{&tracks::burger_rotate, 0.50F}, {&tracks::box_open, -0.62F}, {&tracks::burger_open, 0.12F}, {&tracks::burger_random, 0.5F}}},
    {"burger_lettering",  &scenes::burger,  640, { 0.12F, 0.06F,  0.36F}, { 0.00F, 0.06F,  1.00F}, {{&tracks::burger_rotate, 0.95F}, {&tracks::burger_pitch, 0.05F}, {&tracks::burger_text, 1.0F}}},
    {"people_front",      &scenes::people,  700, { 0.50F, 0.72F,  3.20F}, { 0.00F, 0.36F, -0.20F}, {{&tracks::hat_r, 0.596F}}},
    {"people_tipped",     &scenes::people,  701, { 0.60F, 0.62F,  3.00F}, {-0.18F, 0.37F, -0.25F}, {{&tracks::hat_r, 0.24F}}},
    {"people_legs",       &scenes::people,  820, { 0.45F, 0.05F,  3.40F}, { 0.00F, -0.35F, -0.20F}, {{&tracks::hat_r, 0.596F}}},
    {"people_glasses",    &scenes::people,  870, { 0.40F, 0.62F,  3.00F}, { 0.12F, 0.36F, -0.25F}, {{&tracks::hat_r, 0.24F}}},
    {"toilet_shut",       &scenes::toilet,  900, { 0.12F, 0.56F,  1.68F}, { 0.00F, 0.20F,  0.00F}, {{&tracks::burger_rotate, 0.95F}}},
    {"toilet_open",       &scenes::toilet,  901, { 0.00F, 0.85F,  1.42F}, { 0.00F, 0.24F,  0.00F}, {{&tracks::burger_rotate, 1.02F}, {&tracks::lid_rotate, -0.55F}}},
    {"toilet_behind",     &scenes::toilet,  940, {-0.45F, 0.48F,  1.38F}, { 0.00F, 0.20F,  0.00F}, {{&tracks::burger_rotate, 0.55F}, {&tracks::lid_rotate, -0.26F}}},
    {"credits",           &scenes::credits, 960, { 0.00F, 0.00F,  0.00F}, { 0.00F, 0.00F,  0.00F}, {}},
};
// clang-format on

consteval bool rowsAscend(std::span<const Still> rows)
{
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (rows[i - 1].row >= rows[i].row) {
            return false;
        }
    }
    return true;
}
static_assert(rowsAscend(table));

} // namespace

std::span<const Still> stills()
{
    return table;
}

float valueOf(const Still& still, std::string_view track)
{
    for (glm::length_t axis = 0; axis < 6; ++axis) {
        if (track == catalogue::tracks::camera[axis]->name) {
            return axis < 3 ? still.place[axis] : still.target[axis - 3];
        }
    }
    const auto* const found =
        std::find_if(std::begin(still.others), std::end(still.others), [track](const TrackValue& other) {
            return other.track != nullptr && other.track->name == track;
        });
    return found != std::end(still.others) ? found->value : 0.0F;
}

std::vector<std::string_view> tracksOf(const Still& still)
{
    return tools::stage::tracksOf(*still.scene);
}
