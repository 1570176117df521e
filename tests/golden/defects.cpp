#include "tests/golden/defects.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <variant>

namespace {

// DXT1: blocks of 4x4 pixels.
constexpr int blockSide = 4;
constexpr std::size_t blockBytes = 8;

// What is drawn over the whole frame; no surface has this size.
constexpr std::pair<int, int> fullFrame = {3840, 2160};

bool contains(const char* source, const std::string& text)
{
    return std::string_view(source).find(text) != std::string_view::npos;
}

} // namespace

zund::Uniform WrongUniform::getUniform(const zund::ShaderProgram& program, const std::string& name)
{
    zund::Uniform found = Defect::getUniform(program, name);
    if (name == uniform && found.isValid()) {
        locations[program.get()] = found.get();
    }
    return found;
}

bool WrongUniform::isMeant(const zund::DrawCommand& command, const zund::Uniform& other) const
{
    const auto found = locations.find(command.program.get());
    return found != locations.end() && found->second == other.get();
}

void WrongLight::render(const std::vector<zund::DrawCommand>& commands)
{
    std::vector<zund::DrawCommand> changed = commands;
    for (zund::DrawCommand& command : changed) {
        for (auto& [location, values] : command.uniformArrays) {
            if (isMeant(command, location)) {
                std::get<std::vector<glm::vec3>>(values).at(light) = value;
                ++hits;
            }
        }
    }
    Defect::render(changed);
}

void WrongMatrix::render(const std::vector<zund::DrawCommand>& commands)
{
    std::vector<zund::DrawCommand> changed = commands;
    std::size_t seen = 0;
    for (zund::DrawCommand& command : changed) {
        for (auto& [location, value] : command.uniforms) {
            if (isMeant(command, location) && (seen++ == draw || draw == allDraws)) {
                value = factor * std::get<glm::mat4>(value);
                ++hits;
            }
        }
    }
    Defect::render(changed);
}

zund::Texture WrongTexture::loadTextureDXT(int width, int height, const void* data)
{
    const void* const shown =
        loaded++ == texture && sizeBefore == std::pair(width, height) ? dataBefore : data;
    hits += shown != data ? 1 : 0;
    sizeBefore = {width, height};
    dataBefore = data; // in the pack, which stays
    return Defect::loadTextureDXT(width, height, shown);
}

zund::Texture MissingType::loadTextureDXT(int width, int height, const void* data)
{
    if (std::pair(width, height) != fullFrame) {
        return Defect::loadTextureDXT(width, height, data);
    }
    const int columns = width / blockSide;
    const int rows = height / blockSide;
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    std::vector<std::uint8_t> blocks(bytes, bytes + blockBytes * static_cast<std::size_t>(columns * rows));
    const auto block = [&](int column, int row) {
        return blocks.begin() + static_cast<std::ptrdiff_t>(blockBytes) * (row * columns + column);
    };
    const int left = static_cast<int>(area.left * columns);
    const int top = static_cast<int>(area.top * rows);
    for (int row = top; row < static_cast<int>(area.bottom * rows); ++row) {
        for (int column = left; column < static_cast<int>(area.right * columns); ++column) {
            std::copy_n(block(left, top), blockBytes, block(column, row));
        }
    }
    hits += std::memcmp(blocks.data(), bytes, blocks.size()) != 0 ? 1 : 0;
    return Defect::loadTextureDXT(width, height, blocks.data());
}

zund::Shader MissingLayer::createShader(zund::Shader::Type type, const char* source)
{
    zund::Shader made = Defect::createShader(type, source);
    if (type == zund::Shader::Fragment && contains(source, text)) {
        shader = made.get();
    }
    return made;
}

zund::ShaderProgram MissingLayer::createProgram(const zund::Shader& first, const zund::Shader& second,
                                                const zund::Shader* third)
{
    zund::ShaderProgram made = Defect::createProgram(first, second, third);
    if (second.get() == shader) {
        program = made.get();
    }
    return made;
}

void MissingLayer::render(const std::vector<zund::DrawCommand>& commands)
{
    std::vector<zund::DrawCommand> changed = commands;
    hits += std::erase_if(changed, [this](const zund::DrawCommand& command) {
        return command.program.isValid() && command.program.get() == program;
    });
    Defect::render(changed);
}

zund::Shader ChangedShader::createShader(zund::Shader::Type type, const char* source)
{
    std::string changed = source;
    const std::size_t place = changed.find(text);
    if (type == zund::Shader::Fragment && place != std::string::npos) {
        changed.replace(place, text.size(), replacement);
        ++hits;
    }
    return Defect::createShader(type, changed.c_str());
}

zund::Shader WrongShader::createShader(zund::Shader::Type type, const char* source)
{
    if (type == zund::Shader::Fragment && contains(source, text)) {
        ++hits;
        return Defect::createShader(type, other);
    }
    return Defect::createShader(type, source);
}
