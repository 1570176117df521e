#include "scenes/credits_scene.h"

#include "scenes/catalogue.h"
#include "scenes/full_frame.h"
#include "scenes/orientations.h"
#include "scenes/shaders/credits_frag.h"
#include "scenes/textures.h"

#include <memory>

namespace {

/// Shows the colour texture as it is. Sends no uniform: the sampler's default unit is the right one.
class CreditsShader : public lumeth::Material {
public:
    CreditsShader(zund::Renderer& renderer, float aspect)
        : Material(renderer, credits_vert, embedded::credits_frag, nullptr), aspect(aspect)
    {
    }

    std::vector<zund::UniformCommand> getUniformCommands(const glm::mat4& /*worldToView*/,
                                                         const lumeth::DisplayObject& /*object*/,
                                                         const lumeth::DisplayListItem& /*item*/,
                                                         const std::vector<lumeth::Light>& /*lights*/,
                                                         double /*time*/) override
    {
        return {};
    }

    std::vector<zund::UniformArrayCommand>
    getUniformArrayCommands(const lumeth::DisplayObject& /*object*/, const lumeth::DisplayListItem& /*item*/,
                            const std::vector<lumeth::Light>& /*lights*/, double /*time*/) override
    {
        return {};
    }

private:
    [[maybe_unused]] float aspect;
    [[maybe_unused]] zund::Uniform uniform; ///< never looked up
};

} // namespace

CreditsScene::CreditsScene(zund::Renderer& renderer, const pack::Packfile& pack, std::pair<int, int> size)
{
    scene.init(renderer, size);

    lumeth::DisplayObject picture;
    picture.vertexArray = createFullFrameTriangle(renderer, 0.0F);
    picture.colorTexture = loadTexture(renderer, pack, catalogue::textures::title);
    picture.material = std::make_unique<CreditsShader>(renderer, aspectOf(size));
    scene.addObject("obj", std::move(picture));

    scene.getGraph().addNode(
        "obj", lumeth::DisplayListItem("obj", glm::vec3(0.0F), orientations::none, glm::vec3(1.0F)));
}

void CreditsScene::update(zund::Renderer& /*renderer*/, double /*time*/, const tolv::SyncDevice& /*sync*/) {}
