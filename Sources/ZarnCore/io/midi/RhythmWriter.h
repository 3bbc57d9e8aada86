// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MeterLine.h>
#include <ZarnCore/io/midi/PatternTable.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <vector>

namespace zarn::io {

/// Writes times in a bar as note values, as musicians read them: values do not hide the beats of
/// the meter, and what belongs to a tuplet is written as a part of it.
class RhythmWriter {
public:
    /// A time from the start of the bar, with a note or none.
    struct Stretch {
        MidiTime start;
        MidiTime end;
        bool isSilent;
        std::size_t chord; ///< what sounds, for the caller
    };

    /// One value of a stretch. All but the last of a stretch are tied on.
    struct Value {
        RhythmValue rhythm;
        std::size_t stretch;
    };

    /// For one voice of a bar. The stretches follow each other without gaps. The answer holds until
    /// the writer is asked again.
    const std::vector<Value> &write(const MeterBar &bar, const std::vector<Stretch> &stretches);

private:
    /// A part of the bar that is counted in `actual` notes for `normal`; both are 1 outside of
    /// tuplets.
    struct Span {
        MidiTime start;
        MidiTime length;
        int actual = 1;
        int normal = 1;
    };

    PatternTable::Found lookUp(const MeterBar &bar, const std::vector<Stretch> &stretches);
    void writeNew(const MeterBar &bar, const std::vector<Stretch> &stretches);
    void findSpans(const MeterBar &bar, const std::vector<Stretch> &stretches);
    void joinSpans(const std::vector<Stretch> &stretches);
    void writeStretch(const Stretch &stretch, std::size_t number);
    void writePlain(MidiTime start, MidiTime end, bool isSilent, std::size_t number);
    void writeInTuplet(const Span &span, MidiTime start, MidiTime end, std::size_t number);
    void add(MidiTime length, const Span &span, std::size_t number);
    int strengthOf(MidiTime time) const;
    bool isReadable(MidiTime start, MidiTime end, bool isSilent) const;
    MidiTime strongestWithin(MidiTime start, MidiTime end) const;

    MidiTime _barLength = 0;
    MidiTime _beat = 0;
    MidiTime _offset = 0; ///< of a pickup, in its whole bar
    bool _isCompound = false;
    std::vector<Span> _spans;
    std::vector<Value> _values;

    /// Rhythms that were written before.
    PatternTable _known;
    std::vector<std::uint64_t> _pattern;
    std::vector<std::vector<Value>> _written; ///< by the number of their patterns
};

} // namespace zarn::io
