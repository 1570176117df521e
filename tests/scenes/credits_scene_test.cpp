#include "tests/scenes/scene_stage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using namespace catalogue;

using CreditsSceneTest = SceneTest<scenes::credits>;

TEST_F(CreditsSceneTest, BuildsItsPictureAfterTheDefaultChain)
{
    build();
    EXPECT_THAT(story(), ElementsAre("full-frame triangle at z 0", loading(textures::title),
                                     "shader scroller.vert", "shader credits.frag", "createProgram"));
}

TEST_F(CreditsSceneTest, DoesNotMove)
{
    lumeth::Scene& scene = build();
    renderer.take();
    EXPECT_THAT(changedBy([&] { update(170.0); }, scene), IsEmpty());
    EXPECT_THAT(renderer.calls, IsEmpty());
    const zund::DrawCommand first = drawsWith(scene, "credits.frag", 0.0).at(0);
    const zund::DrawCommand later = drawsWith(scene, "credits.frag", 170.0).at(0);
    EXPECT_EQ(first.textures[0].get(), later.textures[0].get());
    EXPECT_THAT(later.uniforms, IsEmpty());
}

} // namespace
