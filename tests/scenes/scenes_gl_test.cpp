// The scenes as pictures of the real driver, from boxes and bars in place of models and textures.

#include "sync/tools.h"
#include "tests/gl/offscreen_renderer.h"
#include "tests/standins/stand_ins.h"
#include "tests/support/show_scene.h"
#include "tools/common/quiet_output.h"

#include <GL/glew.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace {

namespace scenes = catalogue::scenes;
namespace textures = catalogue::textures;
namespace tracks = catalogue::tracks;

using Bytes = std::array<std::uint8_t, 3>; ///< red, green, blue
constexpr Bytes black = {0, 0, 0};

/// The window's pixels, from the bottom left on.
struct Frame {
    int width;
    int height;
    std::vector<Bytes> pixels;

    const Bytes& at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)];
    }
};

class ScenePicture : public OffscreenRenderer {
protected:
    explicit ScenePicture(int width = 480, int height = 270) : OffscreenRenderer(width, height)
    {
        folder.enter();
        for (const auto& entry : std::filesystem::directory_iterator(STAND_INS)) {
            std::filesystem::create_symlink(entry.path(), "assets" / entry.path().filename());
        }
    }

    void open(const catalogue::Scene& row, const TrackValues& values,
              const std::string& packFile = "assets.pack")
    {
        pack = std::make_unique<pack::Packfile>("assets/" + packFile);
        writeTracks(folder, values);
        sync = std::make_unique<tolv::SyncDevice>("assets/sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
        show = makeScene(row, renderer, *pack, *sync, {width, height});
    }

    /// The same with a pack in which one texture is another file.
    void openWith(const catalogue::Texture& changed, const std::string& file, const catalogue::Scene& row,
                  const TrackValues& values)
    {
        std::vector<std::pair<std::string, std::string>> files;
        for (const catalogue::Texture& texture : catalogue::allTextures) {
            files.emplace_back(texture.file,
                               texture.name == changed.name ? file : standins::textureFile(texture.name));
        }
        folder.write("other.pack", packBytes(files));
        open(row, values, "other.pack");
    }

    /// One frame of the show.
    Frame draw(double time)
    {
        renderer.clear(0.0F, 0.0F, 0.0F);
        show->update(time);
        return drawAsItIs(time);
    }
    Frame drawAsItIs(double time)
    {
        show->scene().draw(renderer, time);
        Frame frame{width, height, std::vector<Bytes>(static_cast<std::size_t>(width * height))};
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, frame.pixels.data());
        return frame;
    }
    void showText(bool visible) { show->scene().getGraph().getNode("scroller")->value.setVisible(visible); }

    tools::QuietOutput quiet; ///< loader and device have much to say
    ShowFolder folder;
    std::unique_ptr<pack::Packfile> pack;
    std::unique_ptr<tolv::SyncDevice> sync;
    std::unique_ptr<ShowScene> show;
};

/// Whether no channel is off by more than `steps` of 8 bits.
bool isClose(const Bytes& pixel, const Bytes& other, int steps)
{
    return std::equal(pixel.begin(), pixel.end(), other.begin(),
                      [steps](int one, int two) { return std::abs(one - two) <= steps; });
}

/// The rows below `first` and from `end` on are black, the ones between are not.
///
/// Exactly black, but for the two next to the picture: the pass that encodes gamma reads its input filtered,
/// and the row beside gets a share of some 1e-5 in, of which the encoding makes a few steps.
void expectBars(const Frame& frame, int first, int end)
{
    constexpr int seep = 4;
    for (int y = 0; y < frame.height; ++y) {
        const auto row = frame.pixels.begin() + y * frame.width;
        const int allowed = y == first - 1 || y == end ? seep : 0;
        const bool isBlack = std::all_of(row, row + frame.width,
                                         [&](const Bytes& pixel) { return isClose(pixel, black, allowed); });
        EXPECT_EQ(isBlack, y < first || y >= end)
            << "row " << y << ", in its middle " << testing::PrintToString(row[frame.width / 2]);
    }
}

/// A scene from where it shows something.
struct View {
    const catalogue::Scene* scene;
    TrackValues values;
};

