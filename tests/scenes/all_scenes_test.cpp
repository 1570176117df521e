// What the five scenes with tracks have in common.

#include "scenes/bottle_scene.h"
#include "scenes/burger_scene.h"
#include "scenes/people_scene.h"
#include "scenes/room_scene.h"
#include "scenes/toilet_scene.h"
#include "tests/engine/matrices.h"
#include "tests/scenes/scene_stage.h"
#include "tests/scenes/track_watch.h"

#include <cmath>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

using testing::IsEmpty;
using testing::ThrowsMessage;
using testing::UnorderedElementsAreArray;

namespace {

using Names = std::vector<std::string>;

/// What of a scene the common tests need to know.
template<typename Scene>
struct Facts;

template<>
struct Facts<RoomScene> {
    static constexpr const char* name = "Room";
    static Names tracks() { return {}; }
    static Names textures()
    {
        return {"room_diff.dds",        "sofa_diff.dds",  "sofa_norm.dds",    "coffeetable_diff.dds",
                "coffeetable_norm.dds", "pisswasser.dds", "tv_emit.dds",      "plywood_diff.dds",
                "plywood_norm.dds",     "bigplant.dds",   "burgerbox_top.dds"};
    }
    static Names models()
    {
        return {"room",          "sofa",     "sofa_legs", "person",  "hat",      "glasses",
                "coffeetable",   "beer",     "tv",        "tvtable", "bigplant", "burgerbox_bottom",
                "burgerbox_top", "flowerpot"};
    }
    static std::string stockObject() { return "sofa"; }
};

template<>
struct Facts<PeopleScene> {
    static constexpr const char* name = "People";
    static Names tracks() { return {"hat_r"}; }
    static Names textures() { return {"sofa_diff.dds", "sofa_norm.dds", "pants.dds"}; }
    static Names models() { return {"sofa", "person", "hat", "glasses", "sofa_legs"}; }
    static std::string stockObject() { return "sofa"; }
};

template<>
struct Facts<BurgerScene> {
    static constexpr const char* name = "Burger";
    static Names tracks()
    {
        return {"burger_rotate", "burger_pitch", "box_open", "burger_open", "burger_random", "burger_text"};
    }
    static Names textures() { return {"burgerbox_top.dds", "burgertext.dds"}; }
    static Names models()
    {
        return {"burgerbox_bottom", "burgerbox_top", "burger_top",   "burger_bottom",
                "burger_middle",    "burger_steak",  "burger_cheese"};
    }
    static std::string stockObject() { return "boxb"; }
};

template<>
struct Facts<BottleScene> {
    static constexpr const char* name = "Bottle";
    static Names tracks() { return {}; }
    static Names textures() { return {"pisswasser.dds", "unlimited.dds"}; }
    static Names models() { return {"beer"}; }
    static std::string stockObject() { return "beer"; }
};

template<>
struct Facts<ToiletScene> {
    static constexpr const char* name = "Toilet";
    static Names tracks() { return {"burger_rotate", "lid_rotate"}; }
    static Names textures() { return {"queue_main.dds", "queue_border.dds"}; }
    static Names models() { return {"toilet", "toilet_lid"}; }
    static std::string stockObject() { return "toilet"; }
};

template<typename Scene>
Names tracksOf()
{
    Names names = {"camera_pos_x", "camera_pos_y", "camera_pos_z",
                   "camera_tgt_x", "camera_tgt_y", "camera_tgt_z"};
    const Names own = Facts<Scene>::tracks();
    names.insert(names.end(), own.begin(), own.end());
    return names;
}

template<typename Scene>
class AnyScene : public SceneTest<Scene> {
protected:
    /// Curves for all tracks, each another one: over rows 0 to 800.
    void writeCurves()
    {
        float value = 0.37F;
        for (const std::string& track : tracksOf<Scene>()) {
            this->folder.writeTrack(track, {{0, value, 1}, {400, value - 1.3F, 2}, {800, value + 0.7F, 0}});
            value += 0.113F;
        }
    }

