// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>

namespace zarn {
class Beat;
class Note;
} // namespace zarn

namespace zarn::io {

class ExportContext;
class ImportContext;

/// Writes the <technical> of a note into its <notations>, but for its place on the strings and what
/// leads to other notes; with what the beat says when the note is its first. `note` is null for a
/// rest; on keys fingers count from the thumb.
void writeTechnical(const Beat &beat, const Note *note, bool isPitched, bool isFirst, bool areKeys,
                    pugi::xml_node notations, ExportContext &context);

/// Reads elements of <technical> that are about one note alone: strokes, taps, harmonics, fingers
/// of the plucking hand.
class TechnicalReader {
public:
    explicit TechnicalReader(ImportContext &context) : _context(context) { }

    void startNote() noexcept
    {
        _hasHarmonic = false;
        _harmonicType = HarmonicType::Artificial;
    }

    /// Whether the element was understood. What depends on the rest of the note waits for `finish`.
    bool read(Tag tag, pugi::xml_node technical, WrittenNote &note);

    void finish(WrittenNote &note)
    {
        if (_hasHarmonic)
            setHarmonic(note);
    }

private:
    bool readPluck(pugi::xml_node pluck, WrittenNote &note);
    bool readOther(pugi::xml_node other, WrittenNote &note);
    void setHarmonic(WrittenNote &note);

    ImportContext &_context;
    pugi::xml_node _harmonic;
    HarmonicType _harmonicType = HarmonicType::Artificial; ///< of those on stopped strings
    bool _hasHarmonic = false;
};

} // namespace zarn::io
