// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/TextScanner.h>

#include <string>

namespace zarn {

/// Takes a word that is, letter by letter, the text of an enumerator; `ToText` and `FromText` are
/// the functions of the enumeration.
template <auto ToText, auto FromText, class E>
bool takeEnumerator(utils::TextScanner &scanner, E &value)
{
    utils::TextScanner ahead = scanner;
    const std::string word(ahead.takeWord());
    const E found = FromText(word);
    if (ToText(found) != word)
        return false;
    value = found;
    scanner = ahead;
    return true;
}

} // namespace zarn
