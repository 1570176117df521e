#pragma once

#include "engine/display_list_item.h"
#include "engine/scene.h"
#include "pack/packfile.h"
#include "sync/syncdevice.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_assets.h"
#include "tools/common/quiet_output.h"

#include <functional>
#include <glm/gtc/quaternion.hpp>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Values of tracks that stay the same in all rows, by name; a track that isn't here has no file.
using TrackValues = std::map<std::string, float>;

/// A texture by its file and the size that it is uploaded with. Without a name: none.
struct ExpectedTexture {
    std::string name = {};
    int width = 0;
    int height = 0;

    bool operator==(const ExpectedTexture&) const = default;
};
void PrintTo(const ExpectedTexture& texture, std::ostream* stream);

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

/// Where the scenes of the show are built without a driver, from models and textures that can be told apart.
///
/// Each model is a number of boxes of its own, so that what is drawn names its model by its count of indices.
class SceneStage : public testing::Test {
protected:
    SceneStage();
    ~SceneStage() override;

    /// Writes tracks, and makes the device that the scene is built with.
    void openTracks(const TrackValues& values);

    /// All that happened while a scene was built, after what every scene starts with, a line each:
    /// "model sofa", "texture sofa_diff.dds 2048x2048", "fragment shader gamma", "uniform time",
    /// "track camera_pos_x", "triangle at z -1", or a call of the renderer without its handles.
    std::vector<std::string> story() const;
    /// What adding a post pass tells the renderer.
    static std::vector<std::string> passStory(const std::string& shader, int width, int height);
    /// What setting a background tells the renderer.
    static std::vector<std::string> backgroundStory(const std::string& shader);

    /// The draw of an object where nothing is placed.
    static zund::DrawCommand drawn(lumeth::Scene& scene, const std::string& object, double time = 0.0);
    /// The draws of a frame that have a fragment shader of that name, see `story`.
    std::vector<zund::DrawCommand> drawsWith(lumeth::Scene& scene, const std::string& shader, double time);

    std::string modelOf(const zund::DrawCommand& command) const;
    ExpectedTexture textureOf(const zund::DrawCommand& command, std::size_t unit) const;
    const RecordingRenderer::Program& programOf(const zund::DrawCommand& command) const;
    const RecordingRenderer::Mesh& meshOf(const zund::DrawCommand& command) const;
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
};

/// The items whose place or visibility is another after `change`.
std::vector<const lumeth::DisplayListItem*> changedBy(const std::function<void()>& change,
                                                      lumeth::Scene& scene);

/// The node at the end of a path.
lumeth::DisplayListItem& itemAt(lumeth::Scene& scene, const std::string& path);

/// The name of a fragment or vertex shader of the show, by what only its text has.
std::string shaderName(const std::string& text);

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

/// A scene on the stage. `Scene` is a class of the show.
template<typename Scene>
class SceneTest : public SceneStage {
protected:
    /// Builds the scene with these tracks.
    lumeth::Scene& build(const TrackValues& values = {}, std::pair<int, int> size = {320, 200})
    {
        openTracks(values);
        show.emplace(renderer, *assets, *sync, size);
        return show->scene;
    }
    void update(double time) { show->update(renderer, time, *sync); }

    std::optional<Scene> show;
};
