// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>

#include <vector>

namespace zarn::io {

class ImportContext;

/// The sign that begins or ends a tuplet at a note.
struct TupletMark {
    bool starts;
    int number;
    TupletRatio ratio; ///< plain when it is not written
};

/// Reads what stands in the <notations> of a note: ties, tuplets, strings and frets.
class NotationsReader {
public:
    explicit NotationsReader(ImportContext &context) : _context(context) { }

    /// Starts another part, whose counts go here.
    void startPart(PartTally &tally, SourceTally &whole);

    /// Forgets the signs of the note before.
    void startNote();

    void read(pugi::xml_node notations, WrittenNote &note);

    /// Reads a <tie> or <tied>.
    void readTie(pugi::xml_node tie, WrittenNote &note);

    const std::vector<TupletMark> &tupletMarks() const noexcept { return _tupletMarks; }

    /// Dynamics that stand at the note itself.
    const std::vector<pugi::xml_node> &dynamics() const noexcept { return _dynamics; }

private:
    void readTechnical(pugi::xml_node technical, WrittenNote &note);
    void readTuplet(pugi::xml_node tuplet);

    ImportContext &_context;
    PartTally *_tally = nullptr;
    SourceTally *_whole = nullptr;
    std::vector<TupletMark> _tupletMarks;
    std::vector<pugi::xml_node> _dynamics;
};

} // namespace zarn::io
