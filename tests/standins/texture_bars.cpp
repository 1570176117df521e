#include "tests/standins/texture_bars.h"

#include "scenes/catalogue.h"

#include <algorithm>

namespace standins {

namespace {

constexpr Color black = {0, 0, 0};
constexpr Color white = {255, 255, 255};
constexpr Color cream = {240, 225, 190};
constexpr Color mustard = {215, 160, 45};
constexpr Color brick = {165, 70, 50};
constexpr Color leaf = {60, 120, 60};
constexpr Color bottleGreen = {40, 80, 50};
constexpr Color wood = {150, 105, 65};
constexpr Color paleWood = {195, 160, 115};
constexpr Color plaster = {150, 165, 175};
constexpr Color teal = {40, 110, 120};
constexpr Color flat = {128, 128, 255}; // a normal map that changes nothing

// The faces of a box take 20 columns each for x, y and z, and 30 rows for the positive side, then the
// negative.
// clang-format off
constexpr Bar floorOfWood[] = {
    // left top right bottom
    {20,  0, 40, 30, wood},
};
constexpr Bar sofaSeams[] = {
    { 0, 14, 60, 16, teal},
};
constexpr Bar label[] = {
    { 0,  8, 20, 24, cream}, { 0, 38, 20, 54, cream}, {40,  8, 60, 24, cream}, {40, 38, 60, 54, cream},
    { 0, 14, 20, 18, brick}, { 0, 44, 20, 48, brick}, {40, 14, 60, 18, brick}, {40, 44, 60, 48, brick},
};
constexpr Bar screen[] = { // on the front
    {42,  4, 58, 26, teal},
    {42,  8, 58, 10, white}, {42, 14, 58, 16, mustard}, {42, 20, 58, 22, brick},
};
constexpr Bar leaves[] = {
    { 2,  0,  5, 60, leaf}, { 8,  0, 11, 60, leaf}, {14,  0, 18, 60, leaf},
    {22,  0, 25, 60, leaf}, {28,  0, 31, 60, leaf}, {34,  0, 38, 60, leaf},
    {42,  0, 45, 60, leaf}, {48,  0, 51, 60, leaf}, {54,  0, 58, 60, leaf},
};
constexpr Bar lidLabel[] = { // on top
    {23,  5, 37, 25, cream}, {26, 10, 34, 20, brick},
};
// Comes round again at its left, and stands about 3/60 below the upper edge, which is what its scene shows in the
// middle of the picture.
constexpr Bar band[] = {
    { 4,  0, 13, 11, white}, {18,  0, 27, 11, mustard}, {33,  0, 42, 11, white}, {47,  0, 56, 11, mustard},
    { 4, 55, 13, 60, white}, {18, 55, 27, 60, mustard}, {33, 55, 42, 60, white}, {47, 55, 56, 60, mustard},
};
constexpr Bar twoLines[] = {
    {12, 16, 48, 28, white}, {16, 32, 44, 44, mustard},
};
constexpr Bar threeLines[] = {
    {18, 14, 42, 23, white}, {25, 26, 35, 35, white}, {14, 38, 46, 47, white},
};
constexpr Bar queueLines[] = {
    {10, 18, 50, 28, white}, { 8, 34, 52, 44, white},
};
constexpr Bar queueOutline[] = {
    { 9, 17, 51, 29, white}, {10, 18, 50, 28, black}, { 7, 33, 53, 45, white}, { 8, 34, 52, 44, black},
};
constexpr Bar titleLines[] = {
    { 8, 20, 52, 34, mustard}, {22, 38, 38, 41, cream}, {18, 48, 42, 50, teal},
};

namespace textures = catalogue::textures;

constexpr TextureBars rows[] = {
    {textures::room_diff.name,        plaster,     floorOfWood},
    {textures::sofa_diff.name,        mustard,     sofaSeams},
    {textures::sofa_norm.name,        flat,        {}},
    {textures::coffeetable_diff.name, wood,        {}},
    {textures::coffeetable_norm.name, flat,        {}},
    {textures::pisswasser.name,       bottleGreen, label},
    {textures::tv_emit.name,          black,       screen},
    {textures::plywood_diff.name,     paleWood,    {}},
    {textures::plywood_norm.name,     flat,        {}},
    {textures::bigplant.name,         black,       leaves},
    {textures::burgerbox_top.name,    brick,       lidLabel},
    {textures::unlimited.name,        black,       band},
    {textures::pants.name,            black,       twoLines},
    {textures::burgertext.name,       black,       threeLines},
    {textures::queue_main.name,       black,       queueLines},
    {textures::queue_border.name,     black,       queueOutline},
    {textures::title.name,            black,       titleLines},
};
// clang-format on
static_assert(std::size(rows) == std::size(catalogue::allTextures), "a texture has no stand-in");

} // namespace

std::span<const TextureBars> standInTextures()
{
    return rows;
}

const TextureBars* findTextureBars(std::string_view name)
{
    const auto* const found = std::find_if(std::begin(rows), std::end(rows),
                                           [name](const TextureBars& row) { return row.name == name; });
    return found == std::end(rows) ? nullptr : found;
}

} // namespace standins
