// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Technical.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/signs/Fingers.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/utils/EnumTable.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>
#include <string_view>

namespace zarn::io {

namespace {

using utils::KeyMatch;

/// The elements of bows and picks.
struct Stroke {
    Tag tag;
    Direction direction;
};

constexpr Stroke strokes[] = {
    {Tag::UpBow, Direction::Up},
    {Tag::DownBow, Direction::Down},
};

/// The fingers of <pluck>, by the letters of the guitar.
constexpr auto pluckTexts = utils::enumTable<Fingering>(KeyMatch::UpperCase,
                                                        {
                                                            {Fingering::Thumb, "p"},
                                                            {Fingering::Index, "i"},
                                                            {Fingering::Middle, "m"},
                                                            {Fingering::Annular, "a"},
                                                            {Fingering::Little, "c", "e"},
                                                        });

/// What harmonics on stopped strings are called beside them.
constexpr auto harmonicTexts =
    utils::enumTable<HarmonicType>(KeyMatch::UpperCase,
                                   {
                                       {HarmonicType::Artificial, "A.H."},
                                       {HarmonicType::Pinch, "P.H."},
                                       {HarmonicType::Tapped, "T.H."},
                                       {HarmonicType::Semi, "S.H."},
                                       {HarmonicType::Feedback, "Fdbk."},
                                   });

/// Techniques without an element of their own: a text or a glyph of SMuFL in <other-technical>.
struct OtherTechnique {
    std::string_view text;
    std::string_view glyph;
    bool isOfBeat;
    void (*set)(WrittenNote &note);
    bool (*isSet)(const BeatMarks &beat, const NoteMarks &note);
};

template <auto Get, auto Set, auto Value>
constexpr OtherTechnique ofBeat(std::string_view text, std::string_view glyph)
{
    return {text, glyph, true, [](WrittenNote &note) { (note.beatMarks.*Set)(Value); },
            [](const BeatMarks &beat, const NoteMarks &) { return (beat.*Get)() == Value; }};
}
template <auto Get, auto Set, auto Value>
constexpr OtherTechnique ofNote(std::string_view text, std::string_view glyph)
{
    return {text, glyph, false, [](WrittenNote &note) { (note.marks.*Set)(Value); },
            [](const BeatMarks &, const NoteMarks &note) { return (note.*Get)() == Value; }};
}

using Beats = BeatMarks;
using Notes = NoteMarks;

constexpr OtherTechnique others[] = {
    ofBeat<&Beats::bassAttack, &Beats::setBassAttack, BassAttack::Slap>("slap", ""),
    ofBeat<&Beats::bassAttack, &Beats::setBassAttack, BassAttack::Pop>("pop", ""),
    ofNote<&Notes::slideOut, &Notes::setSlideOut, SlideOut::PickScrapeDown>("pick scrape down", ""),
    ofNote<&Notes::slideOut, &Notes::setSlideOut, SlideOut::PickScrapeUp>("pick scrape up", ""),
    ofBeat<&Beats::isDeadSlapped, &Beats::setDeadSlapped, true>("dead slap", ""),
    ofBeat<&Beats::hasTimer, &Beats::setTimer, true>("timer", ""),
    ofNote<&Notes::showsString, &Notes::setShowString, true>("string number", ""),
    ofBeat<&Beats::fadding, &Beats::setFadding, Fadding::FadeIn>("", "guitarFadeIn"),
    ofBeat<&Beats::fadding, &Beats::setFadding, Fadding::FadeOut>("", "guitarFadeOut"),
    ofBeat<&Beats::fadding, &Beats::setFadding, Fadding::VolumeSwell>("", "guitarVolumeSwell"),
    ofBeat<&Beats::brushDirection, &Beats::setBrushDirection, Direction::Down>("",
                                                                               "guitarStrumDown"),
    ofBeat<&Beats::brushDirection, &Beats::setBrushDirection, Direction::Up>("", "guitarStrumUp"),
    ofBeat<&Beats::wah, &Beats::setWah, WahWah::Closed>("", "guitarClosePedal"),
    ofBeat<&Beats::wah, &Beats::setWah, WahWah::Open>("", "guitarOpenPedal"),
};

/// Beside a cross that is nothing but the sign of a dead note.
constexpr std::string_view deadWord = "dead note";

constexpr std::string_view rasgueadoWord = "rasgueado ";

} // namespace

bool TechnicalReader::read(Tag tag, pugi::xml_node technical, WrittenNote &note)
{
    for (const auto &stroke : strokes)
        if (stroke.tag == tag) {
            note.beatMarks.setPickStroke(stroke.direction);
            note.mayExclude = true;
            return true;
        }
    switch (tag) {
    case Tag::OpenString:
        note.marks.setLeftFingering(Fingering::Open);
        return true;
    case Tag::Pluck:
        return readPluck(technical, note);
    case Tag::Tap: {
        const bool isLeft = std::strcmp(technical.attribute("hand").value(), "left") == 0
            || std::strcmp(technical.child_value(), "+") == 0;
        note.marks.setLeftHandTapped(isLeft);
        note.marks.setRightHandTapped(!isLeft);
        note.mayExclude = true;
        return true;
    }
    case Tag::Golpe: {
        const bool isBelow = std::strcmp(technical.attribute("placement").value(), "below") == 0;
        note.beatMarks.setGolpe(isBelow ? ZarnGolpeType::Thumb : ZarnGolpeType::Finger);
        return true;
    }
    case Tag::Harmonic:
        _harmonic = technical;
        _hasHarmonic = true;
        note.mayExclude = true;
        return true;
    case Tag::OtherTechnical:
        return readOther(technical, note);
    default:
        return false;
    }
}

bool TechnicalReader::readPluck(pugi::xml_node pluck, WrittenNote &note)
{
    const std::string_view text = pluck.child_value();
    const auto finger = text == "x" ? Fingering::Little : pluckTexts.value(text);
    if (finger)
        note.marks.setRightFingering(*finger);
    return finger.has_value();
}

bool TechnicalReader::readOther(pugi::xml_node other, WrittenNote &note)
{
    const std::string_view text = other.child_value();
    const std::string_view glyph = other.attribute("smufl").value();
    if (const auto type = harmonicTexts.value(text)) {
        _harmonicType = *type;
        return true;
    }
    const auto *const row =
        std::find_if(std::begin(others), std::end(others), [&](const OtherTechnique &technique) {
            return technique.glyph.empty() ? technique.text == text : technique.glyph == glyph;
        });
    if (row != std::end(others)) {
        row->set(note);
        note.mayExclude = true;
        return true;
    }
    if (text == deadWord) {
        note.marks.setDead(true);
        note.mayExclude = true;
        return true;
    }
    if (text.substr(0, rasgueadoWord.size()) != rasgueadoWord)
        return false;
    const std::string pattern(text.substr(rasgueadoWord.size()));
    const auto type = rasgueadoFromString(pattern);
    note.beatMarks.setRasgueado(type);
    note.mayExclude = true;
    return type != RasgueadoType::None;
}

/// A natural harmonic is named by the fret at which the string is touched; the others sound an
/// octave above the stopped pitch.
void TechnicalReader::setHarmonic(WrittenNote &note)
{
    if (note.kind != NoteKind::Pitched) {
        _context.addUnheld(_harmonic, Tag::Harmonic);
        return;
    }
    const bool isNatural = !_harmonic.child(tagName(Tag::Artificial));
    Harmonic harmonic;
    harmonic.type = isNatural ? HarmonicType::Natural : _harmonicType;
    harmonic.partial = Harmonic::LowestPartial;
    if (isNatural && note.fret > 0) {
        const auto partial = Harmonic::partialAtFret(note.fret);
        if (partial == 0)
            _context.addProblem(_harmonic,
                                "no harmonic sounds at fret " + std::to_string(note.fret)
                                    + "; that of fret 12 was taken");
        else
            harmonic.partial = static_cast<std::uint8_t>(partial);
    }
    note.marks.setHarmonic(harmonic);
}

namespace {

/// The partial that a reader takes from what is written.
unsigned readPartial(const Note &note)
{
    const bool isAtFret = note.harmonic().type == HarmonicType::Natural && note.fret() > 0;
    const auto partial = isAtFret ? Harmonic::partialAtFret(note.fret()) : 0;
    return partial != 0 ? partial : Harmonic::LowestPartial;
}

class TechnicalElement {
public:
    explicit TechnicalElement(pugi::xml_node notations) : _notations(notations) { }

