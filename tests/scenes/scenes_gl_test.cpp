// The scenes as pictures of the real driver, from boxes and bars in place of models and textures.

#include "scenes/bottle_scene.h"
#include "scenes/burger_scene.h"
#include "scenes/credits_scene.h"
#include "scenes/people_scene.h"
#include "scenes/room_scene.h"
#include "scenes/toilet_scene.h"
#include "tests/gl/offscreen_renderer.h"
#include "tests/standins/model_boxes.h"
#include "tests/standins/stand_ins.h"
#include "tests/support/test_assets.h"
#include "tools/common/quiet_output.h"

#include <GL/glew.h>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <functional>
#include <glm/vec2.hpp>
#include <glm/vec3.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

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

/// A show's scene, whichever it is.
struct Show {
    std::function<lumeth::Scene&()> scene;
    std::function<void(double time)> update;
};

/// Values of tracks in all rows.
using TrackValues = std::map<std::string, float>;

class ScenePicture : public OffscreenRenderer {
protected:
    explicit ScenePicture(int width = 480, int height = 270) : OffscreenRenderer(width, height)
    {
        folder.enter();
        for (const standins::ModelBoxes& model : standins::standInModels()) {
            folder.write(std::string(model.name) + ".glb", standins::modelFile(model.name));
        }
    }
    void open(const std::vector<std::string>& textures, const TrackValues& values)
    {
        std::vector<std::pair<std::string, std::string>> files;
        files.reserve(textures.size());
        for (const std::string& name : textures) {
            files.emplace_back(name + ".dds", standins::textureFile(name));
        }
        openPack(files, values);
    }
    void openPack(const std::vector<std::pair<std::string, std::string>>& files, const TrackValues& values)
    {
        folder.writePack(files);
        pack = std::make_unique<pack::Packfile>("assets/assets.pack");
        for (const auto& [name, value] : values) {
            folder.writeTrack(name, {{0, value, 0}});
        }
        sync = std::make_unique<tolv::SyncDevice>("assets/sync", 128.0, 16);
    }

    template<typename Scene>
    Show make()
    {
        auto scene = std::make_shared<Scene>(renderer, *pack, *sync, std::pair(width, height));
        return {[scene]() -> lumeth::Scene& { return scene->scene; },
                [this, scene](double time) {
                    scene->update(renderer, time, *sync);
                }};
    }

    /// One frame of the show.
    Frame draw(const Show& show, double time)
    {
        renderer.clear(0.0F, 0.0F, 0.0F);
        show.update(time);
        return drawAsItIs(show, time);
    }
    Frame drawAsItIs(const Show& show, double time)
    {
        show.scene().draw(renderer, time);
        Frame frame{width, height, std::vector<Bytes>(static_cast<std::size_t>(width * height))};
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, frame.pixels.data());
        return frame;
    }

    tools::QuietOutput quiet; ///< loader and device have much to say
    ShowFolder folder;
    std::unique_ptr<pack::Packfile> pack;
    std::unique_ptr<tolv::SyncDevice> sync;
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

TrackValues cameraAt(const glm::vec3& position, const glm::vec3& target)
{
    return {{"camera_pos_x", position.x}, {"camera_pos_y", position.y}, {"camera_pos_z", position.z},
            {"camera_tgt_x", target.x},   {"camera_tgt_y", target.y},   {"camera_tgt_z", target.z}};
}

TrackValues operator+(TrackValues some, const TrackValues& others)
{
    some.insert(others.begin(), others.end());
    return some;
}

const std::vector<std::string> roomTextures = {
    "room_diff", "sofa_diff", "sofa_norm",    "coffeetable_diff", "coffeetable_norm", "pisswasser",
    "tv_emit",   "bigplant",  "plywood_diff", "plywood_norm",     "burgerbox_top"};
const std::vector<std::string> peopleTextures = {"sofa_diff", "sofa_norm", "pants"};
const std::vector<std::string> burgerTextures = {"burgerbox_top", "burgertext"};
const std::vector<std::string> bottleTextures = {"pisswasser", "unlimited"};
const std::vector<std::string> toiletTextures = {"queue_main", "queue_border"};

