// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/NotePlaces.h>

namespace zarn {

namespace {

/// A number of an index; unset ones are the largest.
int numberOf(std::uint32_t number) noexcept
{
    return number <= static_cast<std::uint32_t>(Note::MaxArticulation) ? static_cast<int>(number)
                                                                       : Note::Unset;
}

} // namespace

NotePlaces::NotePlaces(const ScoreModelRange &range)
    : _isOnePlace(!range.isMultiSelection() && !range.isMultiVoice()),
      _string(numberOf(range.first().noteString())), _midi(numberOf(range.first().noteMidi())),
      _articulation(numberOf(range.first().noteInstrumentArticulation()))
{
    if (_articulation == 0)
        _articulation = Note::Unset; // what a new index has
}

} // namespace zarn
