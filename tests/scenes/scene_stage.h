#pragma once

#include "engine/display_list_item.h"
#include "engine/scene.h"
#include "pack/packfile.h"
#include "scenes/catalogue.h"
#include "sync/syncdevice.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/show_scene.h"
#include "tests/support/test_assets.h"
#include "tools/common/quiet_output.h"

#include <functional>
#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// What happens while a scene is built, a line each.
using Story = std::vector<std::string>;

/// Stories one after another.
Story joined(const std::vector<Story>& parts);

/// The lines of a story that load something of the catalogue, or look it up.
std::string loading(const catalogue::Model& model);
std::string loading(const catalogue::Texture& texture);
std::string lookingUp(const catalogue::Track& track);
Story lookingUpTheCamera();
/// What adding a post pass tells the renderer. Shaders go by their files.
Story addingPass(const std::string& shader, int width, int height);
/// What setting a background tells the renderer.
Story settingBackground(const std::string& shader);

/// A quaternion in the order of the tables.
constexpr glm::quat xyzw(float x, float y, float z, float w)
{
    return {w, x, y, z};
}
constexpr glm::quat zeroQuaternion = xyzw(0.0F, 0.0F, 0.0F, 0.0F);
/// By 3.14 about y: the half turn of several tables.
constexpr glm::quat y314 = xyzw(0.0F, 0.9999997F, 0.0F, 0.0007962743F);

/// The product as scenes take it of a track's value and a constant: in double, then as a float.
constexpr float inDouble(float value, double factor)
{
    return static_cast<float>(static_cast<double>(value) * factor);
}

/// Where the scenes of the show are built without a driver, from assets that can be told apart.
class SceneStage : public testing::Test {
protected:
    SceneStage();
    ~SceneStage() override;

    /// Builds a scene with these tracks, in place of the one before.
    lumeth::Scene& build(const catalogue::Scene& row, const TrackValues& values = {},
                         std::pair<int, int> size = {320, 200});
    void update(double time) { show->update(time); }

    /// All that happened while the scene was built, after what every scene starts with: what the functions
    /// above say, "shader tv.frag", "uniform time", "full-frame triangle at z -1", or a call of the renderer
    /// without its handles.
    Story story() const;

    /// The models and textures loaded so far, in order.
    std::vector<std::string> loadedModels() const;
    std::vector<std::string> loadedTextures() const;

    /// The draw of an object where nothing is placed.
    static zund::DrawCommand drawn(lumeth::Scene& scene, const std::string& object, double time = 0.0);
    /// The draws of a frame that have a fragment shader of that file.
    std::vector<zund::DrawCommand> drawsWith(lumeth::Scene& scene, const std::string& shader, double time);

    const RecordingRenderer::Program& programOf(const zund::DrawCommand& command) const;
    std::string fragmentShaderOf(const zund::DrawCommand& command) const;
    /// The value of a uniform by name; fails and gives zero if there is none or it has another type.
    template<typename Value>
    Value uniform(const zund::DrawCommand& command, const std::string& name) const
    {
        for (const auto& [handle, value] : command.uniforms) {
            if (renderer.nameOf(handle) == name) {
                EXPECT_TRUE(std::holds_alternative<Value>(value)) << name << " has another type";
                return std::holds_alternative<Value>(value) ? std::get<Value>(value) : Value{};
            }
        }
        ADD_FAILURE() << "no uniform " << name;
        return Value{};
    }
    std::vector<std::string> uniformNames(const zund::DrawCommand& command) const;

    tools::QuietOutput quiet; ///< loader and device have much to say
    ShowFolder folder;
    RecordingRenderer renderer;
    std::unique_ptr<pack::Packfile> assets;
    std::unique_ptr<tolv::SyncDevice> sync;
    std::unique_ptr<ShowScene> show;
};

/// A scene of the show on the stage.
template<const catalogue::Scene& row>
class SceneTest : public SceneStage {
protected:
    lumeth::Scene& build(const TrackValues& values = {}, std::pair<int, int> size = {320, 200})
    {
        return SceneStage::build(row, values, size);
    }
};

/// All items, the camera first.
std::vector<lumeth::DisplayListItem*> itemsOf(lumeth::Scene& scene);

/// The items whose place or visibility is another after `change`.
std::vector<const lumeth::DisplayListItem*> changedBy(const std::function<void()>& change,
                                                      lumeth::Scene& scene);

/// The node at the end of a path.
lumeth::DisplayListItem& itemAt(lumeth::Scene& scene, const std::string& path);

/// Compares element by element; equal to the bit.
void expectSame(const glm::mat4& actual, const glm::mat4& expected);

/// The camera at `position`, upright: equal to the bit to what the engine makes of these, and near to what
/// the textbook makes of them.
void expectCamera(lumeth::Scene& scene, const glm::vec3& position, const glm::vec3& target);

/// Translation, scale and rotation as they stand in `item`, compared with the formula in double precision:
/// the translation to the bit, and the rest within a few units of the last place, which taking the matrix
/// apart and building it anew may cost. The rotation is by `angle` about the unit vector `axis`.
void expectTurned(const lumeth::DisplayListItem& item, const glm::vec3& position, double angle,
                  const glm::dvec3& axis, double scale);
