// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/Stretches.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zarn::engraving {

namespace {

bool anyNote(const PlacedChord &chord, bool (*has)(const NoteMarks &))
{
    for (unsigned i = 0; i < chord.beat().noteCount; ++i)
        if (has(chord.source->notes[chord.beat().firstNote + i].marks))
            return true;
    return false;
}

/// A wavy line of glyphs.
Inks wiggle(const Pen &pen, MarkKind kind, Sign sign, double left, double right)
{
    Inks inks;
    const double step = std::max(pen.fonts().advance(pen.fonts().glyph(sign)), 0.3);
    for (double x = left; x + step * 0.5 < std::max(right, left + step * 2); x += step)
        inks.push_back(pen.glyph(kind, sign, x, 0));
    return inks;
}

double startOf(const RowDraft &row, const ChordRun &run)
{
    return row.chords[run.first].x;
}

/// Where a stretch ends: behind its last note, in front of what follows.
double endOf(const SystemDraft &draft, const RowDraft &row, const ChordRun &run, bool fillsBeat)
{
    const PlacedChord &last = row.chords[run.last];
    if (!fillsBeat)
        return rightOf(last);
    const PlacedChord *next = nextChord(row, run.last);
    const bool isInBar = next && next->shownBar == last.shownBar;
    return std::max(isInBar ? next->x - 0.6 : draft.barOf(last).right - 0.5, rightOf(last));
}

/// The key of the note that is trilled: one behind a rest, or on another key, has its own sign.
int trilledKey(const PlacedChord &chord)
{
    for (unsigned i = 0; i < chord.beat().noteCount; ++i)
        if (const NoteSource &note = chord.source->notes[chord.beat().firstNote + i];
            note.marks.trill().interval > 0)
            return note.midi;
    return -1;
}

/// A sign of the notes that is written once for all neighbours that have it.
struct Stretch {
    MarkKind kind;
    bool (*has)(const PlacedChord &chord);
    Inks (*make)(const Pen &pen, double left, double right);
    bool fillsBeat;
};

const std::array<Stretch, 7> stretches = {{
    {MarkKind::Vibrato,
     [](const PlacedChord &chord) {
         return anyNote(chord,
                        [](const NoteMarks &marks) { return marks.vibrato() == Vibrato::Slight; });
     },
     [](const Pen &pen, double left, double right) {
         return wiggle(pen, MarkKind::Vibrato, Sign::WiggleVibrato, left, right);
     },
     true},
    {MarkKind::Vibrato,
     [](const PlacedChord &chord) {
         return anyNote(chord,
                        [](const NoteMarks &marks) { return marks.vibrato() == Vibrato::Wide; });
     },
     [](const Pen &pen, double left, double right) {
         return wiggle(pen, MarkKind::Vibrato, Sign::WiggleVibratoWide, left, right);
     },
     true},
    {MarkKind::Whammy,
     [](const PlacedChord &chord) { return chord.beat().marks.barVibrato() != Vibrato::None; },
     [](const Pen &pen, double left, double right) {
         Inks inks = {pen.text(MarkKind::Whammy, TextRole::Letter, "w/bar", left, 0)};
         for (Ink &ink : wiggle(pen, MarkKind::Whammy, Sign::WiggleVibratoWide,
                                inks[0].box.right + 0.3, right))
             inks.push_back(std::move(ink));
         return inks;
     },
     true},
    {MarkKind::PalmMute,
     [](const PlacedChord &chord) {
         return anyNote(chord, [](const NoteMarks &marks) { return marks.isPalmMuted(); });
     },
     [](const Pen &pen, double left, double right) {
         return dashed(pen, MarkKind::PalmMute, "P.M.", left, right, 0.6);
     },
     false},
    {MarkKind::LetRing,
     [](const PlacedChord &chord) {
         return anyNote(chord, [](const NoteMarks &marks) { return marks.letsRing(); });
     },
     [](const Pen &pen, double left, double right) {
         return dashed(pen, MarkKind::LetRing, "let ring", left, right, 0.6);
     },
     false},
    {MarkKind::Trill,
     [](const PlacedChord &chord) {
         return anyNote(chord, [](const NoteMarks &marks) { return marks.trill().interval > 0; });
     },
     [](const Pen &pen, double left, double right) {
         Inks inks = {pen.glyph(MarkKind::Trill, Sign::OrnamentTrill, left, 0)};
         if (right > inks[0].box.right + 2)
             for (Ink &ink :
                  wiggle(pen, MarkKind::Trill, Sign::WiggleTrill, inks[0].box.right + 0.2, right)) {
                 ink.move(0, -0.5);
                 inks.push_back(std::move(ink));
             }
         return inks;
     },
     true},
    {MarkKind::Technique,
     [](const PlacedChord &chord) { return chord.beat().marks.isDeadSlapped(); },
     [](const Pen &pen, double left, double right) {
         return dashed(pen, MarkKind::Technique, "slap", left, right, 0);
     },
     false},
}};

const char *harmonicLetters(HarmonicType type)
{
    switch (type) {
    case HarmonicType::Natural:
        return "N.H.";
    case HarmonicType::Artificial:
        return "A.H.";
    case HarmonicType::Pinch:
        return "P.H.";
    case HarmonicType::Tapped:
        return "T.H.";
    case HarmonicType::Semi:
        return "S.H.";
    case HarmonicType::Feedback:
        return "Fdbk.";
    case HarmonicType::NoHarmonic:
        break;
    }
    return "";
}

/// Natural and other harmonics, each kind with its letters once for neighbours.
void addHarmonics(RowDraft &row, const SystemDraft &draft, SideItems &items)
{
    for (int kind = static_cast<int>(HarmonicType::Natural);
         kind <= static_cast<int>(HarmonicType::Feedback); ++kind) {
        const auto type = static_cast<HarmonicType>(kind);
        if (type == HarmonicType::Natural && row.row->circlesHarmonics)
            continue;
        const auto has = [type](const PlacedChord &chord) {
            for (unsigned i = 0; i < chord.beat().noteCount; ++i)
                if (chord.source->notes[chord.beat().firstNote + i].marks.harmonic().type == type)
                    return true;
            return false;
        };
        for (const ChordRun &run : runsOf(row, has)) {
            SideItem item;
            item.line = stretchLine;
            item.inks = dashed(draft.pen, MarkKind::Harmonic, harmonicLetters(type),
                               startOf(row, run), endOf(draft, row, run, false), 0.6);
            for (Ink &ink : item.inks)
                ink.place = placeOf(row, row.chords[run.first]);
            items.push_back(std::move(item));
        }
    }
}

const char *roman(unsigned number)
{
    constexpr std::array<const char *, 25> texts = {
        "",      "I",   "II", "III", "IV",   "V",     "VI",  "VII", "VIII",
        "IX",    "X",   "XI", "XII", "XIII", "XIV",   "XV",  "XVI", "XVII",
        "XVIII", "XIX", "XX", "XXI", "XXII", "XXIII", "XXIV"};
    return number < texts.size() ? texts[number] : "";
}

void addBarres(RowDraft &row, const SystemDraft &draft, SideItems &items)
{
    const auto barreOf = [](const PlacedChord &chord) {
        return chord.beat().details ? chord.beat().details->barre : Barre();
    };
    const auto &chords = row.chords;
    for (std::size_t i = 0; i < chords.size();) {
        const Barre barre = barreOf(chords[i]);
        std::size_t end = i + 1;
        while (end < chords.size() && barreOf(chords[end]) == barre
               && chords[end].chord->voice == chords[i].chord->voice)
            ++end;
        if (barre.fret != 0) {
            SideItem item;
            const std::string words = (barre.isHalf() ? "\u00BDC " : "C ")
                + std::string(*roman(barre.fret) ? roman(barre.fret)
                                                 : std::to_string(barre.fret).c_str());
            item.inks = dashed(draft.pen, MarkKind::Technique, words, chords[i].x,
                               rightOf(chords[end - 1]), 0.6);
            keepOnLine(item.inks, draft);
            for (Ink &ink : item.inks)
                ink.place = placeOf(row, chords[i]);
            items.push_back(std::move(item));
        }
        i = end;
    }
}

struct OttavaSign {
    Sign sign;
    bool isAbove;
};
OttavaSign ottavaSign(Ottavia ottavia)
{
    switch (ottavia) {
    case Ottavia::_15ma:
        return {Sign::QuindicesimaAlta, true};
    case Ottavia::_8va:
        return {Sign::OttavaAlta, true};
    case Ottavia::_8vb:
        return {Sign::OttavaBassaVb, false};
    default:
        return {Sign::QuindicesimaBassaMb, false};
    }
}

/// Whether the nearest note of a voice in a bar beside the system is under an octave sign too.
bool isUnderOttava(const BarSource &bar, unsigned voiceNumber, Ottavia ottavia, bool isAtEnd)
{
    for (const VoiceSource &voice : bar.voices) {
        if (voice.number != voiceNumber)
            continue;
        const auto isNote = [](const BeatSource &beat) { return beat.noteCount > 0; };
        const auto &beats = voice.beats;
        const BeatSource *nearest = nullptr;
        if (isAtEnd) {
            const auto found = std::find_if(beats.rbegin(), beats.rend(), isNote);
            nearest = found == beats.rend() ? nullptr : &*found;
        } else {
            const auto found = std::find_if(beats.begin(), beats.end(), isNote);
            nearest = found == beats.end() ? nullptr : &*found;
        }
        return nearest && nearest->marks.ottavia() == ottavia;
    }
    return false;
}

/// Whether no other note of its voice stands between a chord and the end of the system.
bool isOutermost(const RowDraft &row, std::size_t number, bool isFirst)
{
    const unsigned voice = row.chords[number].chord->voice;
    const std::size_t step = isFirst ? static_cast<std::size_t>(-1) : 1;
    for (std::size_t i = number + step; i < row.chords.size(); i += step) {
        if (row.chords[i].chord->voice != voice)
            break;
        if (!row.chords[i].chord->isRest())
            return false;
    }
    return true;
}

/// Says whether an octave sign comes from the system before, and whether it goes on in the next.
void findNeighbours(ChordRun &run, const RowDraft &row, const SystemDraft &draft, Ottavia ottavia)
{
    const PlacedChord &first = row.chords[run.first];
    const PlacedChord &last = row.chords[run.last];
    run.comesFromBefore = draft.knowsBefore && first.shownBar == draft.first
        && isOutermost(row, run.first, true)
        && isUnderOttava(draft.score.source(row.number, draft.first - 1), first.chord->voice,
                         ottavia, true);
    run.goesOn = draft.knowsBehind && last.shownBar + 1 == draft.end
        && isOutermost(row, run.last, false)
        && isUnderOttava(draft.score.source(row.number, draft.end), last.chord->voice, ottavia,
                         false);
}

void addOttavas(RowDraft &row, const SystemDraft &draft)
{
    if (row.row->notation != Notation::Standard)
        return;
    for (const Ottavia ottavia : {Ottavia::_15ma, Ottavia::_8va, Ottavia::_8vb, Ottavia::_15mb}) {
        auto runs = runsOf(row, [ottavia](const PlacedChord &chord) {
            return chord.beat().marks.ottavia() == ottavia;
        });
        for (ChordRun &run : runs) {
            findNeighbours(run, row, draft, ottavia);
            const auto [sign, isAbove] = ottavaSign(ottavia);
            SideItem item;
            item.side = isAbove ? Side::Above : Side::Below;
            item.gap = 0.6;
            Ink glyph = draft.pen.glyph(MarkKind::Ottava, sign, startOf(row, run), 0);
            double x = glyph.box.right + 0.3;
            if (run.comesFromBefore) {
                // A reminder, in parentheses.
                Ink left = draft.pen.glyph(MarkKind::Enclosure, Sign::OctaveParensLeft,
                                           startOf(row, run), 0);
                glyph.move(left.box.right + 0.1 - glyph.box.left, 0);
                Ink right = draft.pen.glyph(MarkKind::Enclosure, Sign::OctaveParensRight, 0, 0);
                right.move(glyph.box.right + 0.1 - right.box.left, 0);
                x = right.box.right + 0.3;
                item.inks.push_back(std::move(left));
                item.inks.push_back(std::move(right));
            }
            const double y = isAbove ? glyph.box.top + 0.1 : glyph.box.bottom - 0.1;
            const double right = run.goesOn ? std::max(draft.musicRight() - 0.3, x)
                                            : rightOf(row.chords[run.last]) + 0.2;
            item.inks.push_back(std::move(glyph));
            if (right > x + 0.5) {
                Ink line = draft.pen.line(MarkKind::Ottava, {x, y}, {right, y}, 0.16);
                line.dash = 0.6;
                line.gap = 0.5;
                item.inks.push_back(std::move(line));
                if (!run.goesOn)
                    item.inks.push_back(draft.pen.line(MarkKind::Ottava, {right, y},
                                                       {right, y + (isAbove ? 1.2 : -1.2)}, 0.16));
            }
            for (Ink &ink : item.inks)
                ink.place = placeOf(row, row.chords[run.first]);
            keepOnLine(item.inks, draft);
            place(row, {std::move(item)});
        }
    }
}

void addPedals(RowDraft &row, const SystemDraft &draft)
{
    SideItems items;
    for (const PlacedChord *const carrier : row.carriers) {
        const PlacedChord &chord = *carrier;
        const PedalChange pedal = chord.beat().marks.pedal();
        if (pedal == PedalChange::None)
            continue;
        constexpr int pedalLine = 3;
        double x = chord.x;
        const auto add = [&](Sign sign) {
            SideItem item;
            item.side = Side::Below;
            item.line = pedalLine;
            item.gap = 0.6;
            item.inks.push_back(draft.pen.glyph(MarkKind::Pedal, sign, x, 0, 0.8));
            item.inks[0].place = placeOf(row, chord);
            x = item.inks[0].box.right + 0.3;
            items.push_back(std::move(item));
        };
        if (pedal != PedalChange::Start)
            add(Sign::KeyboardPedalUp);
        if (pedal != PedalChange::Stop)
            add(Sign::KeyboardPedalPed);
    }
    place(row, std::move(items));
}

} // namespace

