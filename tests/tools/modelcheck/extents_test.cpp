#include "tools/modelcheck/extents.h"

#include "tests/tools/modelcheck/imported_boxes.h"

#include <gtest/gtest.h>

using tools::modelcheck::Extent;

namespace {

struct Expected {
    Extent extent;
    float value;
    const char* name;
};

// Of a box from (-4, 1, -3) to (2, 5, 2.5).
constexpr Expected expected[] = {
    {Extent::LowX, -4.0F, "lowest x"},
    {Extent::HighX, 2.0F, "highest x"},
    {Extent::LowY, 1.0F, "lowest y"},
    {Extent::HighY, 5.0F, "highest y"},
    {Extent::LowZ, -3.0F, "lowest z"},
    {Extent::HighZ, 2.5F, "highest z"},
    {Extent::FarX, 4.0F, "farthest x to either side"},
    {Extent::FarZ, 3.0F, "farthest z to either side"},
    {Extent::Radius, 5.0F, "radius about the y axis"},
};

TEST(Extents, SayWhereAModelEnds)
{
    const standins::Box box = {{-4.0F, 1.0F, -3.0F}, {2.0F, 5.0F, 2.5F}};
    const tools::modelcheck::ImportedMesh mesh = importedBoxes({&box, 1});
    for (const Expected& row : expected) {
        EXPECT_FLOAT_EQ(measure(mesh, row.extent), row.value) << row.name;
        EXPECT_STREQ(nameOf(row.extent), row.name);
    }
}

} // namespace