const View inTheRoom = {&scenes::room, cameraAt({0.0F, 0.45F, 1.2F}, {0.0F, 0.0F, -0.5F})};
const View atThePeople = {&scenes::people, cameraAt({0.5F, 0.3F, 3.0F}, {0.0F, 0.0F, 0.0F})};
const View atTheBurger = {&scenes::burger, cameraAt({0.1F, 0.15F, 0.2F}, {0.0F, 0.0F, 1.0F})};
const View atTheBottles = {&scenes::bottle, cameraAt({0.0F, 0.2F, 0.6F}, {0.0F, 0.0F, 2.0F})};
const View atTheToilet = {&scenes::toilet, cameraAt({0.0F, 0.4F, 1.2F}, {0.0F, 0.2F, 0.0F})};
const TrackValues atTheTv = cameraAt({0.0F, 0.2F, 0.9F}, {0.0F, 0.144F, 1.8F});

TrackValues with(TrackValues values, const catalogue::Track& track, float value)
{
    values.emplace_back(track, value);
    return values;
}

// 270 - 480 * 27 / 64 is 67.5: the middle of row 33 lies in the lower bar of 33.75, that of row 236 in the
// upper one.
constexpr int firstRow = 34;
constexpr int endRow = 236;

class FilmedPicture : public ScenePicture, public testing::WithParamInterface<View> {};

TEST_P(FilmedPicture, StandsBetweenBlackBars)
{
    open(*GetParam().scene, GetParam().values);
    expectBars(draw(1.5), firstRow, endRow);
}
INSTANTIATE_TEST_SUITE_P(Of, FilmedPicture,
                         testing::Values(inTheRoom, atThePeople, atTheBurger, atTheBottles, atTheToilet),
                         [](const auto& row) { return row.param.scene->name; });

struct Shape {
    int width;
    int height;
    int first; ///< row of the picture, from below
    int end;
};

class ShapedPicture : public ScenePicture, public testing::WithParamInterface<Shape> {
protected:
    ShapedPicture() : ScenePicture(GetParam().width, GetParam().height) {}
};

TEST_P(ShapedPicture, HasTheBarsOfItsShape)
{
    open(*atTheBurger.scene, atTheBurger.values);
    expectBars(draw(1.5), GetParam().first, GetParam().end);
}

// A bar is (height - width * 27 / 64) / 2 high; a row counts by its middle.
constexpr Shape shapes[] = {
    {1920, 1080, 135, 945}, // exactly
    {360, 270, 59, 211},    // 59.1
    {640, 270, 0, 270},     // 64:27 itself
    {700, 270, 0, 270},     // wider
};
INSTANTIATE_TEST_SUITE_P(Of, ShapedPicture, testing::ValuesIn(shapes), [](const auto& row) {
    return std::to_string(row.param.width) + "x" + std::to_string(row.param.height);
});

/// A texture of four colours: those at the top from the left, then those below.
std::string quarters(int width, int height, const std::array<std::uint16_t, 4>& colors)
{
    std::string file = flatTexture(width, height, 0);
    const auto columns = static_cast<std::size_t>(width) / 4;
    const auto rows = static_cast<std::size_t>(height) / 4;
    for (std::size_t row = 0; row < rows; ++row) {
        for (std::size_t column = 0; column < columns; ++column) {
            const std::size_t quarter = (row < rows / 2 ? 0 : 2) + (column < columns / 2 ? 0 : 1);
            const std::uint16_t color = colors.at(quarter);
            const std::size_t block = 128 + 8 * (row * columns + column);
            for (const std::size_t place : {block, block + 2}) {
                file[place] = static_cast<char>(color & 0xFFU);
                file[place + 1] = static_cast<char>(color >> 8U);
            }
        }
    }
    return file;
}

TEST_F(ScenePicture, OfTheCreditsFillsTheFrameUpright)
{
    openWith(textures::title,
             quarters(textures::title.width, textures::title.height, {0xF800, 0x07E0, 0x001F, 0xFFFF}),
             scenes::credits, {});
    const Frame frame = draw(1.5);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (std::abs(x - width / 2) < 3 || std::abs(y - height / 2) < 3) {
                continue; // filtering mixes the colours
            }
            const bool top = y > height / 2;
            const bool left = x < width / 2;
            const Bytes above = left ? Bytes{255, 0, 0} : Bytes{0, 255, 0};
            const Bytes below = left ? Bytes{0, 0, 255} : Bytes{255, 255, 255};
            ASSERT_EQ(frame.at(x, y), top ? above : below) << x << ", " << y;
        }
    }
}

