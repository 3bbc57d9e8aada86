// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/NotationsReader.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace zarn::io {

void NotationsReader::startPart(PartTally &tally, SourceTally &whole)
{
    _tally = &tally;
    _whole = &whole;
}

void NotationsReader::startNote()
{
    _tupletMarks.clear();
    _dynamics.clear();
}

void NotationsReader::readTie(pugi::xml_node tie, WrittenNote &note)
{
    const std::string_view type = tie.attribute("type").value();
    const bool both = type == "continue";
    if (type != "start" && type != "stop" && !both)
        _context.addUnheld(tie);
    note.tieStart = note.tieStart || both || type == "start";
    note.tieStop = note.tieStop || both || type == "stop";
    if (tagOf(tie.name()) == Tag::Tie) {
        _tally->notes.tieStart += type == "start";
        _tally->notes.tieStop += type == "stop";
    }
}

void NotationsReader::read(pugi::xml_node notations, WrittenNote &note)
{
    for (auto child = notations.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Tied:
            readTie(child, note);
            break;
        case Tag::Tuplet:
            readTuplet(child);
            break;
        case Tag::Technical:
            readTechnical(child, note);
            break;
        case Tag::Dynamics:
            _dynamics.push_back(child);
            break;
        case Tag::Articulations:
        case Tag::Ornaments:
            _context.addUnheldChildren(child);
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
}

void NotationsReader::readTechnical(pugi::xml_node technical, WrittenNote &note)
{
    for (auto child = technical.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::String:
            note.string = _context.integer(child, WrittenNote::Unset);
            break;
        case Tag::Fret:
            note.fret = _context.integer(child, WrittenNote::Unset);
            ++_tally->notes.withFret;
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
}

void NotationsReader::readTuplet(pugi::xml_node tuplet)
{
    const bool starts = std::strcmp(tuplet.attribute("type").value(), "start") == 0;
    TupletMark mark = {starts, tuplet.attribute("number").as_int(1), {}};
    for (auto child = tuplet.first_child(); child; child = child.next_sibling()) {
        const auto tag = tagOf(child.name());
        if (tag != Tag::TupletActual && tag != Tag::TupletNormal)
            continue;
        auto &term = tag == Tag::TupletActual ? mark.ratio.actual : mark.ratio.normal;
        if (const auto number = child.child("tuplet-number"))
            term = std::clamp(_context.integer(number, 1), 1, 255);
    }
    _whole->tuplets += starts;
    _tupletMarks.push_back(mark);
}

} // namespace zarn::io
