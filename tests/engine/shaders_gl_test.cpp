#include "engine/model_loader.h"
#include "engine/post_shaders.h"
#include "engine/scene.h"
#include "engine/shaders/skybox_frag.h"
#include "engine/shaders/skybox_vert.h"
#include "scenes/full_frame.h"
#include "scenes/shaders/credits_frag.h"
#include "tests/engine/matrices.h"
#include "tests/gl/offscreen_renderer.h"
#include "tests/standins/glb_file.h"
#include "tests/support/test_assets.h"

#include <GL/glew.h>
#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace {

using lumeth::DisplayListItem;
using lumeth::DisplayObject;

/// Half floats keep 11 bits.
constexpr float halfTolerance = 1.0F / 2048.0F;

float decoded(float value)
{
    return std::pow(value, 2.2F);
}

class ShadersOnTheDriver : public OffscreenRenderer {
protected:
    explicit ShadersOnTheDriver(int width = 96, int height = 64) : OffscreenRenderer(width, height) {}

    /// Runs a pass over `input` into the target, and its framebuffer is given back.
    zund::FrameBuffer runPass(const char* source, const zund::Texture& input,
                              const zund::Texture& kernel = {})
    {
        zund::Texture output;
        zund::FrameBuffer target = createTarget(output);
        zund::DrawCommand command;
        command.frameBuffer = target;
        command.vertexArray = coverScreen();
        command.program = link(post_vert_src, source);
        command.textures[0] = input;
        command.textures[2] = kernel;
        command.uniforms = {
            {renderer.getUniform(command.program, "resolution"), glm::vec2(width, height)},
            {renderer.getUniform(command.program, "fbo"), 0},
            {renderer.getUniform(command.program, "kernel_gauss"), 2},
        };
        renderer.render({clearOf(target), command});
        return target;
    }

    /// A picture of the window's size with a colour for each place.
    template<typename ColorOfPlace>
    zund::Texture picture(ColorOfPlace colorOf)
    {
        zund::Texture texture = renderer.createTexture2d(zund::TextureFormat::RGB16F, width, height);
        std::vector<float> floats;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const glm::vec3 color = colorOf(x, y);
                floats.insert(floats.end(), {color.r, color.g, color.b});
            }
        }
        glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(texture.get()));
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width, height, GL_RGB, GL_FLOAT, floats.data());
        glBindTexture(GL_TEXTURE_2D, 0);
        return texture;
    }

    zund::Texture plain(const glm::vec3& color)
    {
        return picture([&](int /*x*/, int /*y*/) { return color; });
    }

    static const char* effect(const std::string& name)
    {
        for (const lumeth::PostEffect& spare : lumeth::getSpareEffects()) {
            if (spare.name == name) {
                return spare.source;
            }
        }
        throw std::runtime_error("no effect " + name);
    }
};

// --- Passes ---

TEST_F(ShadersOnTheDriver, CompileAndLinkWithTheirPartners)
{
    EXPECT_NO_THROW(link(lumeth::Scene::material_vert, lumeth::Scene::material_frag));
    EXPECT_NO_THROW(link(embedded::skybox_vert, embedded::skybox_frag));
    EXPECT_NO_THROW(link(credits_vert, embedded::credits_frag));
    for (const char* source :
         {post_pass0_frag_src, post_pass1_frag_src, shader_letterbox, shader_gamma_encode}) {
        EXPECT_NO_THROW(link(post_vert_src, source));
    }
    ASSERT_EQ(lumeth::getSpareEffects().size(), 6U);
    for (const lumeth::PostEffect& spare : lumeth::getSpareEffects()) {
        EXPECT_NO_THROW(link(post_vert_src, spare.source)) << spare.name;
    }
}

TEST_F(ShadersOnTheDriver, CopyThePictureUpright)
{
    const auto colorOf = [](int x, int y) {
        return glm::vec3(static_cast<float>(x) / 64.0F, static_cast<float>(y) / 64.0F, 3.0F);
    };
    const zund::FrameBuffer result = runPass(post_pass0_frag_src, picture(colorOf));
    for (const auto& [x, y] : {std::pair(0, 0), std::pair(63, 5), std::pair(20, 63)}) {
        const glm::vec3 color = colorOf(x, y);
        EXPECT_THAT(pixelOf(result, x, y), IsPixel(color.r, color.g, color.b, 1.0F, halfTolerance));
    }
}