/// How many pixels differ.
int differences(const Frame& one, const Frame& other)
{
    int count = 0;
    for (std::size_t i = 0; i < one.pixels.size(); ++i) {
        count += one.pixels[i] != other.pixels[i] ? 1 : 0;
    }
    return count;
}

/// One of the text layers, as a formula.
struct TextLayer {
    View view;
    catalogue::Texture texture;
    glm::dvec3 dark;
    glm::dvec3 light; ///< negative: the picture's own colour
    glm::dvec2 offset;
    glm::dvec2 (*coordinate)(glm::dvec2 position, double time);
};

double fractionOf(double value)
{
    return value - std::floor(value);
}

const TextLayer peopleLayer = {atThePeople,
                               textures::pants,
                               {0.04, 0.22, 0.22},
                               {-1.0, -1.0, -1.0},
                               {-0.004, -0.004},
                               [](glm::dvec2 position, double time) {
                                   const double wave = std::sin(position.x * 7.0 - time);
                                   const double y = (position.y + 0.3) * (wave * 0.5 + 1.0) + wave * 0.05;
                                   return glm::dvec2((position.x + 1.0) * 0.5, (1.0 - y) * 0.5);
                               }};
const TextLayer burgerLayer = {{atTheBurger.scene, with(atTheBurger.values, tracks::burger_text, 1.0F)},
                               textures::burgertext,
                               {0.41, 0.04, 0.0},
                               {0.97, 0.97, 0.97},
                               {0.0, -0.004},
                               [](glm::dvec2 position, double time) {
                                   return glm::dvec2((position.x + 1.0) * 0.5,
                                                     (1.0 - position.y) * 0.5 +
                                                         std::cos(position.x * 2.0 + time * 0.7) * 0.05);
                               }};
const TextLayer bottleLayer = {atTheBottles,
                               textures::unlimited,
                               {0.57, 0.07, 0.17},
                               {-1.0, -1.0, -1.0},
                               {-0.004, -0.004},
                               [](glm::dvec2 position, double time) {
                                   const double y = (1.0 - position.y) *
                                                    (std::sin(position.x * 3.0 + time * 0.3) * 0.1 + 1.0);
                                   const double x = 2.0 * fractionOf((position.x + time * 0.3) / 2.0) - 1.0;
                                   return glm::dvec2(x * 0.5 + 0.5, y * 0.5 - 0.5 + 0.05);
                               }};
const TextLayer toiletLayer = {atTheToilet,
                               textures::queue_main,
                               {0.58, 0.30, 0.10},
                               {0.85, 0.44, 0.16},
                               {0.0, -0.008},
                               [](glm::dvec2 position, double time) {
                                   const double wobble = std::sin(position.x * 10.0 + time) * 0.04 + 1.0;
                                   return glm::dvec2((position.x + 1.0) * 0.5, (1.0 - position.y) * 0.5) *
                                          wobble;
                               }};

/// A picture of blocks in one colour each, as the stand-ins are.
class BlockPicture {
public:
    explicit BlockPicture(const catalogue::Texture& texture)
        : file(standins::textureFile(texture.name)), width(texture.width), height(texture.height)
    {
    }

    /// The colour at a coordinate; false where another one is near, so that filtering mixes them.
    bool sample(const glm::dvec2& coordinate, glm::dvec3& color) const
    {
        constexpr double near = 2.5; // texels
        const unsigned int middle = packedAt(coordinate.x * width, coordinate.y * height);
        for (const double x : {-near, near}) {
            for (const double y : {-near, near}) {
                if (packedAt(coordinate.x * width + x, coordinate.y * height + y) != middle) {
                    return false;
                }
            }
        }
        color = {(middle >> 11U) / 31.0, ((middle >> 5U) & 63U) / 63.0, (middle & 31U) / 31.0};
        return true;
    }

private:
    /// The 16 bits of the texel; the picture repeats.
    unsigned int packedAt(double x, double y) const
    {
        const auto column = static_cast<std::size_t>(fractionOf(x / width) * width) / 4;
        const auto row = static_cast<std::size_t>(fractionOf(y / height) * height) / 4;
        const std::size_t block = 128 + 8 * (row * static_cast<std::size_t>(width / 4) + column);
        return static_cast<unsigned char>(file[block]) |
               static_cast<unsigned int>(static_cast<unsigned char>(file[block + 1])) << 8U;
    }

