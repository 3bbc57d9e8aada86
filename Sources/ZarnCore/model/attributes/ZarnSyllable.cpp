// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnSyllable.h>

#include <algorithm>

namespace zarn {

std::string Syllable::toString() const
{
    const bool goesOn = syllabic == Syllabic::Begin || syllabic == Syllabic::Middle;
    return text + (goesOn ? "-" : "") + (hasMelisma ? "_" : "");
}

bool areValid(const Syllables &syllables) noexcept
{
    const bool areInOrder = std::adjacent_find(syllables.begin(), syllables.end(),
                                               [](const auto &left, const auto &right) {
                                                   return left.line >= right.line;
                                               })
        == syllables.end();
    return areInOrder
        && std::all_of(syllables.begin(), syllables.end(), [](const Syllable &syllable) {
               return syllable.line < Syllable::LineCount && syllable.syllabic <= Syllabic::End;
           });
}

} // namespace zarn
