#include "tools/modelcheck/model_rules.h"

#include "scenes/catalogue.h"

#include <algorithm>
#include <iterator>

namespace tools::modelcheck {

namespace {

constexpr float inf = std::numeric_limits<float>::infinity();

// clang-format off
namespace models = catalogue::models;

// Facets are as many as there are today: a model may get rounder, and no more angular.
constexpr ModelRules rules[] = {
    // name                     loads  scale  texture          boundary   backs facets  folds  parts, and whether normals are custom
    {models::room.name,                1, 0.20F, Texture::Baked,  anyNumber, 0,   0,     3100, anyNumber, true}, // cut open towards the viewer; no light bounces in it; curtains thicker than their pleats are round
    {models::sofa.name,                2, 0.20F, Texture::Baked,  0,         0,   17700, 40}, // where people press into its pillows
    {models::sofa_legs.name,           2, 0.20F, Texture::None,   0,         0,   1750,  0,    0}, // each leg is one piece
    {models::person.name,              2, 0.20F, Texture::None,   0,         0,   8200,  20}, // the collar's points, the pocket's hem and a shoulder's seam
    {models::hat.name,                 2, 0.20F, Texture::None,   0,         0,   1310,  4}, // the notch of a tail of the bow
    {models::glasses.name,             2, 0.20F, Texture::None,   0},
    {models::coffeetable.name,         1, 0.10F, Texture::Baked,  64,        25,  210}, // the number for the queue: two sheets, back to back
    {models::beer.name,                2, 0.04F, Texture::Prints, 0,         0,   0,     0,    1}, // the cap sits on the bottle
    {models::tv.name,                  1, 0.10F, Texture::Prints, 56,        85,  420}, // undersides of what stands on something or lies on its front; the aerial's foot juts out behind
    {models::tvtable.name,             1, 0.10F, Texture::Baked,  143,       360, 65,    301}, // the rim towards the wall, and undersides; legs run through the rims of their shoes, and the cable through itself
    {models::bigplant.name,            1, 0.30F, Texture::Prints, anyNumber, 0,   380}, // leaves are sheets with holes
    {models::flowerpot.name,           1, 0.07F, Texture::None,   0,         0,   70},
    {models::burgerbox_bottom.name,    2, 0.02F, Texture::None,   0},
    {models::burgerbox_top.name,       2, 0.02F, Texture::Prints, 0},
    {models::burger_top.name,          1, 0.02F, Texture::None,   0},
    {models::burger_bottom.name,       1, 0.02F, Texture::None,   0,         0,   0,     0,    0}, // one piece
    {models::burger_middle.name,       1, 0.02F, Texture::None,   0,         0,   0,     0,    0}, // one piece
    {models::burger_steak.name,        1, 0.02F, Texture::None,   0,         0,   0,     60,   0}, // one piece, crumpled at the rim
    {models::burger_cheese.name,       1, 0.02F, Texture::None,   0,         0,   0,     0,    0}, // one piece
    {models::toilet.name,              1, 0.07F, Texture::None,   0,         0,   50},
    {models::toilet_lid.name,          1, 0.07F, Texture::None,   0},
};

constexpr Placement places[] = {
    // model                     extent           from     to      reason
    {models::room.name,             Extent::LowX,   -7.60F,  -6.40F, "the wall behind the sofa begins at -6.5"},
    {models::room.name,             Extent::HighX,  11.90F,  13.10F, "the wall behind the television begins at 12"},
    {models::room.name,             Extent::LowY,    -inf,    0.00F, "the floor's top is 0, and a slab may lie below"},
    {models::room.name,             Extent::HighY,   7.50F,   9.50F, "the walls are that high"},
    {models::room.name,             Extent::LowZ,   -9.60F,  -8.80F, "the floor ends there, open to the viewer"},
    {models::room.name,             Extent::HighZ,  11.40F,  12.60F, "the wall with the window begins at 11.5"},

    {models::sofa.name,             Extent::FarX,    5.80F,   6.60F, "two sit on it, and its arms bear what lies about"},
    {models::sofa.name,             Extent::LowY,    0.50F,   0.95F, "the legs reach up into its base"},
    {models::sofa.name,             Extent::HighY,   5.50F,   6.80F, "the heads stand out over its back"},
    {models::sofa.name,             Extent::LowZ,   -3.30F,  -2.80F, "the wall is behind it"},
    {models::sofa.name,             Extent::HighZ,   1.00F,   1.60F, "the friends' shins hang before its seat"},
    {models::sofa_legs.name,        Extent::LowY,   -0.22F,  -0.18F, "the floor is there, below the sofa's origin"},
    {models::sofa_legs.name,        Extent::HighY,   0.80F,   inf,   "they reach the sofa's base"},

    {models::person.name,           Extent::FarX,    0.00F,   2.50F, "two sit side by side, 5 apart"},
    {models::person.name,           Extent::LowY,   -0.05F,   0.05F, "the soles stand on the floor"},
    {models::person.name,           Extent::HighY,   7.50F,   8.40F, "hat and glasses sit on a head of that height"},
    {models::person.name,           Extent::LowZ,   -3.40F,   inf,   "the back leans on the sofa's"},
    {models::person.name,           Extent::HighZ,   1.40F,   4.00F, "the feet stand before the sofa, well before the table"},
    {models::hat.name,              Extent::FarX,    0.00F,   2.20F, "it fits a head"},
    {models::hat.name,              Extent::LowY,   -0.80F,   0.10F, "it turns about the head's top, its origin"},
    {models::hat.name,              Extent::HighY,   0.30F,   1.90F, "it turns about the head's top, its origin"},
    {models::glasses.name,          Extent::FarX,    0.00F,   1.60F, "they fit a head"},
    {models::glasses.name,          Extent::LowY,   -0.80F,   0.80F, "the ears, about which they turn, are their origin"},
    {models::glasses.name,          Extent::HighY,  -0.80F,   0.80F, "the ears, about which they turn, are their origin"},
    {models::glasses.name,          Extent::HighZ,   0.60F,   1.80F, "they reach from the ears to before the face"},

    {models::coffeetable.name,      Extent::FarX,    0.00F,   4.20F, "the sofas stand around it"},
    {models::coffeetable.name,      Extent::LowY,   -1.01F,  -0.99F, "the floor is there"},
    {models::coffeetable.name,      Extent::HighY,   0.80F,   1.40F, "bottles stand on its top, at 0.8, among small things"},
    {models::coffeetable.name,      Extent::LowZ,   -3.60F,   inf,   "the friends' feet are there"},
    {models::coffeetable.name,      Extent::HighZ,   -inf,    2.40F, "the way to the television is there"},
    {models::beer.name,             Extent::LowY,   -0.01F,   0.01F, "it stands on its origin"},
    {models::beer.name,             Extent::HighY,   7.95F,   8.05F, "it turns about its middle, at 4"},
    {models::beer.name,             Extent::Radius,  1.20F,   1.26F, "one lies on its side, its axis 1.25 above the table"},

    {models::tv.name,               Extent::FarX,    0.00F,   2.75F, "it stands on its table"},
    {models::tv.name,               Extent::LowY,   -1.87F,  -1.81F, "the table's top is there"},
    {models::tv.name,               Extent::FarZ,    0.00F,   1.60F, "it stands on its table"},
    {models::tvtable.name,          Extent::FarX,    0.00F,   3.50F, "a plant stands beside it"},
    {models::tvtable.name,          Extent::LowY,   -0.01F,   0.01F, "it stands on the floor"},
    {models::tvtable.name,          Extent::HighY,   2.60F,   3.30F, "the television stands on its top, at 2.6"},
    {models::bigplant.name,         Extent::FarX,    0.00F,   1.60F, "the walls are near"},
    {models::bigplant.name,         Extent::LowY,   -0.30F,   0.10F, "it stands in the earth of its pot"},
    {models::bigplant.name,         Extent::HighY,   1.80F,   2.80F, "it ends below the walls' top"},
    {models::bigplant.name,         Extent::FarZ,    0.00F,   1.60F, "the walls are near"},
    {models::flowerpot.name,        Extent::LowY,   -0.01F,   0.01F, "it stands on the floor"},
    {models::flowerpot.name,        Extent::HighY,   1.50F,   1.90F, "the plant stands in its earth, at 1.5"},
    {models::flowerpot.name,        Extent::Radius,  0.00F,   1.70F, "the walls are near"},

    {models::burgerbox_bottom.name, Extent::FarX,    0.00F,   2.90F, "both halves meet"},
    {models::burgerbox_bottom.name, Extent::LowY,   -1.73F,  -1.67F, "the table's top is there"},
    {models::burgerbox_bottom.name, Extent::HighY,   -inf,    0.30F, "the lid closes over it"},
    {models::burgerbox_bottom.name, Extent::LowZ,   -0.20F,   0.05F, "the hinge is its origin"},
    {models::burgerbox_bottom.name, Extent::HighZ,   4.90F,   5.40F, "the burger's middle is 2.5 before the hinge"},
    {models::burgerbox_top.name,    Extent::LowY,   -0.40F,   inf,   "it closes over the lower half"},
    {models::burgerbox_top.name,    Extent::HighY,   1.40F,   1.90F, "a burger fits under it"},
    {models::burgerbox_top.name,    Extent::LowZ,   -0.20F,   0.05F, "the hinge, about which it turns, is its origin"},
    {models::burgerbox_top.name,    Extent::HighZ,   4.90F,   5.50F, "both halves meet"},
    {models::burger_bottom.name,    Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_bottom.name,    Extent::LowY,   -1.45F,   inf,   "the box's ground is below it"},
    {models::burger_bottom.name,    Extent::HighY,   -inf,   -0.40F, "the steak lies on it"},
    {models::burger_bottom.name,    Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_steak.name,     Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_steak.name,     Extent::LowY,   -0.60F,   inf,   "it lies on the bottom"},
    {models::burger_steak.name,     Extent::HighY,   -inf,   -0.10F, "the cheese lies on it"},
    {models::burger_steak.name,     Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_cheese.name,    Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_cheese.name,    Extent::LowY,   -0.90F,   inf,   "it hangs over the steak's edge"},
    {models::burger_cheese.name,    Extent::HighY,   -inf,   -0.05F, "the middle lies on it"},
    {models::burger_cheese.name,    Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_middle.name,    Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_middle.name,    Extent::LowY,   -0.25F,   inf,   "it lies on the cheese"},
    {models::burger_middle.name,    Extent::HighY,   -inf,    0.20F, "the second steak presses into it"},
    {models::burger_middle.name,    Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_top.name,       Extent::FarX,    0.00F,   2.75F, "it fits into the box"},
    {models::burger_top.name,       Extent::LowY,    0.20F,   inf,   "it lies on the second cheese"},
    {models::burger_top.name,       Extent::HighY,   -inf,    1.55F, "the box closes over it"},
    {models::burger_top.name,       Extent::FarZ,    0.00F,   2.75F, "it fits into the box"},

    {models::toilet.name,           Extent::LowY,   -2.88F,  -2.84F, "the floor is there"},
    {models::toilet.name,           Extent::HighY,   2.20F,   3.40F, "the camera frames a cistern of that height"},
    {models::toilet_lid.name,       Extent::LowY,   -0.25F,   0.10F, "the hinge, about which it turns, is its origin"},
    {models::toilet_lid.name,       Extent::HighY,   -inf,    0.60F, "the hinge, about which it turns, is its origin"},
    {models::toilet_lid.name,       Extent::LowZ,   -0.35F,   0.05F, "the hinge, about which it turns, is its origin"},
    {models::toilet_lid.name,       Extent::HighZ,   3.20F,   3.60F, "it covers the bowl"},
};
// clang-format on

static_assert(std::size(rules) == std::size(catalogue::allModels),
              "a model has no rules, or two rows of them");
static_assert(std::all_of(std::begin(places), std::end(places),
                          [](const Placement& place) { return place.from <= place.to; }));

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

} // namespace tools::modelcheck
