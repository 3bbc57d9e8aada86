// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/ZarnInstrumentSet.h>
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

    /// Instrument category of the track; 0 when there is no track.
    InstrumentSet::Type type() const;

    bool isTrackValid() const;
    bool isBarValid() const;
    bool isBeatValid() const;
    bool isNoteValid() const;

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
