#include "engine/scene.h"

#include "engine/post_shaders.h"
#include "gl/exception.h"
#include "tests/engine/matrices.h"
#include "tests/engine/stub_material.h"
#include "tests/support/recording_renderer.h"

#include <GL/gl.h>
#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::ThrowsMessage;

namespace {

using lumeth::DisplayListItem;
using lumeth::DisplayObject;
using zund::DrawCommand;

// A camera that is turned every way; all values are floats too.
const glm::dvec3 eye(3.0, -1.5, 4.0);
const glm::dvec3 target(-0.5, 2.0, 1.0);
const glm::dvec3 up(0.125, 1.0, -0.25);

// The names that RecordingRenderer gives out in init: 24 and 33 are the framebuffers of the passes, 40 is the
// full-screen triangle, 41 the cube. -1 is the screen.
constexpr int stockProgram = 3;

class Scene : public testing::Test {
protected:
    Scene()
    {
        scene.init(renderer, {320, 200});
        initCalls = renderer.take();
    }

    static DisplayObject objectOf(int vertexArray)
    {
        DisplayObject object;
        object.modelMatrix = glm::mat4(1.0F);
        object.vertexArray = zund::VertexArray(vertexArray, 0, 3);
        return object;
    }

    /// Where `itemOf` puts an item.
    static glm::mat4 placeOf(const glm::vec3& position, float scale = 1.0F)
    {
        return placed(position, askew, glm::vec3(scale));
    }

    static DisplayListItem itemOf(const std::string& objectName, const glm::vec3& position = glm::vec3(0.0F),
                                  float scale = 1.0F)
    {
        return {objectName, position, askew, glm::vec3(scale)};
    }

    /// The commands of one frame.
    std::vector<DrawCommand> draw(double time = 0.0)
    {
        renderer.frames.clear();
        scene.draw(renderer, time);
        EXPECT_EQ(renderer.frames.size(), 1U) << "one call of render a frame";
        return renderer.frames.back();
    }

    /// A frame in short: "clear TARGET" or "VERTEX_ARRAY to TARGET".
    static std::vector<std::string> summaryOf(const std::vector<DrawCommand>& commands)
    {
        std::vector<std::string> summary;
        for (const DrawCommand& command : commands) {
            const std::string target = std::to_string(command.frameBuffer.get());
            summary.push_back(command.clear ? "clear " + target
                                            : std::to_string(command.vertexArray.get()) + " to " + target);
        }
        return summary;
    }

    /// The commands of a frame that draw items: those with the geometry of `objectOf`, from 100 on.
    static std::vector<DrawCommand> itemsOf(const std::vector<DrawCommand>& commands)
    {
        std::vector<DrawCommand> items;
        std::copy_if(commands.begin(), commands.end(), std::back_inserter(items),
                     [](const DrawCommand& command) { return command.vertexArray.get() >= 100; });
        return items;
    }

    static glm::mat4 matrixOf(const DrawCommand& command)
    {
        return std::get<glm::mat4>(command.uniforms.at(0).second);
    }
    static glm::mat4 viewIn(const DrawCommand& command)
    {
        return std::get<glm::mat4>(command.uniforms.at(1).second);
    }

    tree::Node<DisplayListItem>& graph() { return scene.getGraph(); }

