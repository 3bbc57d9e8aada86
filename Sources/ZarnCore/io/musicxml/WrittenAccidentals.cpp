// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/WrittenAccidentals.h>

#include <ZarnCore/io/musicxml/signs/Ornaments.h>

#include <algorithm>

namespace zarn::io {

namespace {

/// Of each note that is told by an accidental, as the notes follow one another in `notes`.
void ask(const std::vector<WrittenNote *> &notes, int fifths)
{
    std::vector<HeldAccidentals> staves;
    for (auto *note : notes) {
        const auto staff = static_cast<std::size_t>(std::max(note->staff, 0));
        while (staves.size() <= staff)
            staves.emplace_back().startBar(fifths);
        auto &held = staves[staff];
        const bool isOfKey = note->alter == alterInKey(note->step, fifths);
        if (!note->tieStop)
            note->needsAccidental |= held.take(note->octave, note->step, note->alter);
        else if (!isOfKey)
            held.doubt(note->octave, note->step);
    }
}

} // namespace

void HeldAccidentals::startBar(int fifths)
{
    if (fifths != _fifths) {
        for (std::size_t i = 0; i < _ofKey.size(); ++i)
            _ofKey[i] = static_cast<std::int8_t>(alterInKey(static_cast<int>(i % steps), fifths));
        _fifths = fifths;
    }
    _held = _ofKey;
}

bool HeldAccidentals::take(int octave, int step, int alter)
{
    auto &held = _held[indexOf(octave, step)];
    const bool isNew = held != alter;
    held = static_cast<std::int8_t>(alter);
    return isNew;
}

void HeldAccidentals::doubt(int octave, int step)
{
    constexpr std::int8_t unsure = 100;
    _held[indexOf(octave, step)] = unsure;
}

std::size_t HeldAccidentals::indexOf(int octave, int step)
{
    return static_cast<std::size_t>(std::clamp(octave, -1, 10) + 1) * steps
        + static_cast<std::size_t>(step);
}

void keepReminders(WrittenMeasure &measure, int fifths)
{
    const auto isReminder = [](const WrittenNote &note) {
        return note.hasAccidental && !note.needsAccidental;
    };
    if (std::none_of(measure.notes.begin(), measure.notes.end(), isReminder))
        return;
    std::vector<WrittenNote *> notes;
    for (auto &note : measure.notes)
        if (note.kind == NoteKind::Pitched && !note.hidden)
            notes.push_back(&note);
    // Writers go by the time or by the document, voice after voice: what either asks for is none.
    ask(notes, fifths);
    std::stable_sort(notes.begin(), notes.end(),
                     [](const WrittenNote *left, const WrittenNote *right) {
                         return left->onset != right->onset ? left->onset < right->onset
                                                            : left->grace > right->grace;
                     });
    ask(notes, fifths);
    for (auto *note : notes)
        if (isReminder(*note) && note->marks.accidentalDisplay() == AccidentalDisplay::Auto)
            note->marks.setAccidentalDisplay(AccidentalDisplay::Shown);
}

} // namespace zarn::io
