// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ArticulationIndex.h>

namespace zarn {

ArticulationIndex::ArticulationIndex(const std::vector<InstrumentArticulation> &articulations)
{
    _ofName.reserve(articulations.size());
    _ofMidi.reserve(articulations.size());
    _ofLineAndKey.reserve(2 * articulations.size());
    _ofLine.reserve(articulations.size());
    int number = 0;
    for (const InstrumentArticulation &articulation : articulations) {
        const auto line = articulation.staffLine();
        _ofName.emplace(articulation.name(), number);
        _ofLine.push_back({line, number});
        _ofLineAndKey.push_back({{line, articulation.outputMidiNumber()}, number});
        for (const std::int32_t midi : articulation.inputMidiNumbers())
            _ofMidi.emplace(midi, number);
        ++number;
    }
    // Keys that enter an articulation count behind those that play one.
    number = 0;
    for (const InstrumentArticulation &articulation : articulations) {
        for (const std::int32_t midi : articulation.inputMidiNumbers())
            _ofLineAndKey.push_back({{articulation.staffLine(), midi}, number});
        ++number;
    }
    sort(_ofLineAndKey);
    sort(_ofLine);
}

/// Keeps the first entry that was added under each key.
template <typename Key>
void ArticulationIndex::sort(std::vector<Entry<Key>> &entries)
{
    std::stable_sort(entries.begin(), entries.end(),
                     [](const auto &a, const auto &b) { return a.key < b.key; });
    const auto end = std::unique(entries.begin(), entries.end(),
                                 [](const auto &a, const auto &b) { return a.key == b.key; });
    entries.erase(end, entries.end());
}

std::vector<std::int32_t> ArticulationIndex::lines() const
{
    std::vector<std::int32_t> lines;
    for (const auto &entry : _ofLine)
        lines.push_back(entry.key);
    return lines;
}

std::int32_t ArticulationIndex::lineAbove(std::int32_t line) const noexcept
{
    auto above = firstNotBelow(_ofLine, line);
    if (above != _ofLine.end() && above->key == line)
        ++above;
    return above == _ofLine.end() ? line : above->key;
}

std::int32_t ArticulationIndex::lineBelow(std::int32_t line) const noexcept
{
    const auto from = firstNotBelow(_ofLine, line);
    return from == _ofLine.begin() ? line : std::prev(from)->key;
}

} // namespace zarn
