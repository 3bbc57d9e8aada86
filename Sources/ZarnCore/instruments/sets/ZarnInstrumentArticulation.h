// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetElement.h>
#include <ZarnCore/music/ZarnMusicGlyph.h>

#include <rapidjson/fwd.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zarn {

/// One way to play an element of an instrument set, and how it is written: the half-open hi-hat.
class ZARNCORE_EXPORT InstrumentArticulation {
public:
    /// Where the technique symbol stands: above or below the staff; outside, over or under the
    /// note on the side of its head; inside, on the note's stem. An unknown text reads as outside.
    enum class TechniquePlacement : std::uint8_t { Outside, Inside, Above, Below };

    /// The heads of a note: for quarters and shorter, for halves, for whole notes.
    static constexpr unsigned headCount = 3;
    using Noteheads = std::array<MusicGlyph, headCount>;

    InstrumentArticulation() = default;

    const std::string &name() const noexcept { return _name; }
    void setName(const std::string &name) { _name = name; }

    /// A copy of the element that it plays.
    const InstrumentSetElement &element() const noexcept { return _element; }
    void setElement(const InstrumentSetElement &element) { _element = element; }

    /// MIDI keys that enter it.
    const std::vector<std::int32_t> &inputMidiNumbers() const noexcept { return _inputMidiNumbers; }
    void setInputMidiNumbers(const std::vector<std::int32_t> &numbers)
    {
        _inputMidiNumbers = numbers;
    }

    /// MIDI key that plays it.
    std::int32_t outputMidiNumber() const noexcept { return _outputMidiNumber; }
    void setOutputMidiNumber(std::int32_t number) noexcept { _outputMidiNumber = number; }

    /// Way to the sound in the sampled engine, component by component; none when it has no sound.
    const std::vector<std::string> &outputOrkaSound() const noexcept { return _outputOrkaSound; }
    void setOutputOrkaSound(const std::vector<std::string> &path) { _outputOrkaSound = path; }

    /// Half spaces above the bottom line, as `Note::staffLine`: 0 is the bottom line, 1 the space
    /// above it, 8 the top line of five; lower places are negative.
    std::int32_t staffLine() const noexcept { return _staffLine; }
    void setStaffLine(std::int32_t line) noexcept { _staffLine = line; }

    const Noteheads &noteheads() const noexcept { return _noteheads; }
    void setNoteheads(const Noteheads &noteheads) noexcept { _noteheads = noteheads; }

    /// Head 0 is for quarters and shorter, 1 for halves, 2 for wholes and what is longer.
    MusicGlyph notehead(unsigned index) const noexcept;

    /// Sign beside the note, such as that of an open hi-hat; may be none.
    MusicGlyph techniqueSymbol() const noexcept { return _techniqueSymbol; }
    void setTechniqueSymbol(MusicGlyph symbol) noexcept { _techniqueSymbol = symbol; }

    TechniquePlacement techniquePlacement() const noexcept { return _techniquePlacement; }
    void setTechniquePlacement(TechniquePlacement placement) noexcept
    {
        _techniquePlacement = placement;
    }

    /// "above", "below", "outside" or "inside"; "outside" for any other value.
    static std::string stringFromTechniquePlacement(TechniquePlacement placement);
    /// `Outside` for a text that is none of the four.
    static TechniquePlacement techniquePlacementFromString(const std::string &text);

    /// Reads all but the element from an articulation of a document (Documents/catalogues.md).
    /// Fewer than three note heads: the last is repeated; none: normal heads; a fourth is ignored.
    /// The name of an unknown glyph counts as the normal head or as no symbol, and is logged.
    /// Raises a `CoreException` that names the place, and changes nothing, when a member is
    /// missing or of another type.
    void parse(const rapidjson::Value &value);

    /// All fields; by element, then by name.
    friend ZARNCORE_EXPORT bool operator==(const InstrumentArticulation &a,
                                           const InstrumentArticulation &b) noexcept;
    friend ZARNCORE_EXPORT bool operator<(const InstrumentArticulation &a,
                                          const InstrumentArticulation &b) noexcept;
    friend bool operator!=(const InstrumentArticulation &a,
                           const InstrumentArticulation &b) noexcept
    {
        return !(a == b);
    }

private:
    auto fields() const noexcept;

    std::string _name;
    InstrumentSetElement _element;
    std::vector<std::int32_t> _inputMidiNumbers;
    std::int32_t _outputMidiNumber = 0;
    std::vector<std::string> _outputOrkaSound;
    std::int32_t _staffLine = 0;
    Noteheads _noteheads = {normalNotehead, normalNotehead, normalNotehead};
    MusicGlyph _techniqueSymbol;
    TechniquePlacement _techniquePlacement = TechniquePlacement::Outside;
};

} // namespace zarn