const TrackValues inTheRoom = cameraAt({0.0F, 0.45F, 1.2F}, {0.0F, 0.0F, -0.5F});
const TrackValues atTheTv = cameraAt({0.0F, 0.2F, 0.9F}, {0.0F, 0.144F, 1.8F});
const TrackValues atThePeople = cameraAt({0.5F, 0.3F, 3.0F}, {0.0F, 0.0F, 0.0F}); // angle, height, radius
const TrackValues atTheBurger = cameraAt({0.1F, 0.15F, 0.2F}, {0.0F, 0.0F, 1.0F});
const TrackValues atTheBottles = cameraAt({0.0F, 0.2F, 0.6F}, {0.0F, 0.0F, 2.0F});
const TrackValues atTheToilet = cameraAt({0.0F, 0.4F, 1.2F}, {0.0F, 0.2F, 0.0F});

// 270 - 480 * 27 / 64 is 67.5: the middle of row 33 lies in the lower bar of 33.75, that of row 236 in the
// upper one.
constexpr int firstRow = 34;
constexpr int endRow = 236;

TEST_F(ScenePicture, OfTheRoomStandsBetweenBlackBars)
{
    open(roomTextures, inTheRoom);
    expectBars(draw(make<RoomScene>(), 1.5), firstRow, endRow);
}

TEST_F(ScenePicture, OfThePeopleStandsBetweenBlackBars)
{
    open(peopleTextures, atThePeople);
    expectBars(draw(make<PeopleScene>(), 1.5), firstRow, endRow);
}

TEST_F(ScenePicture, OfTheBurgerStandsBetweenBlackBars)
{
    open(burgerTextures, atTheBurger + TrackValues{{"box_open", -0.4F}, {"burger_open", 0.1F}});
    expectBars(draw(make<BurgerScene>(), 1.5), firstRow, endRow);
}

TEST_F(ScenePicture, OfTheBottlesStandsBetweenBlackBars)
{
    open(bottleTextures, atTheBottles);
    expectBars(draw(make<BottleScene>(), 1.5), firstRow, endRow);
}

TEST_F(ScenePicture, OfTheToiletStandsBetweenBlackBars)
{
    open(toiletTextures, atTheToilet);
    expectBars(draw(make<ToiletScene>(), 1.5), firstRow, endRow);
}

TEST_F(ScenePicture, OfTheCreditsFillsTheFrame)
{
    // Not the stand-in, whose ground is black.
    openPack({{"title.dds", flatTexture(3840, 2160, 0xFFFF)}}, {});
    auto credits = std::make_shared<CreditsScene>(renderer, *pack, std::pair(width, height));
    const Show show = {[credits]() -> lumeth::Scene& { return credits->scene; },
                       [](double) {
                       }};
    const Frame frame = draw(show, 1.5);
    EXPECT_THAT(frame.pixels, testing::Each(Bytes{255, 255, 255}));
}

class LargeScenePicture : public ScenePicture {
protected:
    LargeScenePicture() : ScenePicture(1920, 1080) {}
};

TEST_F(LargeScenePicture, StandsBetweenBlackBars)
{
    open(burgerTextures, atTheBurger);
    // 1080 - 1920 * 27 / 64 is 270.
    expectBars(draw(make<BurgerScene>(), 1.5), 135, 945);
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
    const char* name;
    const char* texture;
    glm::dvec3 dark;
    glm::dvec3 light; ///< negative: the picture's own colour
    glm::dvec2 offset;
    glm::dvec2 (*coordinate)(glm::dvec2 position, double time);
};

double fractionOf(double value)
{
    return value - std::floor(value);
}

const TextLayer peopleLayer = {"people",
                               "pants",
                               {0.04, 0.22, 0.22},
                               {-1.0, -1.0, -1.0},
                               {-0.004, -0.004},
                               [](glm::dvec2 position, double time) {
                                   const double wave = std::sin(position.x * 7.0 - time);
                                   const double y = (position.y + 0.3) * (wave * 0.5 + 1.0) + wave * 0.05;
                                   return glm::dvec2((position.x + 1.0) * 0.5, (1.0 - y) * 0.5);
                               }};
