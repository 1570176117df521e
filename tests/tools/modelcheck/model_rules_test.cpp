#include "tools/modelcheck/model_rules.h"

#include "tools/standins/model_boxes.h"

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
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);) {
            const std::string model = between(line, "\"assets/", ".glb\"");
            if (!model.empty()) {
                Use& use = uses[model];
                ++use.loads;
                use.textured = use.textured || line.find("surface(") != std::string::npos;
            }
        }
    }
    return uses;
}

TEST(ModelRules, AreThoseOfTheModelsOfTheShow)
{
    std::vector<std::string_view> names;
    for (const tools::ModelRules& row : tools::modelRules()) {
        names.push_back(row.name);
    }
    std::vector<std::string_view> expected;
    for (const tools::ModelBoxes& model : tools::standInModels()) {
        expected.push_back(model.name);
    }
    EXPECT_THAT(names, UnorderedElementsAreArray(expected));
}

TEST(ModelRules, KnowHowOftenTheScenesLoadEachModel)
{
    const std::map<std::string, Use> uses = usesInScenes();
    EXPECT_EQ(uses.size(), tools::modelRules().size());
    for (const auto& [name, use] : uses) {
        const tools::ModelRules* const rules = tools::findModelRules(name);
        ASSERT_NE(rules, nullptr) << name;
        EXPECT_EQ(rules->loads, use.loads) << name;
    }
}

TEST(ModelRules, KnowWhichModelsTheScenesPutATextureOn)
{
    for (const auto& [name, use] : usesInScenes()) {
        EXPECT_EQ(tools::findModelRules(name)->texture != tools::Texture::None, use.textured) << name;
    }
}

TEST(ModelRules, KnowNoOtherModel)
{
    EXPECT_EQ(tools::findModelRules("chair"), nullptr);
    EXPECT_EQ(tools::findModelRules(""), nullptr);
}

TEST(Placements, SaySomethingAboutEachModel)
{
    std::map<std::string_view, int> rows;
    for (const tools::Placement& place : tools::placements()) {
        ++rows[place.model];
    }
    for (const tools::ModelRules& model : tools::modelRules()) {
        EXPECT_GE(rows[model.name], 2) << model.name;
    }
}

} // namespace