TEST_F(ShadersOnTheDriver, EncodeGammaInBothEncoders)
{
    const auto colorOf = [](int x, int y) {
        return glm::vec3(static_cast<float>(x + 1) / 96.0F, static_cast<float>(y + 1) / 64.0F, 0.25F);
    };
    const zund::Texture input = picture(colorOf);
    const float exponent = 1.0F / 2.2F;
    for (const char* source : {post_pass1_frag_src, shader_gamma_encode}) {
        const zund::FrameBuffer result = runPass(source, input);
        for (const auto& [x, y] : {std::pair(5, 9), std::pair(90, 11), std::pair(20, 60)}) {
            const glm::vec3 color = colorOf(x, y);
            EXPECT_THAT(pixelOf(result, x, y),
                        IsPixel(std::pow(color.r, exponent), std::pow(color.g, exponent),
                                std::pow(color.b, exponent), 1.0F, halfTolerance));
        }
    }
}

TEST_F(ShadersOnTheDriver, LiftThePicture)
{
    EXPECT_THAT(pixelOf(runPass(effect("lift"), plain(glm::vec3(0.0F, 0.5F, 2.0F))), 30, 30),
                IsPixel(0.7F, 0.75F, 0.9F, 1.0F, halfTolerance));
}

TEST_F(ShadersOnTheDriver, TurnAllGreenForTheGreenCard)
{
    EXPECT_THAT(pixelOf(runPass(effect("green card"), plain(glm::vec3(0.5F))), 30, 30),
                IsPixel(0.0F, 1.0F, 0.0F, 1.0F, 0.0F));
}

TEST_F(ShadersOnTheDriver, SplitBrightFromDarkByTheMeanOfTheColour)
{
    // Means a little below and above 0.01.
    const zund::Texture input = picture([](int x, int /*y*/) {
        return x < 32 ? glm::vec3(0.0F, 0.0F, 0.029F) : glm::vec3(0.011F, 0.01F, 0.0105F);
    });
    const zund::FrameBuffer result = runPass(effect("brightness threshold"), input);
    EXPECT_THAT(pixelOf(result, 10, 30), IsPixel(0.0F, 0.0F, 1.0F, 1.0F, 0.0F));
    EXPECT_THAT(pixelOf(result, 50, 30), IsPixel(1.0F, 1.0F, 1.0F, 1.0F, 0.0F));
}

TEST_F(ShadersOnTheDriver, FindAVerticalEdgeInTheTwoColumnsBehindIt)
{
    // The kernel reaches from -2 to 0: a step between columns 31 and 32 shows at 32 and 33, as 1 + 2 + 1.
    const zund::Texture input = picture([](int x, int /*y*/) { return glm::vec3(x < 32 ? 0.0F : 1.0F); });
    const zund::FrameBuffer result = runPass(effect("sobel"), input);
    for (int x = 28; x < 38; ++x) {
        const float expected = x == 32 || x == 33 ? 4.0F : 0.0F;
        EXPECT_THAT(pixelOf(result, x, 30), IsPixel(expected, expected, expected, 1.0F, 0.01F)) << x;
    }
}

TEST_F(ShadersOnTheDriver, FindAHorizontalEdgeInTheTwoRowsAboveItAsTheMeanOfItsChannels)
{
    const zund::Texture input =
        picture([](int /*x*/, int y) { return y < 32 ? glm::vec3(0.0F) : glm::vec3(0.75F, 0.0F, 0.0F); });
    const zund::FrameBuffer result = runPass(effect("sobel"), input);
    for (int y = 28; y < 38; ++y) {
        const float expected = y == 32 || y == 33 ? 1.0F : 0.0F; // 4 * 0.75 / 3
        EXPECT_THAT(pixelOf(result, 30, y), IsPixel(expected, expected, expected, 1.0F, 0.01F)) << y;
    }
}

class Blur : public ShadersOnTheDriver, public testing::WithParamInterface<bool> {};

