#include "tools/stage/stage_folder.h"

#include "tests/support/in_temporary_folder.h"
#include "tools/common/error.h"
#include "tools/timeline/track_file.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::ThrowsMessage;
using tools::Error;
using tools::stage::StageFolder;

namespace {

class StageFolders : public InTemporaryFolder {
protected:
    StageFolders()
    {
        std::filesystem::create_directory("art");
        write("art/room.glb", "a room");
        write("art/sync_debug.track",
              tools::timeline::encodeTrack({{0, 1.0F, SYNC_STEP}, {9, 2.0F, SYNC_STEP}}));
    }
};

TEST_F(StageFolders, ShowTheAssetsUnderTheNameThatScenesUse)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::path within;
    {
        const StageFolder folder("art", {});
        within = std::filesystem::current_path();
        EXPECT_NE(within, before);
        EXPECT_EQ(read("assets/room.glb"), "a room");
        EXPECT_THAT(namesIn("assets"), ElementsAre("room.glb", "sync_debug.track"));
    }
    EXPECT_EQ(std::filesystem::current_path(), before);
    EXPECT_FALSE(std::filesystem::exists(within));
    EXPECT_THAT(namesIn("art"), ElementsAre("room.glb", "sync_debug.track"));
}

TEST_F(StageFolders, PutOneKeyInPlaceOfAnOverriddenTrackAndLeaveTheFileAlone)
{
    const std::string original = read("art/sync_debug.track");
    {
        const StageFolder folder("art", {{"debug", 5.0F}, {"hat_r", -1.0F}});
        EXPECT_EQ(read("assets/sync_debug.track"), tools::timeline::encodeTrack({{0, 5.0F, SYNC_STEP}}));
        EXPECT_EQ(read("assets/sync_hat_r.track"), tools::timeline::encodeTrack({{0, -1.0F, SYNC_STEP}}));
    }
    EXPECT_EQ(read("art/sync_debug.track"), original);
    EXPECT_THAT(namesIn("art"), ElementsAre("room.glb", "sync_debug.track"));
}

TEST_F(StageFolders, NameTheFolderThatIsMissing)
{
    EXPECT_THAT([] { StageFolder("none", {}); },
                ThrowsMessage<Error>("none: no folder of assets is here; --assets names another"));
    EXPECT_THAT([] { StageFolder("art/room.glb", {}); },
                ThrowsMessage<Error>("art/room.glb: no folder of assets is here; --assets names another"));
}

TEST_F(StageFolders, RefuseATrackCutOffAnywhere)
{
    const std::string whole = read("art/sync_debug.track");
    const std::filesystem::path before = std::filesystem::current_path();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        write("art/sync_debug.track", whole.substr(0, length));
        EXPECT_THROW(StageFolder("art", {}), Error);
        EXPECT_EQ(std::filesystem::current_path(), before);
    }
}

} // namespace
