#include "scenes/full_frame.h"

#include "tests/support/recording_renderer.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(FullFrameTriangle, CoversClipSpaceAtItsDepth)
{
    RecordingRenderer renderer;
    const zund::VertexArray made = createFullFrameTriangle(renderer, -0.25F);
    const RecordingRenderer::Mesh& triangle = renderer.meshes.at(0);
    EXPECT_THAT(triangle.positions,
                ElementsAre(-1.0F, -1.0F, -0.25F, 3.0F, -1.0F, -0.25F, -1.0F, 3.0F, -0.25F));
    EXPECT_THAT(triangle.indices, ElementsAre(0U, 1U, 2U));
    EXPECT_THAT(triangle.uvs, ElementsAre(0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F));
    EXPECT_THAT(triangle.normals, IsEmpty());
    EXPECT_THAT(triangle.tangents, IsEmpty());
    EXPECT_THAT(triangle.bitangents, IsEmpty());
    EXPECT_EQ(made.getIndexes(), 3U);
}

TEST(FullFrame, IsAsWideByHighAsThePicture)
{
    EXPECT_EQ(aspectOf({640, 270}), 640.0F / 270.0F);
}

} // namespace