TEST_P(Blur, ReachesTwoTexelsBackWithAKernelOfThree)
{
    const bool horizontal = GetParam();
    zund::Texture kernel = renderer.createTexture1d(3);
    // At x / size a linear sample lies between two texels: the last weight counts for a half only.
    const float weights[] = {0.125F, 0.375F, 0.625F};
    renderer.uploadTexture1d(kernel, 3, weights);
    constexpr float farthest = 0.125F; // of the offset -2
    constexpr float middle = 0.25F;    // of -1
    constexpr float sum = farthest + middle + 0.5F;
    // A ramp: what is sampled tells the place.
    const zund::Texture input = picture([&](int x, int y) {
        return glm::vec3(static_cast<float>(horizontal ? x : y), static_cast<float>(horizontal ? y : x),
                         1.0F);
    });
    const zund::FrameBuffer result = runPass(
        effect(horizontal ? "blur with horizontal kernel" : "blur with vertical kernel"), input, kernel);
    for (const auto& [x, y] : {std::pair(62, 40), std::pair(40, 24), std::pair(48, 50)}) {
        // The step is 10 times the square of the distance from the centre, in texels.
        const float u = (static_cast<float>(x) + 0.5F) / 48.0F - 1.0F;
        const float v = (static_cast<float>(y) + 0.5F) / 32.0F - 1.0F;
        const float step = 10.0F * (u * u + v * v);
        const auto along = static_cast<float>(horizontal ? x : y);
        const auto across = static_cast<float>(horizontal ? y : x);
        EXPECT_THAT(pixelOf(result, x, y),
                    IsPixel(sum * along - (2.0F * farthest + middle) * step, sum * across, sum, 1.0F, 0.15F))
            << x << ", " << y;
    }
}

INSTANTIATE_TEST_SUITE_P(Horizontal, Blur, testing::Bool(), testing::PrintToStringParamName());

// --- Letterbox ---

struct LetterboxSize {
    int width;
    int height;
    int bar; ///< rows of black above and below
};

class Letterbox : public ShadersOnTheDriver, public testing::WithParamInterface<LetterboxSize> {
protected:
    Letterbox() : ShadersOnTheDriver(GetParam().width, GetParam().height) {}
};

TEST_P(Letterbox, BlackensTheRowsOutsideTheWidePicture)
{
    const auto colorOf = [this](int x, int y) {
        return glm::vec3(static_cast<float>(x + 1) / static_cast<float>(width + 1),
                         static_cast<float>(y + 1) / static_cast<float>(height + 1), 2.0F);
    };
    const zund::FrameBuffer result = runPass(shader_letterbox, picture(colorOf));
    for (int y = 0; y < height; ++y) {
        const bool black = y < GetParam().bar || y >= height - GetParam().bar;
        const int x = y % width;
        const glm::vec3 color = black ? glm::vec3(0.0F) : colorOf(x, y);
        // Twice a half float: the input and the output.
        ASSERT_THAT(pixelOf(result, x, y), IsPixel(color.r, color.g, color.b, 1.0F, 2.0F * halfTolerance))
            << y;
    }
}

// The bar is (height - width * 27 / 64) / 2. A row counts by its middle, half a pixel up.
constexpr LetterboxSize letterboxSizes[] = {
    {1920, 1080, 135}, // exactly
    {1280, 720, 90},   // exactly
    {64, 64, 18},      // 18.5: the middle of row 18 lies on the edge, and is shown
    {128, 100, 23},    // exactly
    {64, 30, 1},       // 1.5: as above
    {64, 27, 0},       // 64:27 itself
    {128, 32, 0},      // wider: the bar is negative
};
INSTANTIATE_TEST_SUITE_P(Of, Letterbox, testing::ValuesIn(letterboxSizes), [](const auto& info) {
    return std::to_string(info.param.width) + "x" + std::to_string(info.param.height);
});

// --- Sky ---

class Sky : public ShadersOnTheDriver {
protected:
    /// The scene's own command, with a cube map if it is given one.
    zund::DrawCommand drawSky(const zund::FrameBuffer& target, const zund::Texture& cubeMap)
    {
        zund::DrawCommand command = scene.drawSkybox();
        command.frameBuffer = target;
        command.textures[0] = cubeMap;
        command.uniforms[1].second = cubeMap.isValid();
        return command;
    }

    /// The direction in the world that a pixel's middle shows.
    glm::dvec3 directionAt(int x, int y, const glm::mat4& view) const
    {
        const double reach = std::tan(2.0943952 / 2.0);
        const double u = (x + 0.5) / width * 2.0 - 1.0;
        const double v = (y + 0.5) / height * 2.0 - 1.0;
        const glm::dvec3 inView(u * reach, v * reach * height / width, -1.0);
        glm::dvec3 direction(0.0);
        for (int column = 0; column < 3; ++column) {
            for (int row = 0; row < 3; ++row) { // of the inverse: a rotation's is its mirror image
                direction[column] += static_cast<double>(view[column][row]) * inView[row];
            }
        }
        return direction;
    }

