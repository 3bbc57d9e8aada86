// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/signs/NotePlace.h>

#include <vector>

namespace zarn::io {

/// Finds the beats of one staff by their time, when a part has been read: what stands between the
/// notes of a document has a time and no voice.
class StaffTimes {
public:
    explicit StaffTimes(const Staff::Bars &bars) : _bars(bars) { }

    /// The first beat at a time or after it, in whatever voice, or in a later bar. Without a beat
    /// when there is none.
    NotePlace atOrAfter(int bar, const utils::rational &position) const;

    /// The beats of one voice from a time up to another one, which is not included: in the slot of
    /// `atOrAfter`, and in bars where that is empty in the first one that is not. When none begins
    /// in that time, the one that sounds at its start.
    std::vector<NotePlace> between(const NotePlace &begin, const NotePlace &end) const;

private:
    const Voice *voiceOf(int bar, unsigned slot) const;
    unsigned slotOf(int bar, unsigned preferred) const;

    const Staff::Bars &_bars;
};

} // namespace zarn::io
