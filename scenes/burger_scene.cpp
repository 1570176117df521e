#include "scenes/burger_scene.h"

#include "scenes/backgrounds.h"
#include "scenes/full_frame.h"
#include "scenes/orientations.h"
#include "scenes/post_chain.h"
#include "scenes/shaders/burger_frag.h"
#include "scenes/tables.h"
#include "scenes/text_layer_material.h"
#include "sync/tools.h"

namespace {

using namespace catalogue;
using namespace orientations;

/// The text in white, with a dark red shadow below.
class BurgerShader : public TextLayerMaterial {
public:
    BurgerShader(zund::Renderer& renderer, float aspect)
        : TextLayerMaterial(renderer, aspect, embedded::burger_frag)
    {
    }
};

// clang-format off
constexpr ObjectRow objects[] = {
    // name           model                     colour                   normal     emission   colour                 amb   diff  spec  shin
    {"boxb",          models::burgerbox_bottom, noTexture,               noTexture, noTexture, {1.00F, 0.96F, 0.91F}, 0.1F, 1.0F, 1.0F, 30.0F},
    {"boxt",          models::burgerbox_top,    textures::burgerbox_top, noTexture, noTexture, {0.50F, 0.50F, 0.30F}, 0.1F, 1.0F, 1.0F, 30.0F},
    {"burger_top",    models::burger_top,       noTexture,               noTexture, noTexture, {0.98F, 0.85F, 0.64F}, 0.1F, 1.0F, 1.0F, 30.0F},
    {"burger_bottom", models::burger_bottom,    noTexture,               noTexture, noTexture, {0.98F, 0.85F, 0.64F}, 0.1F, 1.0F, 1.0F, 30.0F},
    {"burger_middle", models::burger_middle,    noTexture,               noTexture, noTexture, {0.98F, 0.85F, 0.64F}, 0.1F, 1.0F, 1.0F, 30.0F},
    {"burger_steak",  models::burger_steak,     noTexture,               noTexture, noTexture, {0.28F, 0.19F, 0.10F}, 0.1F, 1.0F, 1.0F, 30.0F},
    {"burger_cheese", models::burger_cheese,    noTexture,               noTexture, noTexture, {0.90F, 0.68F, 0.08F}, 0.1F, 1.0F, 1.0F, 30.0F},
};

constexpr NodeRow nodes[] = {
    // name             parent   object            position                turn  scale
    {"box",             nullptr, "",               {0.0F, 0.00F,  1.00F},  y10,  1.00F}, // turns burger and box as one
    {"boxb",            "box",   "boxb",           {0.0F, 0.00F, -0.05F},  none, 0.02F},
    {"boxt",            "box",   "boxt",           {0.0F, 0.00F, -0.05F},  none, 0.02F},
    {"burger_top",      "box",   "burger_top",     {0.0F, 0.00F,  0.00F},  none, 0.02F},
    {"burger_bottom",   "box",   "burger_bottom",  {0.0F, 0.00F,  0.00F},  none, 0.02F},
    {"burger_steak1",   "box",   "burger_steak",   {0.0F, 0.00F,  0.00F},  none, 0.02F},
    {"burger_cheese1",  "box",   "burger_cheese",  {0.0F, 0.00F,  0.00F},  none, 0.02F},
    {"burger_middle",   "box",   "burger_middle",  {0.0F, 0.00F,  0.00F},  none, 0.02F},
    {"burger_steak2",   "box",   "burger_steak",   {0.0F, 0.01F,  0.00F},  none, 0.02F},
    {"burger_cheese2",  "box",   "burger_cheese",  {0.0F, 0.01F,  0.00F},  none, 0.02F},
};

constexpr lumeth::Light lights[] = {
    // position               diffuse            specular
    {{-3.0F, 2.0F, -3.0F},    glm::vec3(0.3F),   glm::vec3(1.1F)},
    {{ 3.0F, 3.0F, -3.0F},    glm::vec3(0.7F),   glm::vec3(1.0F)},
};

// Before everything.
constexpr TextLayerRow textLayer = {-1.0F, textures::burgertext, noTexture, make<BurgerShader>};
constexpr NodeRow textNode[] = {{"scroller", nullptr, "scroller", {0.0F, 0.0F, 0.0F}, none, 1.0F}};

/// How high a layer rises: `share` of "burger_open", over the height at which it rests.
struct Rise {
    const char* node;
    double share;
    double rest;
};
constexpr Rise rises[] = { // in the order of writing
    // node                share  rest
    {"box/burger_top",     1.00,  0.0},
    {"box/burger_cheese2", 0.90,  0.01F}, // the float's value: that of its node
    {"box/burger_steak2",  0.80,  0.01F},
    {"box/burger_middle",  0.60,  0.0},
    {"box/burger_cheese1", 0.45,  0.0},
    {"box/burger_steak1",  0.30,  0.0},
    {"box/burger_bottom",  0.20,  0.0},
};

/// How a layer tumbles: `share` of "burger_random" half turns about an axis through its own origin.
struct Tumble {
    const char* node;
    float share;
    glm::vec3 axis;
};
constexpr float diagonal = 0.7071068F;
constexpr Tumble tumbles[] = { // in the order of writing; the bottom keeps still
    // node                share   axis
    {"box/burger_top",     -0.7F,  {diagonal, 0.0F, -diagonal}},
    {"box/burger_cheese2",  0.3F,  {diagonal, 0.0F, diagonal}},
    {"box/burger_steak2",  -0.4F,  {1.0F, 0.0F, 0.0F}},
    {"box/burger_middle",   0.3F,  {1.0F, 0.0F, 0.0F}},
    {"box/burger_cheese1", -0.4F,  {0.0F, 0.0F, 1.0F}},
    {"box/burger_steak1",   0.3F,  {1.0F, 0.0F, 0.0F}},
};
// clang-format on

static_assert(namesAreUnique(nodes));
static_assert(parentsStandAbove(nodes));
static_assert(objectsExist(nodes, objects));
static_assert(objectsAreShown(nodes, objects));
static_assert(std::all_of(std::begin(rises), std::end(rises),
                          [](const Rise& row) { return isPath(nodes, row.node); }));
static_assert(std::all_of(std::begin(tumbles), std::end(tumbles),
                          [](const Tumble& row) { return isPath(nodes, row.node); }));

} // namespace

