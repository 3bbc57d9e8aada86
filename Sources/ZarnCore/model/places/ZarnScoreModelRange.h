// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <QString>

#include <cstdint>
#include <memory>

namespace zarn {

/// How far a range reaches between its ends; a set of bits.
enum class SelectionMode : std::uint8_t {
    None = 0,
    MultiSelection = 1, ///< more than the place of the first end
    MultiVoice = 2,     ///< whole bars, all their voices
    MultiTrack = 4,     ///< all tracks
};

constexpr SelectionMode operator|(SelectionMode left, SelectionMode right) noexcept
{
    return static_cast<SelectionMode>(static_cast<unsigned>(left) | static_cast<unsigned>(right));
}
constexpr bool hasMode(SelectionMode modes, SelectionMode bit) noexcept
{
    return (static_cast<unsigned>(modes) & static_cast<unsigned>(bit)) != 0;
}

/// A selection: two places, both included, and a mode.
class ZARNCORE_EXPORT ScoreModelRange {
public:
    /// Two unset places, mode 0.
    ScoreModelRange() noexcept = default;
    explicit ScoreModelRange(const ScoreModelIndex &index,
                             SelectionMode mode = SelectionMode::None) noexcept;

    /// Puts the ends in order. Raises where two different places cannot be ordered.
    ScoreModelRange(const ScoreModelIndex &a, const ScoreModelIndex &b,
                    SelectionMode mode = SelectionMode::None);

    const ScoreModelIndex &first() const noexcept { return _first; }
    const ScoreModelIndex &second() const noexcept { return _second; }
    ScoreModelIndex &mutableFirst() noexcept { return _first; }
    ScoreModelIndex &mutableSecond() noexcept { return _second; }

    /// These do not order the ends.
    void setFirst(const ScoreModelIndex &index) noexcept { _first = index; }
    void setSecond(const ScoreModelIndex &index) noexcept { _second = index; }

    SelectionMode selectionMode() const noexcept { return _mode; }
    void setSelectionMode(SelectionMode mode) noexcept { _mode = mode; }
    void setMultiSelection(bool on) noexcept { setBit(SelectionMode::MultiSelection, on); }
    void setMultiVoice(bool on) noexcept { setBit(SelectionMode::MultiVoice, on); }
    void setMultiTrack(bool on) noexcept { setBit(SelectionMode::MultiTrack, on); }

    /// The bit is set, or the ends differ.
    bool isMultiSelection() const noexcept;
    bool isMultiVoice() const noexcept { return hasMode(_mode, SelectionMode::MultiVoice); }

    /// All three bits are set, no fewer.
    bool isMultiTrack() const noexcept { return static_cast<unsigned>(_mode) == 7; }
    bool isSingleBeat() const noexcept;

    /// A single place whose beat is a place holder.
    bool isPlaceHolder() const;

    /// Model of the first end.
    ScoreModel *model() const noexcept { return _first.model(); }

    /// Bars from the first end to the second, both included; 0 when an end has none.
    unsigned barCount() const noexcept;

    /// The beats that are selected, as `RangeBeatIterator` walks them; none when an end does not
    /// resolve.
    unsigned beatCount() const;
    bool hasAnyBeat() const;

    /// Whether one of the selected bars repeats others by a simile mark.
    bool hasAnySimile() const;

    /// Beat of the first and of the second end; in multi-voice mode the first beat of the first
    /// bar and the last beat of the second bar, of the lowest voice that has one. Empty when
    /// there is none.
    std::shared_ptr<Beat> lowerBeat() const;
    std::shared_ptr<Beat> upperBeat() const;

    // Where the selection begins in the bar of its first end and ends in the bar of its second, in
    // quarters: the start of `lowerBeat` and the end of `upperBeat`. Where there is no such beat,
    // or in multi-voice mode, the start of the bar, and the end of its longest voice (of the bar
    // itself when it has no beats). 0 for a bar that does not exist. Grace beats take no time:
    // a selection that begins with one begins where the beat does that it leads to.

