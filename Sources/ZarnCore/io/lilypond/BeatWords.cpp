// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/BeatWords.h>

#include <ZarnCore/io/lilypond/NoteHeads.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/io/sheet/BeatSigns.h>
#include <ZarnCore/io/sheet/BeatTests.h>
#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::lilypond {

namespace {

using sheet::any;
using sheet::hasAccent;
using sheet::is;
using sheet::noteHas;
using sheet::noteIs;

template <HarmonicType Type>
bool isHarmonic(const Note &note)
{
    return note.harmonic().type == Type;
}
bool trills(const Note &note)
{
    return note.trill().interval != 0 && !note.isTied();
}

struct Sign {
    bool (*isOn)(const Beat &);
    const char *text;
};

/// In the order from the note outwards.
constexpr std::array signs = {
    Sign{any<hasAccent<AccentFlag::Staccato>>, "-."},
    Sign{any<hasAccent<AccentFlag::Staccatissimo>>, "-!"},
    Sign{any<hasAccent<AccentFlag::Tenuto>>, "--"},
    Sign{any<hasAccent<AccentFlag::Accent>>, "->"},
    Sign{any<hasAccent<AccentFlag::HeavyAccent>>, "-^"},
    Sign{any<hasAccent<AccentFlag::SoftAccent>>, "\\espressivo"},
    Sign{is<&Beat::hairpin, Hairpin::Swell>, "\\espressivo"},
    Sign{any<noteIs<&Note::ornament, Ornament::Turn>>, "\\turn"},
    Sign{any<noteIs<&Note::ornament, Ornament::InvertedTurn>>, "\\reverseturn"},
    Sign{any<noteIs<&Note::ornament, Ornament::LowerMordent>>, "\\mordent"},
    Sign{any<noteIs<&Note::ornament, Ornament::UpperMordent>>, "\\prall"},
    Sign{any<trills>, "\\trill"},
    Sign{is<&Beat::pickStroke, Direction::Down>, "\\downbow"},
    Sign{is<&Beat::pickStroke, Direction::Up>, "\\upbow"},
    Sign{is<&Beat::wah, WahWah::Closed>, "\\stopped"},
    Sign{is<&Beat::wah, WahWah::Open>, "\\open"},
    Sign{any<noteHas<&Note::isRightHandTapped>>, "^\"T\""},
    Sign{any<noteHas<&Note::isLeftHandTapped>>, "^\"+\""},
    Sign{is<&Beat::bassAttack, BassAttack::Slap>, "^\"S\""},
    Sign{is<&Beat::bassAttack, BassAttack::Pop>, "^\"P\""},
    Sign{is<&Beat::golpe, ZarnGolpeType::Thumb>, "_\"golpe p\""},
    Sign{is<&Beat::golpe, ZarnGolpeType::Finger>, "^\"golpe a\""},
    Sign{any<isHarmonic<HarmonicType::Natural>>, "^\"N.H.\""},
    Sign{any<isHarmonic<HarmonicType::Artificial>>, "^\"A.H.\""},
    Sign{any<isHarmonic<HarmonicType::Pinch>>, "^\"P.H.\""},
    Sign{any<isHarmonic<HarmonicType::Tapped>>, "^\"T.H.\""},
    Sign{any<isHarmonic<HarmonicType::Semi>>, "^\"S.H.\""},
    Sign{any<isHarmonic<HarmonicType::Feedback>>, "^\"Fdbk.\""},
    Sign{is<&Beat::fadding, Fadding::FadeIn>, "^\"fade in\""},
    Sign{is<&Beat::fadding, Fadding::FadeOut>, "^\"fade out\""},
    Sign{is<&Beat::fadding, Fadding::VolumeSwell>, "^\"volume swell\""},
    Sign{any<noteIs<&Note::slideOut, SlideOut::PickScrapeDown>>, "^\"pick scrape\""},
    Sign{any<noteIs<&Note::slideOut, SlideOut::PickScrapeUp>>, "^\"pick scrape\""},
    Sign{any<noteIs<&Note::slideOut, SlideOut::Downwards>>, "\\bendAfter #-4"},
    Sign{any<noteIs<&Note::slideOut, SlideOut::Upwards>>, "\\bendAfter #4"},
    Sign{is<&Beat::isDeadSlapped>, "^\"dead slap\""},
};

std::string wave(unsigned elements)
{
    std::string text = "^\\markup \\concat {";
    for (unsigned i = 0; i < elements; ++i)
        text += " \\musicglyph \"scripts.trill_element\"";
    return text + " }";
}

/// "full", "1/2": how high a string is bent, in quarter-tones.
std::string bendHeight(int quarterTones)
{
    constexpr std::array<const char *, 4> parts = {"", "\u00bc", "\u00bd", "\u00be"};
    const std::string part = parts.at(static_cast<std::size_t>(quarterTones % 4));
    if (quarterTones == 4)
        return "full";
    return quarterTones < 4 ? part : std::to_string(quarterTones / 4) + part;
}

/// As guitarists read it: an arrow with the height, in words what is more than that.
std::string bendWords(const Note &note)
{
    const Bend &bend = note.bend();
    const auto &points = bend.curve.points();
    if (bend.type == BendType::NoBend || points.empty())
        return {};
    int highest = 0;
    for (const auto &point : points)
        highest = std::max(highest, static_cast<int>(point.value));
    const std::string up = "\u2191" + bendHeight(highest);
    switch (bend.type) {
    case BendType::PreBend:
        return "pre-bend " + up;
    case BendType::HoldBend:
        return "hold bend";
    case BendType::Release:
        return "release";
    case BendType::BendNRelease:
        return up + "\u2193";
    case BendType::PreBendNBend:
        return "pre-bend " + up;
    case BendType::PreBendNRelease:
        return "pre-bend " + up + "\u2193";
    default:
        return up;
    }
}

constexpr std::array<int, 7> fingersOnStrings = {0, -1, 1, 2, 3, 4, 0};
constexpr std::array<int, 7> fingersOnKeys = {0, 1, 2, 3, 4, 5, 0};

std::string leftFinger(Fingering finger, const Track &track)
{
    if (finger == Fingering::None)
        return {};
    const bool areKeys = !track.isFretted() && track.staffCount() > 1;
    const int number =
        (areKeys ? fingersOnKeys : fingersOnStrings).at(static_cast<std::size_t>(finger));
    return number < 0 ? "-\\finger \"T\"" : '-' + std::to_string(number);
}

} // namespace

