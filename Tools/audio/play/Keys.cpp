// SPDX-License-Identifier: MIT
#include "audio/play/Keys.h"

#include <array>
#include <poll.h>
#include <string_view>
#include <unistd.h>

namespace zarn::tool {

namespace {

struct Sequence {
    std::string_view bytes;
    Keys::Key key;
};

constexpr std::array<Sequence, 11> sequences = {{
    {"\x1b[D", Keys::Key::Left},
    {"\x1b[C", Keys::Key::Right},
    {"\x1bOD", Keys::Key::Left},
    {"\x1bOC", Keys::Key::Right},
    {"\x1b[H", Keys::Key::Home},
    {"\x1bOH", Keys::Key::Home},
    {" ", Keys::Key::Space},
    {"-", Keys::Key::Slower},
    {"+", Keys::Key::Faster},
    {"m", Keys::Key::Metronome},
    {"q", Keys::Key::Quit},
}};

} // namespace

Keys::Keys()
{
    // Who runs in the background must not ask the terminal for keys.
    _isTerminal = ::isatty(STDIN_FILENO) != 0 && ::tcgetpgrp(STDIN_FILENO) == ::getpgrp()
        && ::tcgetattr(STDIN_FILENO, &_before) == 0;
    if (!_isTerminal)
        return;
    termios raw = _before;
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    ::tcsetattr(STDIN_FILENO, TCSANOW, &raw);
}

Keys::~Keys()
{
    if (_isTerminal)
        ::tcsetattr(STDIN_FILENO, TCSANOW, &_before);
}

Keys::Key Keys::next(int patience)
{
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    if (::poll(&input, _isTerminal ? 1 : 0, patience) <= 0)
        return Key::None;
    std::array<char, 16> bytes{};
    const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) {
        _isTerminal = false;
        return Key::None;
    }
    const std::string_view pressed(bytes.data(), static_cast<std::size_t>(count));
    for (const Sequence &sequence : sequences)
        if (pressed.substr(0, sequence.bytes.size()) == sequence.bytes)
            return sequence.key;
    return Key::None;
}

} // namespace zarn::tool
