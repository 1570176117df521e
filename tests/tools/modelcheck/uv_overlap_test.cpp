#include "tools/modelcheck/uv_overlap.h"

#include <gtest/gtest.h>

using tools::modelcheck::ImportedMesh;
using tools::modelcheck::uvOverlap;

namespace {

void addTriangle(ImportedMesh& mesh, const glm::vec2& a, const glm::vec2& b, const glm::vec2& c)
{
    const auto first = static_cast<unsigned int>(mesh.uvs.size());
    mesh.uvs.insert(mesh.uvs.end(), {a, b, c});
    mesh.triangles.push_back({first, first + 1, first + 2});
}

void addRectangle(ImportedMesh& mesh, const glm::vec2& low, const glm::vec2& high)
{
    addTriangle(mesh, low, {high.x, low.y}, high);
    addTriangle(mesh, low, high, {low.x, high.y});
}

TEST(UvOverlap, IsNoneBetweenNeighbours)
{
    ImportedMesh mesh;
    addRectangle(mesh, {0.1F, 0.1F}, {0.5F, 0.7F});
    addRectangle(mesh, {0.5F, 0.1F}, {0.9F, 0.7F});
    EXPECT_EQ(uvOverlap(mesh), 0.0);
}

TEST(UvOverlap, IsNoneOnASharedEdgeThroughTheMiddlesOfCells)
{
    ImportedMesh mesh;
    addRectangle(mesh, {0.0F, 0.0F}, {1.0F, 1.0F});
    EXPECT_EQ(uvOverlap(mesh), 0.0);
}

TEST(UvOverlap, IsAllForTwoInOnePlace)
{
    ImportedMesh mesh;
    addTriangle(mesh, {0.1F, 0.1F}, {0.7F, 0.2F}, {0.3F, 0.9F});
    addTriangle(mesh, {0.3F, 0.9F}, {0.7F, 0.2F}, {0.1F, 0.1F}); // mirrored
    EXPECT_EQ(uvOverlap(mesh), 1.0);
}

TEST(UvOverlap, IsAShareOfWhatIsUsed)
{
    ImportedMesh mesh;
    addRectangle(mesh, {0.125F, 0.125F}, {0.375F, 0.375F});
    addRectangle(mesh, {0.25F, 0.125F}, {0.5F, 0.375F}); // a third of both together
    EXPECT_NEAR(uvOverlap(mesh), 1.0 / 3.0, 0.005);
}

TEST(UvOverlap, CountsAThirdTriangleInOnePlaceNoMore)
{
    ImportedMesh mesh;
    for (int i = 0; i < 3; ++i) {
        addTriangle(mesh, {0.1F, 0.1F}, {0.7F, 0.2F}, {0.3F, 0.9F});
    }
    EXPECT_EQ(uvOverlap(mesh), 1.0);
}

TEST(UvOverlap, IsNoneWhereNothingIsUsed)
{
    ImportedMesh mesh;
    EXPECT_EQ(uvOverlap(mesh), 0.0);
    addTriangle(mesh, {0.1F, 0.1F}, {0.1F, 0.1F}, {0.1F, 0.1F});
    addRectangle(mesh, {1e9F, 1e9F}, {2e9F, 2e9F}); // outside of the picture
    addRectangle(mesh, {-2e9F, -2e9F}, {-1e9F, -1e9F});
    EXPECT_EQ(uvOverlap(mesh), 0.0);
}

} // namespace
