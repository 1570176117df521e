#include "engine/model_loader.h"

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>
#include <iostream>
#include <stdexcept>
#include <vector>

namespace {

constexpr unsigned int importSteps =
    aiProcess_CalcTangentSpace | aiProcess_JoinIdenticalVertices | aiProcess_Triangulate;

void append(std::vector<float>& floats, const aiVector3D& vector)
{
    floats.push_back(vector.x);
    floats.push_back(vector.y);
    floats.push_back(vector.z);
}

/// The mesh that the root node shows; the file holds no other.
const aiMesh& findMesh(const aiScene& scene)
{
    if (scene.mNumMeshes == 0) {
        throw std::runtime_error("no meshes found!");
    }
    if (scene.mNumMeshes != 1) {
        throw std::runtime_error("only one mesh in model supported");
    }
    if (scene.mRootNode->mNumMeshes == 0) {
        throw std::runtime_error(
            "no meshes found!"); // it hangs below the root, whose transform alone is read
    }
    return *scene.mMeshes[scene.mRootNode->mMeshes[0]];
}

/// From rows to columns: what the matrix does stays the same.
glm::mat4 toGlm(const aiMatrix4x4& m)
{
    return {m.a1, m.b1, m.c1, m.d1, m.a2, m.b2, m.c2, m.d2, m.a3, m.b3, m.c3, m.d3, m.a4, m.b4, m.c4, m.d4};
}

} // namespace

lumeth::DisplayObject loadModel(zund::Renderer& renderer, const std::string& path, bool negateV)
{
    Assimp::Importer importer;
    const aiScene* scene = importer.ReadFile(path, importSteps);
    if (scene == nullptr) {
        throw std::runtime_error("failed to import model");
    }
    const aiMesh& mesh = findMesh(*scene);
    // The same number twice.
    std::cout << "mesh info:\n"
              << "  vertices: " << mesh.mNumVertices << "\n"
              << "  faces: " << mesh.mNumVertices << "\n";

    std::vector<float> positions;
    std::vector<float> normals;
    std::vector<float> tangents;
    std::vector<float> bitangents;
    std::vector<float> uvs;
    std::vector<unsigned int> indices;
    if (mesh.mVertices == nullptr) {
        throw std::runtime_error("no vertices?!");
    }
    for (unsigned int i = 0; i < mesh.mNumVertices; ++i) {
        append(positions, mesh.mVertices[i]);
    }
    if (mesh.mNormals == nullptr) {
        throw std::runtime_error("no normals?!");
    }
    for (unsigned int i = 0; i < mesh.mNumVertices; ++i) {
        append(normals, mesh.mNormals[i]);
    }
    if (mesh.mTangents == nullptr) {
        throw std::runtime_error("no tangents?!");
    }
    for (unsigned int i = 0; i < mesh.mNumVertices; ++i) {
        append(tangents, mesh.mTangents[i]);
        append(bitangents, mesh.mBitangents[i]);
    }
    if (mesh.mNumUVComponents[0] != 2) {
        throw std::runtime_error("unexpected number of uv components");
    }
    for (unsigned int i = 0; i < mesh.mNumVertices; ++i) {
        const aiVector3D& uv = mesh.mTextureCoords[0][i];
        uvs.push_back(uv.x);
        uvs.push_back(negateV ? -uv.y : 1.0F - uv.y);
    }
    for (unsigned int i = 0; i < mesh.mNumFaces; ++i) {
        const aiFace& face = mesh.mFaces[i];
        indices.insert(indices.end(), face.mIndices, face.mIndices + face.mNumIndices);
    }

    lumeth::DisplayObject object;
    object.vertexArray =
        renderer.createIndexedBuffer(positions.data(), positions.size(), indices.data(), indices.size(),
                                     uvs.data(), uvs.size(), normals.data(), normals.size(), tangents.data(),
                                     tangents.size(), bitangents.data(), bitangents.size());
    object.modelMatrix = toGlm(scene->mRootNode->mTransformation);
    return object;
}
