// SPDX-License-Identifier: MIT
#include <streams/MemberName.h>

#include <algorithm>

namespace streams {

bool staysInside(std::string_view path) noexcept
{
    const auto isForbidden = [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F || c == ':';
    };
    if (path.empty() || std::any_of(path.begin(), path.end(), isForbidden))
        return false;
    for (;;) {
        const auto end = path.find_first_of("/\\");
        const auto part = path.substr(0, end);
        if (part.empty() || part == "..")
            return false;
        if (end == path.npos)
            return true;
        path.remove_prefix(end + 1);
    }
}

} // namespace streams
