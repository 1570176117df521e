#pragma once

#include <string_view>

/// The values of the track "scene", which are compared exactly. Any other selects nothing: the frame stays
/// cleared.
namespace scene_numbers {

constexpr float room = 4.0F;
constexpr float credits = 5.0F;
constexpr float bottle = 6.0F;
constexpr float burger = 7.0F;
constexpr float toilet = 8.0F;
constexpr float people = 9.0F;
constexpr float end = -1.0F; ///< the show is over

/// A value, and what it is called.
struct Name {
    float value;
    std::string_view name;
};

// clang-format off
constexpr Name names[] = {
    {room,    "room"},
    {credits, "credits"},
    {bottle,  "bottle"},
    {burger,  "burger"},
    {toilet,  "toilet"},
    {people,  "people"},
    {end,     "end"},
};
// clang-format on

/// What the value is called; empty for one that selects nothing.
constexpr std::string_view nameOf(float value)
{
    for (const Name& row : names) {
        if (row.value == value) {
            return row.name;
        }
    }
    return {};
}

} // namespace scene_numbers
