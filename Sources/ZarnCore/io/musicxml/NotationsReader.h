// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>
#include <ZarnCore/io/musicxml/signs/Ornaments.h>
#include <ZarnCore/io/musicxml/signs/Technical.h>

#include <optional>
#include <vector>

namespace zarn::io {

class ImportContext;

/// The sign that begins or ends a tuplet at a note.
struct TupletMark {
    bool starts;
    int number;
    TupletRatio ratio; ///< plain when it is not written
};

/// Reads what stands in the <notations> of a note: ties, tuplets, strings and frets, and the signs
/// that are marks of the note or its beat. Those that are more are handed on.
class NotationsReader {
public:
    explicit NotationsReader(ImportContext &context)
        : _context(context), _ornaments(context), _technical(context)
    {
    }

    /// Starts another part, whose counts go here.
    void startPart(PartTally &tally, SourceTally &whole);

    /// Forgets the signs of the note before.
    void startNote();

    void read(pugi::xml_node notations, WrittenNote &note);

    /// When all of the note has been read. `type` is that of `WrittenRhythm`, `fifths` the key.
    void finish(WrittenNote &note, int type, int fifths)
    {
        _ornaments.finish(note, type, fifths);
        _technical.finish(note);
        const bool isSoftened = note.ghost || note.marks.antiAccent() != AntiAccent::None;
        if (isSoftened && !note.marks.accents().isEmpty())
            note.mayExclude = true;
    }

    /// Reads a <tie> or <tied>.
    void readTie(pugi::xml_node tie, WrittenNote &note);

    const std::vector<TupletMark> &tupletMarks() const noexcept { return _tupletMarks; }

    /// Dynamics that stand at the note itself.
    const std::vector<pugi::xml_node> &dynamics() const noexcept { return _dynamics; }

    /// The signs of the note that its marks do not hold.
    const std::vector<WrittenSign> &signs() const noexcept { return _signs; }
    void addSign(pugi::xml_node node, Tag tag) { _signs.push_back({node, tag, 0}); }

private:
    void readArticulations(pugi::xml_node articulations, WrittenNote &note);
    void readOrnaments(pugi::xml_node ornaments, WrittenNote &note);
    void readArpeggio(pugi::xml_node arpeggio, Tag tag, WrittenNote &note);
    void readTechnical(pugi::xml_node technical, WrittenNote &note);
    static std::optional<utils::rational> unitOf(pugi::xml_node term);
    void readTuplet(pugi::xml_node tuplet);

    ImportContext &_context;
    PartTally *_tally = nullptr;
    SourceTally *_whole = nullptr;
    std::vector<TupletMark> _tupletMarks;
    std::vector<pugi::xml_node> _dynamics;
    std::vector<WrittenSign> _signs;
    OrnamentReader _ornaments;
    TechnicalReader _technical;
};

} // namespace zarn::io
