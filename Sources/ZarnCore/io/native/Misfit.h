// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn::io::native {

/// What keeps a model from being a document. Thrown while writing, where each level puts its part
/// of the pointer in front.
struct Misfit {
    std::string pointer; ///< JSON pointer: "/tracks/0/name"
    std::string reason;  ///< empty when nothing does
};

/// Writes what stands at a place; `key` gives the name of the place when it is needed.
template <typename Key, typename Write>
void atPlace(Key key, Write write)
{
    try {
        write();
    } catch (Misfit &misfit) {
        misfit.pointer = "/" + std::string(key()) + misfit.pointer;
        throw;
    }
}

/// The shortest text that reads back as the number.
std::string numberText(double number);

} // namespace zarn::io::native
