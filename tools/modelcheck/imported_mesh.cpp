#include "tools/modelcheck/imported_mesh.h"

#include "engine/model_loader.h"
#include "tools/common/error.h"
#include "tools/common/quiet_output.h"
#include "tools/renderers/null_renderer.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <stdexcept>

namespace tools::modelcheck {

namespace {

/// `count` numbers as vectors.
template<typename Vector>
std::vector<Vector> vectors(const float* numbers, unsigned long count)
{
    std::vector<Vector> list(count * sizeof(float) / sizeof(Vector));
    std::memcpy(list.data(), numbers, list.size() * sizeof(Vector));
    return list;
}

/// Keeps the mesh that the loader uploads.
class MeshRecorder : public renderers::NullRenderer {
public:
    ImportedMesh mesh;
    bool hasTriangles = true;

    zund::VertexArray createIndexedBuffer(const float* positions, unsigned long positionCount,
                                          const unsigned int* indices, unsigned long indexCount,
                                          const float* uvs, unsigned long uvCount, const float* normals,
                                          unsigned long normalCount, const float* tangents,
                                          unsigned long tangentCount, const float* bitangents,
                                          unsigned long bitangentCount) override
    {
        mesh.positions = vectors<glm::vec3>(positions, positionCount);
        mesh.uvs = vectors<glm::vec2>(uvs, uvCount);
        mesh.normals = vectors<glm::vec3>(normals, normalCount);
        mesh.tangents = vectors<glm::vec3>(tangents, tangentCount);
        mesh.bitangents = vectors<glm::vec3>(bitangents, bitangentCount);
        hasTriangles = indexCount > 0 && indexCount % 3 == 0;
        for (unsigned long i = 0; i + 2 < indexCount; i += 3) {
            mesh.triangles.push_back({indices[i], indices[i + 1], indices[i + 2]});
        }
        return {1, 0, indexCount};
    }
};

glm::mat4 load(zund::Renderer& renderer, const std::filesystem::path& path)
{
    const QuietOutput quiet;
    try {
        return loadModel(renderer, path.string(), false).modelMatrix;
    } catch (const std::runtime_error& error) {
        throw Error(path.string(), error.what());
    }
}

} // namespace

ImportedMesh importModel(const std::filesystem::path& path)
{
    MeshRecorder recorder;
    recorder.mesh.root = load(recorder, path);
    if (!recorder.hasTriangles) {
        throw Error(path.string(), "its faces are no triangles");
    }
    const std::size_t vertices = recorder.mesh.positions.size();
    for (const auto& triangle : recorder.mesh.triangles) {
        if (*std::max_element(triangle.begin(), triangle.end()) >= vertices) {
            throw Error(path.string(), "a triangle has a corner that is no vertex");
        }
    }
    return std::move(recorder.mesh);
}

double importSeconds(const std::filesystem::path& path)
{
    renderers::NullRenderer renderer;
    const std::clock_t start = std::clock();
    load(renderer, path);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

} // namespace tools::modelcheck
