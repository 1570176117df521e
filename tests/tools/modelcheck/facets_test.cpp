#include "tools/modelcheck/facets.h"

#include <cmath>
#include <glm/geometric.hpp>
#include <glm/trigonometric.hpp>
#include <gtest/gtest.h>

using tools::modelcheck::ImportedMesh;
using tools::modelcheck::Surface;

namespace {

/// Two strips, 100 long, that meet in the z axis: the second turns down by an angle.
struct Bend {
    float width;
    float degrees;
};

/// With vertices of its own for each strip, which the edge of a curve shares a normal at.
ImportedMesh meshOf(const Bend& bend)
{
    const float angle = glm::radians(bend.degrees);
    const glm::vec3 ends[] = {{-bend.width, 0.0F, 0.0F},
                              {bend.width * std::cos(angle), -bend.width * std::sin(angle), 0.0F}};
    const glm::vec3 between(std::sin(angle / 2.0F), std::cos(angle / 2.0F), 0.0F);
    constexpr glm::vec3 along(0.0F, 0.0F, 100.0F);
    ImportedMesh mesh;
    for (unsigned int strip = 0; strip < 2; ++strip) {
        const glm::vec3 corners[] = {ends[strip], glm::vec3(0.0F), along, ends[strip] + along};
        mesh.positions.insert(mesh.positions.end(), std::begin(corners), std::end(corners));
        mesh.normals.insert(mesh.normals.end(), 4, between);
        const unsigned int first = 4 * strip;
        mesh.triangles.push_back({first, first + 1, first + 2});
        mesh.triangles.push_back({first, first + 2, first + 3});
    }
    return mesh;
}

tools::modelcheck::Finding facetsOf(const ImportedMesh& mesh, float pixel = 1.0F)
{
    return tools::modelcheck::facets(mesh, Surface(mesh), pixel);
}

TEST(Facets, AreSeenWhereTheyLeaveTheCurveByTwoPixels)
{
    EXPECT_EQ(facetsOf(meshOf({20.0F, 60.0F})).count, 1U); // 10 * tan 15 degrees is 2.7
    EXPECT_EQ(facetsOf(meshOf({20.0F, 40.0F})).count, 0U); // 10 * tan 10 degrees is 1.8
    EXPECT_EQ(facetsOf(meshOf({20.0F, -60.0F})).count, 1U);
    EXPECT_EQ(facetsOf(meshOf({20.0F, 0.0F})).count, 0U);
}

TEST(Facets, AreMeasuredInPixels)
{
    EXPECT_EQ(facetsOf(meshOf({20.0F, 60.0F}), 1.3F).count, 1U);
    EXPECT_EQ(facetsOf(meshOf({20.0F, 60.0F}), 1.4F).count, 0U);
    EXPECT_EQ(facetsOf(meshOf({0.02F, 60.0F}), 0.001F).count, 1U);
}

TEST(Facets, AreMoreThanSixPixelsWide)
{
    EXPECT_EQ(facetsOf(meshOf({6.1F, 170.0F})).count, 1U);
    EXPECT_EQ(facetsOf(meshOf({5.9F, 170.0F})).count, 0U);
}

TEST(Facets, LieBesideTheMiddleOfTheirEdge)
{
    const glm::vec3 place = facetsOf(meshOf({20.0F, 60.0F})).first;
    EXPECT_EQ(place, glm::vec3(0.0F, 0.0F, 50.0F));
}

TEST(Facets, AreNotSoughtAtHardEdges)
{
    ImportedMesh mesh = meshOf({20.0F, 60.0F});
    for (std::size_t vertex = 0; vertex < 4; ++vertex) {
        mesh.normals[vertex] = {0.0F, 1.0F, 0.0F};
    }
    EXPECT_EQ(facetsOf(mesh).count, 0U);
}

TEST(Facets, AreNotSoughtWhereAnEdgeGoesFromSmoothToHard)
{
    ImportedMesh mesh = meshOf({20.0F, 60.0F});
    mesh.normals[2] = {0.0F, 1.0F, 0.0F}; // at one of its ends
    EXPECT_EQ(facetsOf(mesh).count, 0U);
}

TEST(Facets, HaveAnArea)
{
    ImportedMesh mesh = meshOf({20.0F, 60.0F});
    mesh.positions[0] = mesh.positions[3] = {0.0F, 0.0F, 50.0F}; // the first strip is a line now
    EXPECT_EQ(facetsOf(mesh).count, 0U);
}

} // namespace