std::string signsOf(const Beat &beat)
{
    std::string text;
    for (const Sign &sign : signs)
        if (sign.isOn(beat))
            text += sign.text;
    Vibrato vibrato = Vibrato::None;
    for (const auto &note : beat.notes()) {
        if (const std::string bend = bendWords(*note); !bend.empty())
            text += '^' + quoted(bend);
        if (note->vibrato() != Vibrato::None)
            vibrato = note->vibrato();
    }
    if (vibrato != Vibrato::None)
        text += wave(vibrato == Vibrato::Wide ? 5 : 3);
    if (beat.rasgueado() != RasgueadoType::None)
        text += '^'
            + quoted("rasg. "
                     + QString::fromStdString(rasgueadoToString(beat.rasgueado()))
                           .section(QLatin1Char('_'), 0, 0)
                           .toStdString());
    sheet::Legend unused;
    if (beat.whammyBar().type != WhammyBarType::NoWhammyBar)
        for (const QString &words : sheet::techniquesOf(beat, sheet::Glyphs::utf8(), unused))
            if (words.startsWith(QLatin1String("bar ")))
                text += '^' + quoted("w/" + words.toStdString());
    const auto addWords = [&](char side, const std::string &words) {
        for (const QString &line :
             QString::fromStdString(words).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            text += side + quoted(line.simplified().toStdString());
    };
    if (beat.textSpan() != TextSpan::Begin)
        addWords('^', beat.text());
    if (beat.textSpan() != TextSpan::BeginBelow)
        addWords('_', beat.textBelow());
    return text;
}

std::vector<std::string> lineWordsOf(const Beat &beat)
{
    const Barre barre = beat.barre();
    return {
        any<noteHas<&Note::isPalmMuted>>(beat) ? "P.M." : "",
        any<noteHas<&Note::letsRing>>(beat) ? "let ring" : "",
        barre.fret == 0 ? "" : (barre.isHalf() ? "\u00bdC" : "C") + romanNumber(barre.fret),
        beat.barVibrato() == Vibrato::None ? "" : "w/bar vibrato",
    };
}

NoteWords wordsOf(const Note &note, const Track &track, int stringNumber)
{
    NoteWords words;
    if (note.isGhost())
        words.before += "\\parenthesize ";
    if (note.isDead())
        words.before += "\\deadNote ";
    if (const std::string style = headStyle(note.noteHead()); !style.empty() && !note.isDead())
        words.before += "\\tweak NoteHead.style #'" + style + ' ';
    // Heads are open or filled as those of halves and quarters are.
    if (note.headFill() != HeadFill::Auto)
        words.before += std::string("\\tweak NoteHead.duration-log #")
            + (note.headFill() == HeadFill::Open ? "1 " : "2 ");
    if (note.isHidden())
        words.before += "\\single \\hideNotes ";
    else if (note.noteHead() == NoteHead::None)
        words.before += "\\tweak NoteHead.transparent ##t ";
    words.after = leftFinger(note.leftFingering(), track);
    if (note.rightFingering() != Fingering::None && note.rightFingering() != Fingering::Open)
        words.after +=
            "\\rightHandFinger #" + std::to_string(static_cast<int>(note.rightFingering()));
    if (stringNumber > 0) {
        // Fingers inside of chords stand beside their heads, where no voice is in their way.
        words.needsChord = !words.after.empty();
        if (note.showsString())
            words.after += "-\\tweak stencil #print-circled-text-callback ";
        words.after += '\\' + std::to_string(stringNumber);
    }
    if (note.harmonic().type != HarmonicType::NoHarmonic) {
        words.after += "\\harmonic";
        words.needsChord = true;
    }
    return words;
}

} // namespace zarn::lilypond