    /// All matrices below the root, and the camera.
    static std::vector<lumeth::DisplayListItem> snapshot(lumeth::Scene& scene)
    {
        std::vector<lumeth::DisplayListItem> items;
        scene.getGraph().visit(
            [&](tree::Node<lumeth::DisplayListItem>*, tree::Node<lumeth::DisplayListItem>* node) {
                items.push_back(node->value);
            });
        return items;
    }

    static void expectSameState(const std::vector<lumeth::DisplayListItem>& actual,
                                const std::vector<lumeth::DisplayListItem>& expected)
    {
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < actual.size(); ++i) {
            SCOPED_TRACE(fmt::format("item {} \"{}\"", i, expected[i].objectName));
            // The setters carry a few units of the last place along from frame to frame.
            expectNear(actual[i].localMatrix, expected[i].localMatrix, 2e-6F);
            EXPECT_EQ(actual[i].visible, expected[i].visible);
        }
    }
};

using Scenes = testing::Types<RoomScene, PeopleScene, BurgerScene, BottleScene, ToiletScene>;

struct SceneNames {
    template<typename Scene>
    static std::string GetName(int /*place*/)
    {
        return Facts<Scene>::name;
    }
};
TYPED_TEST_SUITE(AnyScene, Scenes, SceneNames);

TYPED_TEST(AnyScene, ReadsEachOfItsTracksOnceAtTheRowOfTheTime)
{
    this->writeCurves();
    this->build();
    trackWatch.reads.clear();
    this->update(7.25);
    for (const TrackWatch::Read& read : trackWatch.reads) {
        EXPECT_EQ(read.row, 7.25 * 34.13333333333333) << read.track;
    }
    EXPECT_THAT(trackWatch.takeReads(), UnorderedElementsAreArray(tracksOf<TypeParam>()));
}

TYPED_TEST(AnyScene, ReadsNothingWhileItIsBuilt)
{
    this->build();
    EXPECT_THAT(trackWatch.reads, IsEmpty());
}

TYPED_TEST(AnyScene, UpdatesWithoutACallToTheRenderer)
{
    this->writeCurves();
    this->build();
    this->renderer.take();
    this->update(0.0);
    this->update(11.0);
    EXPECT_THAT(this->renderer.calls, IsEmpty());
}

TYPED_TEST(AnyScene, ShowsARowTheSameWhateverCameBefore)
{
    this->writeCurves();
    this->build();
    this->update(3.1);
    const auto early = this->snapshot(this->show->scene);
    this->update(17.9);
    const auto late = this->snapshot(this->show->scene);
    EXPECT_NE(early[0].localMatrix, late[0].localMatrix);
    this->update(3.1);
    this->expectSameState(this->snapshot(this->show->scene), early);

    // Entered at the later row, on its first frame.
    this->build();
    this->update(17.9);
    this->expectSameState(this->snapshot(this->show->scene), late);
}

TYPED_TEST(AnyScene, DriftsByRoundingAloneInAThousandFrames)
{
    this->writeCurves();
    this->build();
    this->update(3.1);
    const auto early = this->snapshot(this->show->scene);
    for (int frame = 0; frame < 1000; ++frame) {
        this->update(0.02 * frame);
    }
    this->update(3.1);
    const auto again = this->snapshot(this->show->scene);
    for (std::size_t i = 0; i < early.size(); ++i) {
        // A unit of the last place a frame at the very most.
        expectNear(again[i].localMatrix, early[i].localMatrix, 1e-4F);
    }
}

TYPED_TEST(AnyScene, GoesOnWhereTheCameraStandsOnItsTarget)
{
    lumeth::Scene& scene = this->build(); // no track has a file, so that all read 0
    EXPECT_NO_THROW(this->update(5.0));
    EXPECT_TRUE(std::isnan(scene.getGraph().value.localMatrix[0][0]));
    EXPECT_NO_THROW(scene.draw(this->renderer, 5.0));
    EXPECT_FALSE(this->renderer.frames.empty());
}

