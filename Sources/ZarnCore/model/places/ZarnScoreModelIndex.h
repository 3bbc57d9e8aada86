// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/utils/rational.h>

#include <QString>

#include <cstdint>
#include <memory>

namespace filesystem {
class FileHandle;
}

namespace zarn {

class Bar;
class Beat;
class MasterBar;
class MasterTrack;
class Note;
class ScoreModel;
class Staff;
class Track;
class Voice;

/// A place in a score, by numbers: track, staff, bar, voice, beat and, by what identifies it
/// within its beat, a note.
///
/// The numbers are resolved against the model each time: an index holds no nodes and does not own
/// the model, which must live while the index is asked. A place that does not exist answers empty
/// pointers and zero lengths, whatever the numbers are. Unset is -1 for bar, beat and track, and
/// the largest value for what identifies a note (0 too for its element).
class ZARNCORE_EXPORT ScoreModelIndex {
public:
    static constexpr std::uint32_t Unset = 0xFFFFFFFF;

    ScoreModelIndex() noexcept = default;
    ScoreModelIndex(ScoreModel *model, int track, int bar, int beat, unsigned voice,
                    unsigned staff) noexcept;

    ScoreModel *model() const noexcept { return _model; }
    int trackIndex() const noexcept { return _trackIndex; }
    unsigned staffIndex() const noexcept { return _staffIndex; }
    int barIndex() const noexcept { return _barIndex; }
    unsigned voiceIndex() const noexcept { return _voiceIndex; }
    int beatIndex() const noexcept { return _beatIndex; }
    std::uint32_t noteString() const noexcept { return _noteString; }
    std::uint32_t noteMidi() const noexcept { return _noteMidi; }
    std::uint32_t noteInstrumentArticulation() const noexcept { return _noteElement; }

    // Resolving.

    std::shared_ptr<Track> track() const;
    std::shared_ptr<Staff> staff() const;
    std::shared_ptr<MasterTrack> masterTrack() const;

    /// By the bar number alone, whatever the track.
    std::shared_ptr<MasterBar> masterBar() const;
    std::shared_ptr<Bar> bar() const;
    std::shared_ptr<Voice> voice() const;
    std::shared_ptr<Beat> beat() const;

    /// The first note of the beat that agrees with every locator that is set: MIDI key, string
    /// and element. A string that is 0 counts only when the beat has notes with strings.
    std::shared_ptr<Note> note() const;

    // The same nodes without a share of them, which costs more than the way there: null for what
    // does not exist, and valid until the tree is changed.

    Track *findTrack() const noexcept;
    Staff *findStaff() const noexcept;
    MasterBar *findMasterBar() const noexcept;
    Bar *findBar() const noexcept;
    Voice *findVoice() const noexcept;
    Beat *findBeat() const noexcept;
    Note *findNote() const noexcept;

    /// Instrument category of the track; 0 when there is no track.
    InstrumentSet::Type type() const;

    bool isTrackValid() const { return findTrack() != nullptr; }
    bool isBarValid() const { return findBar() != nullptr; }
    bool isBeatValid() const { return findBeat() != nullptr; }
    bool isNoteValid() const { return findNote() != nullptr; }

    // Changing. The setters store what they are given and leave the other numbers alone; those
    // that answer do so with whether the new place resolves.

    void setModel(ScoreModel *model) noexcept { _model = model; }

    /// With `keepStaff` false the staff number becomes 0.
    bool setTrackIndex(int track, bool keepStaff = true);
    bool setStaffIndex(unsigned staff);
    bool setBarIndex(int bar);

    /// Raises for a voice above `Bar::MaxVoices`.
    bool setVoiceIndex(unsigned voice);
    bool setBeatIndex(int beat);

    /// Goes to the beat of the voice that sounds at an offset, in quarters from the start of the
    /// bar; where there is none the index stays as it is and the answer is false.
    bool setBeatOffset(const utils::rational &offset);
    bool setNoteString(std::uint32_t string);
    bool setNoteMidi(std::uint32_t midi);
    bool setNotePercussionActiculation(std::uint32_t element);

    /// Unset a level and what lies below it.
    void invalidateTrack() noexcept;
    void invalidateBar() noexcept;
    void invalidateBeat() noexcept;
    void invalidateNote() noexcept;

    // Times in quarters, offsets from the start of the bar; 0 when there is no such beat.

    utils::rational beatDrawingOffset() const;
    utils::rational beatDrawingLength() const;
    utils::rational beatSoundingOffset() const;
    utils::rational beatSoundingLength() const;

    /// The same place in another voice: the beat that stands at the drawing offset of this one's,
    /// its start included and its end not. Where none does, because the other voice is shorter,
    /// with `nearest` its last beat. The beat is -1 when there is none, here or there; what
    /// locates a note stays. Four quarters over two halves: the third quarter is the second half,
    /// and so is the fourth.
    ScoreModelIndex mapOnVoice(unsigned voice, bool nearest) const;

    // Neighbours: what comes behind or in front of a place in its line, the voices of the same
    // number in all bars of its staff. Every beat counts: rests, place holders and grace beats. A
    // place that is no beat lies between beats, -1 before the first of its bar, a number past the
    // last behind that one. Empty past the ends of the track, and for a place without a bar.
    //
    // With a count, the beat so many steps away, or a note in exactly that beat: what a tie or a
    // slide leads to. A bar whose voice has no beats breaks the line; 0 is the beat itself.
    // With "Valid", the nearest beat, or the nearest one with such a note, however far: bars whose
    // voice has no beats are skipped. With `here` the beat of the place comes first.
    //
    // From the last beat of | c d | (empty) | e f |: nextBeat(d, 1) is empty,
    // nextValidBeat(d, false) is e, nextValidBeat(d, true) is d, previousBeat(d, 1) is c.