    utils::rational beginSelectionOffset() const;
    utils::rational endSelectionOffset() const;
    utils::rational beginSelectionOffsetIgnoringGraceBeats() const;
    utils::rational endSelectionOffsetIgnoringGraceBeats() const;

    /// Moves the second end to the beat before the last one of the selection in its voice, over
    /// bars without beats; never in front of the first end. Returns whether the end moved; that of
    /// a range that is no multi-selection never does. From 3:1 - 4:1: to 3:1 - 3:4, when bar 3 has
    /// four beats.
    bool trimLastBeat();

    // Widened ranges. Their ends are the first beat of one bar and the last of another, in the
    // voices of this range's ends, -1 in a voice without beats; they name no notes, and the
    // selection bit is set. A range that selects no bars, as `RangeBarIterator` walks them, is
    // answered as it is. Only the bars of the selected staves are looked at.

    /// The bars of the range, whole: 3:2 - 4:1 becomes all of bars 3 and 4.
    ScoreModelRange extendedBarRange() const;
    static ScoreModelRange extendedBarRange(const ScoreModelRange &range);

    /// And a number of bars more on either side, as far as there are any: with 1, bars 3 and 4
    /// become 2 to 5. A negative number counts as 0.
    ScoreModelRange extendedBorderBarRange(int count) const;
    static ScoreModelRange extendedBorderBarRange(const ScoreModelRange &range, int count);

    /// And the bars that ties lead to, until no tie of the selected voices crosses the ends, but
    /// at most `limit` bars on either side (negative: no limit). With a note tied from bar 2 to 3
    /// and one from 4 over all of 5 into 6, bars 3 and 4 become 2 to 6, with limit 1 2 to 5.
    ScoreModelRange extendedTiedBarRange(int limit) const;
    static ScoreModelRange extendedTiedBarRange(const ScoreModelRange &range, int limit);

    /// And what simile marks join to it: the bars its simile bars repeat, the simile bars behind it
    /// that repeat its bars, and so on. When 5 and 6 repeat 4, bar 4 or 5 becomes 4 to 6.
    ScoreModelRange extendedSoundingSimileRange() const;
    static ScoreModelRange extendedSoundingSimileRange(const ScoreModelRange &range);

    /// The bars that sound when the range is played, from the first to the last: each simile bar
    /// stands for the one it repeats. When 5 and 6 repeat 4, bars 5 and 6 become 4, and bars 6 and
    /// 7 become 4 to 7.
    ScoreModelRange soundingBarRange() const;
    static ScoreModelRange soundingBarRange(const ScoreModelRange &range);

    /// The ends in another voice, each the nearest beat there; see `ScoreModelIndex::mapOnVoice`.
    ScoreModelIndex mapFirst(unsigned voice) const;
    ScoreModelIndex mapSecond(unsigned voice) const;
    ScoreModelRange mapRange(unsigned voice) const;

    /// The range with its ends in order; a range that is no multi-selection stays as it is.
    ScoreModelRange sortedRange() const;
    static ScoreModelRange sortRange(const ScoreModelRange &range);

    friend bool operator==(const ScoreModelRange &left, const ScoreModelRange &right) noexcept
    {
        return left._mode == right._mode && left._first == right._first
            && left._second == right._second;
    }
    friend bool operator!=(const ScoreModelRange &left, const ScoreModelRange &right) noexcept
    {
        return !(left == right);
    }

    /// "[ first second MultiTrack MultiVoice MultiSelection ]" with the words of the set bits;
    /// nothing follows them.
    QString toQString() const;

    /// The mode in one byte, then both ends; 33 bytes. See `ScoreModelIndex`. A mode above 7
    /// raises, and leaves the range as it was too.
    bool writeToStream(filesystem::FileHandle &file, int version) const;
    bool readFromStream(filesystem::FileHandle &file, int version);

private:
    void setBit(SelectionMode bit, bool on) noexcept;
    ScoreModelRange overBars(int firstBar, int lastBar) const;

    SelectionMode _mode = SelectionMode::None;
    ScoreModelIndex _first;
    ScoreModelIndex _second;
};

} // namespace zarn
