#pragma once

#include "engine/scene.h"
#include "gl/renderer.h"
#include "pack/packfile.h"

#include <glm/gtc/quaternion.hpp>
#include <glm/vec3.hpp>
#include <memory>
#include <span>

// What a scene is written down as, and the short loops that build it from that.

/// A texture of the pack, with the size that its file must have. Without a name: none.
struct TextureRow {
    const char* name = nullptr;
    int width = 0;
    int height = 0;
};

/// A texture that lies on a model.
constexpr TextureRow surface(const char* name)
{
    return {name, 2048, 2048};
}
/// A picture over the whole frame.
constexpr TextureRow fullFrame(const char* name)
{
    return {name, 3840, 2160};
}
constexpr TextureRow noTexture = {};

/// Makes a material for a picture of that aspect, width by height. Null: the scene's stock material.
using MaterialMaker = std::unique_ptr<lumeth::Material> (*)(zund::Renderer& renderer, float aspect);

template<typename Material>
std::unique_ptr<lumeth::Material> make(zund::Renderer& renderer, float aspect)
{
    return std::make_unique<Material>(renderer, aspect);
}

/// One model with its surface.
struct ObjectRow {
    const char* name;
    const char* model; ///< path of the file
    TextureRow colorTexture;
    TextureRow normalTexture;
    TextureRow emissivityTexture;
    glm::vec3 color;
    float ambient;
    float diffuse;
    float specular;
    float shininess;
    bool transparent = false;
    MaterialMaker material = nullptr;
};

/// One picture over the whole frame, that neither camera nor node moves: "scroller".
struct TextLayerRow {
    float depth; ///< in clip space: -1 before everything, 0 in the middle
    TextureRow colorTexture;
    TextureRow normalTexture;
    MaterialMaker material;
};

/// One node of the tree.
struct NodeRow {
    const char* name;
    const char* parent; ///< a node below the root, or a path "toilet/bowl"; null: the root
    const char* object; ///< empty: a pure transform
    glm::vec3 position;
    glm::quat orientation;
    float scale; ///< on all axes
};

/// The node at the end of a path of names, "toilet/bowl/lid". Throws `std::out_of_range` if there is none.
tree::Node<lumeth::DisplayListItem>& findNode(lumeth::Scene& scene, const char* path);

/// Loads models and textures and adds the objects, in the order of the table.
void addObjects(lumeth::Scene& scene, zund::Renderer& renderer, const pack::Packfile& pack, float aspect,
                std::span<const ObjectRow> rows);
/// Adds the object of a text layer; its node is added apart.
void addTextLayer(lumeth::Scene& scene, zund::Renderer& renderer, const pack::Packfile& pack, float aspect,
                  const TextLayerRow& row);
/// Adds nodes in the order of the table.
void addNodes(lumeth::Scene& scene, std::span<const NodeRow> rows);
/// Adds lights in the order of the table.
void addLights(lumeth::Scene& scene, std::span<const lumeth::Light> rows);
