// SPDX-License-Identifier: MIT
#include "common/Terminal.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>

namespace zarn::tool {

namespace {

constexpr int DefaultWidth = 80;
constexpr int SmallestWidth = 20;
constexpr int GreatestWidth = 10000;

int widthOfOutput()
{
    winsize size = {};
    if (::isatty(STDOUT_FILENO) != 0 && ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0
        && size.ws_col > 0)
        return size.ws_col;
    const char *const columns = std::getenv("COLUMNS");
    const int asked = columns != nullptr ? std::atoi(columns) : 0;
    return asked > 0 ? asked : DefaultWidth;
}

bool isSet(const char *variable)
{
    const char *const value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

bool isDumb()
{
    const char *const term = std::getenv("TERM");
    return term == nullptr || std::strcmp(term, "dumb") == 0;
}

} // namespace

Terminal::Terminal(int width, bool showsUtf8, bool showsColour)
    : _width(std::clamp(width, SmallestWidth, GreatestWidth)), _showsUtf8(showsUtf8),
      _showsColour(showsColour)
{
}

Terminal Terminal::standard()
{
    std::setlocale(LC_CTYPE, "");
    const bool outputIsTerminal = ::isatty(STDOUT_FILENO) != 0;
    Terminal terminal(widthOfOutput(), std::strcmp(::nl_langinfo(CODESET), "UTF-8") == 0,
                      outputIsTerminal && !isSet("NO_COLOR") && !isDumb());
    terminal._isInteractive = outputIsTerminal && ::isatty(STDIN_FILENO) != 0;
    terminal._showsProgress = ::isatty(STDERR_FILENO) != 0 && !isDumb();
    return terminal;
}

std::string printable(const std::string &text)
{
    std::string safe;
    safe.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        // C1 control characters are the two bytes C2 80 to C2 9F.
        const bool isC1 = byte == 0xc2 && i + 1 < text.size()
            && static_cast<unsigned char>(text[i + 1]) >= 0x80
            && static_cast<unsigned char>(text[i + 1]) < 0xa0;
        if (isC1)
            ++i;
        safe.push_back(byte < 0x20 || byte == 0x7f || isC1 ? ' ' : text[i]);
    }
    return safe;
}

std::string counted(std::size_t count, const std::string &noun)
{
    return std::to_string(count) + ' ' + noun + (count == 1 ? "" : "s");
}

} // namespace zarn::tool
