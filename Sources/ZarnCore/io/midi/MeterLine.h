// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/PlayedNote.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <cstddef>
#include <vector>

namespace zarn::io {

class MidiOddities;

/// A meter that a file asks for.
struct MeterChange {
    MidiTime time = 0;
    TimeSignature meter;
};

/// A bar of the score: its meter, and its length, which may be another one.
struct MeterBar {
    MidiTime start = 0;
    MidiTime length = 0;
    TimeSignature meter;

    MidiTime end() const noexcept { return start + length; }
};

/// The bars of a score, one after the other. Meters are those of the file, 4/4 until there is one;
/// where a meter comes in the middle of a bar, that bar is short. A short first bar in front of a
/// longer meter is a pickup; short bars that make a whole one together keep its meter.
class MeterLine {
public:
    /// Bars up to `end`, or as many as `mostBars`. A pickup is time in front of the first whole bar
    /// of the file's first meter, 0 for none; the changes are in the order of their times.
    MeterLine(std::vector<MeterChange> changes, MidiTime pickup, MidiTime end,
              std::size_t mostBars);

    /// The bars of a file that says how they are written: of its meters, those apart that
    /// `written` gives another one, whatever their length.
    static MeterLine ofWritten(std::vector<MeterChange> changes,
                               const std::vector<MeterChange> &written, MidiTime end,
                               std::size_t mostBars);

    const std::vector<MeterBar> &bars() const noexcept { return _bars; }

    /// The bar that a time lies in; the last one behind the end.
    std::size_t barAt(MidiTime time) const noexcept;

    bool hasPickup() const noexcept { return _hasPickup; }

private:
    MeterLine() = default;

    void addAllBars(const std::vector<MeterChange> &changes, MidiTime pickup, MidiTime end,
                    std::size_t mostBars);
    void addBars(const TimeSignature &meter, MidiTime until, std::size_t mostBars);
    void findPickup();
    void joinSplitBars();

    std::vector<MeterBar> _bars;
    bool _hasPickup = false;
};

/// Length of a bar of a meter.
MidiTime lengthOf(const TimeSignature &meter);

/// Lengths of the beats of a bar: quarters, or what three units of a meter such as 6/8 make; the
/// last one is shorter where nothing else fits.
std::vector<MidiTime> beatsOf(const MeterBar &bar);

} // namespace zarn::io