    Sky() { scene.init(renderer, {width, height}); }

    lumeth::Scene scene;
};

TEST_F(Sky, IsOneColourDecoded)
{
    zund::Texture texture;
    const zund::FrameBuffer target = createTarget(texture);
    scene.setSkyboxColor(glm::vec3(0.05F, 0.5F, 0.12F));
    renderer.render({clearOf(target), drawSky(target, zund::Texture())});
    for (const int place : {0, 32, 63}) {
        EXPECT_THAT(pixelOf(target, place, 63 - place),
                    IsPixel(decoded(0.05F), decoded(0.5F), decoded(0.12F), 1.0F, halfTolerance));
    }
}

/// The face of a cube map, in the order of uploading, that a direction of `directionAt` meets; -1 near an
/// edge of it, and where the sky's cube is nearer than the near plane.
int faceTowards(const glm::dvec3& direction)
{
    double sizes[] = {std::abs(direction.x), std::abs(direction.y), std::abs(direction.z)};
    const auto axis =
        static_cast<glm::length_t>(std::max_element(std::begin(sizes), std::end(sizes)) - sizes);
    std::sort(std::begin(sizes), std::end(sizes));
    const int face = static_cast<int>(2 * axis) + (direction[axis] < 0.0 ? 1 : 0);
    const double depth = 2.0 / sizes[2]; // of a cube of 4
    return sizes[1] > 0.9 * sizes[2] || depth < 1.05 ? -1 : face;
}

TEST_F(Sky, ShowsTheFacesOfACubeMapThatTheCameraLooksAt)
{
    // Six faces of one colour each, as 5-6-5 bits.
    const unsigned char faceColors[6][2] = {{0x00, 0xF8}, {0xE0, 0x07}, {0x1F, 0x00},
                                            {0xE0, 0xFF}, {0xFF, 0x07}, {0x1F, 0xF8}};
    const glm::vec3 colors[] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0}, {0, 1, 1}, {1, 0, 1}};
    unsigned char blocks[6][8] = {};
    const void* faces[6] = {};
    for (int i = 0; i < 6; ++i) {
        std::copy(std::begin(faceColors[i]), std::end(faceColors[i]), blocks[i]);
        faces[i] = blocks[i];
    }
    zund::Texture cubeMap = renderer.createCubemap();
    renderer.uploadCubemap(cubeMap, 4, 4, faces);
    zund::Texture texture;
    const zund::FrameBuffer target = createTarget(texture);
    std::set<int> seen;
    // Cameras that lean every way, so that several faces are in each picture, and each on its own side.
    for (const glm::dvec3& towards : {glm::dvec3(1.0, 0.25, -0.5), glm::dvec3(-0.5, -1.0, 0.25)}) {
        const glm::dvec3 eye(3.0, -1.5, 4.0);
        const glm::dvec3 up(0.25, 1.0, 0.5);
        scene.lookAt(glm::vec3(eye), glm::vec3(eye + towards), glm::vec3(up));
        const glm::mat4 view = viewOf(eye, eye + towards, up);
        renderer.render({clearOf(target), drawSky(target, cubeMap)});
        for (int y = 0; y < height; y += 7) {
            for (int x = 0; x < width; x += 7) {
                const int face = faceTowards(directionAt(x, y, view));
                if (face >= 0) {
                    seen.insert(face);
                    const glm::vec3& color = colors[face];
                    EXPECT_THAT(pixelOf(target, x, y),
                                IsPixel(color.r, color.g, color.b, 1.0F, halfTolerance))
                        << x << ", " << y;
                }
            }
        }
    }
    EXPECT_EQ(seen.size(), 6U);
}

TEST_F(Sky, NeverHidesAnItemAndReachesTheScreenGammaEncoded)
{
    scene.setSkyboxColor(glm::vec3(0.25F, 0.5F, 0.75F));
    scene.draw(renderer, 0.0);
    EXPECT_THAT(pixel(32, 32), IsPixel(0.25F, 0.5F, 0.75F, 1.0F, 2.0F * byteTolerance));
}

// --- The stock material ---

/// The square from -2 to 2 at z = 0, seen from beside its axis by a camera that leans.
///
/// All of that stands askew in the world and away from its origin, as do the lights: it looks the same, but
/// for a matrix that is transposed, left out, or multiplied from the wrong side.
class StockMaterial : public ShadersOnTheDriver {
protected:
    static constexpr glm::vec3 eye{1.2F, -0.8F, 3.6F}; ///< looks at the square's middle
    static constexpr glm::vec3 leaning{-0.6F, 0.8F, 0.0F};