    RecordingRenderer renderer;
    lumeth::Scene scene;
    std::vector<std::string> initCalls;
};

// --- Start ---

TEST_F(Scene, MakesMaterialThenBothPassesThenTheTriangleThenTheSkybox)
{
    EXPECT_THAT(
        initCalls,
        ElementsAre(
            "createShader(vertex, source 1) = 1", "createShader(fragment, source 2) = 2",
            "createProgram(1, 2, null) = 3", "getUniform(3, \"modelToView\") = 4",
            "getUniform(3, \"worldToView\") = 5", "getUniform(3, \"projection\") = 6",
            "getUniform(3, \"tex_color\") = 7", "getUniform(3, \"tex_normal\") = 8",
            "getUniform(3, \"tex_emissivity\") = 9", "getUniform(3, \"mat_shaded\") = 10",
            "getUniform(3, \"mat_textured\") = 11", "getUniform(3, \"mat_transparent\") = 12",
            "getUniform(3, \"mat_normalmapped\") = 13", "getUniform(3, \"mat_color\") = 14",
            "getUniform(3, \"mat_ambient\") = 15", "getUniform(3, \"mat_diffuse\") = 16",
            "getUniform(3, \"mat_specular\") = 17", "getUniform(3, \"mat_shininess\") = 18",
            "getUniform(3, \"light_position\") = 19", "getUniform(3, \"light_diffuse\") = 20",
            "getUniform(3, \"light_specular\") = 21",
            // copy
            "createTexture2d(RGB16F, 320, 200) = 22", "createRenderBuffer2d(320, 200) = 23",
            "createFrameBuffer() = 24", "framebufferTexture(24, 22)", "framebufferRenderbuffer(24, 23)",
            "createShader(vertex, source 3) = 25", "createShader(fragment, source 4) = 26",
            "createProgram(25, 26, null) = 27", "getUniform(27, \"resolution\") = 28",
            "getUniform(27, \"fbo\") = 29", "getUniform(27, \"fbo_original\") = 30",
            "getUniform(27, \"\") = -1", "getUniform(27, \"\") = -1", "getUniform(27, \"\") = -1",
            "getUniform(27, \"\") = -1", "getUniform(27, \"\") = -1", "getUniform(27, \"\") = -1",
            // gamma
            "createTexture2d(RGB16F, 320, 200) = 31", "createRenderBuffer2d(320, 200) = 32",
            "createFrameBuffer() = 33", "framebufferTexture(33, 31)", "framebufferRenderbuffer(33, 32)",
            "createShader(vertex, source 3) = 34", "createShader(fragment, source 5) = 35",
            "createProgram(34, 35, null) = 36", "getUniform(36, \"resolution\") = 37",
            "getUniform(36, \"fbo\") = 38", "getUniform(36, \"fbo_original\") = 39",
            "getUniform(36, \"\") = -1", "getUniform(36, \"\") = -1", "getUniform(36, \"\") = -1",
            "getUniform(36, \"\") = -1", "getUniform(36, \"\") = -1", "getUniform(36, \"\") = -1",
            // full-screen triangle
            "createIndexedBuffer(9, 3, null, null, null, null) = 40",
            // skybox
            "createIndexedBuffer(24, 36, null, null, null, null) = 41", "createShader(vertex, source 6) = 42",
            "createShader(fragment, source 7) = 43", "createProgram(42, 43, null) = 44",
            "getUniform(44, \"projection\") = 45", "getUniform(44, \"textured\") = 46",
            "getUniform(44, \"background_color\") = 47"));
    ASSERT_THAT(renderer.sources, SizeIs(7));
    EXPECT_EQ(renderer.sources[0], lumeth::Scene::material_vert);
    EXPECT_EQ(renderer.sources[1], lumeth::Scene::material_frag);
    EXPECT_EQ(renderer.sources[3], post_pass0_frag_src);
    EXPECT_EQ(renderer.sources[4], post_pass1_frag_src);
}

TEST_F(Scene, CoversTheScreenWithOneTriangleOfPositionsOnly)
{
    const RecordingRenderer::Mesh& quad = renderer.meshes.at(0);
    EXPECT_THAT(quad.positions, ElementsAre(-1.0F, -1.0F, 0.0F, 3.0F, -1.0F, 0.0F, -1.0F, 3.0F, 0.0F));
    EXPECT_THAT(quad.indices, ElementsAre(0U, 1U, 2U));
    EXPECT_THAT(quad.uvs, IsEmpty());
    EXPECT_THAT(quad.normals, IsEmpty());
    EXPECT_THAT(quad.tangents, IsEmpty());
    EXPECT_THAT(quad.bitangents, IsEmpty());
}

TEST(SceneStart, IsNotPolymorphicAndMakesNothingBeforeInit)
{
    EXPECT_FALSE(std::is_polymorphic_v<lumeth::Scene>);
    lumeth::Scene scene;
    const DisplayListItem& root = scene.getGraph().value;
    EXPECT_EQ(root.objectName, "");
    EXPECT_EQ(root.localMatrix, glm::mat4(1.0F));
    EXPECT_TRUE(root.visible);
    EXPECT_THAT(scene.drawPostprocess(), IsEmpty());
}

TEST(SceneStart, LetsTheRenderersFailureOut)
{
    class Refusing : public RecordingRenderer {
        zund::Texture createTexture2d(zund::TextureFormat /*format*/, int /*width*/, int /*height*/) override
        {
            throw zund::Exception("zund: texture allocation failed");
        }
    };
    Refusing renderer;
    lumeth::Scene scene;
    EXPECT_THAT(
        [&] {
            scene.init(renderer, {320, 200});
        },
        ThrowsMessage<zund::Exception>("zund: texture allocation failed"));
}

TEST_F(Scene, DeletesNoGlObjectWhenItEnds)
{
    {
        lumeth::Scene another;
        another.init(renderer, {4, 4});
        another.addObject("a", objectOf(100));
        renderer.take();
    }
    EXPECT_THAT(renderer.take(), IsEmpty());
}

// --- The frame ---

TEST_F(Scene, ClearsDrawsTheBackdropAndRunsTheChainWithoutItems)
{
    EXPECT_THAT(summaryOf(draw()),
                ElementsAre("clear 24", "clear 33", "41 to 24", "clear -1", "40 to 33", "40 to -1"));
    EXPECT_THAT(renderer.take(), ElementsAre("render(6 commands)"));
}

TEST_F(Scene, DrawsItemsBetweenBackdropAndClearOfTheScreen)
{
    scene.addObject("a", objectOf(100));
    graph().addNode("a", itemOf("a"));
    EXPECT_THAT(summaryOf(draw()), ElementsAre("clear 24", "clear 33", "41 to 24", "100 to 24", "clear -1",
                                               "40 to 33", "40 to -1"));
}

/// Passes, items: a frame has N + 1 + K + 1 + N commands.
class FrameLength : public Scene, public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(FrameLength, IsTwicePassesAndItemsAndTwo)
{
    const auto [passes, items] = GetParam();
    scene.resetPostPasses();
    for (int i = 0; i < passes; ++i) {
        scene.addPostPass(renderer, "fragment", {});
    }
    scene.addObject("a", objectOf(100));
    for (int i = 0; i < items; ++i) {
        graph().addNode(std::to_string(i), itemOf("a"));
    }
    const std::vector<DrawCommand> frame = draw();
    ASSERT_EQ(frame.size(), static_cast<std::size_t>(passes + 1 + items + 1 + passes));
    const int firstTarget = frame.front().frameBuffer.get();
    for (int i = 0; i < static_cast<int>(frame.size()); ++i) {
        const DrawCommand& command = frame[static_cast<std::size_t>(i)];
        const bool isPassClear = i < passes;
        const bool isBackdrop = i == passes;
        const bool isItem = i > passes && i <= passes + items;
        const bool isScreenClear = i == passes + items + 1;
        EXPECT_EQ(command.clear, isPassClear || isScreenClear) << i;
        EXPECT_EQ(command.depthWrite, isItem) << i;
        if (isBackdrop || isItem) {
            EXPECT_EQ(command.frameBuffer.get(), firstTarget) << i;
        }
        if (isScreenClear) {
            EXPECT_FALSE(command.frameBuffer.isValid());
        }
    }
    EXPECT_FALSE(frame.back().frameBuffer.isValid());
}

INSTANTIATE_TEST_SUITE_P(Of, FrameLength,
                         testing::Values(std::pair(1, 0), std::pair(1, 3), std::pair(2, 1), std::pair(3, 5)),
                         [](const auto& info) {
                             return std::to_string(info.param.first) + "Passes" +
                                    std::to_string(info.param.second) + "Items";
                         });

TEST_F(Scene, ReadsThePictureAndWritesTheScreenInAChainOfOnePass)
{
    scene.resetPostPasses();
    scene.addPostPass(renderer, "only", {});
    const std::vector<DrawCommand> frame = draw();
    ASSERT_EQ(frame.size(), 4U);
    const DrawCommand& pass = frame.back();
    EXPECT_FALSE(pass.frameBuffer.isValid());
    EXPECT_TRUE(pass.textures[0].isValid());
    EXPECT_EQ(pass.textures[0].get(), pass.textures[1].get());
    EXPECT_EQ(frame[1].frameBuffer.get(), frame[0].frameBuffer.get());
}

TEST_F(Scene, SetsNothingButFlagAndTargetInAClear)
{
    const std::vector<DrawCommand> frame = draw();
    for (const std::size_t i : {0U, 1U, 3U}) {
        EXPECT_FALSE(frame[i].vertexArray.isValid());
        EXPECT_FALSE(frame[i].program.isValid());
        EXPECT_THAT(frame[i].uniforms, IsEmpty());
        EXPECT_THAT(frame[i].uniformArrays, IsEmpty());
    }
}

TEST_F(Scene, FillsAnItemsCommandFromItsObject)
{
    DisplayObject object = objectOf(100);
    object.colorTexture = zund::Texture(201, GL_TEXTURE_2D);
    object.normalTexture = zund::Texture(202, GL_TEXTURE_2D);
    object.emissivityTexture = zund::Texture(203, GL_TEXTURE_2D);
    scene.addObject("a", std::move(object));
    const DrawCommand command =
        scene.drawDisplayItem(glm::mat4(3.0F), itemOf("a"), zund::FrameBuffer(55), 0.0);
    EXPECT_FALSE(command.clear);
    EXPECT_TRUE(command.depthWrite);
    EXPECT_EQ(command.frameBuffer.get(), 55);
    EXPECT_EQ(command.vertexArray.get(), 100);
    EXPECT_EQ(command.vertexArray.getIndexes(), 3UL);
    EXPECT_EQ(command.program.get(), stockProgram);
    EXPECT_EQ(command.textures[0].get(), 201);
    EXPECT_EQ(command.textures[1].get(), 202);
    EXPECT_EQ(command.textures[2].get(), 203);
    for (std::size_t unit = 3; unit < 8; ++unit) {
        EXPECT_FALSE(command.textures[unit].isValid()) << unit;
    }
    EXPECT_THAT(command.uniforms, SizeIs(15));
    EXPECT_THAT(command.uniformArrays, SizeIs(3));
    EXPECT_EQ(viewIn(command), glm::mat4(3.0F));
}

TEST_F(Scene, PrefersTheObjectsOwnMaterial)
{
    std::vector<StubMaterial::Asked> asked;
    DisplayObject object = objectOf(100);
    object.material = std::make_unique<StubMaterial>(renderer, asked);
    const int program = object.material->program.get();
    scene.addObject("own", std::move(object));
    scene.addObject("stock", objectOf(101));
    scene.addLight({});
    graph().addNode("own", itemOf("own", glm::vec3(1.0F, 2.0F, 3.0F)));
    graph().addNode("stock", itemOf("stock"));
    scene.lookAt(glm::vec3(eye), glm::vec3(target), glm::vec3(up));
    for (const DrawCommand& command : itemsOf(draw(12.5))) {
        if (command.vertexArray.get() == 101) {
            EXPECT_EQ(command.program.get(), stockProgram);
            continue;
        }
        EXPECT_EQ(command.program.get(), program);
        ASSERT_THAT(command.uniforms, SizeIs(1));
        EXPECT_EQ(command.uniforms[0].first.get(), 77);
        ASSERT_THAT(command.uniformArrays, SizeIs(1));
        EXPECT_EQ(command.uniformArrays[0].first.get(), 78);
    }
    ASSERT_THAT(asked, SizeIs(1));
    EXPECT_EQ(asked[0].objectName, "own");
    EXPECT_EQ(asked[0].time, 12.5);
    EXPECT_EQ(asked[0].arrayTime, 12.5);
    EXPECT_EQ(asked[0].lights, 1U);
    EXPECT_EQ(asked[0].arrayLights, 1U);
    EXPECT_EQ(asked[0].arrayObject, asked[0].object);
    const glm::mat4 view = viewOf(eye, target, up);
    expectNear(asked[0].worldToView, view, 2e-6F);
    expectNear(asked[0].worldMatrix, productOf(view, placeOf(glm::vec3(1.0F, 2.0F, 3.0F))), 4e-6F);
}

TEST_F(Scene, HandsTimeToBackgroundAndMaterialsOnly)
{
    std::vector<StubMaterial::Asked> asked;
    DisplayObject object = objectOf(100);
    object.material = std::make_unique<StubMaterial>(renderer, asked);
    scene.addObject("a", std::move(object));
    graph().addNode("a", itemOf("a"));
    scene.setBackground(renderer, "background");
    const std::vector<DrawCommand> frame = draw(61.75);
    EXPECT_EQ(std::get<float>(frame.at(2).uniforms.at(1).second), 61.75F);
    EXPECT_EQ(asked.at(0).time, 61.75);
    for (std::size_t i = frame.size() - 2; i < frame.size(); ++i) {
        EXPECT_THAT(frame[i].uniforms, SizeIs(3)) << "resolution and two samplers";
    }
}

// --- The walk ---

TEST_F(Scene, MultipliesTheTransformsAlongTheTree)
{
    scene.addObject("a", objectOf(100));
    scene.addObject("b", objectOf(101));
    graph().addNode("a", itemOf("a", glm::vec3(1.0F, 0.0F, 0.0F), 2.0F));
    graph().getNode("a")->addNode("b", itemOf("b", glm::vec3(0.0F, 3.0F, 0.0F), 0.5F));
    const std::vector<DrawCommand> items = itemsOf(draw());
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].vertexArray.get(), 100) << "the parent comes first";
    const glm::mat4 parent = placeOf(glm::vec3(1.0F, 0.0F, 0.0F), 2.0F);
    expectNear(matrixOf(items[0]), parent, 1e-6F);
    expectNear(matrixOf(items[1]), productOf(parent, placeOf(glm::vec3(0.0F, 3.0F, 0.0F), 0.5F)), 4e-6F);
    EXPECT_EQ(graph().getNode("a")->value.worldMatrix, matrixOf(items[0]));
}

