#include "tools/showcheck/near_plane_meter.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

zund::DrawCommand clearOf(int frameBuffer)
{
    zund::DrawCommand command;
    command.clear = true;
    command.frameBuffer = zund::FrameBuffer(frameBuffer);
    return command;
}

zund::DrawCommand drawOf(int vertexArray, unsigned long indices, bool depthWrite)
{
    zund::DrawCommand command;
    command.vertexArray = zund::VertexArray(vertexArray, 0, indices);
    command.depthWrite = depthWrite;
    return command;
}

/// The vertex array of each command; that of a clear is invalid, -1.
std::vector<int> arraysOf(const std::vector<zund::DrawCommand>& commands)
{
    std::vector<int> arrays;
    arrays.reserve(commands.size());
    for (const zund::DrawCommand& command : commands) {
        arrays.push_back(command.vertexArray.get());
    }
    return arrays;
}

const zund::DrawCommand backdrop = drawOf(1, 3, false);
const zund::DrawCommand model = drawOf(2, 300, true);
const zund::DrawCommand text = drawOf(3, 3, true);
const zund::DrawCommand otherModel = drawOf(4, 600, true);
const zund::DrawCommand post = drawOf(5, 3, false);

TEST(FrameParts, KeepTextLayersBehindTheModels)
{
    const tools::showcheck::FrameParts parts = tools::showcheck::splitFrame(
        {clearOf(1), clearOf(2), backdrop, model, text, otherModel, clearOf(-1), post, post});
    EXPECT_THAT(arraysOf(parts.models), ElementsAre(-1, -1, 1, 2, 4));
    EXPECT_THAT(arraysOf(parts.rest), ElementsAre(3, -1, 5, 5));
}

TEST(FrameParts, HoldAllOfAFrameWithoutModels)
{
    const tools::showcheck::FrameParts parts =
        tools::showcheck::splitFrame({clearOf(1), backdrop, text, clearOf(-1), post});
    EXPECT_THAT(arraysOf(parts.models), ElementsAre(-1, 1));
    EXPECT_THAT(arraysOf(parts.rest), ElementsAre(3, -1, 5));
}

TEST(FrameParts, AreNoneOfNothing)
{
    EXPECT_THAT(tools::showcheck::splitFrame({}).models, IsEmpty());
    EXPECT_THAT(tools::showcheck::splitFrame({}).rest, IsEmpty());
}

} // namespace
