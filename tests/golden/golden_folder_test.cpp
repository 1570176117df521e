#include "tests/golden/golden_folder.h"

#include "tests/golden/still_stage.h"
#include "tests/support/in_temporary_folder.h"
#include "tools/common/error.h"
#include "tools/picture/picture_file.h"

#include <algorithm>
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

namespace {

class GoldenFolder : public InTemporaryFolder {
protected:
    GoldenFolder()
    {
        std::filesystem::create_directory("golden");
        const std::vector<std::uint8_t> black(std::size_t{3} * stillSize.width * stillSize.height);
        tools::picture::RgbImage picture{stillSize, black};
        std::size_t row = 0;
        for (const Still& still : stills()) { // each with a white bar of its own
            picture.pixels = black;
            const auto start =
                picture.pixels.begin() + static_cast<std::ptrdiff_t>(row * 3 * stillSize.width);
            std::fill_n(start, 3 * stillSize.width, std::uint8_t{255});
            write(goldenFile("golden", still), tools::picture::encodePicture(picture));
            pictures.push_back(picture);
            row += 4;
        }
    }

    std::vector<tools::picture::RgbImage> pictures;
};

TEST_F(GoldenFolder, IsInOrderWithOnePictureForEachStill)
{
    EXPECT_THAT(faultsOf("golden"), IsEmpty());
    EXPECT_EQ(checkStill(stills()[2], pictures[2], "golden", "differences"), "");
    EXPECT_FALSE(std::filesystem::exists("differences"));
}

TEST_F(GoldenFolder, LacksAPictureAndRecordsNone)
{
    const std::filesystem::path file = goldenFile("golden", stills()[3]);
    std::filesystem::remove(file);
    EXPECT_THAT(faultsOf("golden"), ElementsAre("golden/room_slippers.png: this golden picture is missing"));
    EXPECT_THAT([&] { checkStill(stills()[3], pictures[3], "golden", "differences"); },
                ThrowsMessage<tools::Error>("golden/room_slippers.png: this golden picture is missing"));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(GoldenFolder, HasNoOtherPictures)
{
    write("golden/room_kitchen.png", "");
    EXPECT_THAT(faultsOf("golden"), ElementsAre("golden/room_kitchen.png: there is no still of this name"));
}

TEST_F(GoldenFolder, HasNoPicturesOfAnotherSize)
{
    const tools::picture::RgbImage small{{4, 2}, std::vector<std::uint8_t>(24)};
    write(goldenFile("golden", stills()[0]), tools::picture::encodePicture(small));
    EXPECT_THAT(faultsOf("golden"), ElementsAre("golden/room_television.png: is 4x2, expected 480x270"));
}

TEST_F(GoldenFolder, HasNoTwoPicturesThatCouldBeTakenForEachOther)
{
    std::filesystem::copy(goldenFile("golden", stills()[0]), goldenFile("golden", stills()[4]),
                          std::filesystem::copy_options::overwrite_existing);
    EXPECT_THAT(faultsOf("golden"), ElementsAre("room_television: cannot be told from room_table"));
}

TEST_F(GoldenFolder, TellsHowAPictureDiffersAndShowsIt)
{
    tools::picture::RgbImage picture = pictures[2];
    picture.pixels[3 * (100 * stillSize.width + 50)] = 200;
    EXPECT_EQ(checkStill(stills()[2], picture, "golden", "differences"),
              "room_sofa: 1 of 129600 pixels differ by more than 2/255, the worst by 200/255 at 50,100; see "
              "differences/room_sofa.difference.png");
    EXPECT_THAT(namesIn("differences"), ElementsAre("room_sofa.difference.png", "room_sofa.png"));
    EXPECT_EQ(read("differences/room_sofa.png"), tools::picture::encodePicture(picture));
}

TEST(Stills, TellOnlyTracksThatTheirScenesRead)
{
    for (const Still& still : stills()) {
        const std::vector<std::string_view> tracks = tracksOf(still);
        for (const TrackValue& other : still.others) {
            EXPECT_TRUE(other.track == nullptr ||
                        std::find(tracks.begin(), tracks.end(), other.track->name) != tracks.end())
                << still.name << " " << other.track->name;
        }
    }
}

TEST(Stills, ShowEachScene)
{
    for (const catalogue::Scene& scene : catalogue::allScenes) {
        const std::span<const Still> all = stills();
        EXPECT_TRUE(std::any_of(all.begin(), all.end(), [&](const Still& still) {
            return still.scene->number == scene.number;
        })) << scene.name;
    }
}

} // namespace