    std::string file;
    int width;
    int height;
};

struct TextPixels {
    int light = 0;
    int dark = 0;
    int holes = 0;
    int covered = 0; ///< text by the formula, but not in the picture
};

bool isNear(const Bytes& pixel, const glm::dvec3& color)
{
    // Half a step of 8 bits, and what decoding and encoding gamma in half floats costs.
    constexpr double tolerance = 2.0;
    return std::abs(pixel[0] - 255.0 * color.r) <= tolerance &&
           std::abs(pixel[1] - 255.0 * color.g) <= tolerance &&
           std::abs(pixel[2] - 255.0 * color.b) <= tolerance;
}

/// Compares a frame with the layer's formula: text in its colours, and in its holes what `without` shows.
TextPixels compare(const TextLayer& layer, const Frame& frame, const Frame& without, double time)
{
    const BlockPicture picture(layer.texture);
    TextPixels found;
    int wrong = 0;
    for (int y = firstRow; y < endRow; ++y) {
        for (int x = 0; x < frame.width; ++x) {
            const glm::dvec2 position((x + 0.5) / frame.width * 2.0 - 1.0,
                                      (y + 0.5) / frame.height * 2.0 - 1.0);
            const glm::dvec2 coordinate = layer.coordinate(position, time);
            glm::dvec3 front;
            glm::dvec3 back;
            if (!picture.sample(coordinate, front) || !picture.sample(coordinate + layer.offset, back)) {
                continue;
            }
            const Bytes& pixel = frame.at(x, y);
            const glm::dvec3 none(0.0);
            if (front == none && back == none) {
                ++found.holes;
                wrong += isClose(pixel, without.at(x, y), 1) ? 0 : 1; // text beside it may seep in
                continue;
            }
            const glm::dvec3 light = layer.light.r < 0.0 ? front : layer.light;
            const glm::dvec3 color = front == none ? layer.dark : light;
            if (isNear(pixel, color)) {
                ++(front == none ? found.dark : found.light);
            } else if (isClose(pixel, without.at(x, y), 1)) {
                ++found.covered;
            } else {
                ++wrong;
            }
        }
    }
    EXPECT_EQ(wrong, 0);
    return found;
}

class TextPicture : public ScenePicture, public testing::WithParamInterface<TextLayer> {};

TEST_P(TextPicture, LiesBeforeEverything)
{
    const TextLayer& layer = GetParam();
    open(*layer.view.scene, layer.view.values);
    TextPixels sum;
    for (const double time : {0.0, 7.3}) {
        const Frame frame = draw(time);
        showText(false);
        const Frame without = drawAsItIs(time);
        showText(true);
        const TextPixels found = compare(layer, frame, without, time);
        sum.light += found.light;
        sum.dark += found.dark;
        sum.holes += found.holes;
        sum.covered += found.covered;
    }
    EXPECT_GT(sum.light, 1000);
    EXPECT_GT(sum.dark, 20);
    EXPECT_GT(sum.holes, 10000);
    EXPECT_EQ(sum.covered, 0);
}
INSTANTIATE_TEST_SUITE_P(Of, TextPicture, testing::Values(peopleLayer, burgerLayer, bottleLayer, toiletLayer),
                         [](const auto& row) { return row.param.view.scene->name; });

TEST_F(ScenePicture, OfThePeopleHasItsTextBehindWhatIsNear)
{
    // The middle of clip space lies 0.98 from the eye; the back rest of the sofa is nearer than that.
    open(scenes::people, cameraAt({-0.5F, 0.0F, 1.3F}, {0.0F, 0.0F, 0.0F}));
    const Frame frame = draw(0.0);
    showText(false);
    const TextPixels found = compare(peopleLayer, frame, drawAsItIs(0.0), 0.0);
    EXPECT_GT(found.covered, 100);
}