TEST_F(Scene, DrawsWithTheIdentityViewUntilTheCameraIsSet)
{
    scene.addObject("a", objectOf(100));
    graph().addNode("a", itemOf("a"));
    const std::vector<DrawCommand> items = itemsOf(draw());
    EXPECT_EQ(viewIn(items.at(0)), glm::mat4(1.0F));
    expectNear(matrixOf(items.at(0)), placeOf(glm::vec3(0.0F)), 1e-6F);
    EXPECT_EQ(graph().value.worldMatrix, glm::mat4(1.0F));
}

TEST_F(Scene, DrawsAVisibleChildOfAHiddenItemPlacedByIt)
{
    scene.addObject("a", objectOf(100));
    scene.addObject("b", objectOf(101));
    graph().addNode("a", itemOf("a", glm::vec3(4.0F, 0.0F, 0.0F)));
    graph().getNode("a")->addNode("b", itemOf("b", glm::vec3(0.0F, 5.0F, 0.0F)));
    graph().getNode("a")->value.setVisible(false);
    const std::vector<DrawCommand> items = itemsOf(draw());
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].vertexArray.get(), 101);
    expectNear(matrixOf(items[0]),
               productOf(placeOf(glm::vec3(4.0F, 0.0F, 0.0F)), placeOf(glm::vec3(0.0F, 5.0F, 0.0F))), 4e-6F);
}

