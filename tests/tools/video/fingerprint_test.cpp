#include "tools/video/fingerprint.h"

#include <gtest/gtest.h>
#include <initializer_list>

namespace {

TEST(Fingerprint, TellsTextsAndTheirBordersApart)
{
    const auto of = [](std::initializer_list<const char*> texts) {
        tools::video::Fingerprint fingerprint;
        for (const char* const part : texts) {
            fingerprint.add(part);
        }
        return fingerprint.text();
    };
    EXPECT_EQ(of({"room", "hat"}), of({"room", "hat"}));
    EXPECT_NE(of({"room", "hat"}), of({"hat", "room"}));
    EXPECT_NE(of({"room", "hat"}), of({"roomhat"}));
    EXPECT_NE(of({"room", "hat"}), of({"roomh", "at"}));
    EXPECT_EQ(of({"room"}).size(), 16U);
}

} // namespace
