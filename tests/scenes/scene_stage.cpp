#include "tests/scenes/scene_stage.h"

#include "sync/tools.h"
#include "tests/engine/matrices.h"
#include "tests/scenes/track_watch.h"
#include "tests/support/named_assets.h"
#include "tests/support/shader_files.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <limits>

namespace {

std::string between(const std::string& text, const std::string& before, const std::string& after)
{
    const std::size_t start = text.find(before) + before.size();
    return text.substr(start, text.find(after, start) - start);
}

/// What a recorded call made: the one of a list with the handle behind its " = ".
template<typename Made>
const Made& madeBy(const std::string& call, const std::vector<Made>& list)
{
    const int handle = std::stoi(call.substr(call.rfind(" = ") + 3));
    return *std::find_if(list.begin(), list.end(), [handle](const Made& made) { return made.id == handle; });
}

std::string loading(const std::string& texture, int width, int height)
{
    return fmt::format("texture {} {}x{}", texture, width, height);
}

} // namespace

Story joined(const std::vector<Story>& parts)
{
    Story whole;
    for (const Story& part : parts) {
        whole.insert(whole.end(), part.begin(), part.end());
    }
    return whole;
}

std::string loading(const catalogue::Model& model)
{
    return fmt::format("model {}", model.name);
}

std::string loading(const catalogue::Texture& texture)
{
    return loading(std::string(texture.name), texture.width, texture.height);
}

std::string lookingUp(const catalogue::Track& track)
{
    return fmt::format("track {}", track.name);
}

Story lookingUpTheCamera()
{
    Story lines;
    for (const catalogue::Track* const track : catalogue::tracks::camera) {
        lines.push_back(lookingUp(*track));
    }
    return lines;
}

Story addingPass(const std::string& shader, int width, int height)
{
    return {
        fmt::format("createTexture2d(RGB16F, {}, {})", width, height),
        fmt::format("createRenderBuffer2d({}, {})", width, height),
        "createFrameBuffer()",
        "framebufferTexture",
        "framebufferRenderbuffer",
        "shader post.vert",
        "shader " + shader,
        "createProgram",
        "uniform resolution",
        "uniform fbo",
        "uniform fbo_original",
        "uniform ", // six pairs of an empty name and no texture
        "uniform ",
        "uniform ",
        "uniform ",
        "uniform ",
        "uniform ",
    };
}

Story settingBackground(const std::string& shader)
{
    return {"shader post.vert", "shader " + shader, "createProgram", "uniform resolution", "uniform time"};
}

SceneStage::SceneStage()
{
    folder.enter();
    writeNamedAssets(folder);
    assets = std::make_unique<pack::Packfile>("assets/assets.pack");
    trackWatch = {};
    trackWatch.onLookUp = [this](const std::string& track) {
        renderer.calls.push_back("track " + track);
    };
}

SceneStage::~SceneStage()
{
    trackWatch = {};
}

