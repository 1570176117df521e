#include "tests/golden/frame_text.h"

#include "tests/support/named_assets.h"
#include "tests/support/shader_files.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <set>
#include <variant>

namespace {

template<typename Vector>
std::string components(const Vector& vector)
{
    std::string text;
    for (glm::length_t i = 0; i < Vector::length(); ++i) {
        text += fmt::format(" {}", vector[i]);
    }
    return text;
}

/// A value as a type and lines: the first goes behind the name, the others below it.
struct ValueText {
    const char* type;
    std::string first;
    std::vector<std::string> others = {};
};

struct ValueTextMaker {
    ValueText operator()(float value) const { return {"float", fmt::format(" {}", value)}; }
    ValueText operator()(int value) const { return {"int", fmt::format(" {}", value)}; }
    ValueText operator()(bool value) const { return {"bool", fmt::format(" {}", value)}; }
    ValueText operator()(const glm::vec2& value) const { return {"vec2", components(value)}; }
    ValueText operator()(const glm::vec3& value) const { return {"vec3", components(value)}; }
    ValueText operator()(const glm::vec4& value) const { return {"vec4", components(value)}; }
    ValueText operator()(const glm::mat4& value) const
    {
        ValueText text = {"mat4", ""};
        for (glm::length_t row = 0; row < 4; ++row) {
            text.others.push_back(
                components(glm::vec4(value[0][row], value[1][row], value[2][row], value[3][row])));
        }
        return text;
    }
    ValueText operator()(const std::vector<float>& values) const
    {
        ValueText text = {"floats", ""};
        std::transform(values.begin(), values.end(), std::back_inserter(text.others),
                       [](float value) { return fmt::format(" {}", value); });
        return text;
    }
    ValueText operator()(const std::vector<glm::vec2>& values) const { return array("vec2s", values); }
    ValueText operator()(const std::vector<glm::vec3>& values) const { return array("vec3s", values); }
    ValueText operator()(const std::vector<glm::vec4>& values) const { return array("vec4s", values); }

private:
    template<typename Vector>
    static ValueText array(const char* type, const std::vector<Vector>& values)
    {
        ValueText text = {type, ""};
        std::transform(values.begin(), values.end(), std::back_inserter(text.others), components<Vector>);
        return text;
    }
};

class FrameWriter {
public:
    FrameWriter(const RecordingRenderer& renderer, const pack::Packfile& pack)
        : renderer(renderer), pack(pack)
    {
    }

    std::string write(const std::vector<zund::DrawCommand>& frame)
    {
        for (const zund::DrawCommand& command : frame) {
            nameTarget(command);
        }
        writeTargets(frame);
        for (const zund::DrawCommand& command : frame) {
            text += command.clear ? "\nclear\n" : fmt::format("\ndraw {}\n", geometryOf(command));
            text += fmt::format("  into {}\n", targetName(command.frameBuffer));
            if (!command.clear) {
                writeDraw(command);
            }
        }
        return text;
    }

private:
    /// A texture that is drawn into goes by what first reads it.
    void nameTarget(const zund::DrawCommand& command)
    {
        for (const zund::Texture& texture : command.textures) {
            if (renderer.surfaces.contains(texture.get()) && !command.clear) {
                inputNames.insert({texture.get(), "the input of " + fragmentOf(command)});
            }
        }
    }

    std::string targetName(const zund::FrameBuffer& frameBuffer) const
    {
        if (!frameBuffer.isValid()) {
            return "the window";
        }
        const auto found = inputNames.find(renderer.targets.at(frameBuffer.get()).color);
        return found != inputNames.end() ? found->second : "what nothing reads";
    }

    void writeTargets(const std::vector<zund::DrawCommand>& frame)
    {
        std::set<int> told;
        for (const zund::DrawCommand& command : frame) {
            const int handle = command.frameBuffer.get();
            if (command.frameBuffer.isValid() && told.insert(handle).second) {
                const RecordingRenderer::Target& target = renderer.targets.at(handle);
                text += fmt::format("{}: {}, {}\n", targetName(command.frameBuffer),
                                    renderer.surfaces.at(target.color), renderer.surfaces.at(target.depth));
            }
        }
    }

    void writeDraw(const zund::DrawCommand& command)
    {
        text += fmt::format("  depth write {}\n", command.depthWrite ? "on" : "off");
        text += fmt::format("  program {} + {}\n",
                            shaderFile(renderer.programs.at(command.program.get()).vertexSource),
                            fragmentOf(command));
        for (std::size_t unit = 0; unit < command.textures.size(); ++unit) {
            if (command.textures.at(unit).isValid()) {
                text += fmt::format("  unit {}: {}\n", unit, textureOf(command.textures.at(unit)));
            }
        }
        for (const auto& [uniform, value] : command.uniforms) {
            writeUniform(uniform, std::visit(ValueTextMaker(), value));
        }
        for (const auto& [uniform, values] : command.uniformArrays) {
            writeUniform(uniform, std::visit(ValueTextMaker(), values));
        }
    }

    void writeUniform(const zund::Uniform& uniform, const ValueText& value)
    {
        const std::string name = renderer.nameOf(uniform);
        if (!value.others.empty() && before[name] == value.others) {
            text += fmt::format("  {} {} as before\n", value.type, name);
            return;
        }
        text += fmt::format("  {} {}{}\n", value.type, name, value.first);
        for (const std::string& line : value.others) {
            text += "   " + line + "\n";
        }
        before[name] = value.others;
    }

    std::string fragmentOf(const zund::DrawCommand& command) const
    {
        return shaderFile(renderer.programs.at(command.program.get()).fragmentSource);
    }

    std::string geometryOf(const zund::DrawCommand& command) const
    {
        for (const RecordingRenderer::Mesh& mesh : renderer.meshes) {
            if (mesh.id == command.vertexArray.get()) {
                const unsigned long drawn = command.vertexArray.getIndexes();
                return drawn == mesh.indices.size() ? meshName(mesh)
                                                    : fmt::format("{} of {} indices of {}", drawn,
                                                                  mesh.indices.size(), meshName(mesh));
            }
        }
        return "nothing";
    }

    std::string textureOf(const zund::Texture& texture) const
    {
        for (const RecordingRenderer::Texture& loaded : renderer.textures) {
            if (loaded.id == texture.get()) {
                return fmt::format("{} {}x{}", textureName(loaded, pack), loaded.width, loaded.height);
            }
        }
        const auto found = inputNames.find(texture.get());
        return found != inputNames.end() ? found->second : "unknown";
    }

    const RecordingRenderer& renderer;
    const pack::Packfile& pack;
    std::map<int, std::string> inputNames;                  ///< by handle of the texture
    std::map<std::string, std::vector<std::string>> before; ///< the last lines of uniforms, by name
    std::string text;
};

} // namespace

std::string frameText(const std::vector<zund::DrawCommand>& frame, const RecordingRenderer& renderer,
                      const pack::Packfile& pack)
{
    return FrameWriter(renderer, pack).write(frame);
}
