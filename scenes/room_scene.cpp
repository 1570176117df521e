#include "scenes/room_scene.h"

#include "scenes/full_frame.h"
#include "scenes/orientations.h"
#include "scenes/post_chain.h"
#include "scenes/tables.h"
#include "scenes/tv_material.h"
#include "sync/tools.h"

namespace {

using namespace catalogue;
using namespace orientations;

// clang-format off
constexpr ObjectRow objects[] = {
    // name              model                     colour                      normal                      emission           colour                 amb   diff  spec   shin
    {"room",             models::room,             textures::room_diff,        noTexture,                  noTexture,         {0.30F, 0.70F, 0.30F}, 0.0F, 0.3F,  1.0F, 20.0F},
    {"sofa",             models::sofa,             textures::sofa_diff,        textures::sofa_norm,        noTexture,         {0.50F, 0.50F, 0.50F}, 0.1F, 1.5F,  1.0F, 32.0F},
    {"legs",             models::sofa_legs,        noTexture,                  noTexture,                  noTexture,         {0.20F, 0.20F, 0.20F}, 0.1F, 1.0F,  0.1F, 10.0F},
    {"ukko",             models::person,           noTexture,                  noTexture,                  noTexture,         {0.83F, 0.67F, 0.53F}, 0.1F, 0.7F,  0.3F, 30.0F},
    {"hat",              models::hat,              noTexture,                  noTexture,                  noTexture,         {0.90F, 0.90F, 0.90F}, 0.1F, 1.0F,  0.1F, 30.0F},
    {"glasses",          models::glasses,          noTexture,                  noTexture,                  noTexture,         {0.10F, 0.10F, 0.10F}, 0.1F, 1.0F,  0.1F, 30.0F},
    {"table",            models::coffeetable,      textures::coffeetable_diff, textures::coffeetable_norm, noTexture,         {0.30F, 0.50F, 0.50F}, 0.1F, 1.0F,  3.0F, 32.0F},
    {"beer",             models::beer,             textures::pisswasser,       noTexture,                  noTexture,         {0.50F, 0.50F, 0.30F}, 0.0F, 0.7F,  1.5F,  6.0F},
    {"tv",               models::tv,               noTexture,                  noTexture,                  textures::tv_emit, {0.10F, 0.10F, 0.10F}, 0.1F, 0.2F, 10.0F, 60.0F, false, make<TvMaterial>},
    {"tvtable",          models::tvtable,          textures::plywood_diff,     textures::plywood_norm,     noTexture,         {0.50F, 0.30F, 0.30F}, 0.1F, 1.0F,  3.0F, 32.0F},
    {"bigplant",         models::bigplant,         textures::bigplant,         noTexture,                  noTexture,         {0.30F, 0.70F, 0.20F}, 0.1F, 0.7F,  1.0F, 30.0F, true},
    {"pot",              models::flowerpot,        noTexture,                  noTexture,                  noTexture,         {0.32F, 0.10F, 0.00F}, 0.1F, 0.7F,  0.3F, 30.0F},
    {"burgerbox_bottom", models::burgerbox_bottom, noTexture,                  noTexture,                  noTexture,         {1.00F, 0.96F, 0.91F}, 0.1F, 1.0F,  1.0F, 30.0F},
    {"burgerbox_top",    models::burgerbox_top,    textures::burgerbox_top,    noTexture,                  noTexture,         {0.50F, 0.50F, 0.30F}, 0.1F, 1.0F,  1.0F, 30.0F},
};

// 0.942 about Y times 1.57 about X: a bottle that lies on the table.
constexpr glm::quat lying = xyzw(0.6298625F, 0.320997F, -0.3207415F, 0.6303642F);

constexpr NodeRow nodes[] = {
    // name                parent   object              position                    turn      scale
    {"room",               nullptr, "room",             { 0.00F, -0.300F,  0.00F},  yMinus05, 0.200F},
    {"sofa",               nullptr, "sofa",             { 0.00F, -0.280F, -0.50F},  none,     0.100F},
    {"sofa_legs",          nullptr, "legs",             { 0.00F, -0.280F, -0.50F},  none,     0.100F},
    {"table",              nullptr, "table",            { 0.00F, -0.200F,  0.70F},  none,     0.100F},
    {"tv",                 nullptr, "tv",               { 0.00F,  0.144F,  1.80F},  y10,      0.100F},
    {"tvtable",            nullptr, "tvtable",          { 0.00F, -0.300F,  1.80F},  y10,      0.100F},
    {"bigplant",           nullptr, "bigplant",         { 0.90F, -0.200F,  1.50F},  y10,      0.300F},
    {"pot",                nullptr, "pot",              { 0.90F, -0.300F,  1.50F},  y10,      0.070F},
    {"beer1",              nullptr, "beer",             { 0.10F, -0.120F,  0.60F},  y01,      0.020F},
    {"beer2",              nullptr, "beer",             {-0.20F, -0.120F,  0.54F},  y05,      0.020F},
    {"burgerbox_bottom1",  nullptr, "burgerbox_bottom", { 0.20F, -0.095F,  0.60F},  y06,      0.015F},
    {"burgerbox_top1",     nullptr, "burgerbox_top",    { 0.20F, -0.095F,  0.60F},  y06,      0.015F},
    {"burgerbox_bottom2",  nullptr, "burgerbox_bottom", {-0.00F, -0.095F,  0.50F},  y13,      0.015F},
    {"burgerbox_top2",     nullptr, "burgerbox_top",    {-0.00F, -0.095F,  0.50F},  y13,      0.015F},
    {"beer3",              nullptr, "beer",             {-0.15F, -0.095F,  0.50F},  lying,    0.020F},
    {"ukko1",              nullptr, "ukko",             {-0.25F, -0.300F, -0.50F},  none,     0.100F},
    {"ukko1_hat",          nullptr, "hat",              {-0.25F,  0.450F, -0.70F},  none,     0.100F},
    {"ukko2",              nullptr, "ukko",             { 0.25F, -0.300F, -0.50F},  none,     0.100F},
    {"ukko2_glasses",      nullptr, "glasses",          { 0.25F,  0.400F, -0.70F},  none,     0.100F},
    {"sofa2",              nullptr, "sofa",             {-1.10F, -0.280F,  0.50F},  y05,      0.100F},
    {"sofa_legs2",         nullptr, "legs",             {-1.10F, -0.280F,  0.50F},  y05,      0.100F},
    {"bigplant2",          nullptr, "bigplant",         {-1.80F, -0.200F,  1.50F},  y04,      0.300F},
    {"pot2",               nullptr, "pot",              {-1.80F, -0.300F,  1.50F},  y10,      0.070F},
};

constexpr lumeth::Light lights[] = {
    // position              diffuse             specular
    {{-1.5F, 0.3F,  0.4F},   glm::vec3(0.10F),   glm::vec3(0.7F)},
    {{ 0.0F, 0.3F,  1.3F},   glm::vec3(0.10F),   glm::vec3(0.0F)},
    {{ 1.5F, 0.3F,  0.4F},   glm::vec3(0.30F),   glm::vec3(0.3F)},
    {{ 0.0F, 0.2F,  0.5F},   glm::vec3(0.30F),   glm::vec3(0.1F)},
    {{ 0.0F, 0.3F, -3.0F},   glm::vec3(0.03F),   glm::vec3(0.0F)},
};
// clang-format on

static_assert(namesAreUnique(nodes));
static_assert(parentsStandAbove(nodes));
static_assert(objectsExist(nodes, objects));
static_assert(objectsAreShown(nodes, objects));

} // namespace

RoomScene::RoomScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
                     std::pair<int, int> size)
{
    scene.init(renderer, size);
    usePostChain(scene, renderer);
    scene.setSkyboxColor({0.05F, 0.05F, 0.12F});
    addObjects(scene, renderer, pack, aspectOf(size), objects);
    addNodes(scene, nodes);
    addLights(scene, lights);
    camera.lookUp(sync);
    debug = sync.getTrack(tracks::debug.name);
}

void RoomScene::update(zund::Renderer& /*renderer*/, double time, const tolv::SyncDevice& sync)
{
    const double row = timeToRow(time);
    const glm::vec3 target = camera.readTarget(sync, row);
    const glm::vec3 position = camera.readPosition(sync, row);
    pointCamera(scene, position, target);
}
