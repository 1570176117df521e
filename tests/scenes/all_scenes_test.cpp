// What the scenes have in common.

#include "scenes/ombrel_scene.h"
#include "tests/engine/matrices.h"
#include "tests/gl/slots.h"
#include "tests/scenes/scene_stage.h"
#include "tests/scenes/track_watch.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>
#include <type_traits>

using testing::IsEmpty;
using testing::ThrowsMessage;
using testing::UnorderedElementsAreArray;

namespace {

using namespace catalogue;

/// The tracks that a scene looks up by its row, in that order.
std::vector<std::string> lookUpsOf(const Scene& row)
{
    std::vector<std::string> names;
    if (row.camera != CameraForm::None) {
        for (const Track* const track : tracks::camera) {
            names.emplace_back(track->name);
        }
    }
    for (const Track* const* track = row.tracks; *track != nullptr; ++track) {
        names.emplace_back((*track)->name);
    }
    return names;
}

class AnyScene : public SceneStage, public testing::WithParamInterface<Scene> {
protected:
    lumeth::Scene& build(const TrackValues& values = {}, std::pair<int, int> size = {320, 200})
    {
        return SceneStage::build(GetParam(), values, size);
    }

    /// Curves for all tracks, each another one: over rows 0 to 800.
    void writeCurves() const
    {
        float value = 0.37F;
        for (const std::string& track : lookUpsOf(GetParam())) {
            folder.writeTrack(track, {{0, value, 1}, {400, value - 1.3F, 2}, {800, value + 0.7F, 0}});
            value += 0.113F;
        }
    }

