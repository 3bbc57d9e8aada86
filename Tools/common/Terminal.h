// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>

namespace zarn::tool {

/// What the standard streams of this process can show. Asked once, at the start.
class Terminal {
public:
    /// Looks at the streams, the locale and the environment (`COLUMNS`, `NO_COLOR`, `TERM`).
    static Terminal standard();

    /// A terminal of given abilities, for output that does not depend on where it goes.
    Terminal(int width, bool showsUtf8, bool showsColour);

    /// Columns of standard output; 80 when it is not a terminal and `COLUMNS` is not set.
    int width() const noexcept { return _width; }

    /// Whether the locale can show box drawing and musical signs.
    bool showsUtf8() const noexcept { return _showsUtf8; }

    /// Whether standard output is a terminal and nobody asked for plain text.
    bool showsColour() const noexcept { return _showsColour; }

    /// Whether a person types the input and sees the output.
    bool isInteractive() const noexcept { return _isInteractive; }

    /// Whether standard error is a terminal, where progress may be drawn.
    bool showsProgress() const noexcept { return _showsProgress; }

private:
    int _width = 80;
    bool _showsUtf8 = false;
    bool _showsColour = false;
    bool _isInteractive = false;
    bool _showsProgress = false;
};

/// Text from a document made safe for a terminal: control characters become spaces.
std::string printable(const std::string &text);

/// "1 bar", "3 bars": the number and the noun, with an s unless it is one.
std::string counted(std::size_t count, const std::string &noun);

} // namespace zarn::tool