    /// A point of the arrangement where it stands in the world.
    static glm::vec3 inWorld(const glm::vec3& point)
    {
        return {placed(origin, askew, glm::vec3(1.0F)) * glm::vec4(point, 1.0F)};
    }
    static constexpr glm::vec3 origin{2.0F, -1.0F, 0.5F};

    void addLight(lumeth::Light light)
    {
        light.position = inWorld(light.position);
        scene.addLight(light);
    }

    StockMaterial()
    {
        scene.init(renderer, {width, height});
        scene.resetPostPasses();
        scene.addPostPass(renderer, post_pass0_frag_src, {}); // linear to the screen
        scene.lookAt(inWorld(eye), inWorld(glm::vec3(0.0F)), inWorld(leaning) - inWorld(glm::vec3(0.0F)));

        const float positions[] = {-2.0F, -2.0F, 0.0F, 2.0F,  -2.0F, 0.0F,
                                   2.0F,  2.0F,  0.0F, -2.0F, 2.0F,  0.0F};
        const unsigned int indices[] = {0, 1, 2, 0, 2, 3};
        const float uvs[] = {0.0F, 0.0F, 1.0F, 0.0F, 1.0F, 1.0F, 0.0F, 1.0F};
        const float normals[] = {0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F};
        const float tangents[] = {1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F};
        const float bitangents[] = {0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F, 0.0F, 1.0F, 0.0F};
        object.modelMatrix = glm::mat4(1.0F);
        object.vertexArray = renderer.createIndexedBuffer(positions, 12, indices, 6, uvs, 8, normals, 12,
                                                          tangents, 12, bitangents, 12);
        object.color = glm::vec3(0.8F, 0.6F, 0.9F);
        object.ambient = 1.0F;
        object.diffuse = 0.9F;
        object.specular = 0.5F;
        object.shininess = 8.0F;
    }

    void draw()
    {
        scene.addObject("square", std::move(object));
        scene.getGraph().addNode("square", DisplayListItem("square", origin, askew, glm::vec3(1.0F)));
        scene.draw(renderer, 0.0);
    }

    /// A texture of one colour, in bytes.
    zund::Texture bytes(unsigned char r, unsigned char g, unsigned char b)
    {
        zund::Texture texture = renderer.createTexture2d(zund::TextureFormat::RGB8, 4, 4);
        std::vector<unsigned char> pixels;
        for (int i = 0; i < 16; ++i) {
            pixels.insert(pixels.end(), {r, g, b});
        }
        renderer.uploadTexture2d(texture, 4, 4, pixels.data());
        return texture;
    }

    /// The point of the square that a pixel's middle shows.
    glm::vec3 pointAt(int x, int y) const
    {
        const float reach = std::tan(0.7853982F * 0.5F);
        const float u = (static_cast<float>(x) + 0.5F) / static_cast<float>(width) * 2.0F - 1.0F;
        const float v = (static_cast<float>(y) + 0.5F) / static_cast<float>(height) * 2.0F - 1.0F;
        const glm::vec3 forward = glm::normalize(-eye);
        const glm::vec3 right = glm::normalize(glm::cross(forward, leaning));
        const glm::vec3 up = glm::cross(right, forward);
        const float across = static_cast<float>(height) / static_cast<float>(width);
        const glm::vec3 ray = forward + reach * (u * right + v * across * up);
        return eye - eye.z / ray.z * ray;
    }

    /// Phong where the square lies flat: it takes the same angles, wherever they are measured.
    glm::vec3 phong(const glm::vec3& point, const glm::vec3& normal,
                    const std::vector<lumeth::Light>& lights) const
    {
        const glm::vec3 color(decoded(0.8F), decoded(0.6F), decoded(0.9F));
        const glm::vec3 toEye = glm::normalize(eye - point);
        glm::vec3 intensity(1.0F * 0.1F);
        for (const lumeth::Light& light : lights) {
            const glm::vec3 toLight = glm::normalize(light.position - point);
            const float cosine = std::max(glm::dot(toLight, normal), 0.0F);
            intensity += 0.9F * light.diffuse * cosine;
            if (cosine > 0.0F) {
                const glm::vec3 mirrored = 2.0F * glm::dot(toLight, normal) * normal - toLight;
                intensity +=
                    0.5F * std::pow(std::max(glm::dot(mirrored, toEye), 0.0F), 8.0F) * light.specular;
            }
        }
        return intensity * color;
    }

