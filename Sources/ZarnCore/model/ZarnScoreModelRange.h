// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnScoreModelIndex.h>

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

    /// Beat of the first and of the second end; in multi-voice mode the first beat of the first
    /// bar and the last beat of the second bar, of the lowest voice that has one. Empty when
    /// there is none.
    std::shared_ptr<Beat> lowerBeat() const;
    std::shared_ptr<Beat> upperBeat() const;

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

    /// "[ first second MultiTrack MultiVoice MultiSelection ]" with the words of the set bits.
    QString toQString() const;

    /// The mode in one byte, then both ends; 33 bytes. See `ScoreModelIndex`. A
    /// mode that is none raises.
    bool writeToStream(filesystem::FileHandle &file, int version) const;
    bool readFromStream(filesystem::FileHandle &file, int version);

private:
    void setBit(SelectionMode bit, bool on) noexcept;

    SelectionMode _mode = SelectionMode::None;
    ScoreModelIndex _first;
    ScoreModelIndex _second;
};

} // namespace zarn
