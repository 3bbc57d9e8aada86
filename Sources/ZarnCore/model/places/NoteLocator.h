// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <cstdint>
#include <memory>

namespace zarn {

/// What locates a note within its beat.
class NoteLocator {
public:
    explicit NoteLocator(const ScoreModelIndex &index) noexcept
        : _midi(index.noteMidi()), _string(index.noteString()),
          _element(index.noteInstrumentArticulation())
    {
    }

    /// The first note of a beat that agrees with all that is set; null when there is none.
    const std::shared_ptr<Note> *find(const Beat &beat) const noexcept
    {
        const bool namesOnlyString =
            !isSet(_midi) && (!isSet(_element) || _element == 0) && isSet(_string);
        const auto *const found = namesOnlyString
            ? firstNote(beat,
                        [string = static_cast<int>(_string)](const Note &note) {
                            return note.string() == string;
                        })
            : firstNote(beat, [this](const Note &note) { return matches(note, _string); });
        if (found || _string != 0)
            return found;
        // String 0 is also what an index holds that never was given a string.
        return firstNote(
            beat, [this](const Note &note) { return matches(note, ScoreModelIndex::Unset); });
    }

private:
    static bool isSet(std::uint32_t value) noexcept { return value != ScoreModelIndex::Unset; }

    /// The first note that fits. Backwards through all of them: chords are short, and a branch on
    /// the first would be guessed wrong every other time.
    template <class Fits>
    static const std::shared_ptr<Note> *firstNote(const Beat &beat, const Fits &fits) noexcept
    {
        const std::shared_ptr<Note> *first = nullptr;
        const auto &notes = beat.notes();
        for (auto note = notes.end(); note != notes.begin();) {
            --note;
            first = fits(**note) ? &*note : first;
        }
        return first;
    }

    // Which note it is cannot be foreseen: one branch on all of it is faster than one on each part.
    bool matches(const Note &note, std::uint32_t string) const noexcept
    {
        bool isLocated = false;
        bool differs = false;
        const auto compare = [&](bool counts, std::uint32_t wanted, int found) {
            isLocated |= counts;
            differs |= counts & (wanted != static_cast<std::uint32_t>(found));
        };
        const bool hasString = note.string() != Note::Unset;
        const bool namesString = isSet(string);
        const bool namesElement = isSet(_element);
        compare(isSet(_midi), _midi, note.midi());
        compare(namesString & hasString, string, note.string());
        compare(namesElement & (_element != 0), _element, note.percussionArticulation());
        return isLocated & !differs;
    }

    std::uint32_t _midi;
    std::uint32_t _string;
    std::uint32_t _element;
};

} // namespace zarn