TYPED_TEST(AnyScene, EndsItsPictureWithLetterboxAndGamma)
{
    lumeth::Scene& scene = this->build();
    const std::vector<zund::DrawCommand> passes = scene.drawPostprocess();
    ASSERT_EQ(passes.size(), 2U);
    EXPECT_EQ(shaderName(this->programOf(passes[0]).fragmentSource), "letterbox");
    EXPECT_EQ(shaderName(this->programOf(passes[1]).fragmentSource), "gamma");
    for (const zund::DrawCommand& pass : passes) {
        for (std::size_t unit = 2; unit < 8; ++unit) {
            EXPECT_FALSE(pass.textures[unit].isValid()) << unit;
        }
    }
}

TYPED_TEST(AnyScene, ShadesWithTheStockMaterialOfItsOwn)
{
    lumeth::Scene& scene = this->build();
    const zund::DrawCommand command = this->drawn(scene, Facts<TypeParam>::stockObject());
    // The first program that a scene makes.
    EXPECT_EQ(command.program.get(), this->renderer.programs.begin()->first);
    EXPECT_EQ(this->programOf(command).fragmentSource, lumeth::Scene::material_frag);
}

TYPED_TEST(AnyScene, UploadsItsTexturesInTheSameSizesForAnyPicture)
{
    this->build({}, {320, 200});
    std::vector<std::pair<int, int>> small;
    for (const RecordingRenderer::Texture& texture : this->renderer.textures) {
        small.emplace_back(texture.width, texture.height);
    }
    this->renderer.textures.clear();
    this->build({}, {3840, 2160});
    std::vector<std::pair<int, int>> large;
    for (const RecordingRenderer::Texture& texture : this->renderer.textures) {
        large.emplace_back(texture.width, texture.height);
    }
    EXPECT_EQ(small, large);
    EXPECT_EQ(small.size(), Facts<TypeParam>::textures().size());
}

TYPED_TEST(AnyScene, LoadsEachTextureFromBehindItsHeader)
{
    this->build();
    std::vector<const void*> expected;
    for (const std::string& name : Facts<TypeParam>::textures()) {
        expected.push_back(this->assets->getFile(name, true));
    }
    std::vector<const void*> loaded;
    for (const RecordingRenderer::Texture& texture : this->renderer.textures) {
        loaded.push_back(texture.data);
    }
    EXPECT_THAT(loaded, UnorderedElementsAreArray(expected));
}

TYPED_TEST(AnyScene, NeedsEachOfItsTextures)
{
    for (const std::string& missing : Facts<TypeParam>::textures()) {
        std::vector<std::pair<std::string, std::string>> files = {{"another.dds", std::string(136, 'a')}};
        for (const std::string& name : Facts<TypeParam>::textures()) {
            if (name != missing) {
                files.emplace_back(name, std::string(136, 't'));
            }
        }
        this->folder.writePack(files);
        this->assets = std::make_unique<pack::Packfile>("assets/assets.pack");
        EXPECT_THAT([&] { this->build(); },
                    ThrowsMessage<std::out_of_range>("No such file in pack: " + missing));
    }
}

TYPED_TEST(AnyScene, NeedsEachOfItsModels)
{
    for (const std::string& missing : Facts<TypeParam>::models()) {
        const std::filesystem::path model = this->folder.asset(missing + ".glb");
        const std::filesystem::path elsewhere = this->folder.asset("elsewhere.glb");
        std::filesystem::rename(model, elsewhere);
        EXPECT_THAT([&] { this->build(); }, ThrowsMessage<std::runtime_error>("failed to import model"))
            << missing;
        std::filesystem::rename(elsewhere, model);
    }
    EXPECT_NO_THROW(this->build());
}

TYPED_TEST(AnyScene, LoadsItsOwnCopyOfEverything)
{
    this->build();
    const std::size_t meshes = this->renderer.meshes.size();
    const std::size_t textures = this->renderer.textures.size();
    this->build();
    EXPECT_EQ(this->renderer.meshes.size(), 2 * meshes);
    EXPECT_EQ(this->renderer.textures.size(), 2 * textures);
}

} // namespace
