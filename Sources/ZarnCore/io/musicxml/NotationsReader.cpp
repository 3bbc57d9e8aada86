// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/NotationsReader.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/NoteReader.h>
#include <ZarnCore/io/musicxml/signs/Articulations.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

namespace zarn::io {

namespace {

constexpr int mostOfTerm = 255;

} // namespace

void NotationsReader::startPart(PartTally &tally, SourceTally &whole)
{
    _tally = &tally;
    _whole = &whole;
}

void NotationsReader::startNote()
{
    _tupletMarks.clear();
    _dynamics.clear();
    _signs.clear();
    _ornaments.startNote();
    _technical.startNote();
}

void NotationsReader::readTie(pugi::xml_node tie, WrittenNote &note)
{
    const std::string_view type = tie.attribute("type").value();
    const bool both = type == "continue";
    if (type == "let-ring") {
        note.marks.setLetRing(true);
        note.mayExclude = true;
    } else if (type != "start" && type != "stop" && !both) {
        _context.addUnheld(tie);
    }
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
            readArticulations(child, note);
            break;
        case Tag::Ornaments:
            readOrnaments(child, note);
            break;
        case Tag::Arpeggiate:
        case Tag::NonArpeggiate:
            readArpeggio(child, tag, note);
            break;
        case Tag::Slur:
        case Tag::Slide:
        case Tag::Glissando:
        case Tag::Fermata:
            addSign(child, tag);
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
}

void NotationsReader::readArticulations(pugi::xml_node articulations, WrittenNote &note)
{
    for (auto child = articulations.first_child(); child; child = child.next_sibling()) {
        const auto tag = tagOf(child.name());
        if (!readArticulation(tag, note))
            _context.addUnheld(child, tag);
    }
}

void NotationsReader::readOrnaments(pugi::xml_node ornaments, WrittenNote &note)
{
    for (auto child = ornaments.first_child(); child; child = child.next_sibling()) {
        const auto tag = tagOf(child.name());
        const std::string_view type = child.attribute("type").value();
        if (tag == Tag::WavyLine || (tag == Tag::Tremolo && (type == "start" || type == "stop")))
            addSign(child, tag);
        else if (!_ornaments.read(tag, child, note))
            _context.addUnheld(child, tag);
    }
}

/// Without a direction an arpeggio goes upwards.
void NotationsReader::readArpeggio(pugi::xml_node arpeggio, Tag tag, WrittenNote &note)
{
    if (tag == Tag::NonArpeggiate) {
        note.beatMarks.setNonArpeggio(true);
    } else {
        const bool isDown = std::strcmp(arpeggio.attribute("direction").value(), "down") == 0;
        note.beatMarks.setArpeggioDirection(isDown ? Direction::Down : Direction::Up);
    }
    note.mayExclude = true;
}

void NotationsReader::readTechnical(pugi::xml_node technical, WrittenNote &note)
{
    bool isBent = false;
    for (auto child = technical.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::String:
            note.string = _context.integer(child, WrittenNote::Unset);
            break;
        case Tag::Fret:
            note.fret = _context.integer(child, WrittenNote::Unset);
            ++_tally->notes.withFret;
            break;
        case Tag::HammerOn:
        case Tag::PullOff:
        case Tag::Fingering:
            addSign(child, tag);
            break;
        case Tag::Bend:
            if (!isBent)
                addSign(technical, Tag::Technical);
            isBent = true;
            break;
        default:
            if (!_technical.read(tag, child, note))
                _context.addUnheld(child, tag);
        }
    }
}

/// The value that a term of a tuplet counts in, in quarters; nothing when it is not written.
std::optional<utils::rational> NotationsReader::unitOf(pugi::xml_node term)
{
    const int type = noteTypeOf(term.child_value("tuplet-type"));
    if (type == WrittenRhythm::NoType)
        return std::nullopt;
    utils::rational unit(std::int64_t(1) << WrittenRhythm::Quarter, std::int64_t(1) << type);
    const auto dots = term.children("tuplet-dot");
    const auto count = std::min<std::ptrdiff_t>(std::distance(dots.begin(), dots.end()), 4);
    return unit * utils::rational((2 << count) - 1, 1 << count);
}

void NotationsReader::readTuplet(pugi::xml_node tuplet)
{
    const bool starts = std::strcmp(tuplet.attribute("type").value(), "start") == 0;
    TupletMark mark = {starts, tuplet.attribute("number").as_int(1), {}};
    const auto readTerm = [&](Tag tag, int &term) {
        const auto node = tuplet.child(tagName(tag));
        if (const auto number = node.child("tuplet-number"))
            term = std::clamp(_context.integer(number, 1), 1, mostOfTerm);
        return node ? unitOf(node) : std::nullopt;
    };
    const auto unit = readTerm(Tag::TupletActual, mark.ratio.actual);
    const auto normalUnit = readTerm(Tag::TupletNormal, mark.ratio.normal);
    // Three eighths in the time of one quarter are three in the time of two.
    if (unit && normalUnit && *unit != *normalUnit) {
        const auto normal = utils::rational(mark.ratio.normal) * *normalUnit / *unit;
        const auto actual = mark.ratio.actual * normal.denominator();
        if (actual <= mostOfTerm && normal.numerator() <= mostOfTerm)
            mark.ratio = {static_cast<int>(actual), static_cast<int>(normal.numerator())};
    }
    _whole->tuplets += starts;
    _tupletMarks.push_back(mark);
}

} // namespace zarn::io
