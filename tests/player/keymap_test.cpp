#include "player/keymap.h"

#include <SDL_keycode.h>
#include <gtest/gtest.h>

using tolv::Keymap;

TEST(Keymap, GivesEscapeTheFirstCommand)
{
    EXPECT_EQ(Keymap::mapKey(27), 1U);
    EXPECT_EQ(Keymap::mapKey(SDLK_ESCAPE), Keymap::Quit);
}

TEST(Keymap, KeepsTheRowsOfTheKeysThatNobodyListensTo)
{
    EXPECT_EQ(Keymap::mapKey(114), 2U);
    EXPECT_EQ(Keymap::mapKey(112), 3U);
}

TEST(Keymap, GivesNoCommandToAnyOtherKey)
{
    for (int key = -1; key < 0x400; ++key) {
        if (key != 27 && key != 112 && key != 114) {
            EXPECT_EQ(Keymap::mapKey(key), 0U) << key;
        }
    }
    EXPECT_EQ(Keymap::mapKey(SDLK_F12), 0U);
}

TEST(Keymap, HoldsCommandsIn32Bits)
{
    EXPECT_EQ(sizeof(Keymap::Command), 4U);
}
