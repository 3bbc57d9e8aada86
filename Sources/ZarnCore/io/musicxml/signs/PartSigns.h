// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/WrittenMusic.h>
#include <ZarnCore/io/musicxml/signs/BeatLinks.h>
#include <ZarnCore/io/musicxml/signs/Fingers.h>
#include <ZarnCore/io/musicxml/signs/Hairpins.h>
#include <ZarnCore/io/musicxml/signs/Lyrics.h>
#include <ZarnCore/io/musicxml/signs/NoteLinks.h>
#include <ZarnCore/io/musicxml/signs/Pedals.h>
#include <ZarnCore/io/musicxml/signs/Slurs.h>
#include <ZarnCore/io/musicxml/signs/TextSpans.h>

namespace zarn::io {

class ImportContext;

/// Takes the signs of a part that depend on more than one note, or that few notes have, to the
/// class of each kind.
class PartSigns {
public:
    explicit PartSigns(ImportContext &context);

    void startPart()
    {
        _lyrics.startPart();
        _kinds = {};
    }

    /// A sign at a note that has found its beat.
    void add(const WrittenSign &sign, const NotePlace &place);

    /// Those of a measure that stand between the notes, when its beats are there.
    /// `notes` are the places of its notes.
    void addSpans(const WrittenMeasure &measure, const std::vector<NotePlace> &notes,
                  std::size_t staffCount);

    /// When all bars of the part are there.
    void finishPart(const StaffBars &staves);

    /// What the part has of signs that may lack an end.
    const JoiningSigns &kinds() const noexcept { return _kinds; }

private:
    ImportContext &_context;
    Lyrics _lyrics;
    Slurs _slurs;
    NoteLinks _noteLinks;
    BeatLinks _beatLinks;
    Fingers _fingers;
    Hairpins _hairpins;
    Pedals _pedals;
    TextSpans _textSpans;
    JoiningSigns _kinds;
};

} // namespace zarn::io
