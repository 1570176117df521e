#include "engine/material.h"

#include "engine/default_material.h"
#include "gl/exception.h"
#include "tests/engine/stub_material.h"
#include "tests/gl/slots.h"
#include "tests/support/recording_renderer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <type_traits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A renderer on which the shader of a type fails to compile.
class FailingRenderer : public RecordingRenderer {
public:
    explicit FailingRenderer(zund::Shader::Type failing) : failing(failing) {}

    zund::Shader createShader(zund::Shader::Type type, const char* source) override
    {
        if (type == failing) {
            throw zund::Exception("shader compilation error:\nno");
        }
        return RecordingRenderer::createShader(type, source);
    }

private:
    zund::Shader::Type failing;
};

TEST(Material, CompilesVertexThenFragmentShaderAndLinksThem)
{
    RecordingRenderer renderer;
    std::vector<StubMaterial::Asked> asked;
    const StubMaterial material(renderer, asked);
    EXPECT_THAT(renderer.take(),
                ElementsAre("createShader(vertex, source 1) = 1", "createShader(fragment, source 2) = 2",
                            "createProgram(1, 2, null) = 3"));
    EXPECT_THAT(renderer.sources, ElementsAre("stub vertex", "stub fragment"));
    EXPECT_EQ(material.program.get(), 3);
}

TEST(Material, CompilesAGeometryShaderLast)
{
    RecordingRenderer renderer;
    std::vector<StubMaterial::Asked> asked;
    const StubMaterial material(renderer, asked, "stub geometry");
    EXPECT_THAT(renderer.take(),
                ElementsAre("createShader(vertex, source 1) = 1", "createShader(fragment, source 2) = 2",
                            "createShader(geometry, source 3) = 3", "createProgram(1, 2, 3) = 4"));
    EXPECT_EQ(renderer.sources.at(2), "stub geometry");
    EXPECT_EQ(material.program.get(), 4);
}

TEST(Material, HasTwoVirtualOperationsAndNoVirtualDestructor)
{
    EXPECT_TRUE(std::is_abstract_v<lumeth::Material>);
    EXPECT_FALSE(std::has_virtual_destructor_v<lumeth::Material>);
    EXPECT_EQ(slotOf(&lumeth::Material::getUniformCommands), 0U);
    EXPECT_EQ(slotOf(&lumeth::Material::getUniformArrayCommands), 1U);
    EXPECT_EQ(sizeof(lumeth::Material), sizeof(void*) + sizeof(zund::ShaderProgram));
}

// These two say more under AddressSanitizer, which knows the size that was allocated.
TEST(Material, IsFreedThroughItsBase)
{
    RecordingRenderer renderer;
    auto derived = std::make_unique<lumeth::DefaultMaterial>(renderer, 1.5F);
    EXPECT_GT(sizeof(*derived), sizeof(lumeth::Material));
    renderer.take();
    std::unique_ptr<lumeth::Material> material = std::move(derived);
    material.reset();
    EXPECT_EQ(material, nullptr);
    EXPECT_THAT(renderer.take(), IsEmpty()) << "no GL object is deleted";
}

TEST(Material, LetsTheRenderersFailureOutOfItsConstructor)
{
    for (const zund::Shader::Type type : {zund::Shader::Vertex, zund::Shader::Fragment}) {
        FailingRenderer renderer(type);
        EXPECT_THAT([&] { std::make_unique<lumeth::DefaultMaterial>(renderer, 1.5F); },
                    testing::ThrowsMessage<zund::Exception>("shader compilation error:\nno"));
    }
}

TEST(DisplayObject, StartsAllZeroWithoutMaterialAndTextures)
{
    const lumeth::DisplayObject object{};
    EXPECT_EQ(object.modelMatrix, glm::mat4(0.0F));
    EXPECT_FALSE(object.colorTexture.isValid());
    EXPECT_FALSE(object.normalTexture.isValid());
    EXPECT_FALSE(object.emissivityTexture.isValid());
    EXPECT_FALSE(object.vertexArray.isValid());
    EXPECT_EQ(object.material, nullptr);
    EXPECT_EQ(object.color, glm::vec3(0.0F));
    EXPECT_EQ(object.ambient, 0.0F);
    EXPECT_EQ(object.diffuse, 0.0F);
    EXPECT_EQ(object.specular, 0.0F);
    EXPECT_EQ(object.shininess, 0.0F);
    EXPECT_FALSE(object.transparent);
}

TEST(DisplayObject, CanBeMovedAndNotCopied)
{
    EXPECT_TRUE(std::is_move_constructible_v<lumeth::DisplayObject>);
    EXPECT_FALSE(std::is_copy_constructible_v<lumeth::DisplayObject>);
    EXPECT_FALSE(std::is_polymorphic_v<lumeth::DisplayObject>);
}

} // namespace
