#pragma once

#include "engine/background.h"
#include "engine/default_material.h"
#include "engine/display_list_item.h"
#include "engine/display_object.h"
#include "engine/light.h"
#include "engine/post_processing.h"
#include "engine/tree.h"
#include "gl/draw-command.h"
#include "gl/renderer.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace lumeth {

/// Everything that one scene of the show is drawn from, and the drawing.
///
/// To be built once: `init` first, then the post chain, a backdrop, objects, nodes and lights in any order.
/// Every frame: `lookAt` and the nodes' setters, then `draw`, which makes one flat list of commands of all
/// and hands it to the renderer. Deletes no GL object.
class Scene {
public:
    static const char* const material_vert; ///< the stock material's vertex shader
    static const char* const material_frag; ///< the stock material's fragment shader

    Scene();

    /// Makes the stock material, the default post chain (copy, gamma) and the geometry of full-screen draws,
    /// for a picture of `resolution`, width and height in pixels. Throws what the renderer throws.
    void init(zund::Renderer& renderer, std::pair<int, int> resolution);

    /// One frame. `time` is the position in the music in seconds; it reaches background and materials.
    /// Throws `std::out_of_range` for a visible item whose object doesn't exist; then nothing is drawn.
    /// Needs a post pass.
    void draw(zund::Renderer& renderer, double time);

    /// The command that draws one item into `frameBuffer`.
    zund::DrawCommand drawDisplayItem(const glm::mat4& worldToView, const DisplayListItem& item,
                                      const zund::FrameBuffer& frameBuffer, double time);
    zund::DrawCommand drawBackground(double time);
    zund::DrawCommand drawSkybox();
    /// One full-screen command a pass, the last one into the window.
    std::vector<zund::DrawCommand> drawPostprocess();

    /// Sets the camera. `eye` equal to `target`, or `up` along the view, gives NaNs.
    void lookAt(const glm::vec3& eye, const glm::vec3& target, const glm::vec3& up);

    /// Takes the object over. False, and the object dropped, if the name is taken.
    bool addObject(std::string name, DisplayObject object);
    /// The first `LIGHTS_MAX` lights count.
    void addLight(Light light);
    /// The root of the tree, whose transform is the camera.
    tree::Node<DisplayListItem>& getGraph();

    /// Puts a fragment shader behind the items, in place of the skybox. There is no way back.
    void setBackground(zund::Renderer& renderer, const char* fragmentSource);
    /// Gamma-encoded; black until set.
    void setSkyboxColor(glm::vec3 color);
    /// Called by `init`.
    void initSkybox(zund::Renderer& renderer);

    /// Appends a pass to the post chain.
    void addPostPass(zund::Renderer& renderer, const char* fragmentSource,
                     PostProcessing::ExtraInputs extraInputs);
    /// A pass with its GL objects, of `size` pixels, that is in no chain yet.
    PostProcessing::Pass createPostPass(zund::Renderer& renderer, const std::pair<int, int>& size,
                                        const char* fragmentSource);
    /// Empties the post chain. Its GL objects stay until the renderer ends.
    void resetPostPasses();

private:
    glm::vec2 resolutionVector() const;

    std::unique_ptr<DefaultMaterial> material; ///< of all objects without their own
    std::pair<int, int> resolution{0, 0};
    std::vector<PostProcessing::Pass> passes;
    zund::VertexArray quad; ///< in truth one triangle that covers the screen

    zund::VertexArray skyboxVertexArray;
    zund::Texture skyboxTexture; ///< a cube map; invalid: the flat colour
    zund::ShaderProgram skyboxProgram;
    zund::Uniform skyboxProjection;
    zund::Uniform skyboxTextured;
    zund::Uniform skyboxBackgroundColor;
    glm::vec3 skyboxColor{0.0F};
    std::unique_ptr<Background> background; ///< null: the skybox draws

    float aspect = 0.0F; ///< width by height
    std::unordered_map<std::string, DisplayObject> objects;
    std::vector<Light> lights;
    tree::Node<DisplayListItem> graph;
};

} // namespace lumeth
