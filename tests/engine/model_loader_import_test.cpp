// What a file cannot bring the importer to. This program puts a scene of its own in the place of Assimp's
// reader.

#include "engine/model_loader.h"
#include "tests/support/recording_renderer.h"

#include <assimp/Importer.hpp>
#include <assimp/scene.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

namespace {

const aiScene* imported = nullptr; ///< what the reader gives
std::string askedPath;
unsigned int askedSteps = 0;

} // namespace

// Defined here, it stands before the one of the shared library.
const aiScene* Assimp::Importer::ReadFile(const char* pFile, unsigned int pFlags)
{
    askedPath = pFile;
    askedSteps = pFlags;
    return imported;
}

namespace {

class ModelImport : public testing::Test {
protected:
    ModelImport()
    {
        scene.mNumMeshes = 1;
        scene.mMeshes = new aiMesh* [1] {
            new aiMesh
        };
        scene.mRootNode = new aiNode;
        scene.mRootNode->mNumMeshes = 1;
        scene.mRootNode->mMeshes = new unsigned int[1]{0};
        mesh = scene.mMeshes[0];
        mesh->mNumVertices = 2;
        mesh->mVertices = new aiVector3D[2]{{1, 2, 3}, {4, 5, 6}};
        mesh->mNormals = new aiVector3D[2]{{11, 12, 13}, {14, 15, 16}};
        mesh->mTangents = new aiVector3D[2]{{21, 22, 23}, {24, 25, 26}};
        mesh->mBitangents = new aiVector3D[2]{{31, 32, 33}, {34, 35, 36}};
        mesh->mTextureCoords[0] = new aiVector3D[2]{{0.5F, 0.25F, 9}, {0.75F, 1, 9}};
        mesh->mNumUVComponents[0] = 2;
        mesh->mNumFaces = 2;
        mesh->mFaces = new aiFace[2];
        setFace(0, {0, 1});
        setFace(1, {1, 0, 1, 0, 1});
        imported = &scene;
    }
    ~ModelImport() override { imported = nullptr; }

    void setFace(std::size_t index, const std::vector<unsigned int>& indices) const
    {
        aiFace& face = mesh->mFaces[index];
        face.mNumIndices = static_cast<unsigned int>(indices.size());
        face.mIndices = new unsigned int[indices.size()];
        std::copy(indices.begin(), indices.end(), face.mIndices);
    }

    static void drop(aiVector3D*& vectors)
    {
        delete[] vectors;
        vectors = nullptr;
    }

    void expectRefusal(const std::string& text)
    {
        testing::internal::CaptureStdout();
        EXPECT_THAT([this] { loadModel(renderer, "some model", false); },
                    ThrowsMessage<std::runtime_error>(text));
        testing::internal::GetCapturedStdout();
        EXPECT_THAT(renderer.take(), IsEmpty());
    }

    aiScene scene; ///< owns all below it
    aiMesh* mesh = nullptr;
    RecordingRenderer renderer;
};

TEST_F(ModelImport, AsksForThePathAsItStandsAndThreeSteps)
{
    loadModel(renderer, "some/../odd path.glb", false);
    EXPECT_EQ(askedPath, "some/../odd path.glb");
    EXPECT_EQ(askedSteps, 11U);
}

TEST_F(ModelImport, CopiesAllArraysAndTurnsTheVRound)
{
    loadModel(renderer, "some model", false);
    const RecordingRenderer::Mesh& loaded = renderer.meshes.at(0);
    EXPECT_THAT(loaded.positions, ElementsAre(1, 2, 3, 4, 5, 6));
    EXPECT_THAT(loaded.normals, ElementsAre(11, 12, 13, 14, 15, 16));
    EXPECT_THAT(loaded.tangents, ElementsAre(21, 22, 23, 24, 25, 26));
    EXPECT_THAT(loaded.bitangents, ElementsAre(31, 32, 33, 34, 35, 36));
    EXPECT_THAT(loaded.uvs, ElementsAre(0.5F, 0.75F, 0.75F, 0.0F));
}

TEST_F(ModelImport, NegatesTheVWhenTold)
{
    loadModel(renderer, "some model", true);
    EXPECT_THAT(renderer.meshes.at(0).uvs, ElementsAre(0.5F, -0.25F, 0.75F, -1.0F));
}

TEST_F(ModelImport, AppendsTheIndicesOfFacesOfAnySize)
{
    loadModel(renderer, "some model", false);
    EXPECT_THAT(renderer.meshes.at(0).indices, ElementsAre(0U, 1U, 1U, 0U, 1U, 0U, 1U));
}

TEST_F(ModelImport, RefusesANullScene)
{
    imported = nullptr;
    expectRefusal("failed to import model");
}

TEST_F(ModelImport, RefusesAMeshWithoutVerticesFirst)
{
    drop(mesh->mVertices);
    drop(mesh->mNormals);
    drop(mesh->mTangents);
    expectRefusal("no vertices?!");
}

TEST_F(ModelImport, RefusesAMeshWithoutNormalsSecond)
{
    drop(mesh->mNormals);
    drop(mesh->mTangents);
    expectRefusal("no normals?!");
}

TEST_F(ModelImport, RefusesAMeshWithoutTangentsThird)
{
    drop(mesh->mTangents);
    mesh->mNumUVComponents[0] = 3;
    expectRefusal("no tangents?!");
}

class UvComponents : public ModelImport, public testing::WithParamInterface<unsigned int> {};

TEST_P(UvComponents, AreTwoOrRefused)
{
    mesh->mNumUVComponents[0] = GetParam();
    expectRefusal("unexpected number of uv components");
}

INSTANTIATE_TEST_SUITE_P(Count, UvComponents, testing::Values(0, 1, 3, 4), testing::PrintToStringParamName());

} // namespace
