// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnBeatDetails.h>
#include <ZarnCore/model/ZarnBeatMarks.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnNoteDetails.h>
#include <ZarnCore/model/ZarnNoteMarks.h>
#include <ZarnCore/model/form/ZarnInForce.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/utils/rational.h>
#include <ZarnLayout/draw/ZarnDrawPlace.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn::engraving {

// What a layout needs of a score, copied: once it is here, the score may change.

/// An accidental in front of a note.
struct AccidentalSign {
    Accidental sign = Accidental::None;
    AccidentalDisplay display = AccidentalDisplay::Auto;

    bool isShown() const noexcept { return sign != Accidental::None; }
    friend bool operator==(const AccidentalSign &a, const AccidentalSign &b) noexcept
    {
        return a.sign == b.sign && a.display == b.display;
    }
};

struct NoteSource {
    static constexpr int NoLine = -128;

    NoteMarks marks;
    std::int8_t midi = -1; ///< as written
    std::int8_t line = NoLine;
    std::int8_t string = -1;
    std::int8_t fret = -1;
    std::int8_t step = -1; ///< letter, 0 for C
    std::int8_t alteration = 0;
    std::int8_t octave = 0;
    AccidentalSign accidental;
    NoteHead head = NoteHead::Normal;
    HeadFill headFill = HeadFill::Auto;

    /// Code points of heads and sign that the instrument set asks for; 0 for none.
    std::array<char16_t, 3> setHeads = {0, 0, 0};
    char16_t technique = 0;

    std::shared_ptr<const NoteDetails> details; ///< null for none

    friend bool operator==(const NoteSource &a, const NoteSource &b);
};

struct BeatSource {
    utils::rational onset; ///< quarters from the start of the bar
    utils::rational length;
    BeatMarks marks;
    RhythmValue rhythm;
    std::uint16_t index = 0; ///< in its voice
    std::uint16_t firstNote = 0;
    std::uint16_t noteCount = 0;
    std::uint16_t graceRank = 0; ///< place in front of the main note, 1 the nearest; 0 for no grace
    bool isRest = false;
    bool isWholeBarRest = false;
    bool isPlaceHolder = false;
    bool isBeamedOn = false; ///< a beam leads to the next beat of the voice

    /// Number in the bar of the beam over two staves that the beat hangs on; 0 for none.
    std::uint8_t crossBeam = 0;
    bool isCrossStemUp = false; ///< the stem that leads to it

    /// Where the beat shows it: whole seconds from the start of playing, when it is first played;
    /// below 0 for a beat that never is.
    static constexpr std::int32_t neverPlayed = -1;
    std::int32_t playingTime = neverPlayed;

    std::shared_ptr<const BeatDetails> details; ///< null for none

    bool isGrace() const noexcept { return graceRank != 0; }

    /// Whether signs hang on it that are drawn even where it is not: words, dynamics, pedals ...
    bool carriesSigns() const noexcept;

    /// Notes on which no stem is drawn, nor a flag.
    bool isStemless() const noexcept
    {
        return noteCount > 0 && marks.stemOrientation() == ZarnStemOrientation::None;
    }

    /// Flags or beams; 0 for quarters and longer.
    int flagCount() const noexcept
    {
        const int value = static_cast<int>(rhythm.getNoteValue())
            - static_cast<int>(RhythmValue::NoteValue::Quarter);
        return value > 0 && !isStemless() ? value : 0;
    }
    bool hasStem() const noexcept
    {
        return rhythm.getNoteValue() >= RhythmValue::NoteValue::Half && !isStemless();
    }

    friend bool operator==(const BeatSource &a, const BeatSource &b);
};

struct VoiceSource {
    unsigned number = 0;
    std::vector<BeatSource> beats;

    friend bool operator==(const VoiceSource &a, const VoiceSource &b)
    {
        return a.number == b.number && a.beats == b.beats;
    }
};

/// One bar of one staff, and the context that reaches into it.
struct BarSource {
    ClefType clef = ClefType::G2;
    ClefType clefBefore = ClefType::None; ///< that held up to here; none at the start
    std::vector<ClefChange> clefChanges;
    Ottavia ottavia = Ottavia::None;
    Ottavia ottaviaBefore = Ottavia::None;
    SimileMark simile = SimileMark::None;
    int key = 0;       ///< as written, flats below 0
    int keyBefore = 0; ///< of the bar in front
    float layoutRatio = 1;
    std::vector<VoiceSource> voices;
    std::vector<NoteSource> notes;

    /// No sounding and no written beat.
    bool isEmpty() const noexcept;

    friend bool operator==(const BarSource &a, const BarSource &b);
};

/// Whether two bars are the same to the systems in front of them and behind them: what holds at
/// their lines, and the hairpins and octave signs that may go on over these.
bool lookAlikeFromOutside(const BarSource &a, const BarSource &b);

/// What all staves share of one bar. The bars of its tempos are not told.
struct ColumnSource {
    utils::rational length = 4;
    TimeSignature meter;
    MeterSign meterSign = MeterSign::Numbers;
    bool showsMeter = false;
    bool repeatStart = false;
    unsigned repeatCount = 0; ///< 0 for no end of a repeat
    bool doubleBar = false;
    bool freeTime = false;
    bool startsFreeTime = false;
    BarLine barLine = BarLine::Auto;
    std::uint32_t endings = 0; ///< none where their bracket is hidden
    std::string endingText;    ///< under the bracket where it begins
    bool movementStart = false;
    Section section;
    FermataMarks fermatas;
    std::vector<DirectionMark> directions; ///< segnos and codas
    std::vector<std::string> jumps;        ///< words at the end
    std::vector<TempoMark> tempos;
    std::optional<TripletFeel> newFeel;
    float layoutRatio = 1;

    bool isLast = false;

    friend bool operator==(const ColumnSource &a, const ColumnSource &b);
};

/// One bar of all staves that are laid out. Never changes, and says nothing of where in the score
/// it stands: who holds two equal pointers knows that nothing is different.
struct BarColumn {
    std::shared_ptr<const ColumnSource> shared;
    std::vector<std::shared_ptr<const BarSource>> staves;

    bool hasTimers = false; ///< beats show when they are played

    /// Voices that are longer than the bar. In these places the bar is 0.
    std::vector<layout::DrawPlace> longVoices;
};

} // namespace zarn::engraving