    DisplayObject object;
    lumeth::Scene scene;
};

TEST_F(StockMaterial, ShowsOnlyItsAmbientPartWithoutLights)
{
    object.ambient = 4.0F;
    draw();
    EXPECT_THAT(pixel(32, 32), IsPixel(0.4F * decoded(0.8F), 0.4F * decoded(0.6F), 0.4F * decoded(0.9F), 1.0F,
                                       byteTolerance));
}

TEST_F(StockMaterial, FollowsPhongUnderTwoLights)
{
    const std::vector<lumeth::Light> lights = {
        {glm::vec3(1.0F, 0.5F, 2.0F), glm::vec3(0.4F, 0.3F, 0.2F), glm::vec3(0.6F, 0.5F, 0.8F)},
        {glm::vec3(-3.0F, 1.0F, 1.0F), glm::vec3(0.1F, 0.5F, 0.3F), glm::vec3(0.2F, 0.9F, 0.1F)},
        {glm::vec3(0.0F, 0.0F, -2.0F), glm::vec3(5.0F), glm::vec3(5.0F)}, // from behind: nothing
    };
    for (const lumeth::Light& light : lights) {
        addLight(light);
    }
    draw();
    for (const auto& [x, y] : {std::pair(32, 32), std::pair(50, 40), std::pair(18, 50), std::pair(12, 20)}) {
        const glm::vec3 expected = phong(pointAt(x, y), glm::vec3(0.0F, 0.0F, 1.0F), lights);
        EXPECT_THAT(pixel(x, y), IsPixel(expected.r, expected.g, expected.b, 1.0F, 2.0F * byteTolerance))
            << x << ", " << y;
    }
}

TEST_F(StockMaterial, StretchesNormalsAsTheirSurface)
{
    object.color = glm::vec3(1.0F);
    object.ambient = 0.0F;
    object.specular = 0.0F;
    // An eighth of a turn about y makes the normal (1, 0, 1), and the scale (2, 0, 1); the surface's own
    // would then be (1, 0, 2), and the light over it a fifth weaker.
    const glm::quat turned(0.9238795F, 0.0F, 0.3826834F, 0.0F);
    object.modelMatrix = placed(glm::vec3(0.0F), turned, glm::vec3(2.0F, 1.0F, 1.0F));
    addLight({4.0F * glm::normalize(glm::vec3(2.0F, 0.0F, 1.0F)), glm::vec3(1.0F), glm::vec3(0.0F)});
    draw();
    EXPECT_THAT(pixel(48, 32), IsPixel(0.9F, 0.9F, 0.9F, 1.0F, 2.0F * byteTolerance));
}

TEST_F(StockMaterial, LooksTheSameWithANinthLight)
{
    for (int i = 0; i < 8; ++i) {
        addLight({glm::vec3(0.0F, 0.0F, 2.0F), glm::vec3(0.05F), glm::vec3(0.0F)});
    }
    addLight({glm::vec3(0.0F, 0.0F, 2.0F), glm::vec3(9.0F), glm::vec3(9.0F)});
    draw();
    const std::vector<lumeth::Light> eight(8,
                                           {glm::vec3(0.0F, 0.0F, 2.0F), glm::vec3(0.05F), glm::vec3(0.0F)});
    const glm::vec3 expected = phong(pointAt(40, 40), glm::vec3(0.0F, 0.0F, 1.0F), eight);
    EXPECT_THAT(pixel(40, 40), IsPixel(expected.r, expected.g, expected.b, 1.0F, 2.0F * byteTolerance));
}

TEST_F(StockMaterial, TakesItsColourFromATexture)
{
    object.ambient = 10.0F;
    object.colorTexture = bytes(51, 102, 204);
    draw();
    EXPECT_THAT(pixel(32, 32), IsPixel(decoded(0.2F), decoded(0.4F), decoded(0.8F), 1.0F, byteTolerance));
}

TEST_F(StockMaterial, AddsWhatItEmitsUnlitAndUntinted)
{
    object.ambient = 0.0F;
    object.emissivityTexture = bytes(102, 0, 204);
    draw();
    EXPECT_THAT(pixel(32, 32), IsPixel(decoded(0.4F), 0.0F, decoded(0.8F), 1.0F, byteTolerance));
}