    static std::shared_ptr<Beat> nextBeat(const ScoreModelIndex &index, unsigned count);
    static std::shared_ptr<Beat> previousBeat(const ScoreModelIndex &index, unsigned count);
    static std::shared_ptr<Beat> nextValidBeat(const ScoreModelIndex &index, bool here);
    static std::shared_ptr<Beat> previousValidBeat(const ScoreModelIndex &index, bool here);

    // The note that the index would name in that beat; from the e' of string 5 fret 0 (string 5
    // and MIDI key 76 set) the next e' on the same string, not one on string 4. When neither key
    // nor string is set the element decides; without an element, or on a track that has no
    // instrument set, that is logged and nothing is found.

    static std::shared_ptr<Note> nextNoteWithSameLocators(const ScoreModelIndex &index,
                                                          unsigned count);
    static std::shared_ptr<Note> previousNoteWithSameLocators(const ScoreModelIndex &index,
                                                              unsigned count);
    static std::shared_ptr<Note> nextValidNoteWithSameLocators(const ScoreModelIndex &index,
                                                               bool here);
    static std::shared_ptr<Note> previousValidNoteWithSameLocators(const ScoreModelIndex &index,
                                                                   bool here);

    // The first note of that beat that lies on a string (0 the lowest), has a MIDI key, or stands
    // on a line of the staff (half spaces above the bottom line). An unpitched note stands where
    // its own staff line says. In | c' e' g' | on strings 3, 4, 5, from the c':
    // nextFirstNoteWithString(c', 5, 1) is empty, nextFirstNoteWithString(c', 5, 2) and
    // nextFirstValidNoteWithString(c', 5, false) are the g'.

    static std::shared_ptr<Note> nextFirstNoteWithString(const ScoreModelIndex &index, int string,
                                                         unsigned count);
    static std::shared_ptr<Note> previousFirstNoteWithString(const ScoreModelIndex &index,
                                                             int string, unsigned count);
    static std::shared_ptr<Note> nextFirstValidNoteWithString(const ScoreModelIndex &index,
                                                              int string, bool here);
    static std::shared_ptr<Note> previousFirstValidNoteWithString(const ScoreModelIndex &index,
                                                                  int string, bool here);

    static std::shared_ptr<Note> nextFirstNoteWithMidi(const ScoreModelIndex &index, int midi,
                                                       unsigned count);
    static std::shared_ptr<Note> previousFirstNoteWithMidi(const ScoreModelIndex &index, int midi,
                                                           unsigned count);
    static std::shared_ptr<Note> nextFirstValidNoteWithMidi(const ScoreModelIndex &index, int midi,
                                                            bool here);
    static std::shared_ptr<Note> previousFirstValidNoteWithMidi(const ScoreModelIndex &index,
                                                                int midi, bool here);

    static std::shared_ptr<Note> nextFirstNoteWithStaffLine(const ScoreModelIndex &index, int line,
                                                            unsigned count);
    static std::shared_ptr<Note> previousFirstNoteWithStaffLine(const ScoreModelIndex &index,
                                                                int line, unsigned count);
    static std::shared_ptr<Note> nextFirstValidNoteWithStaffLine(const ScoreModelIndex &index,
                                                                 int line, bool here);
    static std::shared_ptr<Note> previousFirstValidNoteWithStaffLine(const ScoreModelIndex &index,
                                                                     int line, bool here);

    /// Same model, track, staff, bar, voice and beat; notes do not count.
    bool equalBeat(const ScoreModelIndex &other) const noexcept;

    /// Same beat, MIDI key and string; the element does not count.
    friend ZARNCORE_EXPORT bool operator==(const ScoreModelIndex &left,
                                           const ScoreModelIndex &right) noexcept;
    friend bool operator!=(const ScoreModelIndex &left, const ScoreModelIndex &right) noexcept
    {
        return !(left == right);
    }

    /// Order in time within one track: by bar, within a voice by beat, between voices by drawing
    /// offset. Raises for indexes of two tracks and for an unset bar, so it serves no sorting.
    friend ZARNCORE_EXPORT bool operator<(const ScoreModelIndex &left,
                                          const ScoreModelIndex &right);

    QString toQString() const;

    /// Eight 16-bit numbers, low bits only: track, staff, bar, voice, beat, MIDI, string,
    /// element. The version is not looked at. False when the file fails; a failed read leaves the
    /// index as it was. The model is neither written nor read.
    bool writeToStream(filesystem::FileHandle &file, int version) const;
    bool readFromStream(filesystem::FileHandle &file, int version);

private:
    std::int32_t _barIndex = -1;
    std::int32_t _beatIndex = -1;
    ScoreModel *_model = nullptr;
    std::uint32_t _noteElement = 0;
    std::uint32_t _noteMidi = Unset;
    std::uint32_t _noteString = 0;
    std::uint32_t _staffIndex = 0;
    std::int32_t _trackIndex = -1;
    std::uint32_t _voiceIndex = 0;
};

} // namespace zarn
