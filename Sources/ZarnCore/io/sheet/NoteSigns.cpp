// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/NoteSigns.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace zarn::sheet {

namespace {

struct Place {
    const Note &note;
    const Beat *next;
    const Glyphs &glyphs;
};

/// What a sign makes of the text that it stands around, and how the legend tells of it. Rows are
/// gone through from the inside to the outside.
struct RowSign {
    bool (*isOn)(const Note &);
    QString (*around)(const QString &, const Place &);
    Glyph explanation;
};

template <auto Get, auto Value>
bool is(const Note &note)
{
    return (note.*Get)() == Value;
}
template <auto Get>
bool is(const Note &note)
{
    return (note.*Get)();
}

template <char Left, char Right>
QString between(const QString &text, const Place &)
{
    return QLatin1Char(Left) + text + QLatin1Char(Right);
}

/// The note behind this one that is at the same place of the instrument, or the nearest there is.
const Note *noteBehind(const Place &place)
{
    if (place.next == nullptr || !place.next->hasNotes())
        return nullptr;
    if (place.note.string() >= 0)
        if (const auto onString = place.next->noteOnString(place.note.string()))
            return onString.get();
    const auto &notes = place.next->notes();
    const auto distance = [&](const auto &other) {
        return std::abs(other->midi() - place.note.midi());
    };
    return std::min_element(notes.begin(), notes.end(),
                            [&](const auto &left, const auto &right) {
                                return distance(left) < distance(right);
                            })
        ->get();
}

bool leadsUp(const Place &place)
{
    const Note *const next = noteBehind(place);
    if (next == nullptr)
        return true;
    return next->string() == place.note.string() && next->fret() != place.note.fret()
        ? next->fret() > place.note.fret()
        : next->midi() >= place.note.midi();
}

QString hammered(const QString &text, const Place &place)
{
    return text + QLatin1Char(leadsUp(place) ? 'h' : 'p');
}

QString slid(const QString &text, const Place &place)
{
    return text + QLatin1Char(leadsUp(place) ? '/' : '\\');
}

constexpr Glyph rising = {"\u2197", "./"};
constexpr Glyph falling = {"\u2198", ".\\"};
constexpr Glyph fallingOff = {"\u2198", "\\."};
constexpr Glyph risingOff = {"\u2197", "/."};

template <const Glyph &Sign>
QString before(const QString &text, const Place &place)
{
    return place.glyphs.of(Sign) + text;
}
template <const Glyph &Sign>
QString behind(const QString &text, const Place &place)
{
    return text + place.glyphs.of(Sign);
}

constexpr Glyph wave = {"~", "~"};
constexpr Glyph wideWave = {"~~", "~~"};

/// Where a natural harmonic is touched, when that is not at a whole fret: "3.2".
QString touchedAt(const QString &text, const Note &note)
{
    const unsigned partial = note.harmonic().partial;
    if (note.fret() < 0 || Harmonic::partialAtFret(note.fret()) == partial)
        return text;
    double nearest = note.fret();
    double distance = 1;
    for (unsigned node = 1; node < partial; ++node) {
        const double fret = -12 * std::log2(1 - double(node) / partial);
        if (std::gcd(node, partial) == 1 && std::abs(fret - note.fret()) < distance) {
            distance = std::abs(fret - note.fret());
            nearest = fret;
        }
    }
    return QString::number(std::round(nearest * 10) / 10);
}

bool isNatural(const Note &note)
{
    return note.harmonic().type == HarmonicType::Natural;
}

/// Harmonics of a stopped string that is touched or tapped at another fret.
bool isTouched(const Note &note)
{
    const HarmonicType type = note.harmonic().type;
    return type == HarmonicType::Artificial || type == HarmonicType::Tapped;
}

bool isStruckAsHarmonic(const Note &note)
{
    return note.harmonic().type > HarmonicType::Artificial && !isTouched(note);
}

QString natural(const QString &text, const Place &place)
{
    const bool isFret = text == QString::number(place.note.fret());
    return QStringLiteral("<%1>").arg(isFret ? touchedAt(text, place.note) : text);
}

QString touched(const QString &text, const Place &place)
{
    if (place.note.fret() < 0)
        return QStringLiteral("<%1>").arg(text);
    const int node = static_cast<int>(Harmonic::fretOfPartial(place.note.harmonic().partial));
    return QStringLiteral("%1<%2>").arg(text).arg(place.note.fret() + node);
}

/// By `BendType`: %1 is the front of the curve, %2 its highest point, %3 its end where that is
/// bent.
constexpr std::array<const char *, 8> bendForms = {
    "", "b%2", "pb%1", "b=", "r%3", "b%2r%3", "pb%1b%2", "pb%1r%3"};

bool isBent(const Note &note)
{
    return note.bend().type != BendType::NoBend;
}

QString bent(const QString &text, const Place &place)
{
    const Bend &bend = place.note.bend();
    const auto &points = bend.curve.points();
    const auto highest = std::max_element(
        points.begin(), points.end(),
        [](const CurvePoint &left, const CurvePoint &right) { return left.value < right.value; });
    // Posted tablature names the fret that sounds like it: two quarter-tones each.
    const auto tones = [&](int value) {
        return place.glyphs.isPosted && value % 2 == 0 && place.note.fret() >= 0
            ? QString::number(place.note.fret() + value / 2)
            : place.glyphs.tones(value);
    };
    const int end = points.back().value;
    if (place.glyphs.isPosted && bend.type == BendType::Release)
        return QStringLiteral("(%1)r%2").arg(tones(points.front().value),
                                             tones(points.back().value));
    QString form = QLatin1String(bendForms.at(static_cast<std::size_t>(bend.type)));
    form.replace(QLatin1String("%1"), tones(points.front().value));
    form.replace(QLatin1String("%2"), tones(highest->value));
    form.replace(QLatin1String("%3"), end == 0 && !place.glyphs.isPosted ? QString() : tones(end));
    return text + form;
}

template <BendType... Types>
bool isBentAs(const Note &note)
{
    return ((note.bend().type == Types) || ...);
}

/// A row that only tells the legend.
QString unchanged(const QString &text, const Place &)
{
    return text;
}

constexpr Glyph same(const char *text)
{
    return {text, text};
}

constexpr std::array rowSigns = {
    RowSign{isNatural, natural, same("<12> natural harmonic, touched at that fret")},
    RowSign{isTouched, touched, same("5<17> harmonic of fret 5, touched at 17")},
    RowSign{isStruckAsHarmonic, between<'<', '>'>, same("<5> harmonic of the stopped string")},
    RowSign{is<&Note::isGhost>, between<'[', ']'>, same("[7] ghost note")},
    RowSign{is<&Note::isTied>, between<'(', ')'>, same("(7) tied")},
    RowSign{is<&Note::slideIn, SlideIn::FromBelow>,
            before<rising>,
            {"\u21977 slide in from below", "./7 slide in from below"}},
    RowSign{is<&Note::slideIn, SlideIn::FromAbove>,
            before<falling>,
            {"\u21987 slide in from above", ".\\7 slide in from above"}},
    RowSign{isBent, bent, same("")},
    RowSign{isBentAs<BendType::Bend, BendType::BendNRelease, BendType::PreBendNBend>,
            unchanged,
            {"b1 bent up a tone (\u00bd a semitone)", "b1 bent up a tone (.5 a semitone)",
             "7b9 bent until it sounds like fret 9"}},
    RowSign{isBentAs<BendType::PreBend, BendType::PreBendNBend, BendType::PreBendNRelease>,
            unchanged,
            {"pb1 bent before it is struck", "pb1 bent before it is struck",
             "7pb9 bent before it is struck"}},
    RowSign{isBentAs<BendType::HoldBend>, unchanged, same("b= bend held")},
    RowSign{isBentAs<BendType::Release, BendType::BendNRelease, BendType::PreBendNRelease>,
            unchanged,
            {"r bend released", "r bend released", "(9)r7 bend released"}},
    RowSign{is<&Note::vibrato, Vibrato::Slight>, behind<wave>, same("7~ vibrato")},
    RowSign{is<&Note::vibrato, Vibrato::Wide>, behind<wideWave>, same("7~~ wide vibrato")},
    RowSign{is<&Note::isHopo>, hammered, same("5h 7p hammer-on, pull-off to the next note")},
    RowSign{is<&Note::slideOut, SlideOut::Shift>, slid, same("5/ 7\\ slide to the next note")},
    RowSign{is<&Note::slideOut, SlideOut::Legato>, slid,
            same("5/ 7\\ under a slur: next note not struck")},
    RowSign{is<&Note::slideOut, SlideOut::Downwards>,
            behind<fallingOff>,
            {"7\u2198 slide off downwards", "7\\. slide off downwards"}},
    RowSign{is<&Note::slideOut, SlideOut::Upwards>,
            behind<risingOff>,
            {"7\u2197 slide off upwards", "7/. slide off upwards"}},
};

} // namespace

QString withSigns(const QString &place, const Note &note, const Beat *next, const Glyphs &glyphs,
                  Legend &legend)
{
    QString text = place;
    for (const RowSign &sign : rowSigns) {
        if (!sign.isOn(note))
            continue;
        text = sign.around(text, {note, next, glyphs});
        const QString explanation = glyphs.of(sign.explanation);
        if (!explanation.isEmpty())
            legend.use(explanation);
    }
    return text;
}

} // namespace zarn::sheet