TEST_F(StockMaterial, EmitsNothingWithoutAMap)
{
    object.ambient = 0.0F;
    scene.setSkyboxColor(glm::vec3(1.0F));
    draw();
    EXPECT_THAT(pixel(32, 32), IsPixel(0.0F, 0.0F, 0.0F, 1.0F, 0.0F));
}

class CutOut : public StockMaterial, public testing::WithParamInterface<std::tuple<bool, unsigned char>> {};

TEST_P(CutOut, LetsTheSkyThroughWhereATransparentTextureIsPureBlack)
{
    const auto [transparent, blue] = GetParam();
    object.transparent = transparent;
    object.colorTexture = bytes(0, 0, blue);
    scene.setSkyboxColor(glm::vec3(1.0F));
    draw();
    const float expected = transparent && blue == 0 ? 1.0F : 0.0F;
    EXPECT_THAT(pixel(32, 32), IsPixel(expected, expected, expected, 1.0F, byteTolerance));
}

INSTANTIATE_TEST_SUITE_P(TransparentBlue, CutOut,
                         testing::Combine(testing::Bool(), testing::Values<unsigned char>(0, 1)),
                         [](const auto& info) {
                             return std::string(std::get<0>(info.param) ? "Transparent" : "Solid") +
                                    (std::get<1>(info.param) == 0 ? "PureBlack" : "NearlyBlack");
                         });

/// A light to the left and one to the right, in red and green, both as steep.
class Bump : public StockMaterial {
protected:
    Bump()
    {
        object.ambient = 0.0F;
        object.specular = 0.0F;
        object.color = glm::vec3(1.0F);
        addLight({glm::vec3(-3.0F, 0.0F, 3.0F), glm::vec3(1.0F, 0.0F, 0.0F), glm::vec3(0.0F)});
        addLight({glm::vec3(3.0F, 0.0F, 3.0F), glm::vec3(0.0F, 1.0F, 0.0F), glm::vec3(0.0F)});
    }
};

TEST_F(Bump, FacesTheLightThatItsNormalMapLeansTo)
{
    object.normalTexture = bytes(64, 128, 218); // towards -x: about (-0.5, 0, 0.71)
    draw();
    const glm::vec3 normal = glm::normalize(glm::vec3(64.0F, 128.0F, 218.0F) / 255.0F * 2.0F - 1.0F);
    const glm::vec3 point = pointAt(32, 32);
    const float left = 0.9F * glm::dot(glm::normalize(glm::vec3(-3.0F, 0.0F, 3.0F) - point), normal);
    const float right = 0.9F * glm::dot(glm::normalize(glm::vec3(3.0F, 0.0F, 3.0F) - point), normal);
    EXPECT_GT(left, right + 0.5F);
    EXPECT_THAT(pixel(32, 32), IsPixel(left, right, 0.0F, 1.0F, 2.0F * byteTolerance));
}

/// How a square's island lies in the picture: where in the model its u grows, and where the picture's top is.
struct Island {
    const char* name;
    glm::vec3 right;
    glm::vec3 up;
};

class BumpOf : public Bump, public testing::WithParamInterface<std::tuple<Island, bool>> {
protected:
    /// The square again, now through a file and the loader.
    void load(const Island& island, bool negateV)
    {
        standins::Mesh mesh;
        for (const glm::vec2 corner :
             {glm::vec2(-2, -2), glm::vec2(2, -2), glm::vec2(2, 2), glm::vec2(-2, 2)}) {
            const glm::vec3 position(corner, 0.0F);
            mesh.positions.push_back(position);
            mesh.normals.emplace_back(0.0F, 0.0F, 1.0F);
            mesh.uvs.emplace_back(0.5F + glm::dot(position, island.right) / 4.0F,
                                  0.5F - glm::dot(position, island.up) / 4.0F);
        }
        mesh.indices = {0, 1, 2, 0, 2, 3};
        const ShowFolder folder;
        folder.write("square.glb", standins::encodeGlb("square", mesh));
        testing::internal::CaptureStdout();
        const DisplayObject loaded = loadModel(renderer, folder.asset("square.glb").string(), negateV);
        testing::internal::GetCapturedStdout();
        object.modelMatrix = loaded.modelMatrix;
        object.vertexArray = loaded.vertexArray;
    }
};

