// SPDX-License-Identifier: MIT
#pragma once

#include "show/Sheet.h"
#include "show/TupletSpans.h"

#include <ZarnCore/model/ZarnBar.h>

#include <array>
#include <optional>

namespace zarn {

class Beat;
class TimeSignature;
class Voice;

namespace tool {

struct Glyphs;
class Legend;

/// Writes the bars of one staff into the lanes that it adds to a sheet: rhythms, tuplets, chord
/// symbols, texts and dynamics here, the notes themselves in the classes for each kind of staff.
class StaffWriter {
public:
    virtual ~StaffWriter();
    StaffWriter(const StaffWriter &) = delete;
    StaffWriter &operator=(const StaffWriter &) = delete;

    /// Leaves the other voices out.
    void showOnlyVoice(unsigned voice) noexcept { _onlyVoice = voice; }

    /// Puts the chord symbols of this staff where those of another staff of its track stand.
    void shareChordSymbols(const StaffWriter &other) noexcept { _chordLane = other._chordLane; }

    /// Bars are written in their order.
    void writeBar(const Bar &bar, SheetBar &into);

    /// In front of the first beat, among the rhythms: on the strings it would look like frets.
    void writeTimeSignature(const TimeSignature &signature, SheetBar &into);

protected:
    /// Adds the staff and the lanes for chord symbols and texts.
    StaffWriter(Sheet &sheet, const QString &name, const Glyphs &glyphs, Legend &legend);

    const Glyphs &glyphs() const noexcept { return _glyphs; }
    Legend &legend() const noexcept { return _legend; }

    /// Adds a lane below those that are there and returns its number.
    int addLane(Lane::Kind kind, const QString &label = QString());
    Lane &lane(int index) const;

    enum class RhythmSide { Above, Below };

    /// Adds the rhythm and tuplet lanes of a voice, the tuplets on the outer side.
    void addRhythmLanes(unsigned voice, RhythmSide side);
    void addDynamicsLane();
    int rhythmLane(unsigned voice) const { return _voices.at(voice).rhythm; }

    /// One beat with notes.
    virtual void writeNotes(const Beat &beat, const ColumnKey &column, unsigned voice,
                            SheetBar &into) = 0;
    virtual void beginBar(const Bar &) { }
    virtual void endBar(SheetBar &) { }

private:
    struct VoiceLanes {
        int rhythm = -1;
        int tuplet = -1;
        int innerTuplet = -1;
    };

    void writeVoice(const Voice &voice, unsigned index, SheetBar &into);
    void writeBeat(const Beat &beat, const ColumnKey &column, unsigned voice, SheetBar &into);
    void writeWords(const Beat &beat, const ColumnKey &column, unsigned voice, SheetBar &into);
    void writeChordSymbol(const QString &symbol, const ColumnKey &column, SheetBar &into);
    QString rhythmOf(const Beat &beat) const;

    Sheet &_sheet;
    const Glyphs &_glyphs;
    Legend &_legend;
    int _staff;
    int _textLane;
    int _chordLane;
    int _dynamicsLane = -1;
    std::optional<unsigned> _onlyVoice;
    std::array<VoiceLanes, Bar::MaxVoices> _voices;
    std::array<QString, Bar::MaxVoices> _dynamics; ///< in force, by voice
};

} // namespace tool
} // namespace zarn
