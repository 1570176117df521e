#include "scenes/credits_scene.h"

#include "tests/support/recording_renderer.h"
#include "tests/support/test_assets.h"
#include "tools/common/quiet_output.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

class CreditsSceneTest : public testing::Test {
protected:
    CreditsSceneTest()
    {
        folder.enter();
        folder.writePack({{"another.dds", std::string(200, 'a')}, {"title.dds", std::string(130, 't')}});
    }

    /// The commands of one frame.
    std::vector<zund::DrawCommand> drawFrame(CreditsScene& credits)
    {
        credits.scene.draw(renderer, 12.5);
        return renderer.frames.back();
    }

    ShowFolder folder;
    RecordingRenderer renderer;
};

TEST_F(CreditsSceneTest, LoadsTheTitleBehindItsHeaderAtFullSize)
{
    const pack::Packfile pack("assets/assets.pack");
    const CreditsScene credits(renderer, pack, {320, 200});
    ASSERT_EQ(renderer.textures.size(), 1U);
    EXPECT_EQ(renderer.textures[0].width, 3840);
    EXPECT_EQ(renderer.textures[0].height, 2160);
    EXPECT_EQ(renderer.textures[0].data, pack.getFile("title.dds", true));
}

TEST_F(CreditsSceneTest, MakesItsObjectsInOrder)
{
    const pack::Packfile pack("assets/assets.pack");
    CreditsScene credits(renderer, pack, {320, 200});
    // What every scene starts with ends with the lookup of the sky's colour.
    const auto sky = std::find_if(renderer.calls.begin(), renderer.calls.end(), [](const std::string& call) {
        return call.find("background_color") != std::string::npos;
    });
    ASSERT_NE(sky, renderer.calls.end());
    const std::vector<std::string> own(sky + 1, renderer.calls.end());
    ASSERT_EQ(own.size(), 5U);
    EXPECT_THAT(own[0], HasSubstr("createIndexedBuffer(9, 3, 6, null, null, null)"));
    EXPECT_THAT(own[1], HasSubstr("loadTextureDXT(3840, 2160)"));
    EXPECT_THAT(own[2], HasSubstr("createShader(vertex"));
    EXPECT_THAT(own[3], HasSubstr("createShader(fragment"));
    EXPECT_THAT(own[4], HasSubstr("createProgram("));
}

TEST_F(CreditsSceneTest, CoversTheWholeOfClipSpaceInItsMiddle)
{
    const pack::Packfile pack("assets/assets.pack");
    const CreditsScene credits(renderer, pack, {320, 200});
    const RecordingRenderer::Mesh& triangle = renderer.meshes.back();
    EXPECT_THAT(triangle.positions, ElementsAre(-1, -1, 0, 3, -1, 0, -1, 3, 0));
    EXPECT_THAT(triangle.indices, ElementsAre(0, 1, 2));
    EXPECT_THAT(triangle.uvs, ElementsAre(0, 0, 1, 0, 0, 1));
}

TEST_F(CreditsSceneTest, DrawsThePictureWithoutASingleUniform)
{
    const pack::Packfile pack("assets/assets.pack");
    CreditsScene credits(renderer, pack, {320, 200});
    const std::vector<zund::DrawCommand> frame = drawFrame(credits);
    ASSERT_EQ(frame.size(), 7U); // two clears, sky, picture, clear of the screen, two passes
    const zund::DrawCommand& picture = frame[3];
    EXPECT_THAT(picture.uniforms, IsEmpty());
    EXPECT_THAT(picture.uniformArrays, IsEmpty());
    EXPECT_EQ(picture.textures[0].get(), renderer.textures[0].id);
    EXPECT_FALSE(picture.textures[1].isValid());
    EXPECT_EQ(picture.vertexArray.getIndexes(), 3U);
    EXPECT_TRUE(picture.depthWrite);
}

TEST_F(CreditsSceneTest, KeepsTheDefaultChainAndABlackSky)
{
    const pack::Packfile pack("assets/assets.pack");
    CreditsScene credits(renderer, pack, {320, 200});
    const auto madePasses =
        std::count_if(renderer.calls.begin(), renderer.calls.end(),
                      [](const std::string& call) { return call.starts_with("createTexture2d"); });
    EXPECT_EQ(madePasses, 2);
    for (const std::string& source : renderer.sources) {
        EXPECT_EQ(source.find("27.0 / 64.0"), std::string::npos); // no letterbox
    }
    const std::vector<zund::DrawCommand> frame = drawFrame(credits);
    const zund::DrawCommand& sky = frame[2];
    ASSERT_EQ(sky.uniforms.size(), 3U);
    EXPECT_EQ(std::get<glm::vec3>(sky.uniforms[2].second), glm::vec3(0.0F));
}

TEST_F(CreditsSceneTest, DoesNotMove)
{
    const pack::Packfile pack("assets/assets.pack");
    CreditsScene credits(renderer, pack, {320, 200});
    const tools::QuietOutput quiet;
    const tolv::SyncDevice sync("assets/sync", 128.0, 16);
    renderer.take();
    credits.update(renderer, 0.0, sync);
    EXPECT_THAT(renderer.calls, IsEmpty());
    const std::vector<zund::DrawCommand> first = drawFrame(credits);
    credits.update(renderer, 170.0, sync);
    const std::vector<zund::DrawCommand> later = drawFrame(credits);
    ASSERT_EQ(first.size(), later.size());
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].program.get(), later[i].program.get()) << i;
        ASSERT_EQ(first[i].uniforms.size(), later[i].uniforms.size()) << i;
        for (std::size_t j = 0; j < first[i].uniforms.size(); ++j) {
            EXPECT_EQ(first[i].uniforms[j].second, later[i].uniforms[j].second) << i << ", " << j;
        }
    }
}

TEST_F(CreditsSceneTest, NeedsTheTitle)
{
    folder.writePack({{"another.dds", std::string(200, 'a')}});
    const pack::Packfile pack("assets/assets.pack");
    EXPECT_THAT(
        [&] {
            CreditsScene(renderer, pack, {320, 200});
        },
        ThrowsMessage<std::out_of_range>("No such file in pack: title.dds"));
}

} // namespace
