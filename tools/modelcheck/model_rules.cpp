#include "tools/modelcheck/model_rules.h"

#include <algorithm>
#include <iterator>

namespace tools {

namespace {

constexpr float inf = std::numeric_limits<float>::infinity();

// clang-format off
constexpr ModelRules rules[] = {
    // name             loads  texture          open edges, and whether normals lean
    {"room",                1, Texture::Baked,  anyNumber, true}, // cut open towards the viewer; no light bounces in it
    {"sofa",                2, Texture::Baked,  0},
    {"sofa_legs",           2, Texture::None,   120}, // upper ends, inside the sofa
    {"person",              2, Texture::None,   0},
    {"hat",                 2, Texture::None,   0},
    {"glasses",             2, Texture::None,   0},
    {"coffeetable",         1, Texture::Baked,  64}, // the number for the queue: two sheets, back to back
    {"beer",                2, Texture::Prints, 0},
    {"tv",                  1, Texture::Prints, 82}, // undersides of what stands on something or lies on its front
    {"tvtable",             1, Texture::Baked,  143}, // the rim towards the wall, and undersides
    {"bigplant",            1, Texture::Prints, anyNumber}, // leaves are sheets with holes
    {"flowerpot",           1, Texture::None,   0},
    {"burgerbox_bottom",    2, Texture::None,   0},
    {"burgerbox_top",       2, Texture::Prints, 0},
    {"burger_top",          1, Texture::None,   0},
    {"burger_bottom",       1, Texture::None,   0},
    {"burger_middle",       1, Texture::None,   0},
    {"burger_steak",        1, Texture::None,   0},
    {"burger_cheese",       1, Texture::None,   0},
    {"toilet",              1, Texture::None,   0},
    {"toilet_lid",          1, Texture::None,   0},
};

constexpr Placement places[] = {
    // model             extent           from     to      reason
    {"room",             Extent::LowX,   -7.60F,  -6.40F, "the wall behind the sofa begins at -6.5"},
    {"room",             Extent::HighX,  11.90F,  13.10F, "the wall behind the television begins at 12"},
    {"room",             Extent::LowY,    -inf,    0.00F, "the floor's top is 0, and a slab may lie below"},
    {"room",             Extent::HighY,   7.50F,   9.50F, "the walls are that high"},
    {"room",             Extent::LowZ,   -9.60F,  -8.80F, "the floor ends there, open to the viewer"},
    {"room",             Extent::HighZ,  11.40F,  12.60F, "the wall with the window begins at 11.5"},

    {"sofa",             Extent::FarX,    5.80F,   6.60F, "two sit on it, and its arms bear what lies about"},
    {"sofa",             Extent::LowY,    0.50F,   0.95F, "the legs reach up into its base"},
    {"sofa",             Extent::HighY,   5.50F,   6.80F, "the heads stand out over its back"},
    {"sofa",             Extent::LowZ,   -3.30F,  -2.80F, "the wall is behind it"},
    {"sofa",             Extent::HighZ,   1.00F,   1.60F, "the friends' shins hang before its seat"},
    {"sofa_legs",        Extent::LowY,   -0.22F,  -0.18F, "the floor is there, below the sofa's origin"},
    {"sofa_legs",        Extent::HighY,   0.80F,   inf,   "they reach the sofa's base"},

    {"person",           Extent::FarX,    0.00F,   2.50F, "two sit side by side, 5 apart"},
    {"person",           Extent::LowY,   -0.05F,   0.05F, "the soles stand on the floor"},
    {"person",           Extent::HighY,   7.50F,   8.40F, "hat and glasses sit on a head of that height"},
    {"person",           Extent::LowZ,   -3.40F,   inf,   "the back leans on the sofa's"},
    {"person",           Extent::HighZ,   1.40F,   4.00F, "the feet stand before the sofa, well before the table"},
    {"hat",              Extent::FarX,    0.00F,   2.20F, "it fits a head"},
    {"hat",              Extent::LowY,   -0.80F,   0.10F, "it turns about the head's top, its origin"},
    {"hat",              Extent::HighY,   0.30F,   1.90F, "it turns about the head's top, its origin"},
    {"glasses",          Extent::FarX,    0.00F,   1.60F, "they fit a head"},
    {"glasses",          Extent::LowY,   -0.80F,   0.80F, "the ears, about which they turn, are their origin"},
    {"glasses",          Extent::HighY,  -0.80F,   0.80F, "the ears, about which they turn, are their origin"},
    {"glasses",          Extent::HighZ,   0.60F,   1.80F, "they reach from the ears to before the face"},

    {"coffeetable",      Extent::FarX,    0.00F,   4.20F, "the sofas stand around it"},
    {"coffeetable",      Extent::LowY,   -1.01F,  -0.99F, "the floor is there"},
    {"coffeetable",      Extent::HighY,   0.80F,   1.40F, "bottles stand on its top, at 0.8, among small things"},
    {"coffeetable",      Extent::LowZ,   -3.60F,   inf,   "the friends' feet are there"},
    {"coffeetable",      Extent::HighZ,   -inf,    2.40F, "the way to the television is there"},
    {"beer",             Extent::LowY,   -0.01F,   0.01F, "it stands on its origin"},
    {"beer",             Extent::HighY,   7.95F,   8.05F, "it turns about its middle, at 4"},
    {"beer",             Extent::Radius,  1.20F,   1.26F, "one lies on its side, its axis 1.25 above the table"},

    {"tv",               Extent::FarX,    0.00F,   2.75F, "it stands on its table"},
    {"tv",               Extent::LowY,   -1.87F,  -1.81F, "the table's top is there"},
    {"tv",               Extent::FarZ,    0.00F,   1.60F, "it stands on its table"},
    {"tvtable",          Extent::FarX,    0.00F,   3.50F, "a plant stands beside it"},
    {"tvtable",          Extent::LowY,   -0.01F,   0.01F, "it stands on the floor"},
    {"tvtable",          Extent::HighY,   2.60F,   3.30F, "the television stands on its top, at 2.6"},
    {"bigplant",         Extent::FarX,    0.00F,   1.60F, "the walls are near"},
    {"bigplant",         Extent::LowY,   -0.30F,   0.10F, "it stands in the earth of its pot"},
    {"bigplant",         Extent::HighY,   1.80F,   2.80F, "it ends below the walls' top"},
    {"bigplant",         Extent::FarZ,    0.00F,   1.60F, "the walls are near"},
    {"flowerpot",        Extent::LowY,   -0.01F,   0.01F, "it stands on the floor"},
    {"flowerpot",        Extent::HighY,   1.50F,   1.90F, "the plant stands in its earth, at 1.5"},
    {"flowerpot",        Extent::Radius,  0.00F,   1.70F, "the walls are near"},

    {"burgerbox_bottom", Extent::FarX,    0.00F,   2.90F, "both halves meet"},
    {"burgerbox_bottom", Extent::LowY,   -1.73F,  -1.67F, "the table's top is there"},
    {"burgerbox_bottom", Extent::HighY,   -inf,    0.30F, "the lid closes over it"},
    {"burgerbox_bottom", Extent::LowZ,   -0.20F,   0.05F, "the hinge is its origin"},
    {"burgerbox_bottom", Extent::HighZ,   4.90F,   5.40F, "the burger's middle is 2.5 before the hinge"},
    {"burgerbox_top",    Extent::LowY,   -0.40F,   inf,   "it closes over the lower half"},
    {"burgerbox_top",    Extent::HighY,   1.40F,   1.90F, "a burger fits under it"},
    {"burgerbox_top",    Extent::LowZ,   -0.20F,   0.05F, "the hinge, about which it turns, is its origin"},
    {"burgerbox_top",    Extent::HighZ,   4.90F,   5.50F, "both halves meet"},
    {"burger_bottom",    Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {"burger_bottom",    Extent::LowY,   -1.45F,   inf,   "the box's ground is below it"},
    {"burger_bottom",    Extent::HighY,   -inf,   -0.40F, "the steak lies on it"},
    {"burger_bottom",    Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},
    {"burger_steak",     Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {"burger_steak",     Extent::LowY,   -0.60F,   inf,   "it lies on the bottom"},
    {"burger_steak",     Extent::HighY,   -inf,   -0.10F, "the cheese lies on it"},
    {"burger_steak",     Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},
    {"burger_cheese",    Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {"burger_cheese",    Extent::LowY,   -0.90F,   inf,   "it hangs over the steak's edge"},
    {"burger_cheese",    Extent::HighY,   -inf,   -0.05F, "the middle lies on it"},
    {"burger_cheese",    Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},
    {"burger_middle",    Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {"burger_middle",    Extent::LowY,   -0.25F,   inf,   "it lies on the cheese"},
    {"burger_middle",    Extent::HighY,   -inf,    0.10F, "the second steak lies on it"},
    {"burger_middle",    Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},
    {"burger_top",       Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {"burger_top",       Extent::LowY,    0.20F,   inf,   "it lies on the second cheese"},
    {"burger_top",       Extent::HighY,   -inf,    1.55F, "the box closes over it"},
    {"burger_top",       Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},

    {"toilet",           Extent::LowY,   -2.88F,  -2.84F, "the floor is there"},
    {"toilet",           Extent::HighY,   2.20F,   3.40F, "the camera frames a cistern of that height"},
    {"toilet_lid",       Extent::LowY,   -0.25F,   0.10F, "the hinge, about which it turns, is its origin"},
    {"toilet_lid",       Extent::HighY,   -inf,    0.60F, "the hinge, about which it turns, is its origin"},
    {"toilet_lid",       Extent::LowZ,   -0.35F,   0.05F, "the hinge, about which it turns, is its origin"},
    {"toilet_lid",       Extent::HighZ,   3.20F,   3.60F, "it covers the bowl"},
};
// clang-format on

constexpr bool isOfAModel(const Placement& place)
{
    return place.from <= place.to &&
           std::any_of(std::begin(rules), std::end(rules),
                       [&place](const ModelRules& row) { return row.name == place.model; });
}
static_assert(std::all_of(std::begin(places), std::end(places), isOfAModel));

} // namespace

std::span<const ModelRules> modelRules()
{
    return rules;
}

const ModelRules* findModelRules(std::string_view name)
{
    const auto* const found = std::find_if(std::begin(rules), std::end(rules),
                                           [name](const ModelRules& row) { return row.name == name; });
    return found == std::end(rules) ? nullptr : found;
}

std::span<const Placement> placements()
{
    return places;
}

} // namespace tools
