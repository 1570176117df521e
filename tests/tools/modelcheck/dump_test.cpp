#include "tools/modelcheck/dump.h"

#include <gtest/gtest.h>

namespace {

TEST(Dump, GivesEachNumberToTheBit)
{
    tools::modelcheck::ImportedMesh mesh;
    mesh.root[3][0] = -2.0F;
    mesh.positions = {{1.0F, 0.1F, -0.0F}};
    mesh.uvs = {{0.5F, 0.25F}};
    mesh.normals = {{0.0F, 1.0F, 0.0F}};
    mesh.tangents = {{3.0F, 0.0F, 0.0F}};
    mesh.bitangents = {{0.0F, 0.0F, 6.0F}};
    mesh.triangles = {{0, 0, 7}};
    EXPECT_EQ(
        tools::modelcheck::dump(mesh),
        "root 0x1p+0 0x0p+0 0x0p+0 0x0p+0 0x0p+0 0x1p+0 0x0p+0 0x0p+0 0x0p+0 0x0p+0 0x1p+0 0x0p+0 -0x1p+1 "
        "0x0p+0 0x0p+0 0x1p+0\n"
        "vertex 0x1p+0 0x1.99999ap-4 -0x0p+0 0x1p-1 0x1p-2 0x0p+0 0x1p+0 0x0p+0 0x1.8p+1 0x0p+0 0x0p+0 "
        "0x0p+0 "
        "0x0p+0 0x1.8p+2\n"
        "triangle 0 0 7\n");
}

} // namespace
