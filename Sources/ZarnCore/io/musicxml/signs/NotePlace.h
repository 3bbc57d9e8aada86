// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/TrackBuilder.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>
#include <ZarnCore/model/ZarnBar.h>

#include <cstddef>
#include <optional>
#include <tuple>
#include <vector>

namespace zarn::io {

/// A place in a voice of a bar: in front of the beat of an index.
struct VoiceJoint {
    unsigned slot;
    unsigned index;
};

/// Where a note of a part was put. Beats stay where they are while their part is read.
struct NotePlace {
    int bar = 0;
    int staff = 0;
    unsigned slot = 0;  ///< of the bar's voices
    unsigned index = 0; ///< of the beat in the voice
    utils::rational onset;
    int voice = 0; ///< number of the voice's name in the part
    Beat *beat = nullptr;
    Note *note = nullptr; ///< null for a rest

    // Of what stands between the notes.
    Beat *ahead = nullptr; ///< the beat that follows it at its time in the document
    std::optional<VoiceJoint> joint = std::nullopt; ///< see `jointAt`

    bool isInLineOf(const NotePlace &other) const noexcept
    {
        return staff == other.staff && slot == other.slot;
    }

    /// Order along one line of voices.
    auto inLine() const noexcept { return std::make_tuple(bar, index); }

    /// Order in time; grace beats share it with the beat that they lead to.
    auto inTime() const { return std::make_tuple(bar, onset); }
};

/// The place of the note that follows something in the document, when it stands at the same time
/// on the same staff; null else. `notes` are the places of all notes of the measure; where lengths
/// were rounded they are not quite where the document says.
inline const NotePlace *noteAhead(const WrittenMeasure &measure,
                                  const std::vector<NotePlace> &notes, std::size_t note, int staff,
                                  const utils::rational &position)
{
    if (note >= notes.size())
        return nullptr;
    const auto &place = notes[note];
    const bool isThere =
        place.beat && place.staff == staff && measure.notes[note].onset == position;
    return isThere ? &place : nullptr;
}

/// The joint of a voice at which something stands in the document: in front of the note ahead, or
/// behind a grace note, which takes no time. Nothing where its time alone tells the place.
inline std::optional<VoiceJoint> jointAt(const WrittenMeasure &measure,
                                         const std::vector<NotePlace> &notes, std::size_t note,
                                         int staff, const utils::rational &position)
{
    if (const auto *const ahead = noteAhead(measure, notes, note, staff, position))
        return VoiceJoint{ahead->slot, ahead->index};
    const auto *const behind =
        note > 0 ? noteAhead(measure, notes, note - 1, staff, position) : nullptr;
    if (behind && behind->beat->isGrace())
        return VoiceJoint{behind->slot, behind->index + 1};
    return std::nullopt;
}

/// The beats of one voice slot of a staff, over all bars, as they are when a part has been read.
class VoiceSlotLine {
public:
    VoiceSlotLine(const Staff::Bars &bars, unsigned slot) : _bars(bars), _slot(slot) { }

    /// The beats of a bar; null where nothing is in the slot.
    const Voice::Beats *beatsOf(int bar) const
    {
        if (bar < 0 || static_cast<std::size_t>(bar) >= _bars.size())
            return nullptr;
        const auto &voice = _bars[static_cast<std::size_t>(bar)]->voices()[_slot];
        return voice && voice->beatCount() > 0 ? &voice->beats() : nullptr;
    }

    /// The beat behind another one, which is the first of the next bar for the last of a bar; null
    /// when there is none. Moves the place there.
    Beat *next(int &bar, unsigned &index) const
    {
        const auto *beats = beatsOf(bar);
        if (beats && index + 1 < beats->size())
            return (*beats)[++index].get();
        const auto *following = beatsOf(bar + 1);
        if (!following)
            return nullptr;
        ++bar;
        index = 0;
        return following->front().get();
    }

    /// The beat in front of another one; null when there is none.
    const Beat *previous(int bar, unsigned index) const
    {
        if (index > 0)
            return (*beatsOf(bar))[index - 1].get();
        const auto *before = beatsOf(bar - 1);
        return before ? before->back().get() : nullptr;
    }

    /// Calls `visit(Beat &)` for the beats from one to another, both included; false when a bar in
    /// between has none, and then nothing was called.
    template <typename Visit>
    bool visit(const NotePlace &first, const NotePlace &last, Visit visit) const
    {
        for (int bar = first.bar; bar <= last.bar; ++bar)
            if (!beatsOf(bar))
                return false;
        int bar = first.bar;
        unsigned index = first.index;
        Beat *beat = first.beat;
        for (;;) {
            visit(*beat);
            if (bar == last.bar && index == last.index)
                return true;
            beat = next(bar, index);
            if (!beat)
                return true;
        }
    }

private:
    const Staff::Bars &_bars;
    unsigned _slot;
};

} // namespace zarn::io
