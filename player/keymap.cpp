#include "player/keymap.h"

#include <SDL_keycode.h>
#include <unordered_map>

namespace tolv {

Keymap::Command Keymap::mapKey(int key)
{
    static const std::unordered_map<int, Command> keymap = {
        {SDLK_ESCAPE, Quit},
        {SDLK_r, Reload},
        {SDLK_p, Pause},
    };
    const auto found = keymap.find(key);
    return found != keymap.end() ? found->second : None;
}

} // namespace tolv