TEST_F(Scene, DrawsNothingForATransformAloneWhateverItsVisibility)
{
    scene.addObject("", objectOf(100)); // even an object of that name
    scene.addObject("b", objectOf(101));
    graph().addNode("pivot", itemOf("", glm::vec3(0.0F, 0.0F, 2.0F), 3.0F));
    graph().getNode("pivot")->addNode("b", itemOf("b", glm::vec3(1.0F, 0.0F, 0.0F)));
    for (const bool visible : {true, false}) {
        graph().getNode("pivot")->value.setVisible(visible);
        const std::vector<DrawCommand> items = itemsOf(draw());
        ASSERT_EQ(items.size(), 1U);
        expectNear(
            matrixOf(items[0]),
            productOf(placeOf(glm::vec3(0.0F, 0.0F, 2.0F), 3.0F), placeOf(glm::vec3(1.0F, 0.0F, 0.0F))),
            4e-6F);
    }
}

TEST_F(Scene, DrawsOneObjectForEachItemThatNamesIt)
{
    scene.addObject("a", objectOf(100));
    for (int i = 0; i < 4; ++i) {
        graph().addNode(std::to_string(i), itemOf("a", glm::vec3(static_cast<float>(i), 0.0F, 0.0F)));
    }
    std::vector<float> places;
    for (const DrawCommand& command : itemsOf(draw())) {
        EXPECT_EQ(command.vertexArray.get(), 100);
        places.push_back(matrixOf(command)[3].x);
    }
    EXPECT_THAT(places, testing::UnorderedElementsAre(0.0F, 1.0F, 2.0F, 3.0F));
}

