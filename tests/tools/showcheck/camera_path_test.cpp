#include "tools/showcheck/camera_path.h"

#include "scenes/catalogue.h"
#include "sync/tools.h"
#include "tests/support/in_temporary_folder.h"
#include "tools/timeline/track_file.h"

#include <gmock/gmock.h>

namespace {

class CameraPath : public InTemporaryFolder {
protected:
    static void writeTrack(const std::string& name, const std::vector<sync_key>& keys)
    {
        write("sync_" + name + ".track", tools::timeline::encodeTrack(keys));
    }
};

void expectPoint(const glm::dvec3& found, const glm::dvec3& expected)
{
    EXPECT_NEAR(found.x, expected.x, 1e-5);
    EXPECT_NEAR(found.y, expected.y, 1e-5);
    EXPECT_NEAR(found.z, expected.z, 1e-5);
}

TEST_F(CameraPath, HoldsBothEndsOfEachRow)
{
    writeTrack("scene", {{0, catalogue::scenes::room.number, SYNC_STEP},
                         {2, catalogue::scenes::bottle.number, SYNC_STEP}});
    writeTrack("camera_pos_x", {{0, 0.0F, SYNC_LINEAR}, {2, 4.0F, SYNC_STEP}});
    writeTrack("camera_tgt_z", {{0, 1.0F, SYNC_STEP}, {1, 7.0F, SYNC_STEP}});
    const tolv::SyncDevice sync("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const std::vector<tools::showcheck::CameraRow> rows = tools::showcheck::readCameraPath(sync, 0, 3);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[1].row, 1);
    EXPECT_EQ(rows[1].scene, catalogue::scenes::room.number);
    EXPECT_EQ(rows[2].scene, catalogue::scenes::bottle.number);
    expectPoint(rows[0].begin.eye, {0.0, 0.0, 0.0});
    expectPoint(rows[0].end.eye, {2.0, 0.0, 0.0});
    expectPoint(rows[0].end.target, {0.0, 0.0, 1.0}); // steps at row 1, not before
    expectPoint(rows[1].begin.target, {0.0, 0.0, 7.0});
    expectPoint(rows[2].begin.eye, {4.0, 0.0, 0.0});
}

TEST_F(CameraPath, CirclesThePeople)
{
    writeTrack("scene", {{0, catalogue::scenes::people.number, SYNC_STEP}});
    writeTrack("camera_pos_x", {{0, 0.5F, SYNC_STEP}, {1, 0.0F, SYNC_STEP}}); // half turns
    writeTrack("camera_pos_y", {{0, 0.8F, SYNC_STEP}});
    writeTrack("camera_pos_z", {{0, 3.0F, SYNC_STEP}});
    const tolv::SyncDevice sync("sync", tempo::beatsPerMinute, tempo::rowsPerBeat);
    const std::vector<tools::showcheck::CameraRow> rows = tools::showcheck::readCameraPath(sync, 0, 2);
    EXPECT_NEAR(rows[0].begin.eye.z, 3.0, 1e-3);
    EXPECT_NEAR(rows[0].begin.eye.x, 0.0, 1e-2);
    expectPoint(rows[1].begin.eye, {3.0, 0.8, 0.0});
}

} // namespace
