#include "tests/scenes/scene_stage.h"

#include "engine/post_shaders.h"
#include "scenes/backgrounds.h"
#include "scenes/full_frame.h"
#include "tests/engine/matrices.h"
#include "tests/scenes/track_watch.h"
#include "tests/standins/box_mesh.h"
#include "tests/standins/glb_file.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fmt/format.h>
#include <iterator>
#include <limits>
#include <stdexcept>

namespace {

// The model at place N is made of N + 1 boxes.
constexpr const char* modelNames[] = {
    "room",          "sofa",          "sofa_legs",
    "person",        "hat",           "glasses",
    "coffeetable",   "beer",          "tv",
    "tvtable",       "bigplant",      "flowerpot",
    "burger_top",    "burger_bottom", "burgerbox_bottom",
    "burgerbox_top", "toilet",        "toilet_lid",
    "burger_middle", "burger_steak",  "burger_cheese",
};
constexpr const char* textureNames[] = {
    "room_diff.dds",        "sofa_diff.dds",  "sofa_norm.dds",     "coffeetable_diff.dds",
    "coffeetable_norm.dds", "pisswasser.dds", "tv_emit.dds",       "plywood_diff.dds",
    "plywood_norm.dds",     "bigplant.dds",   "burgerbox_top.dds", "pants.dds",
    "burgertext.dds",       "unlimited.dds",  "queue_main.dds",    "queue_border.dds",
};
constexpr unsigned long indicesOfABox = 36;

/// The bytes of a model of that many boxes.
std::string boxes(std::size_t count)
{
    std::vector<standins::Box> row;
    for (std::size_t i = 0; i < count; ++i) {
        const auto x = static_cast<float>(2 * i);
        row.push_back({{x, 0.0F, 0.0F}, {x + 1.0F, 1.0F, 1.0F}});
    }
    return standins::encodeGlb("boxes", standins::meshOf(row));
}

std::string modelOfIndices(unsigned long indices)
{
    const unsigned long count = indices / indicesOfABox;
    if (indices % indicesOfABox != 0 || count == 0 || count > std::size(modelNames)) {
        return fmt::format("of {} indices", indices);
    }
    return modelNames[count - 1];
}

/// The handle that a recorded call gave, after " = "; -1 if it gave none.
int handleOf(const std::string& call)
{
    const std::size_t equals = call.rfind(" = ");
    return equals == std::string::npos ? -1 : std::stoi(call.substr(equals + 3));
}

std::string between(const std::string& text, const std::string& before, const std::string& after)
{
    const std::size_t start = text.find(before) + before.size();
    return text.substr(start, text.find(after, start) - start);
}

} // namespace

void PrintTo(const ExpectedTexture& texture, std::ostream* stream)
{
    *stream << texture.name << ' ' << texture.width << 'x' << texture.height;
}