TEST_P(BumpOf, AnIslandFacesTheLightThatItsReliefLeansTo)
{
    const auto& [island, negateV] = GetParam();
    load(island, negateV);
    // A bump's left flank as baking writes it: red to the right of the picture, green to its top.
    const glm::vec3 flank = glm::normalize(glm::vec3(-0.5F, 0.0F, 0.71F));
    const glm::vec3 texel =
        (glm::vec3(glm::dot(flank, island.right), glm::dot(flank, island.up), flank.z) + 1.0F) * 127.5F;
    const auto byte = [](float value) {
        return static_cast<unsigned char>(std::lround(value));
    };
    object.normalTexture = bytes(byte(texel.r), byte(texel.g), byte(texel.b));
    draw();
    const glm::vec3 point = pointAt(32, 32);
    const float left = 0.9F * glm::dot(glm::normalize(glm::vec3(-3.0F, 0.0F, 3.0F) - point), flank);
    const float right = 0.9F * glm::dot(glm::normalize(glm::vec3(3.0F, 0.0F, 3.0F) - point), flank);
    EXPECT_GT(left, right + 0.5F);
    EXPECT_THAT(pixel(32, 32), IsPixel(left, right, 0.0F, 1.0F, 0.02F));
}

INSTANTIATE_TEST_SUITE_P(Turned, BumpOf,
                         testing::Combine(testing::Values(Island{"Upright", {1, 0, 0}, {0, 1, 0}},
                                                          Island{"AQuarterLeft", {0, 1, 0}, {-1, 0, 0}},
                                                          Island{"UpsideDown", {-1, 0, 0}, {0, -1, 0}},
                                                          Island{"AQuarterRight", {0, -1, 0}, {1, 0, 0}},
                                                          Island{"Mirrored", {-1, 0, 0}, {0, 1, 0}}),
                                          testing::Bool()),
                         [](const auto& info) {
                             return std::string(std::get<0>(info.param).name) +
                                    (std::get<1>(info.param) ? "VNegated" : "");
                         });

TEST_F(Bump, FacesBothAlikeWithoutAMap)
{
    draw();
    const float cosine = 0.9F * glm::normalize(glm::vec3(3.0F, 0.0F, 3.0F)).z;
    EXPECT_THAT(pixel(48, 32), IsPixel(cosine, cosine, 0.0F, 1.0F, 0.02F)); // half a pixel off the middle
}

// --- Full-frame pictures ---

TEST_F(ShadersOnTheDriver, PassClipSpaceOnAsThePositionOfAFullFramePicture)
{
    constexpr const char* showPosition = R"glsl(#version 450
in vec2 position;
out vec4 outputColor;
void main() { outputColor = vec4(position, 0.0, 1.0); }
)glsl";
    zund::Texture texture;
    const zund::FrameBuffer target = createTarget(texture);
    for (const char* vertexSource : {credits_vert, scroller_vert}) {
        zund::DrawCommand command;
        command.frameBuffer = target;
        command.vertexArray = createFullFrameTriangle(renderer, 0.0F);
        command.program = link(vertexSource, showPosition);
        renderer.render({clearOf(target), command});
        for (const auto& [x, y] : {std::pair(0, 0), std::pair(95, 0), std::pair(16, 63)}) {
            EXPECT_THAT(pixelOf(target, x, y),
                        IsPixel((static_cast<float>(x) + 0.5F) / 48.0F - 1.0F,
                                (static_cast<float>(y) + 0.5F) / 32.0F - 1.0F, 0.0F, 1.0F, halfTolerance));
        }
    }
}

TEST_F(ShadersOnTheDriver, ShowTheCreditsPictureDecodedWithItsFirstRowOnTop)
{
    zund::Texture texture;
    const zund::FrameBuffer target = createTarget(texture);
    // Row 0, the top of the picture, is dark; the column tells green.
    zund::DrawCommand command;
    command.frameBuffer = target;
    command.vertexArray = createFullFrameTriangle(renderer, 0.0F);
    command.program = link(credits_vert, embedded::credits_frag);
    command.textures[0] = picture([](int x, int y) {
        return glm::vec3(static_cast<float>(y) / 64.0F, static_cast<float>(x) / 64.0F, 0.5F);
    });
    renderer.render({clearOf(target), command});
    for (const auto& [x, y] : {std::pair(1, 1), std::pair(40, 30), std::pair(62, 60)}) {
        EXPECT_THAT(pixelOf(target, x, y), IsPixel(decoded(static_cast<float>(63 - y) / 64.0F),
                                                   decoded(static_cast<float>(x) / 64.0F), decoded(0.5F),
                                                   1.0F, 2.0F * halfTolerance))
            << x << ", " << y;
    }
}

} // namespace
