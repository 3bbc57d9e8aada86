// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/LineSigns.h>

#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/io/musicxml/signs/BeatLinks.h>
#include <ZarnCore/io/musicxml/signs/Hairpins.h>
#include <ZarnCore/io/musicxml/signs/NoteLinks.h>
#include <ZarnCore/io/musicxml/signs/Placement.h>
#include <ZarnCore/io/musicxml/signs/Slurs.h>
#include <ZarnCore/io/musicxml/signs/TextSpans.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/model/notes/StringLinks.h>

#include <algorithm>

namespace zarn::io {

namespace {

pugi::xml_node addSpan(pugi::xml_node parent, const char *name, bool begins, int number)
{
    auto node = addElement(parent, name);
    addAttribute(node, "type", begins ? "start" : "stop");
    addAttribute(node, "number", number);
    return node;
}

void addSlur(pugi::xml_node notations, bool begins, int number, SlurLine line = SlurLine::Solid,
             SlurSide side = SlurSide::Auto)
{
    const auto node = addSpan(notations, tagName(Tag::Slur), begins, number);
    if (const char *const type = lineTypeOf(line))
        addAttribute(node, "line-type", type);
    if (const char *const placement = placementOf(side))
        addAttribute(node, "placement", placement);
}

/// What a slur looks like is said where it begins.
void addSlur(pugi::xml_node notations, const SlurEnd &end, int number)
{
    if (end.isBegin)
        addSlur(notations, true, number, end.line, end.side);
    else
        addSlur(notations, false, number);
}

/// The vibrato that all notes of a beat have in common.
Vibrato vibratoOf(const Beat &beat)
{
    if (!beat.hasNotes() || beat.notes().front()->trill().interval != 0)
        return Vibrato::None;
    const auto vibrato = beat.notes().front()->vibrato();
    const bool isCommon =
        std::all_of(beat.notes().begin(), beat.notes().end(),
                    [vibrato](const auto &note) { return note->vibrato() == vibrato; });
    return isCommon ? vibrato : Vibrato::None;
}

} // namespace

const Voice *BeatPlace::voice() const
{
    return staff->bars()[bar]->voices()[slot].get();
}

const Beat *BeatPlace::beat() const
{
    return voice()->beats()[index].get();
}

const Beat *BeatPlace::next() const
{
    if (index + 1 < voice()->beatCount())
        return voice()->beats()[index + 1].get();
    if (bar + 1 >= staff->barCount())
        return nullptr;
    const auto &after = staff->bars()[bar + 1]->voices()[slot];
    return after && !after->isEmpty() ? after->beats().front().get() : nullptr;
}

void LineSigns::start(const BeatPlace &place)
{
    _place = place;
    _beat = place.beat();
    _next = place.next();
}

int LineSigns::take(Numbering &numbering, const char *kind)
{
    const int number = numbering.take(_line, static_cast<int>(_place.bar));
    if (number == 0)
        _context.addProblem(std::string("more ") + kind
                            + " are open at once than MusicXML can number; one was left out");
    return number;
}

void LineSigns::writeNotations(const Note *note, bool isFirst, pugi::xml_node notations)
{
    if (isFirst) {
        writeSlurs(notations);
        writeLegatoSlurs(notations);
        if (!_isTablature) {
            if (!_beat->slurEnds().empty())
                writeSlurEnds(notations);
            writeTremolo(notations);
        }
        writeWaves(note, notations);
    }
    if (note)
        writeLinks(*note, isFirst, notations);
}

void LineSigns::writeSlurs(pugi::xml_node notations)
{
    const int bar = static_cast<int>(_place.bar);
    const bool comes = _beat->isSlurredToPrevious() && _slur != 0;
    const bool goes = _beat->isSlurredToNext() && _next && _next->isSlurredToPrevious();
    if (comes && (!goes || _beat->beginsSlur())) {
        addSlur(notations, false, _slur);
        _numbers.slurs.free(_slur, _line, bar);
        _slur = 0;
    }
    if (goes && _slur == 0) {
        _slur = take(_numbers.slurs, "slurs");
        if (_slur != 0)
            addSlur(notations, true, _slur, _beat->slurLine(), _beat->slurSide());
    }
}

/// Hammer-ons and pull-offs in a row have a slur, which is all that some programs read of them.
void LineSigns::writeLegatoSlurs(pugi::xml_node notations)
{
    const bool goes = _next && leadsByLegato(*_beat, *_next);
    if (_legatoSlur != 0 && !goes) {
        addSlur(notations, false, _legatoSlur);
        _numbers.slurs.free(_legatoSlur, _line, static_cast<int>(_place.bar));
        _legatoSlur = 0;
    } else if (_legatoSlur == 0 && goes) {
        _legatoSlur = take(_numbers.slurs, "slurs");
        if (_legatoSlur != 0)
            addSlur(notations, true, _legatoSlur);
    }
}

/// Whichever end of a slur stands first in the document takes the number, the other frees it.
void LineSigns::writeSlurEnds(pugi::xml_node notations)
{
    const int bar = static_cast<int>(_place.bar);
    for (const auto &end : _beat->slurEnds()) {
        const auto open = _numbers.slurEnds.find(end.number);
        if (open == _numbers.slurEnds.end()) {
            const int number = take(_numbers.slurs, "slurs");
            if (number == 0)
                continue;
            _numbers.slurEnds.emplace(end.number, number);
            addSlur(notations, end, number);
        } else {
            addSlur(notations, end, open->second);
            _numbers.slurs.free(open->second, _line, bar);
            _numbers.slurEnds.erase(open);
        }
    }
}

void LineSigns::writeTremolo(pugi::xml_node notations)
{
    const auto write = [&](bool begins, int strokes) {
        auto tremolo = addElement(ensureElement(notations, tagName(Tag::Ornaments)),
                                  tagName(Tag::Tremolo), strokes);
        addAttribute(tremolo, "type", begins ? "start" : "stop");
    };
    if (_tremolo != 0)
        write(false, std::exchange(_tremolo, 0));
    if (_beat->tremoloToNext() == 0)
        return;
    if (_next && _next->rhythmValue() == _beat->rhythmValue() && _beat->hasNotes()
        && _next->hasNotes()) {
        _tremolo = static_cast<int>(_beat->tremoloToNext());
        write(true, _tremolo);
    } else {
        _context.addUnheld("tremolo that leads to no note of its value");
    }
}

void LineSigns::writeWave(int &open, bool begins, bool ends, const char *glyph,
                          pugi::xml_node notations)
{
    const auto write = [&](bool isStart) {
        auto wave = addSpan(ensureElement(notations, tagName(Tag::Ornaments)),
                            tagName(Tag::WavyLine), isStart, open);
        if (isStart)
            addAttribute(wave, "smufl", glyph);
    };
    if (begins) {
        open = take(_numbers.waves, "wavy lines");
        if (open != 0)
            write(true);
    }
    if (ends && open != 0) {
        write(false);
        _numbers.waves.free(open, _line, static_cast<int>(_place.bar));
        open = 0;
    }
}

void LineSigns::writeWaves(const Note *note, pugi::xml_node notations)
{
    if (!note)
        return;
    if (vibratoOf(*_beat) == Vibrato::None && !_isTablature)
        for (const auto &other : _beat->notes())
            _context.addUnheldIf(other->vibrato() != Vibrato::None,
                                 "vibrato of one note of a chord, or of a trill");
    const auto wave = [&](auto valueOf, int &open, bool isOfBar) {
        const Vibrato now = valueOf(*_beat);
        if (now == Vibrato::None)
            return;
        const bool goesOn = _next && _next->hasNotes() && valueOf(*_next) == now;
        writeWave(open, open == 0, !goesOn, glyphOfWave(now, isOfBar), notations);
    };
    wave(vibratoOf, _wave, false);
    wave([](const Beat &beat) { return beat.barVibrato(); }, _barWave, true);
}

void LineSigns::beginLink(const Note &note, bool isSlide, pugi::xml_node notations)
{
    if (!canLeadToNext(*_place.voice(), _place.index, note,
                       isSlide ? StringLink::Slide : StringLink::Hopo))
        return _context.addUnheld(isSlide ? "slide that leads to no note"
                                          : "hammer-on that leads to no note");
    OpenLink link = {note.string(), 0, isSlide, true};
    link.number =
        take(isSlide ? _numbers.slides : _numbers.legato, isSlide ? "slides" : "hammer-ons");
    if (link.number == 0)
        return;
    if (isSlide) {
        addAttribute(addSpan(notations, tagName(Tag::Slide), true, link.number), "line-type",
                     "solid");
    } else {
        const auto *const aim = _next ? legatoAim(note, *_next) : nullptr;
        link.isHammer = !aim || aim->midi() > note.midi();
        addSpan(ensureElement(notations, tagName(Tag::Technical)),
                tagName(link.isHammer ? Tag::HammerOn : Tag::PullOff), true, link.number)
            .append_child(pugi::node_pcdata)
            .set_value(link.isHammer ? "H" : "P");
    }
    _links.push_back(link);
}

void LineSigns::writeLinks(const Note &note, bool isFirst, pugi::xml_node notations)
{
    const int bar = static_cast<int>(_place.bar);
    for (auto link = _links.begin(); link != _links.end();) {
        const bool isAim = link->string != Note::Unset ? link->string == note.string() : isFirst;
        if (!isAim) {
            ++link;
            continue;
        }
        if (link->isSlide)
            addAttribute(addSpan(notations, tagName(Tag::Slide), false, link->number), "line-type",
                         "solid");
        else
            addSpan(ensureElement(notations, tagName(Tag::Technical)),
                    tagName(link->isHammer ? Tag::HammerOn : Tag::PullOff), false, link->number);
        (link->isSlide ? _numbers.slides : _numbers.legato).free(link->number, _line, bar);
        link = _links.erase(link);
    }
    if (note.slideOut() == SlideOut::Shift || note.slideOut() == SlideOut::Legato) {
        if (note.slideOut() == SlideOut::Legato && !_beat->isSlurredToNext())
            _context.addUnheld("slide without a stroke that no slur shows");
        if (note.slideOut() == SlideOut::Shift && _beat->isSlurredToNext())
            _context.addUnheld("slide with a stroke under a slur");
        beginLink(note, true, notations);
    }
    if (note.isHopo())
        beginLink(note, false, notations);
}

pugi::xml_node LineSigns::addDirection(pugi::xml_node measure, int staffNumber, MarkSide side)
{
    auto direction = addElement(measure, "direction");
    if (const char *const placement = placementOf(side))
        addAttribute(direction, "placement", placement);
    auto type = addElement(direction, "direction-type");
    addElement(direction, "staff", staffNumber);
    return type;
}

bool LineSigns::goesOn(Hairpin hairpin) const
{
    return hairpin != Hairpin::Swell && _next && _next->hairpin() == hairpin
        && !_next->beginsHairpin();
}

/// Leaves a hairpin open at the end of a bar for the voice that goes on with it: where the one that
/// it began in has no beats, readers follow the first that has some.
bool LineSigns::handWedgeOn()
{
    const auto hairpin = _beat->hairpin();
    const auto &bars = _place.staff->bars();
    if (hairpin == Hairpin::Swell || _place.index + 1 < _place.voice()->beatCount()
        || _place.bar + 1 >= bars.size())
        return false;
    const auto hasBeats = [&](unsigned bar, unsigned slot) {
        const auto &voice = bars[bar]->voices()[slot];
        return voice && voice->beatCount() > 0;
    };
    unsigned slot = _wedgeSlot;
    for (unsigned other = 0; !hasBeats(_place.bar + 1, slot) && other < Bar::MaxVoices; ++other)
        slot = other;
    if (slot == _place.slot || !hasBeats(_place.bar + 1, slot))
        return false;
    const Beat *const ahead = bars[_place.bar + 1]->voices()[slot]->beats().front().get();
    const bool isAnother = hasBeats(_place.bar, slot)
        && bars[_place.bar]->voices()[slot]->beats().back()->hairpin() == hairpin;
    if (ahead->hairpin() != hairpin || ahead->beginsHairpin() || isAnother)
        return false;
    const int line = _line - static_cast<int>(_place.slot) + static_cast<int>(slot);
    return _numbers.openWedges
        .emplace(line, PartNumbers::OpenWedge{ahead, _wedge, _wedgeSlot, _wedgeSide})
        .second;
}

/// Whether the words over the strings say it of all notes of a beat.
bool LineSigns::isPalmMuted(const Beat &beat) const
{
    return beat.hasNotes()
        && std::all_of(beat.notes().begin(), beat.notes().end(),
                       [](const auto &note) { return note->isPalmMuted(); });
}

/// Whether the dashes that begin at the beat end before others begin.
bool LineSigns::hasEndOfDashes() const
{
    const auto &bars = _place.staff->bars();
    unsigned index = _place.index + 1;
    for (unsigned bar = _place.bar; bar < _place.staff->barCount(); ++bar, index = 0) {
        const auto &voice = bars[bar]->voices()[_place.slot];
        for (; voice && index < voice->beatCount(); ++index)
            if (const auto span = voice->beats()[index]->textSpan(); span != TextSpan::None)
                return span == TextSpan::End;
    }
    return false;
}

/// Whether another voice has beats in the bar.
bool LineSigns::hasOtherVoices() const
{
    const auto &voices = _place.staff->bars()[_place.bar]->voices();
    return std::count_if(voices.begin(), voices.end(),
                         [](const auto &voice) { return voice && voice->beatCount() != 0; })
        > 1;
}

/// The crescendo ends, and a decrescendo begins, in the middle of the beat.
void LineSigns::writeSwell(pugi::xml_node measure, int staffNumber, double half)
{
    for (const char *const type : {"stop", wedgeTypeOf(Hairpin::Decrescendo)}) {
        auto directionType = addDirection(measure, staffNumber, _wedgeSide);
        auto wedge = addElement(directionType, tagName(Tag::Wedge));
        addAttribute(wedge, "type", type);
        addAttribute(wedge, "number", _wedge);
        auto offset = directionType.parent().insert_child_after("offset", directionType);
        offset.append_child(pugi::node_pcdata).set_value(decimalText(half).c_str());
    }
}

void LineSigns::writeBefore(pugi::xml_node measure, int staffNumber, double half)
{
    const auto hairpin = _beat->hairpin();
    const auto open = _numbers.openWedges.find(_line);
    if (open != _numbers.openWedges.end() && open->second.beat == _beat) {
        _wedge = open->second.number;
        _wedgeSlot = open->second.slot;
        _wedgeSide = open->second.side;
        _numbers.openWedges.erase(open);
    }
    if (_wedge == 0 && hairpin != Hairpin::NoHairpin) {
        _wedge = take(_numbers.wedges, "hairpins");
        _wedgeSlot = _place.slot;
        _wedgeSide = _beat->hairpinSide();
        if (_wedge != 0) {
            auto wedge =
                addElement(addDirection(measure, staffNumber, _wedgeSide), tagName(Tag::Wedge));
            addAttribute(wedge, "type",
                         wedgeTypeOf(hairpin == Hairpin::Swell ? Hairpin::Crescendo : hairpin));
            addAttribute(wedge, "number", _wedge);
            if (hairpin == Hairpin::Swell) {
                // A wedge names no voice: half a beat of one is any other's beat too.
                _context.addUnheldIf(hasOtherVoices(), "swell of one voice among others");
                writeSwell(measure, staffNumber, half);
            }
        }
    }
    const bool beginsDashes = begins(_beat->textSpan()) && _dashes == 0 && hasEndOfDashes();
    _context.addUnheldIf(begins(_beat->textSpan()) && !beginsDashes, "dashes without an end");
    if (beginsDashes) {
        _dashes = take(_numbers.dashes, "dashes");
        _dashesSide = _beat->textSpan() == TextSpan::Begin ? MarkSide::Above : MarkSide::Below;
        if (_dashes != 0)
            addSpan(addDirection(measure, staffNumber, _dashesSide), tagName(Tag::Dashes), true,
                    _dashes);
    }
    // Words of its own over the beat would run into those of the muting.
    if (_palmMute == 0 && isPalmMuted(*_beat) && _beat->text().empty() && !beginsDashes
        && _dashes == 0 && _beat->textSpan() == TextSpan::None) {
        _palmMute = take(_numbers.dashes, "dashes");
        if (_palmMute != 0) {
            auto type = addDirection(measure, staffNumber, MarkSide::Above);
            addElement(type, tagName(Tag::Words), palmMuteWords());
            auto dashes = type.parent().insert_child_after("direction-type", type);
            addSpan(dashes, tagName(Tag::Dashes), true, _palmMute);
        }
    }
}

void LineSigns::writeAfter(pugi::xml_node measure, int staffNumber)
{
    const int bar = static_cast<int>(_place.bar);
    if (_wedge != 0 && !goesOn(_beat->hairpin())) {
        if (!handWedgeOn()) {
            auto wedge =
                addElement(addDirection(measure, staffNumber, _wedgeSide), tagName(Tag::Wedge));
            addAttribute(wedge, "type", "stop");
            addAttribute(wedge, "number", _wedge);
            _numbers.wedges.free(_wedge, _line, bar);
        }
        _wedge = 0;
    }
    const auto endDashes = [&](int &open, MarkSide side) {
        addSpan(addDirection(measure, staffNumber, side), tagName(Tag::Dashes), false, open);
        _numbers.dashes.free(open, _line, bar);
        open = 0;
    };
    if (_dashes != 0 && _beat->textSpan() == TextSpan::End)
        endDashes(_dashes, _dashesSide);
    if (_palmMute != 0
        && !(_next && isPalmMuted(*_next) && _next->text().empty()
             && _next->textSpan() == TextSpan::None))
        endDashes(_palmMute, MarkSide::Above);
}

} // namespace zarn::io
