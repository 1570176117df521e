#include "scenes/bottle_scene.h"

#include "scenes/backgrounds.h"
#include "scenes/full_frame.h"
#include "scenes/orientations.h"
#include "scenes/post_chain.h"
#include "scenes/shaders/scroller_frag.h"
#include "scenes/tables.h"
#include "scenes/text_layer_material.h"
#include "sync/tools.h"

#include <cmath>
#include <string>

namespace {

using namespace catalogue;
using namespace orientations;

/// The band of text that scrolls and waves, with a drop shadow.
class ScrollerShader : public TextLayerMaterial {
public:
    ScrollerShader(zund::Renderer& renderer, float aspect)
        : TextLayerMaterial(renderer, aspect, embedded::scroller_frag)
    {
    }
};

// clang-format off
constexpr ObjectRow objects[] = {
    // name  model         colour                normal     emission   colour              amb   diff  spec  shin
    {"beer", models::beer, textures::pisswasser, noTexture, noTexture, {0.5F, 0.5F, 0.3F}, 0.1F, 1.7F, 1.0F, 32.0F},
};

// Before everything, and of the size of a surface, unlike the other layers.
constexpr TextLayerRow textLayer = {-1.0F, textures::unlimited, noTexture, make<ScrollerShader>};
constexpr NodeRow textNode[] = {{"scroller", nullptr, "scroller", {0.0F, 0.0F, -3.0F}, none, 1.0F}};

constexpr lumeth::Light lights[] = {
    // position               diffuse            specular
    {{-3.0F, 0.0F,  3.0F},    glm::vec3(0.1F),   glm::vec3(0.1F)},
    {{ 3.0F, 0.0F, -3.0F},    glm::vec3(0.6F),   glm::vec3(0.9F)},
};
// clang-format on

constexpr int bottleCount = 10;
constexpr double phaseStep = 0.628; // ten of them fall a little short of a full circle

std::string nodeName(int bottle)
{
    return "beer" + std::to_string(bottle);
}

/// The ring: each node with a bottle that hangs below it, so that it turns about its middle.
void addRing(lumeth::Scene& scene)
{
    for (int bottle = 0; bottle < bottleCount; ++bottle) {
        const std::string name = nodeName(bottle);
        const glm::vec3 position(static_cast<float>(0.1 * bottle), 0.0F, 1.0F); // until the first update
        scene.getGraph().addNode(name, lumeth::DisplayListItem("", position, none, glm::vec3(0.04F)));
        scene.getGraph().getNode(name)->addNode(
            "bottle", lumeth::DisplayListItem("beer", {0.0F, -4.0F, 0.0F}, none, glm::vec3(1.0F)));
    }
}

} // namespace

BottleScene::BottleScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
                         std::pair<int, int> size)
{
    scene.init(renderer, size);
    usePostChain(scene, renderer);
    scene.setBackground(renderer, background_frag);
    const float aspect = aspectOf(size);
    addObjects(scene, renderer, pack, aspect, objects);
    addTextLayer(scene, renderer, pack, aspect, textLayer);
    addRing(scene);
    addNodes(scene, textNode);
    addLights(scene, lights);
    camera.lookUp(sync);
}

void BottleScene::update(zund::Renderer& /*renderer*/, double time, const tolv::SyncDevice& sync)
{
    const double row = timeToRow(time);
    const glm::vec3 target = camera.readTarget(sync, row);
    const glm::vec3 position = camera.readPosition(sync, row);
    pointCamera(scene, position, target);

    const double orbit = 0.5 * time;
    for (int bottle = 0; bottle < bottleCount; ++bottle) {
        const double phase = bottle * phaseStep;
        const std::string name = nodeName(bottle);

        const double sine = std::sin(orbit + phase);
        const double cosine = std::cos(orbit + phase);
        scene.getGraph().getNode(name)->value.setPosition(
            {static_cast<float>(0.5 * cosine), 0.0F, 2.0F + static_cast<float>(0.5 * sine)});

        const float half = 0.5F * static_cast<float>(phase + time);
        scene.getGraph().getNode(name)->value.setOrientation(
            xyzw(0.0F, 0.0F, std::sin(half), std::cos(half)));
    }
}