TEST_F(ScenePicture, OfTheBurgerHasTextThatComesAndGoesWithItsTrack)
{
    folder.writeTrack(tracks::burger_text.name, {{0, 0.0F, 0}, {100, 1.0F, 0}, {200, 0.0F, 0}});
    open(scenes::burger, atTheBurger.values);
    const Frame before = draw(1.0);
    EXPECT_GT(differences(before, draw(4.0)), 1000);
    EXPECT_EQ(differences(before, draw(7.0)), 0);
}

/// What stands behind a scene, where nothing else is drawn.
struct Gradient {
    const catalogue::Scene* scene;
    glm::dvec3 middle;
    glm::dvec3 outside;
};

class GradientPicture : public ScenePicture, public testing::WithParamInterface<Gradient> {};

// Far from everything, and away from it.
const TrackValues intoTheEmpty = cameraAt({0.0F, 9.0F, 9.0F}, {0.0F, 10.0F, 20.0F});

TEST_P(GradientPicture, GoesFromTheMiddleOutwards)
{
    const auto& [scene, middle, outside] = GetParam();
    open(*scene, intoTheEmpty);
    show->update(3.0);
    showText(false);
    const Frame frame = drawAsItIs(3.0);
    for (const int x : {0, 100, 239, 300, 479}) {
        for (const int y : {firstRow, 80, 134, 200, endRow - 1}) {
            const double across = ((x + 0.5) / 480.0 * 2.0 - 1.0) * 0.3;
            const double up = ((y + 0.5) / 270.0 * 2.0 - 1.0) * 0.3;
            const double share = std::sqrt(across * across + up * up);
            EXPECT_TRUE(isNear(frame.at(x, y), middle * (1.0 - share) + outside * share))
                << x << ", " << y << ": " << testing::PrintToString(frame.at(x, y));
        }
    }
}

const Gradient gradients[] = {
    {&scenes::people, {1.0, 0.85, 0.66}, {0.0, 0.39, 0.39}},
    {&scenes::burger, {0.9, 0.9, 0.9}, {0.056, 0.072, 0.132}},
    {&scenes::bottle, {0.865, 0.728, 0.562}, {0.056, 0.072, 0.132}},
    {&scenes::toilet, {0.9, 0.9, 0.9}, {0.056, 0.072, 0.132}},
};
INSTANTIATE_TEST_SUITE_P(Behind, GradientPicture, testing::ValuesIn(gradients),
                         [](const auto& row) { return row.param.scene->name; });

TEST_F(ScenePicture, OfTheRoomHasItsSkyBehindIt)
{
    open(scenes::room, intoTheEmpty);
    const Frame frame = draw(3.0);
    EXPECT_TRUE(isNear(frame.at(240, 135), {0.05, 0.05, 0.12})) << testing::PrintToString(frame.at(240, 135));
}

TEST_F(ScenePicture, OfTheTvIsTornInBurstsAndOnlyWhereItsMapIsLit)
{
    open(scenes::room, atTheTv);
    // 0.5 * 1.5 is 0.75, 1.4 * 1.5 is 2.1: calm. 1.0 * 1.5 is 1.5, 1.2 * 1.5 is 1.8: torn.
    const Frame calm = draw(0.5);
    EXPECT_EQ(differences(calm, draw(1.4)), 0);
    const Frame torn[] = {draw(1.0), draw(1.2)};

    openWith(textures::tv_emit, flatTexture(textures::tv_emit.width, textures::tv_emit.height, 0),
             scenes::room, atTheTv);
    const Frame dark = draw(1.0);

    // At the edge of what is lit, filtering leaves too little light to be seen.
    const auto isLit = [&](int x, int y) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                const int column = std::clamp(x + dx, 0, width - 1);
                const int row = std::clamp(y + dy, 0, height - 1);
                if (calm.at(column, row) != dark.at(column, row)) {
                    return true;
                }
            }
        }
        return false;
    };
    for (const Frame& frame : torn) {
        int moved = 0;
        int leaked = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (frame.at(x, y) != calm.at(x, y)) {
                    ++(isLit(x, y) ? moved : leaked);
                }
            }
        }
        EXPECT_GT(moved, 100);
        EXPECT_EQ(leaked, 0);
    }
    // Most of the frame is not lit, and much of it is.
    const int lit = differences(calm, dark);
    EXPECT_GT(lit, 5000);
    EXPECT_LT(lit, width * height / 2);
}

} // namespace