BurgerScene::BurgerScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
                         std::pair<int, int> size)
{
    scene.init(renderer, size);
    usePostChain(scene, renderer);
    scene.setBackground(renderer, grey_blue_background_frag);
    scene.setSkyboxColor({0.3F, 0.3F, 0.4F}); // never seen behind the background
    const float aspect = aspectOf(size);
    addObjects(scene, renderer, pack, aspect, objects);
    addNodes(scene, nodes);
    addLights(scene, lights);
    camera.lookUp(sync);
    burgerRotate = sync.getTrack(tracks::burger_rotate.name);
    burgerPitch = sync.getTrack(tracks::burger_pitch.name);
    boxOpen = sync.getTrack(tracks::box_open.name);
    burgerOpen = sync.getTrack(tracks::burger_open.name);
    burgerRandom = sync.getTrack(tracks::burger_random.name);
    burgerText = sync.getTrack(tracks::burger_text.name);
    addTextLayer(scene, renderer, pack, aspect, textLayer);
    addNodes(scene, textNode);
    findNode(scene, "scroller").value.setVisible(false);
}

void BurgerScene::update(zund::Renderer& /*renderer*/, double time, const tolv::SyncDevice& sync)
{
    const double row = timeToRow(time);
    const glm::vec3 target = camera.readTarget(sync, row);
    const glm::vec3 position = camera.readPosition(sync, row);
    pointCamera(scene, position, target);

    const float pitch = sync.getValue(burgerPitch, row) * -3.14F;
    const auto spin = static_cast<float>(sync.getValue(burgerRotate, row) * -6.28);
    findNode(scene, "box").value.setOrientation(angleAxis(spin, yAxis) * angleAxis(pitch, xAxis));

    const auto lid = static_cast<float>(sync.getValue(boxOpen, row) * 3.14);
    findNode(scene, "box/boxt").value.setOrientation(angleAxis(lid, xAxis));

    const float open = sync.getValue(burgerOpen, row);
    for (const Rise& rise : rises) {
        const auto height = static_cast<float>(rise.share * open + rise.rest);
        findNode(scene, rise.node).value.setPosition({0.0F, height, 0.0F});
    }

    const auto random = static_cast<float>(sync.getValue(burgerRandom, row) * 3.14);
    for (const Tumble& tumble : tumbles) {
        findNode(scene, tumble.node).value.setOrientation(angleAxis(random * tumble.share, tumble.axis));
    }

    findNode(scene, "scroller").value.setVisible(sync.getValue(burgerText, row) > 0.0F);
}
