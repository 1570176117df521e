#include "scenes/people_scene.h"

#include "scenes/backgrounds.h"
#include "scenes/full_frame.h"
#include "scenes/orientations.h"
#include "scenes/post_chain.h"
#include "scenes/shaders/pscroller_frag.h"
#include "scenes/tables.h"
#include "scenes/text_layer_material.h"
#include "sync/tools.h"

#include <cmath>

namespace {

using namespace catalogue;
using namespace orientations;

/// The text that waves, with a drop shadow.
class PScrollerShader : public TextLayerMaterial {
public:
    PScrollerShader(zund::Renderer& renderer, float aspect)
        : TextLayerMaterial(renderer, aspect, embedded::pscroller_frag)
    {
    }
};

// clang-format off
constexpr ObjectRow objects[] = {
    // name     model            colour               normal               emission   colour                 amb   diff  spec  shin
    {"sofa",    models::sofa,    textures::sofa_diff, textures::sofa_norm, noTexture, {0.50F, 0.50F, 0.50F}, 0.1F, 1.5F, 1.0F, 32.0F},
    {"ukko",    models::person,  noTexture,           noTexture,           noTexture, {0.83F, 0.67F, 0.53F}, 0.1F, 1.0F, 0.1F, 30.0F},
    {"hat",     models::hat,     noTexture,           noTexture,           noTexture, {0.90F, 0.90F, 0.90F}, 0.1F, 1.0F, 0.1F, 30.0F},
    {"glasses", models::glasses, noTexture,           noTexture,           noTexture, {0.10F, 0.10F, 0.10F}, 0.1F, 1.0F, 0.1F, 30.0F},
};
// In the middle of clip space: what is nearer covers it.
constexpr TextLayerRow textLayer = {0.0F, textures::pants, noTexture, make<PScrollerShader>};
constexpr ObjectRow objectsAfterTheText[] = {
    {"legs", models::sofa_legs, noTexture, noTexture, noTexture, {0.20F, 0.20F, 0.20F}, 0.1F, 1.0F, 0.1F, 10.0F},
};

constexpr NodeRow nodes[] = {
    // name            parent       object      position                  turn  scale
    {"sofa",           nullptr,     "sofa",     { 0.0F, -0.70F,  0.00F},  none, 0.2F},
    {"legs",           nullptr,     "legs",     { 0.0F, -0.70F,  0.00F},  none, 0.2F},
    {"ukko1",          nullptr,     "ukko",     {-0.5F, -0.70F,  0.00F},  none, 0.2F},
    {"ukko1_hat",      nullptr,     "",         {-0.5F,  0.75F, -0.36F},  none, 0.2F}, // what the hat tips about
    {"hat",            "ukko1_hat", "hat",      { 0.0F,  0.50F,  0.00F},  none, 1.0F},
    {"ukko2",          nullptr,     "ukko",     { 0.5F, -0.70F,  0.00F},  none, 0.2F},
    {"ukko2_glasses",  nullptr,     "glasses",  { 0.5F,  0.67F, -0.35F},  none, 0.2F},
    {"scroller",       nullptr,     "scroller", { 0.0F,  0.00F, -3.00F},  none, 1.0F},
};

constexpr lumeth::Light lights[] = {
    // position              diffuse            specular
    {{-3.0F, 2.0F, 3.0F},    glm::vec3(0.4F),   glm::vec3(0.8F)},
    {{ 3.0F, 5.0F, 3.0F},    glm::vec3(0.6F),   glm::vec3(0.9F)},
};
// clang-format on

static_assert(namesAreUnique(nodes));
static_assert(parentsStandAbove(nodes));
static_assert(objectsExist(nodes, objects, objectsAfterTheText));
static_assert(objectsAreShown(nodes, objects, objectsAfterTheText));

/// From a share of the swing, taken as a double, to a tilt forward.
glm::quat tilt(float swing, double share)
{
    return angleAxis(static_cast<float>(swing * share), xAxis);
}

} // namespace

PeopleScene::PeopleScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
                         std::pair<int, int> size)
{
    scene.init(renderer, size);
    usePostChain(scene, renderer);
    scene.setBackground(renderer, warm_teal_background_frag);
    const float aspect = aspectOf(size);
    addObjects(scene, renderer, pack, aspect, objects);
    addTextLayer(scene, renderer, pack, aspect, textLayer);
    addObjects(scene, renderer, pack, aspect, objectsAfterTheText);
    addNodes(scene, nodes);
    addLights(scene, lights);
    camera.lookUp(sync);
    hatR = sync.getTrack(tracks::hat_r.name);
}

void PeopleScene::update(zund::Renderer& /*renderer*/, double time, const tolv::SyncDevice& sync)
{
    const double row = timeToRow(time);

    const glm::vec3 polar = camera.readPosition(sync, row);
    pointCamera(scene, orbitPlace(polar), camera.readTarget(sync, row));

    const float swing = std::abs(std::cos(sync.getValue(hatR, row) * 3.14F - 0.3F)) * 3.14F;
    findNode(scene, "ukko1_hat").value.setOrientation(tilt(swing, 0.05));
    findNode(scene, "ukko2_glasses").value.setOrientation(tilt(swing, 0.1));
}
