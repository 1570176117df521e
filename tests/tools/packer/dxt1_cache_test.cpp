#include "tools/packer/dxt1_cache.h"

#include "tests/support/in_temporary_folder.h"
#include "tools/common/error.h"

#include <gmock/gmock.h>
#include <set>

using testing::IsEmpty;
using testing::SizeIs;
using testing::ThrowsMessage;
using tools::packer::contentHash;
using tools::packer::Dxt1Cache;
using tools::packer::Effort;

namespace {

class Dxt1CacheTest : public InTemporaryFolder {
protected:
    const tools::packer::Dxt1Image image{std::string("blocks \0 of 8 bytes each", 24), 12345678901234};
};

TEST(ContentHash, TellsAnyChangedBitAndAnyLength)
{
    std::set<std::string> hashes;
    for (std::size_t length = 0; length < 40; ++length) {
        hashes.insert(contentHash(std::string(length, '\0')));
        for (std::size_t bit = 0; bit < 8 * length; ++bit) {
            std::string bytes(length, '\0');
            bytes[bit / 8] = static_cast<char>(1 << bit % 8);
            hashes.insert(contentHash(bytes));
        }
    }
    EXPECT_EQ(hashes.size(), 40U + 8 * 39 * 40 / 2);
    EXPECT_THAT(*hashes.begin(), SizeIs(32));
}

TEST_F(Dxt1CacheTest, FindsWhatItKept)
{
    const Dxt1Cache cache("cache/of/pictures");
    cache.keep("png", Effort::Best, image);
    const auto found = cache.find("png", Effort::Best);
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->blocks, image.blocks);
    EXPECT_EQ(found->squaredError, image.squaredError);
    EXPECT_THAT(namesIn("cache/of/pictures"), SizeIs(1));
}

TEST_F(Dxt1CacheTest, FindsNothingForAnotherPngOrEffort)
{
    const Dxt1Cache cache("cache");
    cache.keep("png", Effort::Best, image);
    EXPECT_FALSE(cache.find("pnh", Effort::Best).has_value());
    EXPECT_FALSE(cache.find("png", Effort::Quick).has_value());
}

TEST_F(Dxt1CacheTest, FindsNothingInAnEntryCutOffAtAnyByte)
{
    const Dxt1Cache cache("cache");
    cache.keep("png", Effort::Best, image);
    const std::string entry = "cache/" + namesIn("cache").at(0);
    const std::string whole = read(entry);
    for (std::size_t length = 0; length < whole.size(); ++length) {
        write(entry, whole.substr(0, length));
        EXPECT_FALSE(cache.find("png", Effort::Best).has_value());
    }
}

TEST_F(Dxt1CacheTest, FindsNothingInAnEntryWithAnyChangedByte)
{
    const Dxt1Cache cache("cache");
    cache.keep("png", Effort::Best, image);
    const std::string entry = "cache/" + namesIn("cache").at(0);
    const std::string whole = read(entry);
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string changed = whole;
        changed[at] ^= 4;
        write(entry, changed);
        EXPECT_FALSE(cache.find("png", Effort::Best).has_value());
    }
}

TEST_F(Dxt1CacheTest, ReplacesADamagedEntry)
{
    const Dxt1Cache cache("cache");
    cache.keep("png", Effort::Best, image);
    write("cache/" + namesIn("cache").at(0), "damaged");
    cache.keep("png", Effort::Best, image);
    EXPECT_TRUE(cache.find("png", Effort::Best).has_value());
    EXPECT_THAT(namesIn("cache"), SizeIs(1));
}

TEST_F(Dxt1CacheTest, KeepsNothingWithoutAFolder)
{
    const Dxt1Cache cache("");
    cache.keep("png", Effort::Best, image);
    EXPECT_FALSE(cache.find("png", Effort::Best).has_value());
    EXPECT_THAT(namesIn("."), IsEmpty());
}

TEST_F(Dxt1CacheTest, RefusesAFileInPlaceOfItsFolder)
{
    write("cache", "");
    EXPECT_THAT([] { Dxt1Cache("cache/below"); },
                ThrowsMessage<tools::Error>("cache/below: cannot make the folder: Not a directory"));
}

} // namespace