    template <class... Text>
    pugi::xml_node add(Tag tag, Text... text)
    {
        return addElement(ensureElement(_notations, tagName(Tag::Technical)), tagName(tag),
                          text...);
    }

private:
    pugi::xml_node _notations;
};

void writeHarmonic(const Note &note, bool isPitched, TechnicalElement &technical,
                   ExportContext &context)
{
    const auto harmonic = note.harmonic();
    if (harmonic.type == HarmonicType::NoHarmonic)
        return;
    if (!isPitched)
        return context.addUnheld("harmonic of a note without a pitch");
    const bool isNatural = harmonic.type == HarmonicType::Natural;
    addElement(technical.add(Tag::Harmonic), isNatural ? "natural" : tagName(Tag::Artificial));
    if (!isNatural && harmonic.type != HarmonicType::Artificial)
        technical.add(Tag::OtherTechnical, harmonicTexts.textOrFirst(harmonic.type).data());
    context.addUnheldIf(harmonic.partial != readPartial(note), "partial of a harmonic");
}

void writeBeat(const Beat &beat, TechnicalElement &technical)
{
    for (const auto &stroke : strokes)
        if (stroke.direction == beat.pickStroke())
            technical.add(stroke.tag);
    if (beat.golpe() != ZarnGolpeType::None)
        addAttribute(technical.add(Tag::Golpe), "placement",
                     beat.golpe() == ZarnGolpeType::Thumb ? "below" : "above");
    if (beat.rasgueado() != RasgueadoType::None)
        technical.add(Tag::OtherTechnical,
                      std::string(rasgueadoWord) + rasgueadoToString(beat.rasgueado()));
}

void writeNote(const Note &note, bool isPitched, bool areKeys, TechnicalElement &technical,
               ExportContext &context)
{
    // A thumb on a fret is no first finger of keys.
    if (const auto *const finger =
            fingeringText(note.leftFingering(), areKeys && note.fret() == Note::Unset))
        technical.add(Tag::Fingering, finger);
    else if (note.leftFingering() == Fingering::Open)
        technical.add(Tag::OpenString);
    if (const auto letter = pluckTexts.text(note.rightFingering()))
        technical.add(Tag::Pluck, letter->data());
    context.addUnheldIf(note.rightFingering() == Fingering::Open, "open string of the right hand");
    if (note.isDead() && (note.noteHead() != NoteHead::Cross || note.fret() == Note::Unset)) {
        technical.add(Tag::OtherTechnical, deadWord.data());
        context.addUnheldIf(note.noteHead() != NoteHead::Normal
                                && note.noteHead() != NoteHead::Cross,
                            "head of a dead note");
    }
    if (note.isLeftHandTapped() || note.isRightHandTapped())
        addAttribute(technical.add(Tag::Tap, note.isLeftHandTapped() ? "+" : "T"), "hand",
                     note.isLeftHandTapped() ? "left" : "right");
    writeHarmonic(note, isPitched, technical, context);
}

} // namespace

void writeTechnical(const Beat &beat, const Note *note, bool isPitched, bool isFirst, bool areKeys,
                    pugi::xml_node notations, ExportContext &context)
{
    TechnicalElement technical(notations);
    if (isFirst && !beat.marks().isPlain())
        writeBeat(beat, technical);
    if (note)
        writeNote(*note, isPitched, areKeys, technical, context);
    const auto marks = note ? note->marks() : NoteMarks();
    for (const auto &row : others)
        if ((isFirst || !row.isOfBeat) && row.isSet(beat.marks(), marks)) {
            auto other = technical.add(Tag::OtherTechnical, row.text.data());
            if (!row.glyph.empty())
                addAttribute(other, "smufl", row.glyph.data());
        }
}

} // namespace zarn::io