SceneStage::SceneStage()
{
    folder.enter();
    for (std::size_t i = 0; i < std::size(modelNames); ++i) {
        folder.write(fmt::format("{}.glb", modelNames[i]), boxes(i + 1));
    }
    std::vector<std::pair<std::string, std::string>> files;
    for (const char* name : textureNames) {
        files.emplace_back(name, std::string(136, 't'));
    }
    folder.writePack(files);
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

void SceneStage::openTracks(const TrackValues& values)
{
    for (const auto& [name, value] : values) {
        folder.writeTrack(name, {{0, value, 0}});
    }
    sync = std::make_unique<tolv::SyncDevice>("assets/sync", 128.0, 16);
}

std::vector<std::string> SceneStage::story() const
{
    const auto last = std::find_if(renderer.calls.begin(), renderer.calls.end(), [](const std::string& call) {
        return call.find("\"background_color\"") != std::string::npos;
    });
    EXPECT_NE(last, renderer.calls.end());
    std::vector<std::string> lines;
    for (auto call = last + 1; call < renderer.calls.end(); ++call) {
        const int handle = handleOf(*call);
        if (call->starts_with("createShader")) {
            const std::string kind = between(*call, "(", ",");
            const auto source = static_cast<std::size_t>(std::stoi(between(*call, "source ", ")")));
            lines.push_back(fmt::format("{} shader {}", kind, shaderName(renderer.sources.at(source - 1))));
        } else if (call->starts_with("getUniform")) {
            lines.push_back("uniform " + between(*call, "\"", "\""));
        } else if (call->starts_with("createIndexedBuffer")) {
            const auto mesh = std::find_if(renderer.meshes.begin(), renderer.meshes.end(),
                                           [&](const auto& candidate) { return candidate.id == handle; });
            lines.push_back(mesh->indices.size() == 3 ? fmt::format("triangle at z {}", mesh->positions.at(2))
                                                      : "model " + modelOfIndices(mesh->indices.size()));
        } else if (call->starts_with("loadTextureDXT")) {
            zund::DrawCommand command;
            command.textures[0] = zund::Texture(handle, 0);
            const ExpectedTexture texture = textureOf(command, 0);
            lines.push_back(fmt::format("texture {} {}x{}", texture.name, texture.width, texture.height));
        } else if (call->starts_with("createProgram") || call->starts_with("framebuffer")) {
            lines.push_back(call->substr(0, call->find('(')));
        } else {
            lines.push_back(call->substr(0, call->rfind(" = ")));
        }
    }
    return lines;
}

std::vector<std::string> SceneStage::passStory(const std::string& shader, int width, int height)
{
    return {
        fmt::format("createTexture2d(RGB16F, {}, {})", width, height),
        fmt::format("createRenderBuffer2d({}, {})", width, height),
        "createFrameBuffer()",
        "framebufferTexture",
        "framebufferRenderbuffer",
        "vertex shader post",
        "fragment shader " + shader,
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

std::vector<std::string> SceneStage::backgroundStory(const std::string& shader)
{
    return {"vertex shader post", "fragment shader " + shader, "createProgram", "uniform resolution",
            "uniform time"};
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
        if (!command.clear && shaderName(programOf(command).fragmentSource) == shader) {
            draws.push_back(command);
        }
    }
    return draws;
}

std::string SceneStage::modelOf(const zund::DrawCommand& command) const
{
    EXPECT_EQ(command.vertexArray.getIndexes(), meshOf(command).indices.size());
    return modelOfIndices(command.vertexArray.getIndexes());
}

ExpectedTexture SceneStage::textureOf(const zund::DrawCommand& command, std::size_t unit) const
{
    const int handle = command.textures.at(unit).get();
    for (const RecordingRenderer::Texture& texture : renderer.textures) {
        if (texture.id != handle) {
            continue;
        }
        for (const char* name : textureNames) {
            if (assets->getFile(name, true) == texture.data) {
                return {name, texture.width, texture.height};
            }
        }
        return {"from nowhere in the pack", texture.width, texture.height};
    }
    return {};
}

const RecordingRenderer::Program& SceneStage::programOf(const zund::DrawCommand& command) const
{
    return renderer.programs.at(command.program.get());
}

const RecordingRenderer::Mesh& SceneStage::meshOf(const zund::DrawCommand& command) const
{
    for (const RecordingRenderer::Mesh& mesh : renderer.meshes) {
        if (mesh.id == command.vertexArray.get()) {
            return mesh;
        }
    }
    throw std::out_of_range("no such mesh");
}

std::vector<std::string> SceneStage::uniformNames(const zund::DrawCommand& command) const
{
    std::vector<std::string> names;
    for (const auto& [handle, value] : command.uniforms) {
        names.push_back(renderer.nameOf(handle));
    }
    return names;
}

std::vector<const lumeth::DisplayListItem*> changedBy(const std::function<void()>& change,
                                                      lumeth::Scene& scene)
{
    using Node = tree::Node<lumeth::DisplayListItem>;
    std::vector<lumeth::DisplayListItem> before;
    scene.getGraph().visit([&](Node*, Node* node) { before.push_back(node->value); });
    change();
    std::vector<const lumeth::DisplayListItem*> changed;
    std::size_t place = 0;
    scene.getGraph().visit([&](Node*, Node* node) {
        const lumeth::DisplayListItem& former = before.at(place++);
        if (node->value.localMatrix != former.localMatrix || node->value.visible != former.visible) {
            changed.push_back(&node->value);
        }
    });
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

std::string shaderName(const std::string& text)
{
    const std::pair<const char*, std::string> whole[] = {
        {"material", lumeth::Scene::material_vert},
        {"material", lumeth::Scene::material_frag},
        {"letterbox", shader_letterbox},
        {"gamma", shader_gamma_encode},
        {"full frame", scroller_vert},
        {"grey to blue", grey_blue_background_frag},
        {"warm to teal", warm_teal_background_frag},
        {"yellow to blue", background_frag},
    };
    for (const auto& [name, source] : whole) {
        if (text == source) {
            return name;
        }
    }
    // What no other shader of the show has.
    const std::pair<const char*, const char*> marks[] = {
        {"post", "out vec2 texcoord"},       {"tv", "time*8831"},
        {"people text", "0.04, 0.22, 0.22"}, {"burger text", "0.41, 0.04, 0.00"},
        {"bottle text", "0.57, 0.07, 0.17"}, {"toilet text", "0.58, 0.30, 0.10"},
    };
    for (const auto& [name, mark] : marks) {
        if (text.find(mark) != std::string::npos) {
            return name;
        }
    }
    return "unknown:\n" + text;
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
