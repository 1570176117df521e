#pragma once

#include <cstdint>

namespace tolv {

/// What the keys do.
class Keymap {
public:
    enum Command : std::uint32_t {
        None = 0,
        Quit = 1,   ///< Esc: ends the show
        Reload = 2, ///< r: nothing listens
        Pause = 3,  ///< p: nothing listens
    };

    /// The command of an SDL key code, `None` if it has none.
    static Command mapKey(int key);
};

} // namespace tolv
