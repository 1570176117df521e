#include "tools/modelcheck/model_rules.h"

#include "scenes/catalogue.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <glm/geometric.hpp>
#include <glm/vec3.hpp>
#include <gmock/gmock.h>
#include <map>
#include <string>
#include <vector>

using testing::UnorderedElementsAreArray;

namespace {

/// What the tables of the scenes do with a model.
struct Use {
    int loads = 0;
    bool textured = false;
};

/// What stands between two texts in a line; empty if they don't.
std::string between(const std::string& line, const std::string& before, const std::string& after)
{
    const std::size_t found = line.find(before);
    if (found == std::string::npos) {
        return {};
    }
    const std::size_t start = found + before.size();
    const std::size_t end = line.find(after, start);
    return end == std::string::npos ? std::string() : line.substr(start, end - start);
}

/// By model, from the rows of the scenes' tables of objects.
std::map<std::string, Use> usesInScenes()
{
    std::map<std::string, Use> uses;
    for (const auto& entry : std::filesystem::directory_iterator(SCENES)) {
        if (!entry.path().filename().string().ends_with("_scene.cpp")) {
            continue;
        }
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            const std::string model = between(line, "models::", ",");
            if (!model.empty()) {
                Use& use = uses[model];
                ++use.loads;
                use.textured = use.textured || line.find("textures::") != std::string::npos;
            }
        }
    }
    return uses;
}

/// The length of the first column of a matrix of which the lines, a row each, come next.
float readScale(std::istream& file)
{
    glm::vec3 column;
    for (glm::length_t row = 0; row < 3; ++row) {
        std::string line;
        std::getline(file, line);
        column[row] = std::stof(line);
    }
    return glm::length(column);
}

/// By model, the largest that it is drawn at in the recorded frames.
std::map<std::string, float> scalesInFrames()
{
    std::map<std::string, float> scales;
    for (const auto& entry : std::filesystem::directory_iterator(FRAMES)) {
        std::ifstream file(entry.path());
        std::string model;
        float scale = 0.0F;
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with("draw ")) {
                model = line.substr(5);
            } else if (line.starts_with("  mat4 modelToView")) {
                scale = line.ends_with(" as before") ? scale : readScale(file);
                scales[model] = std::max(scales[model], scale);
            }
        }
    }
    return scales;
}

TEST(ModelRules, StandOnceForEachModelOfTheShow)
{
    std::vector<std::string_view> names;
    for (const tools::modelcheck::ModelRules& row : tools::modelcheck::modelRules()) {
        names.push_back(row.name);
    }
    std::vector<std::string_view> expected;
    for (const catalogue::Model& model : catalogue::allModels) {
        expected.push_back(model.name);
    }
    EXPECT_THAT(names, UnorderedElementsAreArray(expected));
}

TEST(ModelRules, KnowHowOftenTheScenesLoadEachModel)
{
    const std::map<std::string, Use> uses = usesInScenes();
    EXPECT_EQ(uses.size(), tools::modelcheck::modelRules().size());
    for (const auto& [name, use] : uses) {
        const tools::modelcheck::ModelRules* const rules = tools::modelcheck::findModelRules(name);
        ASSERT_NE(rules, nullptr) << name;
        EXPECT_EQ(rules->loads, use.loads) << name;
    }
}

TEST(ModelRules, KnowTheLargestScaleThatAFrameShowsEachModelAt)
{
    std::map<std::string, float> scales = scalesInFrames();
    for (const tools::modelcheck::ModelRules& rules : tools::modelcheck::modelRules()) {
        EXPECT_NEAR(rules.scale, scales[std::string(rules.name)], 1e-5F) << rules.name;
    }
}

TEST(ModelRules, KnowWhichModelsTheScenesPutATextureOn)
{
    for (const auto& [name, use] : usesInScenes()) {
        EXPECT_EQ(tools::modelcheck::findModelRules(name)->texture != tools::modelcheck::Texture::None,
                  use.textured)
            << name;
    }
}

TEST(ModelRules, KnowNoOtherModel)
{
    EXPECT_EQ(tools::modelcheck::findModelRules("chair"), nullptr);
    EXPECT_EQ(tools::modelcheck::findModelRules(""), nullptr);
}

TEST(Placements, SaySomethingAboutEachModel)
{
    std::map<std::string_view, int> rows;
    for (const tools::modelcheck::Placement& place : tools::modelcheck::placements()) {
        ++rows[place.model];
    }
    for (const tools::modelcheck::ModelRules& model : tools::modelcheck::modelRules()) {
        EXPECT_GE(rows[model.name], 2) << model.name;
    }
}

} // namespace
