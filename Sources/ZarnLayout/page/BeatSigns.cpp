// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BeatSigns.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::engraving {

namespace {

using Align = Pen::Align;

Inks centred(const Pen &pen, MarkKind kind, Sign sign, double x, double scale = 1)
{
    Ink ink = pen.glyph(kind, sign, 0, 0, scale);
    ink.move(x - (ink.box.left + ink.box.right) / 2, 0);
    return {std::move(ink)};
}

Inks letters(const Pen &pen, MarkKind kind, const std::string &text, double x,
             TextRole role = TextRole::Letter)
{
    return {pen.text(kind, role, text, x, 0, Align::Centre)};
}

/// Articulations by their glyphs above and below, the nearest to the head first.
struct Articulation {
    AccentFlag flag;
    Sign above;
    Sign below;
    bool goesInside; ///< may stand between staff lines
};
constexpr std::array<Articulation, 6> articulations = {{
    {AccentFlag::Staccato, Sign::ArticStaccatoAbove, Sign::ArticStaccatoBelow, true},
    {AccentFlag::Staccatissimo, Sign::ArticStaccatissimoAbove, Sign::ArticStaccatissimoBelow,
     false},
    {AccentFlag::Tenuto, Sign::ArticTenutoAbove, Sign::ArticTenutoBelow, true},
    {AccentFlag::Accent, Sign::ArticAccentAbove, Sign::ArticAccentBelow, false},
    {AccentFlag::SoftAccent, Sign::ArticSoftAccentAbove, Sign::ArticSoftAccentBelow, false},
    {AccentFlag::HeavyAccent, Sign::ArticMarcatoAbove, Sign::ArticMarcatoBelow, false},
}};

unsigned accentsOf(const PlacedChord &chord)
{
    unsigned bits = 0;
    if (chord.beat().noteCount > 0)
        for (const Head &head : chord.chord->heads)
            bits |= chord.note(head).marks.accents().bits();
    return bits;
}

/// A dot or stroke in the first free space on the head's side, where the staff has one.
bool putInside(RowDraft &row, const PlacedChord &chord, const Pen &pen, Sign sign, Side side,
               int &line)
{
    const Row &shape = *row.row;
    const int topLine = (static_cast<int>(shape.lineCount) - 1) * 2;
    const int step = side == Side::Above ? 1 : -1;
    int place = line + 2 * step;
    if (place % 2 == 0)
        place += step;
    if (place <= 0 || place >= topLine)
        return false;
    Inks inks = centred(pen, MarkKind::Articulation, sign, chord.headCentre(), chord.chord->scale);
    move(inks, 0, shape.yOfLine(place) - (inks[0].box.top + inks[0].box.bottom) / 2);
    const Box box = inks[0].box;
    for (const PlacedChord &other : row.chords)
        if (&other != &chord && other.shownBar == chord.shownBar && other.x < box.right + 0.1
            && rightOf(other) > box.left - 0.1 && other.top() < box.bottom
            && other.bottom() > box.top)
            return false;
    inks[0].place = placeOf(row, chord);
    row.add(std::move(inks));
    line = place;
    return true;
}

void addArticulationsOf(RowDraft &row, const SystemDraft &draft)
{
    const Pen &pen = draft.pen;
    for (PlacedChord &chord : row.chords) {
        const unsigned bits = accentsOf(chord);
        if (bits == 0 || chord.chord->isRest())
            continue;
        // Beside another voice they stand at the stem, unless that leads to a beam between staves.
        const bool isAtHeads = !chord.chord->hasRival || chord.chord->isCrossBeamed;
        const bool isUpperChord = isAtHeads ? !chord.chord->isStemUp || !chord.chord->hasStem
                || row.row->notation == Notation::Tablature
                                            : chord.chord->isStemUp;
        // The heaviest accents stand above whatever the stem does.
        const bool isHeavy =
            !chord.chord->hasRival && (bits & static_cast<unsigned>(AccentFlag::HeavyAccent)) != 0;
        const bool isUpper = isUpperChord || isHeavy;
        const Side side = isUpper ? Side::Above : Side::Below;
        int line = isUpper ? chord.chord->heads.back().line : chord.chord->heads.front().line;
        const bool isHeadSide = chord.chord->isStemUp != isUpper || !chord.chord->hasStem;
        bool canGoInside = isHeadSide && row.row->notation == Notation::Standard;
        for (const Articulation &sign : articulations) {
            if ((bits & static_cast<unsigned>(sign.flag)) == 0)
                continue;
            const Sign glyph = isUpper ? sign.above : sign.below;
            canGoInside = canGoInside && sign.goesInside;
            if (canGoInside && putInside(row, chord, pen, glyph, side, line))
                continue;
            canGoInside = false;
            SideItem item;
            item.side = side;
            item.gap = 0.3;
            item.inks =
                centred(pen, MarkKind::Articulation, glyph,
                        isHeadSide ? chord.headCentre() : chord.stemX(), chord.chord->scale);
            item.inks[0].place = placeOf(row, chord);
            place(row, {std::move(item)});
            const Box &box = row.inks.back().box;
            chord.signTop = isUpper ? box.top : chord.signTop;
            chord.signBottom = isUpper ? chord.signBottom : box.bottom;
        }
    }
}

const char *fingerLetter(Fingering finger, bool isRight)
{
    constexpr std::array<const char *, 7> left = {"", "T", "1", "2", "3", "4", "0"};
    constexpr std::array<const char *, 7> right = {"", "p", "i", "m", "a", "c", ""};
    const auto index = static_cast<std::size_t>(finger);
    return isRight ? right[index] : left[index];
}

Sign ornamentSign(Ornament ornament)
{
    switch (ornament) {
    case Ornament::InvertedTurn:
        return Sign::OrnamentTurnInverted;
    case Ornament::LowerMordent:
        return Sign::OrnamentMordent;
    case Ornament::UpperMordent:
        return Sign::OrnamentShortTrill;
    default:
        return Sign::OrnamentTurn;
    }
}

/// A number in a circle.
Inks circled(const Pen &pen, const std::string &text, double x)
{
    Inks inks = {pen.text(MarkKind::StringNumber, TextRole::Finger, text, x, 0, Align::Centre)};
    const Box box = inks[0].box;
    const double middle = (box.top + box.bottom) / 2;
    constexpr double radius = 0.85;
    Points points;
    constexpr int corners = 24;
    for (int i = 0; i <= corners; ++i) {
        const double angle = 6.283185307179586 * i / corners;
        points.push_back({x + radius * std::cos(angle), middle + radius * std::sin(angle)});
    }
    inks.push_back(pen.polyline(MarkKind::Enclosure, std::move(points), 0.12));
    return inks;
}

/// What one row of the table below makes of a beat; nothing where the beat has no such sign.
using MakeSign = Inks (*)(const Pen &pen, const PlacedChord &chord, const RowDraft &row);

/// What one row makes of a note.
using MakeNoteSign = Inks (*)(const Pen &pen, const NoteSource &note, double x,
                              const RowDraft &row);

enum class Rows : std::uint8_t { First, Last };

struct BeatSign {
    Side side;
    Rows rows; ///< of the staff that carries it
    MakeSign make;
};

struct NoteSign {
    Side side;
    Rows rows;
    bool isEach; ///< of every note; else once for the beat
    MakeNoteSign make;
};

const std::array<NoteSign, 8> noteSigns = {{
    {Side::Above, Rows::First, true,
     [](const Pen &pen, const NoteSource &note, double x, const RowDraft &) -> Inks {
         const Fingering finger = note.marks.leftFingering();
         return finger == Fingering::None
             ? Inks()
             : letters(pen, MarkKind::Fingering, fingerLetter(finger, false), x,
                       TextRole::Fingering);
     }},
    {Side::Below, Rows::First, true,
     [](const Pen &pen, const NoteSource &note, double x, const RowDraft &) -> Inks {
         const Fingering finger = note.marks.rightFingering();
         return finger == Fingering::None || finger == Fingering::Open
             ? Inks()
             : letters(pen, MarkKind::Fingering, fingerLetter(finger, true), x);
     }},
    {Side::Below, Rows::First, true,
     [](const Pen &pen, const NoteSource &note, double x, const RowDraft &row) -> Inks {
         if (!note.marks.showsString() || note.string < 0)
             return {};
         const int count = row.stringCount;
         return circled(pen, std::to_string(std::max(1, count - note.string)), x);
     }},
    {Side::Above, Rows::First, false,
     [](const Pen &pen, const NoteSource &note, double x, const RowDraft &row) -> Inks {
         return row.row->circlesHarmonics && note.marks.harmonic().type == HarmonicType::Natural
             ? centred(pen, MarkKind::Harmonic, Sign::StringsHarmonic, x)
             : Inks();
     }},
    {Side::Above, Rows::First, false,
     [](const Pen &pen, const NoteSource &note, double x, const RowDraft &) -> Inks {
         return note.marks.ornament() == Ornament::NoOrnament
             ? Inks()
             : centred(pen, MarkKind::Ornament, ornamentSign(note.marks.ornament()), x);
     }},
    {Side::Above, Rows::First, false,
     [](const Pen &pen, const NoteSource &note, double x, const RowDraft &) -> Inks {
         if (note.technique == 0)
             return {};
         const auto glyph = pen.fonts().glyph(note.technique);
         if (!glyph)
             return {};
         Ink ink = pen.glyph(MarkKind::Technique, *glyph, 0, 0);
         ink.move(x - (ink.box.left + ink.box.right) / 2, 0);
         return {std::move(ink)};
     }},
    {Side::Above, Rows::Last, false,
     [](const Pen &pen, const NoteSource &note, double x, const RowDraft &) -> Inks {
         return note.marks.isLeftHandTapped()
             ? centred(pen, MarkKind::Technique, Sign::GuitarLeftHandTapping, x)
             : Inks();
     }},
    {Side::Above, Rows::Last, false,
     [](const Pen &pen, const NoteSource &note, double x, const RowDraft &) -> Inks {
         return note.marks.isRightHandTapped()
             ? centred(pen, MarkKind::Technique, Sign::GuitarRightHandTapping, x)
             : Inks();
     }},
}};

/// Minutes and seconds: "1:05".
std::string timeText(int seconds)
{
    const std::string rest = std::to_string(seconds % 60);
    return std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

Sign fadeSign(Fadding fade)
{
    return fade == Fadding::FadeIn ? Sign::GuitarFadeIn
        : fade == Fadding::FadeOut ? Sign::GuitarFadeOut
                                   : Sign::GuitarVolumeSwell;
}

const std::array<BeatSign, 8> beatSigns = {{
    {Side::Above, Rows::Last,
     [](const Pen &pen, const PlacedChord &chord, const RowDraft &) -> Inks {
         const Direction stroke = chord.beat().marks.pickStroke();
         return stroke == Direction::None
             ? Inks()
             : centred(pen, MarkKind::Stroke,
                       stroke == Direction::Down ? Sign::StringsDownBow : Sign::StringsUpBow,
                       chord.headCentre());
     }},
    {Side::Above, Rows::Last,
     [](const Pen &pen, const PlacedChord &chord, const RowDraft &) -> Inks {
         const BassAttack attack = chord.beat().marks.bassAttack();
         return attack == BassAttack::None
             ? Inks()
             : letters(pen, MarkKind::Technique, attack == BassAttack::Slap ? "S" : "P",
                       chord.headCentre());
     }},
    {Side::Above, Rows::Last,
     [](const Pen &pen, const PlacedChord &chord, const RowDraft &) -> Inks {
         return chord.beat().marks.rasgueado() == RasgueadoType::None
             ? Inks()
             : letters(
                 pen, MarkKind::Stroke,
                 "rasg. " +
                     [](std::string text) {
                         return text.substr(0, text.find('_'));
                     }(rasgueadoToString(chord.beat().marks.rasgueado())),
                 chord.headCentre());
     }},
    {Side::Above, Rows::Last,
     [](const Pen &pen, const PlacedChord &chord, const RowDraft &) -> Inks {
         const ZarnGolpeType golpe = chord.beat().marks.golpe();
         return golpe == ZarnGolpeType::None
             ? Inks()
             : centred(pen, MarkKind::Technique, Sign::GuitarGolpe, chord.headCentre());
     }},
    {Side::Above, Rows::Last,
     [](const Pen &pen, const PlacedChord &chord, const RowDraft &) -> Inks {
         const WahWah wah = chord.beat().marks.wah();
         return wah == WahWah::None
             ? Inks()
             : centred(pen, MarkKind::Technique,
                       wah == WahWah::Open ? Sign::GuitarOpenPedal : Sign::GuitarClosePedal,
                       chord.headCentre());
     }},
    {Side::Above, Rows::Last,
     [](const Pen &pen, const PlacedChord &chord, const RowDraft &) -> Inks {
         const Fadding fade = chord.beat().marks.fadding();
         return fade == Fadding::NoFadding
             ? Inks()
             : centred(pen, MarkKind::Technique, fadeSign(fade), chord.headCentre());
     }},
    {Side::Above, Rows::First,
     [](const Pen &pen, const PlacedChord &chord, const RowDraft &) -> Inks {
         const BreathSign breath = chord.beat().marks.breath();
         return breath == BreathSign::None
             ? Inks()
             : centred(pen, MarkKind::Breath,
                       breath == BreathSign::Breath ? Sign::BreathMarkComma : Sign::Caesura,
                       rightOf(chord) + 0.9);
     }},
    {Side::Above, Rows::First,
     [](const Pen &pen, const PlacedChord &chord, const RowDraft &) -> Inks {
         const BeatSource &beat = chord.beat();
         return !beat.marks.hasTimer() || beat.playingTime < 0
             ? Inks()
             : letters(pen, MarkKind::Timer, timeText(beat.playingTime), chord.headCentre(),
                       TextRole::Ending);
     }},
}};

bool carries(const Row &row, Rows rows)
{
    return rows == Rows::First ? row.isFirstOfStaff : row.isLastOfStaff;
}

void addItem(RowDraft &row, const PlacedChord &chord, Side side, Inks inks, int note)
{
    if (inks.empty())
        return;
    SideItem item;
    item.side = side;
    item.inks = std::move(inks);
    for (Ink &ink : item.inks)
        ink.place = placeOf(row, chord, note);
    place(row, {std::move(item)});
}

} // namespace

void addArticulations(RowDraft &row, const SystemDraft &draft)
{
    if (row.row->isFirstOfStaff)
        addArticulationsOf(row, draft);
}

void addBeatSigns(RowDraft &row, const SystemDraft &draft)
{
    const Pen &pen = draft.pen;
    for (const NoteSign &sign : noteSigns) {
        if (!carries(*row.row, sign.rows))
            continue;
        for (const PlacedChord &chord : row.chords) {
            if (chord.beat().noteCount == 0)
                continue;
            bool isDone = false;
            for (unsigned i = 0; i < chord.beat().noteCount && !(isDone && !sign.isEach); ++i) {
                const NoteSource &note = chord.source->notes[chord.beat().firstNote + i];
                if (note.marks.isHidden())
                    continue;
                Inks inks = sign.make(pen, note, chord.headCentre(), row);
                isDone = isDone || !inks.empty();
                addItem(row, chord, sign.side, std::move(inks), static_cast<int>(i));
            }
        }
    }
    for (const BeatSign &sign : beatSigns)
        if (carries(*row.row, sign.rows))
            for (const PlacedChord *const chord : row.carriers) {
                Inks inks = sign.make(pen, *chord, row);
                keepOnLine(inks, draft);
                addItem(row, *chord, sign.side, std::move(inks), -1);
            }
}

} // namespace zarn::engraving
