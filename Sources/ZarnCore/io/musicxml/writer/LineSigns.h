// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/writer/Numbering.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <pugixml.hpp>

#include <map>
#include <vector>

namespace zarn::io {

class ExportContext;

/// The numbers that the voices of a part share for each kind of sign.
struct PartNumbers {
    Numbering slurs;
    Numbering wedges;
    Numbering dashes;
    Numbering slides;
    Numbering legato; ///< hammer-ons and pull-offs
    Numbering waves;

    /// Slurs that lead to other voices: what the score numbers them, and what the document does.
    std::map<unsigned, int> slurEnds;

    /// A hairpin that goes on in another voice from the next bar on.
    struct OpenWedge {
        const Beat *beat; ///< the first that carries it there
        int number;
        unsigned slot; ///< that it began in
        MarkSide side;
    };
    std::map<int, OpenWedge> openWedges; ///< by the line of the voice
};

/// The place of a beat in its staff.
struct BeatPlace {
    const Staff *staff = nullptr;
    unsigned bar = 0;
    unsigned slot = 0;
    unsigned index = 0;

    const Voice *voice() const;
    const Beat *beat() const;

    /// The one behind it in the same slot; null where the slot ends.
    const Beat *next() const;
};

/// What leads from beat to beat in one voice slot of a staff, through all bars: slurs, slides,
/// hammer-ons, hairpins, dashes, wavy lines. Each gets a number where it begins, which is free
/// again where it ends.
class LineSigns {
public:
    LineSigns(PartNumbers &numbers, int line, bool isTablature, ExportContext &context)
        : _numbers(numbers), _line(line), _isTablature(isTablature), _context(context)
    {
    }

    /// Goes on to a beat.
    void start(const BeatPlace &place);

    /// Whether anything is open that may end at the beat.
    bool isBusy() const noexcept
    {
        return _slur != 0 || _legatoSlur != 0 || _wave != 0 || _barWave != 0 || _tremolo != 0
            || !_links.empty();
    }

    /// Whether anything is open at all.
    bool isOpen() const noexcept
    {
        return isBusy() || _wedge != 0 || _dashes != 0 || _palmMute != 0;
    }

    /// Signs in the <notations> of a note; `note` is null for a rest.
    void writeNotations(const Note *note, bool isFirst, pugi::xml_node notations);

    /// Directions in front of the beat and behind it, into the measure.
    /// `half` is half the length of the beat, in divisions.
    void writeBefore(pugi::xml_node measure, int staffNumber, double half);
    void writeAfter(pugi::xml_node measure, int staffNumber);

private:
    /// A sign that has begun at a note and ends at another.
    struct OpenLink {
        int string; ///< of both notes; -1 for the first note of the next beat
        int number;
        bool isSlide;
        bool isHammer;
    };

    void writeSlurs(pugi::xml_node notations);
    void writeLegatoSlurs(pugi::xml_node notations);
    void writeSlurEnds(pugi::xml_node notations);
    void writeLinks(const Note &note, bool isFirst, pugi::xml_node notations);
    void beginLink(const Note &note, bool isSlide, pugi::xml_node notations);
    void writeWaves(const Note *note, pugi::xml_node notations);
    void writeTremolo(pugi::xml_node notations);
    void writeWave(int &open, bool begins, bool ends, const char *glyph, pugi::xml_node notations);
    bool isPalmMuted(const Beat &beat) const;
    bool goesOn(Hairpin hairpin) const;
    bool handWedgeOn();
    pugi::xml_node addDirection(pugi::xml_node measure, int staffNumber, MarkSide side);
    bool hasEndOfDashes() const;
    bool hasOtherVoices() const;
    void writeSwell(pugi::xml_node measure, int staffNumber, double half);
    int take(Numbering &numbering, const char *kind);

    PartNumbers &_numbers;
    int _line;
    bool _isTablature;
    ExportContext &_context;
    BeatPlace _place;
    const Beat *_beat = nullptr;
    const Beat *_next = nullptr;
    int _slur = 0;
    int _legatoSlur = 0;
    int _wedge = 0;
    unsigned _wedgeSlot = 0; ///< that it began in
    MarkSide _wedgeSide = MarkSide::Auto;
    int _dashes = 0;
    MarkSide _dashesSide = MarkSide::Above;
    int _palmMute = 0;
    int _wave = 0;
    int _barWave = 0;
    int _tremolo = 0;
    std::vector<OpenLink> _links;
};

} // namespace zarn::io