    /// All items as they stand now.
    std::vector<lumeth::DisplayListItem> snapshot() const
    {
        std::vector<lumeth::DisplayListItem> items;
        for (const lumeth::DisplayListItem* const item : itemsOf(show->scene())) {
            items.push_back(*item);
        }
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
INSTANTIATE_TEST_SUITE_P(Of, AnyScene, testing::ValuesIn(allScenes),
                         [](const auto& row) { return row.param.name; });

/// A scene with a camera.
class FilmedScene : public AnyScene {};

std::vector<Scene> filmedScenes()
{
    std::vector<Scene> rows;
    for (const Scene& row : allScenes) {
        if (row.camera != CameraForm::None) {
            rows.push_back(row);
        }
    }
    return rows;
}
INSTANTIATE_TEST_SUITE_P(Of, FilmedScene, testing::ValuesIn(filmedScenes()),
                         [](const auto& row) { return row.param.name; });

TEST_P(AnyScene, ReadsEachOfItsTracksOnceAtTheRowOfTheTime)
{
    writeCurves();
    build();
    trackWatch.reads.clear();
    update(7.25);
    for (const TrackWatch::Read& read : trackWatch.reads) {
        EXPECT_EQ(read.row, 7.25 * 34.13333333333333) << read.track;
    }
    std::vector<std::string> expected = lookUpsOf(GetParam());
    expected.erase(std::remove(expected.begin(), expected.end(), tracks::debug.name), expected.end());
    EXPECT_THAT(trackWatch.takeReads(), UnorderedElementsAreArray(expected));
}

TEST_P(AnyScene, ReadsNothingWhileItIsBuilt)
{
    build();
    EXPECT_THAT(trackWatch.reads, IsEmpty());
}

TEST_P(AnyScene, UpdatesWithoutACallToTheRenderer)
{
    writeCurves();
    build();
    renderer.take();
    update(0.0);
    update(11.0);
    EXPECT_THAT(renderer.calls, IsEmpty());
}

TEST_P(FilmedScene, ShowsARowTheSameWhateverCameBefore)
{
    writeCurves();
    build();
    update(3.1);
    const auto early = snapshot();
    update(17.9);
    const auto late = snapshot();
    EXPECT_NE(early[0].localMatrix, late[0].localMatrix);
    update(3.1);
    expectSameState(snapshot(), early);

    // Entered at the later row, on its first frame.
    build();
    update(17.9);
    expectSameState(snapshot(), late);
}

TEST_P(FilmedScene, DriftsByRoundingAloneInAThousandFrames)
{
    writeCurves();
    build();
    update(3.1);
    const auto early = snapshot();
    for (int frame = 0; frame < 1000; ++frame) {
        update(0.02 * frame);
    }
    update(3.1);
    const auto again = snapshot();
    for (std::size_t i = 0; i < early.size(); ++i) {
        // A unit of the last place a frame at the very most.
        expectNear(again[i].localMatrix, early[i].localMatrix, 1e-4F);
    }
}

TEST_P(FilmedScene, GoesOnWhereTheCameraStandsOnItsTarget)
{
    lumeth::Scene& scene = build(); // no track has a file, so that all read 0
    EXPECT_NO_THROW(update(5.0));
    EXPECT_TRUE(std::isnan(scene.getGraph().value.localMatrix[0][0]));
    EXPECT_NO_THROW(scene.draw(renderer, 5.0));
    EXPECT_FALSE(renderer.frames.empty());
}

TEST_P(FilmedScene, EndsItsPictureWithLetterboxAndGamma)
{
    lumeth::Scene& scene = build();
    const std::vector<zund::DrawCommand> passes = scene.drawPostprocess();
    ASSERT_EQ(passes.size(), 2U);
    EXPECT_EQ(fragmentShaderOf(passes[0]), "post_letterbox.frag");
    EXPECT_EQ(fragmentShaderOf(passes[1]), "post_gamma_encode.frag");
    for (const zund::DrawCommand& pass : passes) {
        for (std::size_t unit = 2; unit < 8; ++unit) {
            EXPECT_FALSE(pass.textures[unit].isValid()) << unit;
        }
    }
}

TEST_P(FilmedScene, ShadesWithTheStockMaterialOfItsOwn)
{
    lumeth::Scene& scene = build();
    const std::vector<zund::DrawCommand> draws = drawsWith(scene, "material.frag", 0.0);
    EXPECT_FALSE(draws.empty());
    for (const zund::DrawCommand& command : draws) {
        // The first program that a scene makes.
        EXPECT_EQ(command.program.get(), renderer.programs.begin()->first);
    }
}

TEST_P(AnyScene, UploadsItsTexturesInTheSameSizesForAnyPicture)
{
    build({}, {320, 200});
    std::vector<std::pair<int, int>> small;
    for (const RecordingRenderer::Texture& texture : renderer.textures) {
        small.emplace_back(texture.width, texture.height);
    }
    renderer.textures.clear();
    build({}, {3840, 2160});
    std::vector<std::pair<int, int>> large;
    for (const RecordingRenderer::Texture& texture : renderer.textures) {
        large.emplace_back(texture.width, texture.height);
    }
    EXPECT_EQ(small, large);
}

TEST_P(AnyScene, NeedsEachOfItsTextures)
{
    build();
    for (const std::string& missing : loadedTextures()) {
        std::vector<std::pair<std::string, std::string>> files;
        for (const Texture& texture : allTextures) {
            if (texture.name != missing) {
                files.emplace_back(texture.file, std::string(136, 't'));
            }
        }
        folder.writePack(files);
        assets = std::make_unique<pack::Packfile>("assets/assets.pack");
        EXPECT_THAT([&] { build(); },
                    ThrowsMessage<std::out_of_range>("No such file in pack: " + missing + ".dds"));
    }
}

TEST_P(AnyScene, NeedsEachOfItsModels)
{
    build();
    for (const std::string& missing : loadedModels()) {
        const std::filesystem::path model = folder.asset(missing + ".glb");
        const std::filesystem::path elsewhere = folder.asset("elsewhere.glb");
        std::filesystem::rename(model, elsewhere);
        EXPECT_THAT([&] { build(); }, ThrowsMessage<std::runtime_error>("failed to import model")) << missing;
        std::filesystem::rename(elsewhere, model);
    }
}

TEST_P(AnyScene, LoadsItsOwnCopyOfEverything)
{
    build();
    const std::size_t meshes = renderer.meshes.size();
    const std::size_t textures = renderer.textures.size();
    build();
    EXPECT_EQ(renderer.meshes.size(), 2 * meshes);
    EXPECT_EQ(renderer.textures.size(), 2 * textures);
}

TEST_P(AnyScene, LooksUpTheTracksOfItsRowInThatOrder)
{
    std::vector<std::string> lookUps;
    trackWatch.onLookUp = [&](const std::string& track) {
        lookUps.push_back(track);
    };
    build();
    EXPECT_EQ(lookUps, lookUpsOf(GetParam()));
}

/// Where a camera stands by its track values.
glm::vec3 eyeOf(CameraForm form, const glm::vec3& values)
{
    if (form == CameraForm::Point) {
        return values;
    }
    const float angle = values.x * 3.14F;
    return {values.z * std::cos(angle), values.y, values.z * std::sin(angle)};
}

TEST_P(AnyScene, ReadsItsCameraInTheFormOfItsRow)
{
    const glm::vec3 target(0.25F, -0.5F, 0.75F);
    for (const glm::vec3& values : {glm::vec3(0.0F, 1.0F, 2.0F), glm::vec3(0.5F, 1.5F, 2.5F)}) {
        lumeth::Scene& scene = build(cameraAt(values, target));
        const glm::mat4 before = itemsOf(scene).front()->localMatrix;
        update(1.0);
        const glm::mat4& camera = itemsOf(scene).front()->localMatrix;
        if (GetParam().camera == CameraForm::None) {
            EXPECT_EQ(camera, before);
        } else {
            expectNear(camera, viewOf(eyeOf(GetParam().camera, values), target, {0.0, 1.0, 0.0}), 1e-5F);
        }
    }
}

TEST(OmbrelScene, HasOneVirtualOperationAndNoVirtualDestructor)
{
    EXPECT_TRUE(std::is_abstract_v<OmbrelScene>);
    EXPECT_FALSE(std::has_virtual_destructor_v<OmbrelScene>);
    EXPECT_EQ(slotOf(&OmbrelScene::update), 0U);
    EXPECT_EQ(sizeof(OmbrelScene), sizeof(void*));
}

/// Where the tables of the catalogue meet.
class AllScenes : public SceneStage {
protected:
    void buildAll()
    {
        for (const Scene& row : allScenes) {
            build(row);
        }
    }
};

template<typename Row, std::size_t Count>
std::set<std::string> namesOf(const Row (&rows)[Count])
{
    std::set<std::string> names;
    for (const Row& row : rows) {
        names.emplace(row.name);
    }
    return names;
}

std::set<std::string> asSet(const std::vector<std::string>& names)
{
    return {names.begin(), names.end()};
}

TEST_F(AllScenes, LoadAllModelsAndTexturesAndNoOthers)
{
    buildAll();
    EXPECT_EQ(asSet(loadedModels()), namesOf(allModels));
    EXPECT_EQ(asSet(loadedTextures()), namesOf(allTextures));
}

TEST_F(AllScenes, LookUpAllTracksButTheOneThatChoosesThem)
{
    std::set<std::string> lookUps;
    trackWatch.onLookUp = [&](const std::string& track) {
        lookUps.insert(track);
    };
    buildAll();
    EXPECT_FALSE(lookUps.contains(tracks::scene.name));
    lookUps.emplace(tracks::scene.name);
    EXPECT_EQ(lookUps, namesOf(allTracks));
}

} // namespace
