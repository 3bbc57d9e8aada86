// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/NoteHeads.h>

namespace zarn::lilypond {

std::string headStyle(NoteHead head)
{
    switch (head) {
    case NoteHead::Slash:
    case NoteHead::Slashed:
    case NoteHead::BackSlashed:
        return "slash";
    case NoteHead::Triangle:
    case NoteHead::ArrowUp:
    case NoteHead::ArrowDown:
    case NoteHead::InvertedTriangle:
        return "triangle";
    case NoteHead::Diamond:
        return "diamond";
    case NoteHead::Square:
        return "la";
    case NoteHead::Cross:
        return "cross";
    case NoteHead::CircleX:
        return "xcircle";
    case NoteHead::Do:
        return "do";
    case NoteHead::Re:
        return "re";
    case NoteHead::Mi:
        return "mi";
    case NoteHead::Fa:
        return "fa";
    case NoteHead::So:
        return "sol";
    case NoteHead::La:
        return "la";
    case NoteHead::Ti:
        return "ti";
    default:
        return {};
    }
}

} // namespace zarn::lilypond
