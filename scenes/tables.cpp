#include "scenes/tables.h"

#include "engine/model_loader.h"
#include "scenes/full_frame.h"
#include "scenes/textures.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

void loadInto(zund::Texture& texture, zund::Renderer& renderer, const pack::Packfile& pack,
              const catalogue::Texture& row)
{
    if (row.file != nullptr) {
        texture = loadTexture(renderer, pack, row);
    }
}

} // namespace

tree::Node<lumeth::DisplayListItem>& findNode(lumeth::Scene& scene, const char* path)
{
    tree::Node<lumeth::DisplayListItem>* node = &scene.getGraph();
    std::string_view rest = path;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('/'), rest.size());
        node = node->getNode(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return *node;
}

void addObjects(lumeth::Scene& scene, zund::Renderer& renderer, const pack::Packfile& pack, float aspect,
                std::span<const ObjectRow> rows)
{
    for (const ObjectRow& row : rows) {
        lumeth::DisplayObject object = loadModel(renderer, row.model.path, false);
        object.color = row.color;
        object.ambient = row.ambient;
        object.diffuse = row.diffuse;
        object.specular = row.specular;
        object.shininess = row.shininess;
        object.transparent = row.transparent;
        loadInto(object.colorTexture, renderer, pack, row.colorTexture);
        loadInto(object.normalTexture, renderer, pack, row.normalTexture);
        loadInto(object.emissivityTexture, renderer, pack, row.emissivityTexture);
        if (row.material != nullptr) {
            object.material = row.material(renderer, aspect);
        }
        scene.addObject(row.name, std::move(object));
    }
}

void addTextLayer(lumeth::Scene& scene, zund::Renderer& renderer, const pack::Packfile& pack, float aspect,
                  const TextLayerRow& row)
{
    lumeth::DisplayObject object;
    object.vertexArray = createFullFrameTriangle(renderer, row.depth);
    loadInto(object.colorTexture, renderer, pack, row.colorTexture);
    loadInto(object.normalTexture, renderer, pack, row.normalTexture);
    object.material = row.material(renderer, aspect);
    scene.addObject(textLayerName, std::move(object));
}

void addNodes(lumeth::Scene& scene, std::span<const NodeRow> rows)
{
    for (const NodeRow& row : rows) {
        findNode(scene, row.parent != nullptr ? row.parent : "")
            .addNode(row.name, lumeth::DisplayListItem(row.object, row.position, row.orientation,
                                                       glm::vec3(row.scale)));
    }
}

void addLights(lumeth::Scene& scene, std::span<const lumeth::Light> rows)
{
    for (const lumeth::Light& light : rows) {
        scene.addLight(light);
    }
}
