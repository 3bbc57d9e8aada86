// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/PartSigns.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/signs/Bends.h>

#include <algorithm>

namespace zarn::io {

PartSigns::PartSigns(ImportContext &context)
    : _context(context), _lyrics(context), _slurs(context), _noteLinks(context),
      _beatLinks(context), _fingers(context), _hairpins(context), _pedals(context),
      _textSpans(context)
{
}

void PartSigns::add(const WrittenSign &sign, const NotePlace &place)
{
    switch (sign.tag) {
    case Tag::Slur:
        _kinds = {true, true};
        _slurs.add(sign.node, place);
        return;
    case Tag::Lyric:
        _kinds.spans = true;
        _lyrics.add(sign.node, place);
        return;
    case Tag::Fingering:
        _fingers.add(sign.node, place);
        return;
    case Tag::Technical:
        readBends(sign.node, place, _context);
        return;
    default:
        _kinds.links = true;
        if (!_noteLinks.add(sign.tag, sign.node, place)
            && !_beatLinks.add(sign.tag, sign.node, place))
            _context.addUnheld(sign.node, sign.tag);
    }
}

void PartSigns::addSpans(const WrittenMeasure &measure, const std::vector<NotePlace> &notes,
                         std::size_t staffCount)
{
    if (!measure.spans.empty())
        _kinds = {true, true};
    for (const auto &sign : measure.spans) {
        NotePlace place;
        place.bar = _context.bar();
        place.staff = std::min(sign.staff, static_cast<int>(staffCount) - 1);
        place.onset = sign.position;
        if (const auto *const ahead =
                noteAhead(measure, notes, sign.note, place.staff, sign.position)) {
            place.ahead = ahead->beat;
            place.onset = ahead->onset;
        }
        place.joint = jointAt(measure, notes, sign.note, place.staff, sign.position);
        if (sign.tag == Tag::Wedge)
            _hairpins.add(sign.node, place);
        else if (sign.tag == Tag::Pedal)
            _pedals.add(sign.node, place);
        else
            _textSpans.add(sign.tag, sign.node, place);
    }
}

void PartSigns::finishPart(const StaffBars &staves)
{
    _noteLinks.finishLegato(staves);
    _slurs.finishPart(staves);
    _noteLinks.finishSlides(staves); // A slide under a slur is another one.
    _beatLinks.finishPart(staves);
    _fingers.finishPart(staves);
    _hairpins.finishPart(staves);
    _pedals.finishPart(staves);
    _textSpans.finishPart(staves);
}

} // namespace zarn::io
