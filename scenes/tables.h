#pragma once

#include "engine/scene.h"
#include "gl/renderer.h"
#include "pack/packfile.h"
#include "scenes/catalogue.h"

#include <algorithm>
#include <glm/gtc/quaternion.hpp>
#include <glm/vec3.hpp>
#include <memory>
#include <span>
#include <string_view>

// What a scene is written down as, and the short loops that build it from that.

constexpr catalogue::Texture noTexture = {};

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
    catalogue::Model model;
    catalogue::Texture colorTexture;
    catalogue::Texture normalTexture;
    catalogue::Texture emissivityTexture;
    glm::vec3 color;
    float ambient;
    float diffuse;
    float specular;
    float shininess;
    bool transparent = false;
    MaterialMaker material = nullptr;
};

/// The object of a text layer.
constexpr const char* textLayerName = "scroller";

/// One picture over the whole frame, that neither camera nor node moves.
struct TextLayerRow {
    float depth; ///< in clip space: -1 before everything, 0 in the middle
    catalogue::Texture colorTexture;
    catalogue::Texture normalTexture;
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

constexpr std::string_view parentOf(const NodeRow& row)
{
    return row.parent != nullptr ? row.parent : "";
}

/// True if a node of the table stands at the end of a path of names, "toilet/bowl/lid".
constexpr bool isPath(std::span<const NodeRow> rows, std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    const std::string_view parent = slash == std::string_view::npos ? "" : path.substr(0, slash);
    const std::string_view name = slash == std::string_view::npos ? path : path.substr(slash + 1);
    return std::any_of(rows.begin(), rows.end(), [parent, name](const NodeRow& row) {
        return row.name == name && parentOf(row) == parent;
    });
}

/// True if each parent is a node of an earlier row, which names reach from the root.
template<std::size_t Count>
consteval bool parentsStandAbove(const NodeRow (&rows)[Count])
{
    for (std::size_t i = 0; i < Count; ++i) {
        if (rows[i].parent != nullptr && !isPath(std::span(rows).first(i), rows[i].parent)) {
            return false;
        }
    }
    return true;
}

/// True if no parent has two nodes of one name.
template<std::size_t Count>
consteval bool namesAreUnique(const NodeRow (&rows)[Count])
{
    for (const NodeRow& row : rows) {
        if (std::count_if(rows, rows + Count, [&row](const NodeRow& other) {
                return std::string_view(other.name) == row.name && parentOf(other) == parentOf(row);
            }) != 1)
        {
            return false;
        }
    }
    return true;
}

/// True if each node shows an object of one of the tables, or the text layer's, or nothing.
template<std::size_t Count, typename... Tables>
consteval bool objectsExist(const NodeRow (&rows)[Count], const Tables&... tables)
{
    return std::all_of(rows, rows + Count, [&](const NodeRow& row) {
        const std::string_view object = row.object;
        const auto holds = [object](const auto& table) {
            return std::any_of(std::begin(table), std::end(table),
                               [object](const ObjectRow& entry) { return object == entry.name; });
        };
        return object.empty() || object == textLayerName || (holds(tables) || ...);
    });
}

/// True if each object of the tables is shown by a node. One that is not would be loaded for nothing.
template<std::size_t Count, typename... Tables>
consteval bool objectsAreShown(const NodeRow (&rows)[Count], const Tables&... tables)
{
    const auto isShown = [&rows](const ObjectRow& entry) {
        return std::any_of(rows, rows + Count, [&entry](const NodeRow& row) {
            return std::string_view(row.object) == entry.name;
        });
    };
    return (std::all_of(std::begin(tables), std::end(tables), isShown) && ...);
}

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