TEST_F(Scene, DrawsTheRootItselfWhenItIsGivenAnObject)
{
    scene.addObject("a", objectOf(100));
    graph().value.objectName = "a";
    EXPECT_THAT(itemsOf(draw()), SizeIs(1));
}

TEST_F(Scene, ThrowsForAnUnknownObjectAndRendersNothing)
{
    scene.addObject("a", objectOf(100));
    graph().addNode("a", itemOf("a"));
    graph().addNode("ghost", itemOf("ghost"));
    EXPECT_THAT([this] { scene.draw(renderer, 0.0); }, ThrowsMessage<std::out_of_range>("_Map_base::at"));
    EXPECT_THAT(renderer.take(), IsEmpty());
    EXPECT_THAT(renderer.frames, IsEmpty());
    EXPECT_THAT([this] { scene.drawDisplayItem(glm::mat4(1.0F), itemOf("ghost"), zund::FrameBuffer(), 0.0); },
                ThrowsMessage<std::out_of_range>("_Map_base::at"));
}

TEST_F(Scene, TakesNoNoticeOfAHiddenItemsUnknownObject)
{
    graph().addNode("ghost", itemOf("ghost"));
    graph().getNode("ghost")->value.setVisible(false);
    EXPECT_THAT(itemsOf(draw()), IsEmpty());
}