const TextLayer burgerLayer = {"burger",
                               "burgertext",
                               {0.41, 0.04, 0.0},
                               {0.97, 0.97, 0.97},
                               {0.0, -0.004},
                               [](glm::dvec2 position, double time) {
                                   return glm::dvec2((position.x + 1.0) * 0.5,
                                                     (1.0 - position.y) * 0.5 +
                                                         std::cos(position.x * 2.0 + time * 0.7) * 0.05);
                               }};
const TextLayer bottleLayer = {"bottle",
                               "unlimited",
                               {0.57, 0.07, 0.17},
                               {-1.0, -1.0, -1.0},
                               {-0.004, -0.004},
                               [](glm::dvec2 position, double time) {
                                   const double y = (1.0 - position.y) *
                                                    (std::sin(position.x * 3.0 + time * 0.3) * 0.1 + 1.0);
                                   const double x = 2.0 * fractionOf((position.x + time * 0.3) / 2.0) - 1.0;
                                   return glm::dvec2(x * 0.5 + 0.5, y * 0.5 - 0.5 + 0.05);
                               }};
const TextLayer toiletLayer = {"toilet",
                               "queue_main",
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
    explicit BlockPicture(const std::string& name)
        : file(standins::textureFile(name)),
          width(name == "unlimited" ? 2048 : 3840),
          height(name == "unlimited" ? 2048 : 2160)
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
    EXPECT_EQ(wrong, 0) << layer.name;
    return found;
}

class TextPicture : public ScenePicture {
protected:
    /// With the text and without it, at two times.
    TextPixels compareLayer(const Show& show, const TextLayer& layer)
    {
        TextPixels sum;
        for (const double time : {0.0, 7.3}) {
            const Frame frame = draw(show, time);
            show.scene().getGraph().getNode("scroller")->value.setVisible(false);
            const Frame without = drawAsItIs(show, time);
            show.scene().getGraph().getNode("scroller")->value.setVisible(true);
            const TextPixels found = compare(layer, frame, without, time);
            sum.light += found.light;
            sum.dark += found.dark;
            sum.holes += found.holes;
            sum.covered += found.covered;
        }
        EXPECT_GT(sum.light, 1000);
        EXPECT_GT(sum.dark, 20);
        EXPECT_GT(sum.holes, 10000);
        return sum;
    }
};

TEST_F(TextPicture, OfTheBurgerLiesBeforeEverything)
{
    open(burgerTextures, atTheBurger + TrackValues{{"burger_text", 1.0F}});
    EXPECT_EQ(compareLayer(make<BurgerScene>(), burgerLayer).covered, 0);
}

TEST_F(TextPicture, OfTheBottlesLiesBeforeEverything)
{
    open(bottleTextures, atTheBottles);
    EXPECT_EQ(compareLayer(make<BottleScene>(), bottleLayer).covered, 0);
}

TEST_F(TextPicture, OfTheToiletLiesBeforeEverything)
{
    open(toiletTextures, atTheToilet);
    EXPECT_EQ(compareLayer(make<ToiletScene>(), toiletLayer).covered, 0);
}

TEST_F(TextPicture, OfThePeopleLiesBeforeWhatIsFar)
{
    open(peopleTextures, atThePeople);
    EXPECT_EQ(compareLayer(make<PeopleScene>(), peopleLayer).covered, 0);
}

TEST_F(TextPicture, OfThePeopleLiesBehindWhatIsNear)
{
    // The middle of clip space lies 0.98 from the eye; the back rest of the sofa is nearer than that.
    open(peopleTextures, cameraAt({-0.5F, 0.0F, 1.3F}, {0.0F, 0.0F, 0.0F}));
    const Show show = make<PeopleScene>();
    const Frame frame = draw(show, 0.0);
    show.scene().getGraph().getNode("scroller")->value.setVisible(false);
    const TextPixels found = compare(peopleLayer, frame, drawAsItIs(show, 0.0), 0.0);
    EXPECT_GT(found.covered, 100);
}