Inks dashed(const Pen &pen, MarkKind kind, const std::string &words, double left, double right,
            double hook)
{
    Inks inks;
    double x = left;
    double middle = 0;
    if (!words.empty()) {
        inks.push_back(pen.text(kind, TextRole::Letter, words, left, 0));
        x = inks.back().box.right + 0.4;
        middle = -pen.fonts().capHeight(TextRole::Letter) / 2;
    }
    if (right > x + 0.6) {
        Ink line = pen.line(kind, {x, middle}, {right, middle}, 0.13);
        line.dash = 0.7;
        line.gap = 0.5;
        inks.push_back(std::move(line));
        if (hook != 0)
            inks.push_back(pen.line(kind, {right, middle}, {right, middle + hook}, 0.13));
    }
    return inks;
}

void addStretches(RowDraft &row, const SystemDraft &draft)
{
    if (row.row->isLastOfStaff) {
        SideItems harmonics;
        addHarmonics(row, draft, harmonics);
        place(row, std::move(harmonics));
        for (const Stretch &stretch : stretches) {
            SideItems items;
            const auto goesOn = [&](const PlacedChord &last, const PlacedChord &chord) {
                return stretch.kind != MarkKind::Trill
                    || (&chord == &last + 1 && trilledKey(chord) == trilledKey(last));
            };
            for (const ChordRun &run : runsOf(row, stretch.has, goesOn)) {
                SideItem item;
                item.inks = stretch.make(draft.pen, startOf(row, run),
                                         endOf(draft, row, run, stretch.fillsBeat));
                item.line = stretchLine;
                const BarPlace &bar = draft.barOf(row.chords[run.last]);
                const Box box = boxOf(item.inks);
                const double over = box.right - (bar.right - 0.3);
                if (over > 0)
                    move(item.inks, -std::min(over, std::max(0.0, box.left - bar.left)), 0);
                for (Ink &ink : item.inks)
                    ink.place = placeOf(row, row.chords[run.first]);
                items.push_back(std::move(item));
            }
            place(row, std::move(items));
        }
    }
    if (!row.row->isFirstOfStaff)
        return;
    SideItems barres;
    addBarres(row, draft, barres);
    place(row, std::move(barres));
    addOttavas(row, draft);
    addPedals(row, draft);
}

} // namespace zarn::engraving
