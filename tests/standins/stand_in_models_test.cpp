#include "engine/model_loader.h"
#include "scenes/catalogue.h"
#include "tests/standins/model_boxes.h"
#include "tests/standins/stand_ins.h"
#include "tests/support/in_temporary_folder.h"
#include "tests/support/recording_renderer.h"
#include "tools/common/error.h"

#include <cmath>
#include <glm/common.hpp>
#include <glm/geometric.hpp>
#include <glm/vec2.hpp>
#include <gmock/gmock.h>
#include <set>

using standins::Box;
using standins::ModelBoxes;
using testing::ThrowsMessage;

namespace {

namespace models = catalogue::models;

glm::vec3 vectorAt(const std::vector<float>& floats, std::size_t vertex)
{
    return {floats[3 * vertex], floats[3 * vertex + 1], floats[3 * vertex + 2]};
}

glm::vec2 uvAt(const RecordingRenderer::Mesh& mesh, std::size_t vertex)
{
    return {mesh.uvs[2 * vertex], mesh.uvs[2 * vertex + 1]};
}

/// The block around several.
Box around(std::span<const Box> boxes)
{
    Box all = boxes.front();
    for (const Box& box : boxes) {
        all.low = glm::min(all.low, box.low);
        all.high = glm::max(all.high, box.high);
    }
    return all;
}

Box boundsOf(const RecordingRenderer::Mesh& mesh)
{
    std::vector<Box> points;
    for (std::size_t i = 0; i < mesh.positions.size() / 3; ++i) {
        points.push_back({vectorAt(mesh.positions, i), vectorAt(mesh.positions, i)});
    }
    return around(points);
}

class StandInModel : public InTemporaryFolder, public testing::WithParamInterface<const ModelBoxes*> {
protected:
    /// What the show's own loader makes of the file.
    static RecordingRenderer::Mesh load()
    {
        write("model.glb", standins::modelFile(GetParam()->name));
        RecordingRenderer renderer;
        const lumeth::DisplayObject object = loadModel(renderer, "model.glb", false);
        EXPECT_EQ(object.modelMatrix, glm::mat4(1.0F));
        return renderer.meshes.at(0);
    }
};

TEST_P(StandInModel, HasTheBoundsOfItsBoxes)
{
    const Box expected = around(GetParam()->boxes);
    const Box bounds = boundsOf(load());
    for (glm::length_t axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(bounds.low[axis], expected.low[axis], 1e-5F);
        EXPECT_NEAR(bounds.high[axis], expected.high[axis], 1e-5F);
    }
}

TEST_P(StandInModel, HasAFrameOfUnitVectorsAtEveryVertex)
{
    const RecordingRenderer::Mesh mesh = load();
    const std::size_t vertices = GetParam()->boxes.size() * 24;
    ASSERT_EQ(mesh.positions.size(), 3 * vertices);
    ASSERT_EQ(mesh.normals.size(), 3 * vertices);
    ASSERT_EQ(mesh.tangents.size(), 3 * vertices);
    ASSERT_EQ(mesh.bitangents.size(), 3 * vertices);
    ASSERT_EQ(mesh.uvs.size(), 2 * vertices);
    for (std::size_t i = 0; i < vertices; ++i) {
        const glm::vec3 normal = vectorAt(mesh.normals, i);
        const glm::vec3 tangent = vectorAt(mesh.tangents, i);
        const glm::vec3 bitangent = vectorAt(mesh.bitangents, i);
        EXPECT_NEAR(glm::length(normal), 1.0F, 1e-5F);
        EXPECT_NEAR(glm::length(tangent), 1.0F, 1e-5F); // false for NaN
        EXPECT_NEAR(glm::length(bitangent), 1.0F, 1e-5F);
        EXPECT_NEAR(std::abs(glm::dot(glm::cross(tangent, bitangent), normal)), 1.0F, 1e-5F);
    }
}

TEST_P(StandInModel, HasTrianglesThatFaceOutAndTakeRoomOnTheTexture)
{
    const RecordingRenderer::Mesh mesh = load();
    ASSERT_EQ(mesh.indices.size(), GetParam()->boxes.size() * 36);
    for (std::size_t i = 0; i < mesh.indices.size(); i += 3) {
        const unsigned int* const corner = &mesh.indices[i];
        const glm::vec3 origin = vectorAt(mesh.positions, corner[0]);
        const glm::vec3 across = glm::cross(vectorAt(mesh.positions, corner[1]) - origin,
                                            vectorAt(mesh.positions, corner[2]) - origin);
        EXPECT_GT(glm::dot(across, vectorAt(mesh.normals, corner[0])), 0.0F);
        const glm::vec2 right = uvAt(mesh, corner[1]) - uvAt(mesh, corner[0]);
        const glm::vec2 up = uvAt(mesh, corner[2]) - uvAt(mesh, corner[0]);
        EXPECT_GT(std::abs(right.x * up.y - right.y * up.x), 0.1F); // half of a sixth of the picture, twice
    }
}

std::vector<const ModelBoxes*> allModels()
{
    std::vector<const ModelBoxes*> models;
    for (const ModelBoxes& model : standins::standInModels()) {
        models.push_back(&model);
    }
    return models;
}

INSTANTIATE_TEST_SUITE_P(All, StandInModel, testing::ValuesIn(allModels()),
                         [](const auto& row) { return std::string(row.param->name); });

Box boundsOf(const catalogue::Model& model)
{
    return around(standins::findModel(model.name)->boxes);
}

TEST(StandInModels, AreThoseOfTheShowEachOnce)
{
    std::set<std::string_view> names;
    for (const ModelBoxes& model : standins::standInModels()) {
        names.insert(model.name);
    }
    EXPECT_EQ(names.size(), std::size(catalogue::allModels));
    EXPECT_EQ(standins::standInModels().size(), names.size());
}

TEST(StandInModels, StandOnEachOther)
{
    EXPECT_EQ(boundsOf(models::sofa_legs).high.y, boundsOf(models::sofa).low.y);
    EXPECT_EQ(boundsOf(models::sofa_legs).low.y, -0.2F); // the floor, below the sofa's origin
    EXPECT_NEAR(boundsOf(models::tvtable).high.y, 4.44F + boundsOf(models::tv).low.y, 1e-5F);
    EXPECT_EQ(boundsOf(models::coffeetable).high.y, 0.8F); // where bottles stand
    EXPECT_EQ(boundsOf(models::burgerbox_top).low.y, boundsOf(models::burgerbox_bottom).high.y);
}

TEST(StandInModels, StackUpToABurgerInItsBox)
{
    const catalogue::Model* const layers[] = {&models::burger_bottom, &models::burger_steak,
                                              &models::burger_cheese, &models::burger_middle};
    for (std::size_t i = 1; i < std::size(layers); ++i) {
        EXPECT_EQ(boundsOf(*layers[i]).low.y, boundsOf(*layers[i - 1]).high.y) << layers[i]->name;
    }
    const float step = 0.5F; // from the first steak and cheese to the second
    EXPECT_EQ(boundsOf(models::burger_steak).low.y + step, boundsOf(models::burger_middle).high.y);
    EXPECT_NEAR(boundsOf(models::burger_cheese).high.y + step, boundsOf(models::burger_top).low.y, 1e-5F);
    EXPECT_GT(boundsOf(models::burger_bottom).low.y, boundsOf(models::burgerbox_bottom).low.y);
    EXPECT_LT(boundsOf(models::burger_top).high.y, boundsOf(models::burgerbox_top).high.y);
}

TEST(StandInModels, AreRefusedUnderAnyOtherName)
{
    EXPECT_THAT([] { standins::modelFile("chair"); },
                ThrowsMessage<tools::Error>("chair: the show has no such model"));
}

} // namespace
