#include "tools/modelcheck/surface.h"

#include "tests/tools/modelcheck/imported_boxes.h"
#include "tools/modelcheck/ray_caster.h"

#include <algorithm>
#include <gtest/gtest.h>

using standins::Box;
using tools::modelcheck::ImportedMesh;
using tools::modelcheck::RayCaster;
using tools::modelcheck::Surface;

namespace {

constexpr Box big = {{0.0F, 0.0F, 0.0F}, {4.0F, 4.0F, 4.0F}};
constexpr Box inside = {{1.0F, 1.0F, 1.0F}, {2.0F, 2.0F, 2.0F}};
constexpr Box beside = {{5.0F, 0.0F, 0.0F}, {6.0F, 1.0F, 1.0F}};
constexpr std::size_t trianglesOfBox = 12;

ImportedMesh twoBoxes(const Box& first, const Box& second)
{
    const Box boxes[] = {first, second};
    return importedBoxes(boxes);
}

TEST(Surface, CountsSlivers)
{
    ImportedMesh mesh = importedBoxes({&big, 1});
    mesh.positions.emplace_back(2.0F, 1e-6F, 0.0F); // in the middle of an edge, but for rounding
    mesh.positions.emplace_back(2.0F, 1e-3F, 0.0F);
    mesh.normals.resize(26, {0.0F, 0.0F, 1.0F});
    const auto at = [&mesh](const glm::vec3& position) {
        return static_cast<unsigned int>(std::find(mesh.positions.begin(), mesh.positions.end(), position) -
                                         mesh.positions.begin());
    };
    mesh.triangles.push_back({at({0.0F, 0.0F, 0.0F}), at({4.0F, 0.0F, 0.0F}), 24});
    mesh.triangles.push_back({at({0.0F, 0.0F, 0.0F}), at({4.0F, 0.0F, 0.0F}), 25});
    const tools::modelcheck::Finding found = Surface(mesh).degenerateTriangles();
    EXPECT_EQ(found.count, 1U);
    EXPECT_FLOAT_EQ(found.first.x, 2.0F);
}

TEST(Surface, HasNoBoundaryWhereVerticesAreSplit)
{
    const ImportedMesh mesh = twoBoxes(big, beside);
    EXPECT_EQ(Surface(mesh).boundaryEdges().count, 0U);
}

TEST(Surface, HasNoBoundaryWhereRoundingMovedAVertex)
{
    ImportedMesh mesh = importedBoxes({&big, 1});
    mesh.positions[0].x += 1e-6F;
    EXPECT_EQ(Surface(mesh).boundaryEdges().count, 0U);
    mesh.positions[0].x += 1e-3F;
    EXPECT_GT(Surface(mesh).boundaryEdges().count, 0U);
}

TEST(Surface, HidesBoundaryEdgesInsideOfIt)
{
    ImportedMesh mesh = twoBoxes(big, inside);
    mesh.triangles.pop_back(); // of the box inside
    EXPECT_EQ(Surface(mesh).boundaryEdges().count, 3U);
    EXPECT_EQ(Surface(mesh).visibleBoundaryEdges(RayCaster(mesh)).count, 0U);
}

TEST(Surface, ShowsBoundaryEdgesBesideIt)
{
    ImportedMesh mesh = twoBoxes(big, beside);
    mesh.triangles.pop_back();
    EXPECT_EQ(Surface(mesh).visibleBoundaryEdges(RayCaster(mesh)).count, 3U);
}

/// Boxes, the first of them without its top, y = 4.
ImportedMesh openBox(const Box& other)
{
    ImportedMesh mesh = twoBoxes(big, other);
    mesh.triangles.erase(mesh.triangles.begin() + 4, mesh.triangles.begin() + 6);
    return mesh;
}

std::size_t visibleBacks(const ImportedMesh& mesh)
{
    return Surface(mesh).visibleBacks(RayCaster(mesh)).count;
}

TEST(Surface, ShowsTheBacksInsideOfAnOpenBox)
{
    EXPECT_EQ(visibleBacks(openBox(beside)), trianglesOfBox - 2);
    EXPECT_EQ(visibleBacks(twoBoxes(big, beside)), 0U);
}

TEST(Surface, HidesBacksBehindALid)
{
    const Box lid = {{-1.0F, 3.9F, -1.0F}, {5.0F, 5.0F, 5.0F}};
    EXPECT_EQ(visibleBacks(openBox(lid)), 0U);
}

TEST(Surface, HidesBacksInsideOfIt)
{
    const Box around = {{-1.0F, -1.0F, -1.0F}, {5.0F, 5.0F, 5.0F}};
    EXPECT_EQ(visibleBacks(openBox(around)), 0U);
}

TEST(Surface, TakesNoNoticeOfBacksBehindACrack)
{
    const Box lid = {{0.0F, 4.1F, 0.0F}, {4.0F, 5.0F, 4.0F}};
    const ImportedMesh mesh = openBox(lid);
    EXPECT_EQ(Surface(mesh).visibleBoundaryEdges(RayCaster(mesh)).count, 4U);
    EXPECT_EQ(visibleBacks(mesh), 0U);
    EXPECT_GT(visibleBacks(openBox({{0.0F, 4.8F, 0.0F}, {4.0F, 5.0F, 4.0F}})), 0U);
}

TEST(Surface, KnowsAllSidesThatLieOnAnEdge)
{
    const ImportedMesh mesh = importedBoxes({&big, 1});
    const Surface surface(mesh);
    EXPECT_EQ(surface.sidesByEdge().size(), 18U); // of a box with a diagonal on each side
    for (const auto sides : surface.sidesByEdge()) {
        EXPECT_EQ(sides.size(), 2U);
    }
}

TEST(Surface, CountsEachComponentThatIsInsideOut)
{
    ImportedMesh mesh = twoBoxes(big, beside);
    turnInsideOut(mesh, trianglesOfBox);
    EXPECT_EQ(Surface(mesh).componentsInsideOut().count, 1U);
    EXPECT_EQ(Surface(mesh).trianglesAgainstNormals().count, 0U);
    turnInsideOut(mesh, 0); // the first too, and the second right again
    EXPECT_EQ(Surface(mesh).componentsInsideOut().count, 1U);
    turnInsideOut(mesh, trianglesOfBox);
    EXPECT_EQ(Surface(mesh).componentsInsideOut().count, 2U);
}

TEST(Surface, TakesOpenComponentsForSeenFromEitherSide)
{
    ImportedMesh mesh = importedBoxes({&big, 1});
    turnInsideOut(mesh, 0);
    mesh.triangles.pop_back();
    EXPECT_EQ(Surface(mesh).componentsInsideOut().count, 0U);
}

TEST(Surface, CountsDuplicateTrianglesAcrossSplitVertices)
{
    const ImportedMesh mesh = twoBoxes(big, big);
    EXPECT_EQ(Surface(mesh).duplicateTriangles().count, trianglesOfBox);
}

} // namespace