// --- Camera ---

TEST_F(Scene, LooksFromEyeToTarget)
{
    scene.lookAt(glm::vec3(eye), glm::vec3(target), glm::vec3(up));
    expectNear(graph().value.localMatrix, viewOf(eye, target, up), 2e-6F);
}

TEST_F(Scene, PutsTheTargetStraightAheadAndTheEyeAtTheOrigin)
{
    scene.lookAt(glm::vec3(3.0F, 0.0F, 4.0F), glm::vec3(0.0F), glm::vec3(0.0F, 1.0F, 0.0F));
    const glm::mat4& view = graph().value.localMatrix;
    const glm::vec4 eye = view * glm::vec4(3.0F, 0.0F, 4.0F, 1.0F);
    const glm::vec4 target = view * glm::vec4(0.0F, 0.0F, 0.0F, 1.0F);
    const glm::vec4 above = view * glm::vec4(0.0F, 1.0F, 0.0F, 1.0F);
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(eye[i], 0.0F, 1e-6F);
        EXPECT_NEAR(target[i], i == 2 ? -5.0F : 0.0F, 1e-6F);
    }
    EXPECT_NEAR(above.y, 1.0F, 1e-6F);
}

TEST_F(Scene, ReplacesTheWholeViewEachTime)
{
    graph().value.localMatrix = glm::mat4(9.0F);
    scene.lookAt(glm::vec3(eye), glm::vec3(target), glm::vec3(up));
    expectNear(graph().value.localMatrix, viewOf(eye, target, up), 2e-6F);
}

