// SPDX-License-Identifier: MIT
#pragma once

#include <termios.h>

namespace zarn::tool {

/// Keys as they are pressed, without Enter, as long as there is one; none when standard input is no
/// terminal.
class Keys {
public:
    enum class Key { None, Space, Left, Right, Slower, Faster, Metronome, Home, Quit };

    Keys();
    ~Keys();
    Keys(const Keys &) = delete;
    Keys &operator=(const Keys &) = delete;

    /// The next key; waits for it as many milliseconds.
    Key next(int patience);

private:
    bool _isTerminal = false;
    termios _before = {};
};

} // namespace zarn::tool
