// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/BeatPlace.h>
#include <ZarnCore/io/sheet/OverStaff.h>
#include <ZarnCore/io/sheet/TupletSpans.h>
#include <ZarnCore/io/sheet/UnderStaff.h>
#include <ZarnCore/model/ZarnBar.h>

#include <array>
#include <optional>

namespace zarn {

class MasterBar;
class TimeSignature;
class Voice;

namespace sheet {

struct Glyphs;
class Legend;

/// Writes the bars of one staff into the lanes that it adds to a sheet: rhythms, tuplets, chord
/// symbols and signs here, what stands over and under the staff by `OverStaff` and `UnderStaff`,
/// the notes themselves in the classes for each kind of staff.
class StaffWriter {
public:
    virtual ~StaffWriter();
    StaffWriter(const StaffWriter &) = delete;
    StaffWriter &operator=(const StaffWriter &) = delete;

    /// Leaves the other voices out.
    void showOnlyVoice(unsigned voice);

    /// Leaves the letters for the rhythm out, and the brackets of tuplets. Grace notes are told by
    /// a sign instead, meters among the headings.
    void hideRhythm();

    /// Leaves the other lines of lyrics out; bit 0 is the first.
    void showOnlyLyrics(unsigned lines);

    /// Puts the chord symbols of this staff where those of another staff of its track stand, and
    /// matches slurs between the two.
    void joinTrackOf(const StaffWriter &other);

    /// Bars are written in their order.
    void writeBar(const Bar &bar, const MasterBar &column, SheetBar &into);

    /// When all bars are in the sheet.
    void finish() { _over->finish(); }

    /// In front of the first beat, among the rhythms: on the strings it would look like frets.
    void writeTimeSignature(const TimeSignature &signature, SheetBar &into);

protected:
    /// Adds the staff and the lanes for chord symbols and texts.
    StaffWriter(Sheet &sheet, const QString &name, const Glyphs &glyphs, Legend &legend);

    const Glyphs &glyphs() const noexcept { return _glyphs; }
    Legend &legend() const noexcept { return _legend; }

    /// Adds a lane below those that are there and returns its number. Only strings have labels
    /// where tablature stands as it is posted.
    int addLane(Lane::Kind kind, const QString &label = QString());
    int addStack(Lane::Stacking stacking);
    Lane &lane(int index) const;

    enum class RhythmSide { Above, Below };

    /// Adds the lanes of a voice: signs next to the notes, then its rhythm, then its tuplets.
    void addRhythmLanes(unsigned voice, RhythmSide side);
    void addLanesBelow();
    int rhythmLane(unsigned voice) const { return _voices.at(voice).rhythm; }

    /// One beat with notes.
    virtual void writeNotes(const BeatPlace &place, SheetBar &into) = 0;

    /// One beat on which all strings are slapped dead.
    virtual void writeDeadSlap(const BeatPlace &, SheetBar &) { }

    /// The text of a note with what stands around it.
    QString signedText(const QString &text, const Note &note, const BeatPlace &place) const;
    virtual void beginBar(const Bar &) { }
    virtual void endBar(SheetBar &) { }

private:
    struct VoiceLanes {
        int signs = -1;
        int rhythm = -1;
        int tuplet = -1;
        int innerTuplet = -1;
    };

    void writeVoice(const Voice &voice, unsigned index, SheetBar &into);
    void writeBeat(const BeatPlace &place, SheetBar &into);
    void writeChordSymbol(const QString &symbol, const ColumnKey &column, SheetBar &into);
    void writeRhythm(const BeatPlace &place, SheetBar &into);
    QString rhythmOf(const Beat &beat) const;

    Sheet &_sheet;
    const Glyphs &_glyphs;
    Legend &_legend;
    int _staff;
    int _chordLane = -1;
    std::optional<OverStaff> _over;
    std::optional<UnderStaff> _under;
    std::optional<unsigned> _onlyVoice;
    bool _hasRhythm = true;
    std::array<VoiceLanes, Bar::MaxVoices> _voices;
};

} // namespace sheet
} // namespace zarn