TEST_F(Scene, HandsTheViewToItemsAndPutsItBeforeTheirTransforms)
{
    scene.addObject("a", objectOf(100));
    graph().addNode("a", itemOf("a", glm::vec3(1.0F, 2.0F, 3.0F), 2.0F));
    scene.lookAt(glm::vec3(eye), glm::vec3(target), glm::vec3(up));
    const DrawCommand item = itemsOf(draw()).at(0);
    const glm::mat4 view = viewOf(eye, target, up);
    expectNear(viewIn(item), view, 2e-6F);
    expectNear(matrixOf(item), productOf(view, placeOf(glm::vec3(1.0F, 2.0F, 3.0F), 2.0F)), 4e-6F);
}

TEST_F(Scene, GivesNansForACameraThatLooksNowhereOrAlongItsUp)
{
    scene.lookAt(glm::vec3(1.0F), glm::vec3(1.0F), glm::vec3(0.0F, 1.0F, 0.0F));
    EXPECT_TRUE(std::isnan(graph().value.localMatrix[0][0]));
    scene.lookAt(glm::vec3(0.0F, 5.0F, 0.0F), glm::vec3(0.0F), glm::vec3(0.0F, 1.0F, 0.0F));
    EXPECT_TRUE(std::isnan(graph().value.localMatrix[0][0]));
    EXPECT_NO_THROW(draw());
}

// --- Objects and lights ---

TEST_F(Scene, KeepsTheFirstObjectOfAName)
{
    std::vector<StubMaterial::Asked> asked;
    EXPECT_TRUE(scene.addObject("a", objectOf(100)));
    DisplayObject second = objectOf(101);
    second.material = std::make_unique<StubMaterial>(renderer, asked);
    EXPECT_FALSE(scene.addObject("a", std::move(second)));
    graph().addNode("a", itemOf("a"));
    EXPECT_EQ(itemsOf(draw()).at(0).vertexArray.get(), 100);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(Scene, SendsItsLightsInTheOrderOfTheirAdding)
{
    scene.addObject("a", objectOf(100));
    graph().addNode("a", itemOf("a"));
    for (int i = 1; i <= 9; ++i) {
        scene.addLight({glm::vec3(static_cast<float>(i), 0.0F, -1.0F), glm::vec3(0.0F), glm::vec3(0.0F)});
    }
    const DrawCommand item = itemsOf(draw()).at(0);
    const auto& positions = std::get<std::vector<glm::vec3>>(item.uniformArrays.at(0).second);
    ASSERT_THAT(positions, SizeIs(8));
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(positions[i], glm::vec3(static_cast<float>(i + 1), 0.0F, -1.0F));
    }
}

TEST_F(Scene, UsesTheAspectOfItsResolution)
{
    scene.addObject("a", objectOf(100));
    graph().addNode("a", itemOf("a"));
    const DrawCommand item = itemsOf(draw()).at(0);
    expectNear(std::get<glm::mat4>(item.uniforms.at(2).second),
               projectionOf(0.7853982, 320.0 / 200.0, 0.5, 20.0), 1e-6F);
}

} // namespace