TEST_F(TextPicture, OfTheBurgerComesAndGoesWithItsTrack)
{
    folder.writeTrack("burger_text", {{0, 0.0F, 0}, {100, 1.0F, 0}, {200, 0.0F, 0}});
    open(burgerTextures, atTheBurger);
    const Show show = make<BurgerScene>();
    const Frame before = draw(show, 1.0);
    EXPECT_GT(differences(before, draw(show, 4.0)), 1000);
    EXPECT_EQ(differences(before, draw(show, 7.0)), 0);
}

class GradientPicture : public ScenePicture {
protected:
    /// Compares the corners, edges and middle of the picture with the formula, where nothing else is drawn.
    void expectGradient(const Show& show, const glm::dvec3& middle, const glm::dvec3& outside)
    {
        show.scene().getGraph().getNode("scroller")->value.setVisible(false);
        const Frame frame = drawAsItIs(show, 3.0);
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
};

// Far from everything, and away from it.
const TrackValues intoTheEmpty = cameraAt({0.0F, 9.0F, 9.0F}, {0.0F, 10.0F, 20.0F});

TEST_F(GradientPicture, BehindThePeopleGoesFromWarmToTeal)
{
    open(peopleTextures, cameraAt({0.5F, 9.0F, 9.0F}, {0.0F, 10.0F, 20.0F}));
    const Show show = make<PeopleScene>();
    show.update(3.0);
    expectGradient(show, {1.0, 0.85, 0.66}, {0.0, 0.39, 0.39});
}

TEST_F(GradientPicture, BehindTheBurgerGoesFromGreyToBlue)
{
    open(burgerTextures, intoTheEmpty);
    const Show show = make<BurgerScene>();
    show.update(3.0);
    expectGradient(show, {0.9, 0.9, 0.9}, {0.056, 0.072, 0.132});
}

TEST_F(GradientPicture, BehindTheBottlesGoesFromYellowToBlue)
{
    open(bottleTextures, intoTheEmpty);
    const Show show = make<BottleScene>();
    show.update(3.0);
    expectGradient(show, {0.865, 0.728, 0.562}, {0.056, 0.072, 0.132});
}

TEST_F(GradientPicture, BehindTheToiletGoesFromGreyToBlue)
{
    open(toiletTextures, intoTheEmpty);
    const Show show = make<ToiletScene>();
    show.update(3.0);
    expectGradient(show, {0.9, 0.9, 0.9}, {0.056, 0.072, 0.132});
}

TEST_F(ScenePicture, OfTheRoomHasItsSkyBehindIt)
{
    open(roomTextures, intoTheEmpty);
    const Frame frame = draw(make<RoomScene>(), 3.0);
    EXPECT_TRUE(isNear(frame.at(240, 135), {0.05, 0.05, 0.12})) << testing::PrintToString(frame.at(240, 135));
}

TEST_F(ScenePicture, OfTheTvIsTornInBurstsAndOnlyWhereItsMapIsLit)
{
    open(roomTextures, atTheTv);
    const Show show = make<RoomScene>();
    // 0.5 * 1.5 is 0.75, 1.4 * 1.5 is 2.1: calm. 1.0 * 1.5 is 1.5, 1.2 * 1.5 is 1.8: torn.
    const Frame calm = draw(show, 0.5);
    EXPECT_EQ(differences(calm, draw(show, 1.4)), 0);
    const Frame torn[] = {draw(show, 1.0), draw(show, 1.2)};

    std::vector<std::pair<std::string, std::string>> files;
    files.reserve(std::size(roomTextures));
    for (const std::string& name : roomTextures) {
        files.emplace_back(name + ".dds",
                           name == "tv_emit" ? flatTexture(2048, 2048, 0) : standins::textureFile(name));
    }
    openPack(files, atTheTv);
    const Frame dark = draw(make<RoomScene>(), 1.0);

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
