// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Technical.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
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
    void (*set)(WrittenNote &note);
};

template <auto Set, auto Value>
void setOfBeat(WrittenNote &note)
{
    (note.beatMarks.*Set)(Value);
}
template <auto Set, auto Value>
void setOfNote(WrittenNote &note)
{
    (note.marks.*Set)(Value);
}

constexpr OtherTechnique others[] = {
    {"slap", "", setOfBeat<&BeatMarks::setBassAttack, BassAttack::Slap>},
    {"pop", "", setOfBeat<&BeatMarks::setBassAttack, BassAttack::Pop>},
    {"pick scrape down", "", setOfNote<&NoteMarks::setSlideOut, SlideOut::PickScrapeDown>},
    {"pick scrape up", "", setOfNote<&NoteMarks::setSlideOut, SlideOut::PickScrapeUp>},
    {"", "guitarFadeIn", setOfBeat<&BeatMarks::setFadding, Fadding::FadeIn>},
    {"", "guitarFadeOut", setOfBeat<&BeatMarks::setFadding, Fadding::FadeOut>},
    {"", "guitarVolumeSwell", setOfBeat<&BeatMarks::setFadding, Fadding::VolumeSwell>},
    {"", "guitarStrumDown", setOfBeat<&BeatMarks::setBrushDirection, Direction::Down>},
    {"", "guitarStrumUp", setOfBeat<&BeatMarks::setBrushDirection, Direction::Up>},
    {"", "guitarClosePedal", setOfBeat<&BeatMarks::setWah, WahWah::Closed>},
    {"", "guitarOpenPedal", setOfBeat<&BeatMarks::setWah, WahWah::Open>},
};

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

} // namespace zarn::io
