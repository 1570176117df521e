#include "tests/tools/modelcheck/imported_boxes.h"
#include "tools/modelcheck/check_model.h"

#include <glm/geometric.hpp>
#include <gmock/gmock.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::StartsWith;
using tools::modelcheck::anyNumber;
using tools::modelcheck::ImportedMesh;
using tools::modelcheck::ModelRules;
using tools::modelcheck::Texture;

namespace {

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();

const ModelRules lid = *tools::modelcheck::findModelRules("toilet_lid");
constexpr ModelRules printed = {.name = "any", .texture = Texture::Prints};
constexpr ModelRules baked = {.name = "any", .texture = Texture::Baked};

TEST(CheckModel, FindsNothingWrongWithASoundModel)
{
    for (const ModelRules& rules : {lid, printed, baked}) {
        EXPECT_THAT(checkModel(importedLid(), rules).problems, IsEmpty());
    }
}

/// Gives what lies at (x, y) a normal between those of its two sides.
void shadeAsACurve(ImportedMesh& mesh, const glm::vec2& edge)
{
    for (std::size_t i = 0; i < mesh.positions.size(); ++i) {
        if (glm::vec2(mesh.positions[i]) == edge && mesh.normals[i].z == 0.0F) {
            mesh.normals[i] = glm::normalize(glm::vec3(edge.x > 0.0F ? 1.0F : -1.0F, 1.0F, 0.0F));
        }
    }
}

/// Something that would look wrong, done to the lid; vertex 0 is at (1.3, -0.05, 3.4), on the side x = 1.3.
struct Defect {
    const char* name;
    ModelRules rules;
    void (*make)(ImportedMesh& mesh);
    std::vector<std::string> problems;
};

// clang-format off
const Defect defects[] = {
    {"NanInAPosition", lid,
     [](ImportedMesh& mesh) { mesh.positions[0].x = nan; },
     {"1 vertex holds a NaN or an infinity, near (nan, -0.05, 3.40)"}},
    {"NanInANormal", lid,
     [](ImportedMesh& mesh) { mesh.normals[0].y = nan; },
     {"1 vertex holds a NaN or an infinity, near (1.30, -0.05, 3.40)"}},
    {"NanInATangent", lid,
     [](ImportedMesh& mesh) { mesh.tangents[0].z = nan; },
     {"1 vertex holds a NaN or an infinity, near (1.30, -0.05, 3.40)"}},
    {"InfinityInABitangent", lid,
     [](ImportedMesh& mesh) { mesh.bitangents[0].x = -infinity; },
     {"1 vertex holds a NaN or an infinity, near (1.30, -0.05, 3.40)"}},
    {"InfinityInTextureCoordinates", lid,
     [](ImportedMesh& mesh) { mesh.uvs[0].y = mesh.uvs[1].x = infinity; },
     {"2 vertices hold a NaN or an infinity, the first near (1.30, -0.05, 3.40)"}},
    {"ZeroNormal", lid,
     [](ImportedMesh& mesh) { mesh.normals[0] = glm::vec3(0.0F); },
     {"1 vertex has a non-unit normal, near (1.30, -0.05, 3.40)",
      "1 vertex has a degenerate tangent frame, near (1.30, -0.05, 3.40)"}},
    {"LongNormals", lid,
     [](ImportedMesh& mesh) { mesh.normals[0] *= 1.02F; mesh.normals[1] *= 0.98F; },
     {"2 vertices have non-unit normals, the first near (1.30, -0.05, 3.40)"}},
    {"LongTangent", lid,
     [](ImportedMesh& mesh) { mesh.tangents[0] *= 1.02F; },
     {"1 vertex has a non-unit tangent, near (1.30, -0.05, 3.40)"}},
    {"ShortBitangent", lid,
     [](ImportedMesh& mesh) { mesh.bitangents[0] *= 0.98F; },
     {"1 vertex has a non-unit bitangent, near (1.30, -0.05, 3.40)"}},
    {"TangentAlongTheNormal", lid,
     [](ImportedMesh& mesh) { mesh.tangents[0] = -mesh.normals[0]; },
     {"1 vertex has a degenerate tangent frame, near (1.30, -0.05, 3.40)"}},
    {"BitangentAlongTheTangent", lid,
     [](ImportedMesh& mesh) { mesh.bitangents[0] = mesh.tangents[0]; },
     {"1 vertex has a degenerate tangent frame, near (1.30, -0.05, 3.40)"}},
    {"OutsideOfThePrint", printed,
     [](ImportedMesh& mesh) { mesh.uvs[0].x = -0.01F; mesh.uvs[1].y = 1.01F; },
     {"2 vertices lie outside of the texture, the first near (1.30, -0.05, 3.40)"}},
    {"TriangleOfOnePoint", lid,
     [](ImportedMesh& mesh) { mesh.triangles.push_back({0, 0, 0}); },
     {"1 triangle is degenerate, near (1.30, -0.05, 3.40)"}},
    {"TriangleTwice", lid,
     [](ImportedMesh& mesh) { mesh.triangles.push_back(mesh.triangles[0]); },
     {"1 triangle is a duplicate, near (1.30, 0.02, 1.13)"}},
    {"TriangleTwiceTheSecondTurnedRound", lid,
     [](ImportedMesh& mesh) { mesh.triangles.push_back({0, 2, 1}); },
     {"1 triangle is a duplicate, near (1.30, 0.02, 1.13)",
      "1 triangle is wound against its normals, near (1.30, 0.02, 1.13)"}},
    {"TriangleTurnedRound", lid,
     [](ImportedMesh& mesh) { std::swap(mesh.triangles[0][0], mesh.triangles[0][1]); },
     {"1 triangle is wound against its normals, near (1.30, 0.02, 1.13)"}},
    {"NormalsTurnedRound", lid,
     [](ImportedMesh& mesh) { for (std::size_t i = 0; i < 4; ++i) { mesh.normals[i] = -mesh.normals[i]; } },
     {"2 triangles are wound against their normals, the first near (1.30, 0.02, 1.13)"}},
    {"InsideOut", lid,
     [](ImportedMesh& mesh) { turnInsideOut(mesh, 0); },
     {"1 closed component is inside out, near (-1.30, -0.05, 0.00)"}},
    {"Hole", lid,
     [](ImportedMesh& mesh) { mesh.triangles.erase(mesh.triangles.begin()); },
     {"3 boundary edges can be seen, the first near (1.30, 0.05, 0.00)"}},
    {"OpenTop", lid,
     [](ImportedMesh& mesh) { mesh.triangles.erase(mesh.triangles.begin() + 4, mesh.triangles.begin() + 6); },
     {"4 boundary edges can be seen, the first near (0.00, 0.15, 3.40)",
      "10 triangles show their backs, the first near (1.30, 0.02, 1.13)"}},
    {"EdgeShadedAsACurve", lid,
     [](ImportedMesh& mesh) { shadeAsACurve(mesh, {1.3F, 0.15F}); },
     {"1 edge of a curve is seen as a corner, near (1.30, 0.15, 1.70)"}},
    {"TwoSidesInOnePlaceOfTheBake", baked,
     [](ImportedMesh& mesh) { for (std::size_t i = 0; i < 4; ++i) { mesh.uvs[4 + i] = mesh.uvs[i]; } },
     {"19.98 % of the texture that it uses lies under several triangles; 0.5 % may"}},
    {"MovedRoot", lid,
     [](ImportedMesh& mesh) { mesh.root[3].z = 0.1F; },
     {"its root node moves, turns or scales it, which is for the scenes to do"}},
    {"ScaledRoot", lid,
     [](ImportedMesh& mesh) { mesh.root[0].x = 1.01F; },
     {"its root node moves, turns or scales it, which is for the scenes to do"}},
    {"RootOfNaN", lid,
     [](ImportedMesh& mesh) { mesh.root[0].x = nan; },
     {"its root node moves, turns or scales it, which is for the scenes to do"}},
    {"OriginInItsMiddle", lid,
     [](ImportedMesh& mesh) { for (glm::vec3& position : mesh.positions) { position.z -= 1.7F; } },
     {"its lowest z is -1.700, expected -0.35 to 0.05: the hinge, about which it turns, is its origin",
      "its highest z is 1.700, expected 3.2 to 3.6: it covers the bowl"}},
    {"TooHigh", lid,
     [](ImportedMesh& mesh) { for (glm::vec3& position : mesh.positions) { position.y *= 5.0F; } },
     {"its highest y is 0.750, expected at most 0.6: the hinge, about which it turns, is its origin"}},
};
// clang-format on

class SeededDefect : public testing::TestWithParam<Defect> {};

TEST_P(SeededDefect, IsToldWithItsPlace)
{
    ImportedMesh mesh = importedLid();
    GetParam().make(mesh);
    EXPECT_THAT(checkModel(mesh, GetParam().rules).problems, ElementsAreArray(GetParam().problems));
}

INSTANTIATE_TEST_SUITE_P(All, SeededDefect, testing::ValuesIn(defects),
                         [](const auto& info) { return info.param.name; });

TEST(CheckModel, LetsPrintsComeSeveralTimes)
{
    ImportedMesh mesh = importedLid();
    mesh.uvs.assign(mesh.uvs.size(), glm::vec2(0.0F));
    mesh.uvs[1].x = mesh.uvs[2].y = mesh.uvs[5].x = mesh.uvs[6].y = 0.5F;
    EXPECT_THAT(checkModel(mesh, printed).problems, IsEmpty());
}

TEST(CheckModel, LeavesTextureCoordinatesToModelsInOneColor)
{
    ImportedMesh mesh = importedLid();
    mesh.uvs.assign(mesh.uvs.size(), glm::vec2(7.0F, -3.0F));
    EXPECT_THAT(checkModel(mesh, lid).problems, IsEmpty());
}

TEST(CheckModel, LetsSheetsEndWhereTheRulesSaySo)
{
    ImportedMesh mesh = importedLid();
    mesh.triangles.pop_back();
    EXPECT_THAT(checkModel(mesh, {.name = "any", .visibleBoundaryEdges = anyNumber}).problems, IsEmpty());
    EXPECT_THAT(checkModel(mesh, {.name = "any", .visibleBoundaryEdges = 2}).problems,
                Contains("3 boundary edges can be seen, the first near (1.30, 0.05, 0.00); 2 may"));
}

TEST(CheckModel, OverlooksOneTriangleInFourHundredAgainstItsNormals)
{
    std::vector<standins::Box> boxes;
    for (int i = 0; i < 34; ++i) {
        const auto x = static_cast<float>(2 * i);
        boxes.push_back({{x, 0.0F, 0.0F}, {x + 1.0F, 1.0F, 1.0F}});
    }
    ImportedMesh mesh = importedBoxes(boxes); // 408 triangles
    std::swap(mesh.triangles[0][0], mesh.triangles[0][1]);
    EXPECT_THAT(checkModel(mesh, {}).problems, IsEmpty());
    std::swap(mesh.triangles[12][0], mesh.triangles[12][1]);
    EXPECT_THAT(checkModel(mesh, {}).problems,
                Contains(StartsWith("2 triangles are wound against their normals, the first near ")));
}

TEST(CheckModel, AsksNothingOfCustomNormals)
{
    ImportedMesh mesh = importedLid();
    std::swap(mesh.triangles[0][0], mesh.triangles[0][1]);
    EXPECT_THAT(checkModel(mesh, {.name = "any", .customNormals = true}).problems, IsEmpty());
}

TEST(CheckModel, HoldsFacetsAgainstTheScaleThatTheModelIsDrawnAt)
{
    ImportedMesh mesh = importedLid();
    shadeAsACurve(mesh, {1.3F, 0.15F});
    EXPECT_THAT(checkModel(mesh, {.name = "any", .scale = 0.013F}).problems,
                ElementsAre("1 edge of a curve is seen as a corner, near (1.30, 0.15, 1.70)"));
    EXPECT_THAT(checkModel(mesh, {.name = "any", .scale = 0.012F}).problems, IsEmpty());
    EXPECT_THAT(checkModel(mesh, {.name = "any", .facets = 1}).problems, IsEmpty());
    EXPECT_THAT(checkModel(mesh, {.name = "any", .customNormals = true}).problems, IsEmpty());
}

TEST(CheckModel, LetsTrianglesGoThroughTheirOwnPartWhereTheRulesSaySo)
{
    EXPECT_THAT(checkModel(foldedBoxes(), {.name = "any", .scale = 0.001F}).problems,
                ElementsAre("8 triangles go through their own parts, the first near (1.50, 2.17, 3.67)"));
    EXPECT_THAT(
        checkModel(foldedBoxes(), {.name = "any", .scale = 0.001F, .folds = 7}).problems,
        ElementsAre("8 triangles go through their own parts, the first near (1.50, 2.17, 3.67); 7 may"));
    EXPECT_THAT(checkModel(foldedBoxes(), {.name = "any", .scale = 0.001F, .folds = 8}).problems, IsEmpty());
}

TEST(CheckModel, LetsPartsGoThroughEachOtherUnlessTheRulesSayOtherwise)
{
    const standins::Box boxes[] = {{{0.0F, 0.0F, 0.0F}, {4.0F, 4.0F, 4.0F}},
                                   {{1.0F, 2.0F, 1.0F}, {1.5F, 2.5F, 9.0F}}};
    const ImportedMesh mesh = importedBoxes(boxes);
    const std::string sentence = "1 pair of parts goes through each other, near (1.50, 2.00, 5.00)";
    EXPECT_THAT(checkModel(mesh, {.name = "any"}).problems, IsEmpty());
    EXPECT_THAT(checkModel(mesh, {.name = "any"}).details, Contains(sentence));
    EXPECT_THAT(checkModel(mesh, {.name = "any", .crossingParts = 1}).problems, IsEmpty());
    EXPECT_THAT(checkModel(mesh, {.name = "any", .crossingParts = 0}).problems, ElementsAre(sentence));
}

TEST(CheckModel, LetsBacksShowWhereTheRulesSaySo)
{
    ImportedMesh mesh = importedLid();
    mesh.triangles.erase(mesh.triangles.begin() + 4, mesh.triangles.begin() + 6);
    EXPECT_THAT(checkModel(mesh, {.name = "any", .visibleBoundaryEdges = 4, .visibleBacks = 10}).problems,
                IsEmpty());
    EXPECT_THAT(checkModel(mesh, {.name = "any", .visibleBoundaryEdges = anyNumber}).problems, IsEmpty());
    EXPECT_THAT(checkModel(mesh, {.name = "any", .visibleBoundaryEdges = 4, .visibleBacks = 9}).problems,
                ElementsAre("10 triangles show their backs, the first near (1.30, 0.02, 1.13); 9 may"));
}

TEST(CheckModel, TellsAllThatItMeasured)
{
    const std::vector<std::string> details = checkModel(importedLid(), lid).details;
    EXPECT_THAT(details, Contains("0 triangles are degenerate"));
    EXPECT_THAT(details, Contains("0 boundary edges"));
    EXPECT_THAT(details, Contains("its highest z is 3.400, expected 3.2 to 3.6: it covers the bowl"));
    EXPECT_THAT(checkModel(importedLid(), baked).details,
                Contains("texture coordinates go from (0.0000, 0.0000) to (1.0000, 1.0000)"));
}

} // namespace
