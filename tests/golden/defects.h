#pragma once

#include "tools/renderers/forwarding_renderer.h"

#include <cstddef>
#include <cstdint>
#include <glm/mat4x4.hpp>
#include <glm/vec3.hpp>
#include <map>
#include <string>
#include <utility>
#include <vector>

// Renderers with one thing wrong each, for tests that are to see that a picture is wrong.

/// Counts how often it did harm: one that met nothing to harm has shown nothing.
class Defect : public tools::renderers::ForwardingRenderer {
public:
    using ForwardingRenderer::ForwardingRenderer;

    std::size_t hits = 0;
};

/// What goes wrong with the uniforms of one name.
class WrongUniform : public Defect {
public:
    WrongUniform(zund::Renderer& target, std::string uniform) : Defect(target), uniform(std::move(uniform)) {}

    zund::Uniform getUniform(const zund::ShaderProgram& program, const std::string& name) override;

protected:
    /// Whether a uniform of a command has that name.
    bool isMeant(const zund::DrawCommand& command, const zund::Uniform& other) const;

private:
    std::string uniform;
    std::map<int, int> locations; ///< of the uniform, by program
};

/// One light of all draws has another place or colour.
class WrongLight : public WrongUniform {
public:
    /// `uniform` is "light_position", "light_diffuse" or "light_specular"; lights count from 0.
    WrongLight(zund::Renderer& target, std::string uniform, std::size_t light, const glm::vec3& value)
        : WrongUniform(target, std::move(uniform)), light(light), value(value)
    {
    }

    void render(const std::vector<zund::DrawCommand>& commands) override;

private:
    std::size_t light;
    glm::vec3 value;
};

/// A matrix of one draw of the frame, or of all, is multiplied by another one from the left.
class WrongMatrix : public WrongUniform {
public:
    static constexpr std::size_t allDraws = SIZE_MAX;

    /// Draws count from 0, those with a uniform of this name; siblings in a scene come in any order.
    WrongMatrix(zund::Renderer& target, std::string uniform, const glm::mat4& factor, std::size_t draw)
        : WrongUniform(target, std::move(uniform)), factor(factor), draw(draw)
    {
    }

    void render(const std::vector<zund::DrawCommand>& commands) override;

private:
    glm::mat4 factor;
    std::size_t draw;
};

/// A texture shows what the one loaded before it shows, which has its size.
class WrongTexture : public Defect {
public:
    /// Textures count from 0, in the order of loading.
    WrongTexture(zund::Renderer& target, std::size_t texture) : Defect(target), texture(texture) {}

    zund::Texture loadTextureDXT(int width, int height, const void* data) override;

private:
    std::size_t texture;
    std::size_t loaded = 0;
    std::pair<int, int> sizeBefore{0, 0};
    const void* dataBefore = nullptr;
};

/// A part of a picture over the whole frame, in shares of its width and height from the top left.
struct Area {
    double left;
    double top;
    double right;
    double bottom;
};

/// A picture over the whole frame lacks what stands in an area: the ground there is as in its top left
/// corner.
class MissingType : public Defect {
public:
    MissingType(zund::Renderer& target, const Area& area) : Defect(target), area(area) {}

    zund::Texture loadTextureDXT(int width, int height, const void* data) override;

private:
    Area area;
};

/// Nothing is drawn with a fragment shader in which a text stands.
class MissingLayer : public Defect {
public:
    MissingLayer(zund::Renderer& target, std::string text) : Defect(target), text(std::move(text)) {}

    zund::Shader createShader(zund::Shader::Type type, const char* source) override;
    zund::ShaderProgram createProgram(const zund::Shader& first, const zund::Shader& second,
                                      const zund::Shader* third) override;
    void render(const std::vector<zund::DrawCommand>& commands) override;

private:
    std::string text;
    int shader = zund::Resource::invalid;
    int program = zund::Resource::invalid;
};

/// A fragment shader in which a text stands has another one in its place.
class ChangedShader : public Defect {
public:
    ChangedShader(zund::Renderer& target, std::string text, std::string replacement)
        : Defect(target), text(std::move(text)), replacement(std::move(replacement))
    {
    }

    zund::Shader createShader(zund::Shader::Type type, const char* source) override;

private:
    std::string text;
    std::string replacement;
};

/// A fragment shader in which a text stands is another one altogether.
class WrongShader : public Defect {
public:
    WrongShader(zund::Renderer& target, std::string text, const char* other)
        : Defect(target), text(std::move(text)), other(other)
    {
    }

    zund::Shader createShader(zund::Shader::Type type, const char* source) override;

private:
    std::string text;
    const char* other;
};
