#include "scenes/toilet_scene.h"

#include "scenes/backgrounds.h"
#include "scenes/full_frame.h"
#include "scenes/orientations.h"
#include "scenes/post_chain.h"
#include "scenes/shaders/toilet_frag.h"
#include "scenes/tables.h"
#include "sync/tools.h"

namespace {

using namespace catalogue;
using namespace orientations;

/// The text in two tones, that wobbles. Unlike the other text layers it sets its samplers.
class ToiletShader : public lumeth::Material {
public:
    ToiletShader(zund::Renderer& renderer, float aspect)
        : Material(renderer, scroller_vert, embedded::toilet_frag, nullptr),
          aspect(aspect),
          tex_color(renderer.getUniform(program, "tex_color")),
          tex_normal(renderer.getUniform(program, "tex_normal")),
          time(renderer.getUniform(program, "time"))
    {
    }

    std::vector<zund::UniformCommand> getUniformCommands(const glm::mat4& /*worldToView*/,
                                                         const lumeth::DisplayObject& /*object*/,
                                                         const lumeth::DisplayListItem& /*item*/,
                                                         const std::vector<lumeth::Light>& /*lights*/,
                                                         double now) override
    {
        return {{tex_color, 0}, {tex_normal, 1}, {time, static_cast<float>(now)}};
    }

    std::vector<zund::UniformArrayCommand>
    getUniformArrayCommands(const lumeth::DisplayObject& /*object*/, const lumeth::DisplayListItem& /*item*/,
                            const std::vector<lumeth::Light>& /*lights*/, double /*time*/) override
    {
        return {};
    }

private:
    [[maybe_unused]] float aspect; ///< not used: what is drawn in clip space needs none
    zund::Uniform tex_color;
    zund::Uniform tex_normal;
    zund::Uniform time;
};

// clang-format off
constexpr ObjectRow objects[] = {
    // name        model               colour     normal     emission   colour                 amb   diff  spec  shin
    {"toilet",     models::toilet,     noTexture, noTexture, noTexture, {1.00F, 0.96F, 0.91F}, 0.1F, 1.0F, 1.0F, 30.0F},
    {"toilet_lid", models::toilet_lid, noTexture, noTexture, noTexture, {1.00F, 0.96F, 0.91F}, 0.1F, 1.0F, 1.0F, 30.0F},
};

constexpr NodeRow nodes[] = {
    // name     parent         object        position               turn  scale
    {"toilet",  nullptr,       "",           {0.0F, 0.0F,  0.0F},   y10,  1.00F},
    {"bowl",    "toilet",      "toilet",     {0.0F, 0.2F,  0.0F},   none, 0.07F},
    {"lid",     "toilet/bowl", "toilet_lid", {0.0F, 0.1F, -1.7F},   none, 1.00F}, // at its hinge
};

constexpr lumeth::Light lights[] = {
    // position              diffuse            specular
    {{-3.0F, 2.0F, 3.0F},    glm::vec3(0.3F),   glm::vec3(1.1F)},
    {{ 3.0F, 3.0F, 3.0F},    glm::vec3(0.5F),   glm::vec3(1.0F)},
};

// Before everything. The border is loaded and bound, but the shader never samples it.
constexpr TextLayerRow textLayer = {-1.0F, textures::queue_main, textures::queue_border, make<ToiletShader>};
constexpr NodeRow textNode[] = {{"scroller", nullptr, "scroller", {0.0F, 0.0F, 0.0F}, none, 1.0F}};
// clang-format on

static_assert(namesAreUnique(nodes));
static_assert(parentsStandAbove(nodes));
static_assert(objectsExist(nodes, objects));
static_assert(objectsAreShown(nodes, objects));

} // namespace

ToiletScene::ToiletScene(zund::Renderer& renderer, const pack::Packfile& pack, const tolv::SyncDevice& sync,
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
    lidRotate = sync.getTrack(tracks::lid_rotate.name);
    addTextLayer(scene, renderer, pack, aspect, textLayer);
    addNodes(scene, textNode);
}

void ToiletScene::update(zund::Renderer& /*renderer*/, double time, const tolv::SyncDevice& sync)
{
    const double row = timeToRow(time);
    const glm::vec3 target = camera.readTarget(sync, row);
    const glm::vec3 position = camera.readPosition(sync, row);
    pointCamera(scene, position, target);

    const auto spin = static_cast<float>(sync.getValue(burgerRotate, row) * -6.28);
    findNode(scene, "toilet").value.setOrientation(angleAxis(spin, yAxis));

    const auto lid = static_cast<float>(sync.getValue(lidRotate, row) * 3.14);
    findNode(scene, "toilet/bowl/lid").value.setOrientation(angleAxis(lid, xAxis));
}