lumeth::Scene& SceneStage::build(const catalogue::Scene& row, const TrackValues& values,
                                 std::pair<int, int> size)
{
    show.reset(); // before the device that it may hold tracks of
    writeTracks(folder, values);
    sync = std::make_unique<tolv::SyncDevice>("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    show = makeScene(row, renderer, *assets, *sync, size);
    return show->scene();
}

Story SceneStage::story() const
{
    const auto last = std::find_if(renderer.calls.begin(), renderer.calls.end(), [](const std::string& call) {
        return call.find("\"background_color\"") != std::string::npos;
    });
    EXPECT_NE(last, renderer.calls.end());
    Story lines;
    for (auto call = last + 1; call < renderer.calls.end(); ++call) {
        if (call->starts_with("createShader")) {
            const auto source = static_cast<std::size_t>(std::stoi(between(*call, "source ", ")")));
            lines.push_back("shader " + shaderFile(renderer.sources.at(source - 1)));
        } else if (call->starts_with("getUniform")) {
            lines.push_back("uniform " + between(*call, "\"", "\""));
        } else if (call->starts_with("createIndexedBuffer")) {
            const RecordingRenderer::Mesh& mesh = madeBy(*call, renderer.meshes);
            lines.push_back((mesh.normals.empty() ? "" : "model ") + meshName(mesh));
        } else if (call->starts_with("loadTextureDXT")) {
            const RecordingRenderer::Texture& texture = madeBy(*call, renderer.textures);
            lines.push_back(loading(textureName(texture, *assets), texture.width, texture.height));
        } else if (call->starts_with("createProgram") || call->starts_with("framebuffer")) {
            lines.push_back(call->substr(0, call->find('(')));
        } else {
            lines.push_back(call->substr(0, call->rfind(" = ")));
        }
    }
    return lines;
}

std::vector<std::string> SceneStage::loadedModels() const
{
    std::vector<std::string> names;
    for (const RecordingRenderer::Mesh& mesh : renderer.meshes) {
        if (!mesh.normals.empty()) {
            names.push_back(meshName(mesh));
        }
    }
    return names;
}

std::vector<std::string> SceneStage::loadedTextures() const
{
    std::vector<std::string> names;
    for (const RecordingRenderer::Texture& texture : renderer.textures) {
        names.push_back(textureName(texture, *assets));
    }
    return names;
}

zund::DrawCommand SceneStage::drawn(lumeth::Scene& scene, const std::string& object, double time)
{
    const lumeth::DisplayListItem item(object, glm::vec3(0.0F), zeroQuaternion, glm::vec3(1.0F));
    return scene.drawDisplayItem(glm::mat4(1.0F), item, zund::FrameBuffer(), time);
}

std::vector<zund::DrawCommand> SceneStage::drawsWith(lumeth::Scene& scene, const std::string& shader,
                                                     double time)
{
    scene.draw(renderer, time);
    std::vector<zund::DrawCommand> draws;
    for (const zund::DrawCommand& command : renderer.frames.back()) {
        if (!command.clear && fragmentShaderOf(command) == shader) {
            draws.push_back(command);
        }
    }
    return draws;
}

const RecordingRenderer::Program& SceneStage::programOf(const zund::DrawCommand& command) const
{
    return renderer.programs.at(command.program.get());
}

std::string SceneStage::fragmentShaderOf(const zund::DrawCommand& command) const
{
    return shaderFile(programOf(command).fragmentSource);
}

std::vector<std::string> SceneStage::uniformNames(const zund::DrawCommand& command) const
{
    std::vector<std::string> names;
    for (const auto& [handle, value] : command.uniforms) {
        names.push_back(renderer.nameOf(handle));
    }
    return names;
}

std::vector<lumeth::DisplayListItem*> itemsOf(lumeth::Scene& scene)
{
    using Node = tree::Node<lumeth::DisplayListItem>;
    std::vector<lumeth::DisplayListItem*> items;
    scene.getGraph().visit([&](Node*, Node* node) { items.push_back(&node->value); });
    return items;
}

std::vector<const lumeth::DisplayListItem*> changedBy(const std::function<void()>& change,
                                                      lumeth::Scene& scene)
{
    const std::vector<lumeth::DisplayListItem*> items = itemsOf(scene);
    std::vector<lumeth::DisplayListItem> before;
    before.reserve(items.size());
    for (const lumeth::DisplayListItem* const item : items) {
        before.push_back(*item);
    }
    change();
    std::vector<const lumeth::DisplayListItem*> changed;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i]->localMatrix != before[i].localMatrix || items[i]->visible != before[i].visible) {
            changed.push_back(items[i]);
        }
    }
    return changed;
}

lumeth::DisplayListItem& itemAt(lumeth::Scene& scene, const std::string& path)
{
    tree::Node<lumeth::DisplayListItem>* node = &scene.getGraph();
    std::size_t start = 0;
    while (start <= path.size()) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        node = node->getNode(path.substr(start, end - start));
        start = end + 1;
    }
    return node->value;
}

void expectSame(const glm::mat4& actual, const glm::mat4& expected)
{
    expectNear(actual, expected, 0.0F);
}

void expectCamera(lumeth::Scene& scene, const glm::vec3& position, const glm::vec3& target)
{
    const glm::mat4& camera = scene.getGraph().value.localMatrix;
    lumeth::Scene other;
    other.lookAt(position, target, {0.0F, 1.0F, 0.0F});
    expectSame(camera, other.getGraph().value.localMatrix);
    // Four normalisations in floats, on distances of up to about 10.
    expectNear(camera, viewOf(position, target, {0.0, 1.0, 0.0}), 1e-5F);
}

void expectTurned(const lumeth::DisplayListItem& item, const glm::vec3& position, double angle,
                  const glm::dvec3& axis, double scale)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double r = 1.0 - c;
    const glm::dvec3& a = axis;
    const double rotation[3][3] = {
        // columns
        {c + r * a.x * a.x, r * a.x * a.y + s * a.z, r * a.x * a.z - s * a.y},
        {r * a.x * a.y - s * a.z, c + r * a.y * a.y, r * a.y * a.z + s * a.x},
        {r * a.x * a.z + s * a.y, r * a.y * a.z - s * a.x, c + r * a.z * a.z},
    };
    const double tolerance = 16.0 * std::numeric_limits<float>::epsilon() * scale;
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            EXPECT_NEAR(item.localMatrix[column][row], scale * rotation[column][row], tolerance)
                << "[" << column << "][" << row << "]";
        }
    }
    EXPECT_EQ(item.localMatrix[3], glm::vec4(position, 1.0F));
}
