#include "tests/standins/model_boxes.h"

#include "scenes/catalogue.h"

#include <algorithm>

namespace standins {

namespace {

// clang-format off

// Floor, the wall behind the sofa and the one behind the armchair; open where the cameras stand.
constexpr Box room[] = {
    {{ -6.5F, -0.3F,  -9.0F}, {12.0F, 0.0F, 11.5F}},
    {{ -6.8F, -0.3F,  -9.0F}, {-6.5F, 8.5F, 11.8F}},
    {{ -6.5F, -0.3F,  11.5F}, {12.0F, 8.5F, 11.8F}},
};
constexpr Box sofa[] = { // seat, back rest, arms
    {{-5.0F,  0.8F, -1.6F}, { 5.0F, 2.9F,  1.2F}},
    {{-5.0F,  0.8F, -3.0F}, { 5.0F, 6.0F, -1.6F}},
    {{-5.8F,  0.8F, -3.0F}, {-5.0F, 4.2F,  1.2F}},
    {{ 5.0F,  0.8F, -3.0F}, { 5.8F, 4.2F,  1.2F}},
};
constexpr Box sofaLegs[] = {
    {{-5.2F, -0.2F, -2.6F}, {-4.6F, 0.8F, -2.0F}},
    {{ 4.6F, -0.2F, -2.6F}, { 5.2F, 0.8F, -2.0F}},
    {{-5.2F, -0.2F,  0.4F}, {-4.6F, 0.8F,  1.0F}},
    {{ 4.6F, -0.2F,  0.4F}, { 5.2F, 0.8F,  1.0F}},
};
constexpr Box person[] = { // shins, thighs, body, arms, head
    {{-1.0F,  0.0F,  0.9F}, {-0.2F, 3.2F,  1.7F}},
    {{ 0.2F,  0.0F,  0.9F}, { 1.0F, 3.2F,  1.7F}},
    {{-1.0F,  3.1F, -1.5F}, { 1.0F, 3.9F,  1.7F}},
    {{-1.1F,  3.1F, -2.3F}, { 1.1F, 6.0F, -1.0F}},
    {{-1.6F,  3.6F, -2.1F}, {-1.1F, 5.8F, -1.2F}},
    {{ 1.1F,  3.6F, -2.1F}, { 1.6F, 5.8F, -1.2F}},
    {{-0.8F,  6.2F, -2.8F}, { 0.8F, 7.7F, -1.2F}},
};
constexpr Box hat[] = { // brim, crown
    {{-1.3F,  0.0F, -1.3F}, { 1.3F, 0.2F,  1.3F}},
    {{-0.8F,  0.2F, -0.8F}, { 0.8F, 1.1F,  0.8F}},
};
constexpr Box glasses[] = { // lenses, bridge, temples
    {{-0.7F, -0.1F,  0.75F}, {-0.1F,  0.3F,  0.90F}},
    {{ 0.1F, -0.1F,  0.75F}, { 0.7F,  0.3F,  0.90F}},
    {{-0.1F,  0.1F,  0.78F}, { 0.1F,  0.2F,  0.87F}},
    {{-0.9F,  0.1F, -0.30F}, {-0.8F,  0.2F,  0.90F}},
    {{ 0.8F,  0.1F, -0.30F}, { 0.9F,  0.2F,  0.90F}},
};
constexpr Box coffeetable[] = { // top, legs
    {{-3.8F,  0.5F, -3.2F}, { 3.8F, 0.8F,  2.0F}},
    {{-3.5F, -1.0F, -2.9F}, {-3.0F, 0.5F, -2.4F}},
    {{ 3.0F, -1.0F, -2.9F}, { 3.5F, 0.5F, -2.4F}},
    {{-3.5F, -1.0F,  1.2F}, {-3.0F, 0.5F,  1.7F}},
    {{ 3.0F, -1.0F,  1.2F}, { 3.5F, 0.5F,  1.7F}},
};
constexpr Box beer[] = { // body, neck
    {{-1.25F, 0.0F, -1.25F}, {1.25F, 5.0F, 1.25F}},
    {{-0.45F, 5.0F, -0.45F}, {0.45F, 8.0F, 0.45F}},
};
constexpr Box tv[] = { // its underside is 2.6 above the floor, as the table's top
    {{-2.6F, -1.84F, -1.4F}, {2.6F, 2.0F, 1.4F}},
};
constexpr Box tvtable[] = { // top, sides, shelf
    {{-3.2F, 2.3F, -1.6F}, { 3.2F, 2.6F, 1.6F}},
    {{-3.2F, 0.0F, -1.6F}, {-2.9F, 2.3F, 1.6F}},
    {{ 2.9F, 0.0F, -1.6F}, { 3.2F, 2.3F, 1.6F}},
    {{-2.9F, 0.7F, -1.6F}, { 2.9F, 1.0F, 1.6F}},
};
constexpr Box bigplant[] = { // stem, leaves
    {{-0.04F, 0.0F, -0.04F}, {0.04F, 1.2F, 0.04F}},
    {{-0.80F, 0.8F, -0.01F}, {0.80F, 2.6F, 0.01F}},
    {{-0.01F, 0.8F, -0.80F}, {0.01F, 2.6F, 0.80F}},
};
constexpr Box flowerpot[] = {
    {{-1.3F, 0.0F, -1.3F}, {1.3F, 1.5F, 1.3F}},
};
constexpr Box burgerboxBottom[] = { // ground, sides, back, front
    {{-2.6F, -1.7F, 0.0F}, { 2.6F, -1.5F, 5.1F}},
    {{-2.6F, -1.5F, 0.0F}, {-2.4F,  0.0F, 5.1F}},
    {{ 2.4F, -1.5F, 0.0F}, { 2.6F,  0.0F, 5.1F}},
    {{-2.4F, -1.5F, 0.0F}, { 2.4F,  0.0F, 0.2F}},
    {{-2.4F, -1.5F, 4.9F}, { 2.4F,  0.0F, 5.1F}},
};
constexpr Box burgerboxTop[] = {
    {{-2.6F,  1.5F, 0.0F}, { 2.6F,  1.7F, 5.1F}},
    {{-2.6F,  0.0F, 0.0F}, {-2.4F,  1.5F, 5.1F}},
    {{ 2.4F,  0.0F, 0.0F}, { 2.6F,  1.5F, 5.1F}},
    {{-2.4F,  0.0F, 0.0F}, { 2.4F,  1.5F, 0.2F}},
    {{-2.4F,  0.0F, 4.9F}, { 2.4F,  1.5F, 5.1F}},
};
// Steak, cheese and middle are 0.5 high together, the step at which steak and cheese come again.
constexpr Box burgerBottom[] = {{{-2.1F, -1.40F, -2.1F}, {2.1F, -0.50F, 2.1F}}};
constexpr Box burgerSteak[]  = {{{-2.2F, -0.50F, -2.2F}, {2.2F, -0.25F, 2.2F}}};
constexpr Box burgerCheese[] = {{{-2.3F, -0.25F, -2.3F}, {2.3F, -0.18F, 2.3F}}};
constexpr Box burgerMiddle[] = {{{-2.1F, -0.18F, -2.1F}, {2.1F,  0.00F, 2.1F}}};
constexpr Box burgerTop[]    = {{{-2.1F,  0.32F, -2.1F}, {2.1F,  1.40F, 2.1F}}};
constexpr Box toilet[] = { // foot, bowl, cistern
    {{-0.7F, -2.86F, -1.6F}, {0.7F, -1.3F,  0.8F}},
    {{-1.3F, -1.30F, -1.9F}, {1.3F,  0.0F,  1.8F}},
    {{-1.6F, -0.50F, -3.2F}, {1.6F,  2.6F, -1.9F}},
};
constexpr Box toiletLid[] = {
    {{-1.3F, -0.05F, 0.0F}, {1.3F, 0.15F, 3.4F}},
};

namespace models = catalogue::models;

constexpr ModelBoxes rows[] = {
    {models::room.name,             room},
    {models::sofa.name,             sofa},
    {models::sofa_legs.name,        sofaLegs},
    {models::person.name,           person},
    {models::hat.name,              hat},
    {models::glasses.name,          glasses},
    {models::coffeetable.name,      coffeetable},
    {models::beer.name,             beer},
    {models::tv.name,               tv},
    {models::tvtable.name,          tvtable},
    {models::bigplant.name,         bigplant},
    {models::flowerpot.name,        flowerpot},
    {models::burgerbox_bottom.name, burgerboxBottom},
    {models::burgerbox_top.name,    burgerboxTop},
    {models::burger_top.name,       burgerTop},
    {models::burger_bottom.name,    burgerBottom},
    {models::burger_middle.name,    burgerMiddle},
    {models::burger_steak.name,     burgerSteak},
    {models::burger_cheese.name,    burgerCheese},
    {models::toilet.name,           toilet},
    {models::toilet_lid.name,       toiletLid},
};
// clang-format on

static_assert(std::size(rows) == std::size(catalogue::allModels), "a model has no stand-in");

constexpr bool allHaveRoomInside(const ModelBoxes& model)
{
    return std::all_of(model.boxes.begin(), model.boxes.end(), [](const Box& box) {
        return box.low.x < box.high.x && box.low.y < box.high.y && box.low.z < box.high.z;
    });
}
static_assert(std::all_of(std::begin(rows), std::end(rows), allHaveRoomInside));

} // namespace

std::span<const ModelBoxes> standInModels()
{
    return rows;
}

const ModelBoxes* findModel(std::string_view name)
{
    const auto* const found = std::find_if(std::begin(rows), std::end(rows),
                                           [name](const ModelBoxes& model) { return model.name == name; });
    return found == std::end(rows) ? nullptr : found;
}

} // namespace standins
