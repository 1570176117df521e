#include "tools/modelcheck/model_rules.h"

#include "scenes/catalogue.h"

#include <filesystem>
#include <fstream>
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
