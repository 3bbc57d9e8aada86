// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiOddities.h>

#include <ZarnCore/io/ZarnImportReport.h>

namespace zarn::io {

void MidiOddities::add(const std::string &text, int track, std::size_t byte,
                       const std::string &detail)
{
    const auto [place, isNew] = _places.insert({text, _all.size()});
    if (isNew)
        _all.push_back({text, detail, track, byte, 0});
    ++_all[place->second].count;
}

void MidiOddities::add(const MidiOddities &others)
{
    for (const Oddity &other : others._all) {
        const auto [place, isNew] = _places.insert({other.text, _all.size()});
        if (isNew)
            _all.push_back(other);
        else
            _all[place->second].count += other.count;
    }
}

void MidiOddities::tell(ImportReport &report) const
{
    for (const Oddity &oddity : _all) {
        ImportProblem problem;
        problem.part = oddity.track;
        problem.text = oddity.byte == NoByte ? "" : "byte " + std::to_string(oddity.byte) + ": ";
        problem.text += oddity.text + oddity.detail;
        if (oddity.count > 1)
            problem.text += " (" + std::to_string(oddity.count) + " times in all)";
        report.addProblem(std::move(problem));
    }
}

} // namespace zarn::io
