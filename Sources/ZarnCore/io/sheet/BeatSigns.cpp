// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/BeatSigns.h>

#include <ZarnCore/io/sheet/BeatTests.h>
#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/model/ZarnBeat.h>

#include <QStringList>

#include <algorithm>
#include <array>

namespace zarn::sheet {

namespace {

struct BeatSign {
    bool (*isOn)(const Beat &);
    Glyph sign;
    const char *meaning;
};

constexpr std::array beatSigns = {
    BeatSign{is<&Beat::isNonArpeggio>, {"[", "["}, "struck at once"},
    BeatSign{is<&Beat::arpeggioDirection, Direction::Up>,
             {"\u2191", "a^"},
             "arpeggio from the lowest note"},
    BeatSign{is<&Beat::arpeggioDirection, Direction::Down>,
             {"\u2193", "av"},
             "arpeggio from the highest note"},
    BeatSign{is<&Beat::brushDirection, Direction::Down>, {"D", "D"}, "strum down"},
    BeatSign{is<&Beat::brushDirection, Direction::Up>, {"U", "U"}, "strum up"},
    BeatSign{is<&Beat::pickStroke, Direction::Down>, {"\u2293", "n"}, "down-stroke"},
    BeatSign{is<&Beat::pickStroke, Direction::Up>, {"V", "V"}, "up-stroke"},
    BeatSign{is<&Beat::bassAttack, BassAttack::Slap>, {"S", "S"}, "slapped"},
    BeatSign{is<&Beat::bassAttack, BassAttack::Pop>, {"P", "P"}, "popped"},
    BeatSign{any<noteHas<&Note::isRightHandTapped>>, {"T", "T"}, "tapped"},
    BeatSign{any<noteHas<&Note::isLeftHandTapped>>, {"+", "+"}, "tapped by the fretting hand"},
    BeatSign{is<&Beat::golpe, ZarnGolpeType::Thumb>, {"Gp", "Gp"}, "golpe with the thumb"},
    BeatSign{is<&Beat::golpe, ZarnGolpeType::Finger>, {"Ga", "Ga"}, "golpe with a finger"},
    BeatSign{any<hasAccent<AccentFlag::Accent>>, {">", ">"}, "accent"},
    BeatSign{any<hasAccent<AccentFlag::HeavyAccent>>, {"^", "^"}, "strong accent"},
    BeatSign{any<hasAccent<AccentFlag::SoftAccent>>, {"<>", "<>"}, "soft accent"},
    BeatSign{any<hasAccent<AccentFlag::Tenuto>>, {"\u2013", "-"}, "tenuto"},
    BeatSign{any<hasAccent<AccentFlag::Staccato>>, {".", "."}, "staccato"},
    BeatSign{any<hasAccent<AccentFlag::Staccatissimo>>, {"'", "'"}, "staccatissimo"},
    BeatSign{is<&Beat::breath, BreathSign::Breath>, {",", ","}, "breath behind the note"},
    BeatSign{is<&Beat::breath, BreathSign::Caesura>, {"//", "//"}, "break behind the note"},
};

constexpr Glyph strokes = {"\u2261", "="};
constexpr Glyph toNext = {"\u2192", ">"};

/// The value of each stroke: 32 for 32nds.
QString tremoloOf(const Beat &beat, const Glyphs &glyphs, Legend &legend)
{
    constexpr int eighth = 8;
    const int value = static_cast<int>(beat.rhythmValue().getNoteValue());
    const int flags = std::max(0, value - static_cast<int>(RhythmValue::NoteValue::Quarter));
    QString text;
    const auto add = [&](int doublings, const QString &end, const char *meaning) {
        const QString sign = glyphs.of(strokes) + QString::number(eighth << doublings) + end;
        legend.use(QStringLiteral("%1 %2").arg(sign, QLatin1String(meaning)));
        text += sign;
    };
    if (beat.tremolo() != 0)
        add(static_cast<int>(beat.tremolo()) - 1, QString(), "tremolo of that value");
    if (beat.tremoloToNext() != 0)
        add(flags + static_cast<int>(beat.tremoloToNext()) - 1, glyphs.of(toNext),
            "tremolo with the next beat");
    return text;
}

struct Technique {
    bool (*isOn)(const Beat &);
    Glyph words;
    const char *meaning; ///< empty for words that say it themselves
};

template <HarmonicType Type>
bool isHarmonic(const Note &note)
{
    return note.harmonic().type == Type;
}

constexpr Glyph same(const char *text)
{
    return {text, text};
}

constexpr std::array techniques = {
    Technique{any<isHarmonic<HarmonicType::Artificial>>, same("A.H."), "artificial harmonic"},
    Technique{any<isHarmonic<HarmonicType::Pinch>>, same("P.H."), "pinch harmonic"},
    Technique{any<isHarmonic<HarmonicType::Tapped>>, same("T.H."), "tapped harmonic"},
    Technique{any<isHarmonic<HarmonicType::Semi>>, same("S.H."), "semi-harmonic"},
    Technique{any<isHarmonic<HarmonicType::Feedback>>, same("Fdbk."), "feedback"},
    Technique{any<noteIs<&Note::ornament, Ornament::Turn>>, same("turn"), ""},
    Technique{any<noteIs<&Note::ornament, Ornament::InvertedTurn>>, same("inverted turn"), ""},
    Technique{any<noteIs<&Note::ornament, Ornament::LowerMordent>>, same("mordent"), ""},
    Technique{any<noteIs<&Note::ornament, Ornament::UpperMordent>>, same("upper mordent"), ""},
    Technique{any<noteIs<&Note::slideOut, SlideOut::PickScrapeDown>>, same("scrape down"), ""},
    Technique{any<noteIs<&Note::slideOut, SlideOut::PickScrapeUp>>, same("scrape up"), ""},
    Technique{is<&Beat::fadding, Fadding::FadeIn>, same("fade in"), ""},
    Technique{is<&Beat::fadding, Fadding::FadeOut>, same("fade out"), ""},
    Technique{is<&Beat::fadding, Fadding::VolumeSwell>, same("volume swell"), ""},
    Technique{is<&Beat::wah, WahWah::Closed>, same("wah closed"), ""},
    Technique{is<&Beat::wah, WahWah::Open>, same("wah open"), ""},
};

/// By `WhammyBarType`: %1 is the front of the curve, %2 what lies farthest from rest, %3 its end.
constexpr std::array<const char *, 6> whammyForms = {"",         "bar %3",     "bar dip %2",
                                                     "bar held", "bar pre %1", "bar pre %1 to %3"};

QString whammyBarOf(const Beat &beat, const Glyphs &glyphs)
{
    const WhammyBar &bar = beat.whammyBar();
    if (bar.type == WhammyBarType::NoWhammyBar)
        return QString();
    const auto &points = bar.curve.points();
    const auto farthest = std::max_element(points.begin(), points.end(),
                                           [](const CurvePoint &left, const CurvePoint &right) {
                                               return std::abs(left.value) < std::abs(right.value);
                                           });
    const auto tones = [&](int value) {
        return (value > 0 ? QStringLiteral("+") : QString()) + glyphs.tones(value);
    };
    QString form = QLatin1String(whammyForms.at(static_cast<std::size_t>(bar.type)));
    form.replace(QLatin1String("%1"), tones(points.front().value));
    form.replace(QLatin1String("%2"), tones(farthest->value));
    form.replace(QLatin1String("%3"), tones(points.back().value));
    return form;
}

template <bool (*IsOn)(const Beat &), const char *const &Words>
QString wordsWhere(const Beat &beat, const Glyphs &)
{
    return IsOn(beat) ? QLatin1String(Words) : QString();
}

constexpr const char *palmMuted = "PM";
constexpr const char *ringing = "let ring";
constexpr const char *barVibrato = "bar~";
constexpr const char *wideBarVibrato = "wide bar~";
constexpr const char *slashed = "slashes";
constexpr const char *cue = "cue";

QString trillOf(const Beat &beat, const Glyphs &glyphs)
{
    constexpr int quarterTones = 2; // in a semitone
    for (const auto &note : beat.notes())
        if (const int interval = note->trill().interval; interval != 0)
            return QStringLiteral("tr") + glyphs.tones(interval * quarterTones);
    return QString();
}

bool isTiedOn(const Beat &beat)
{
    return any<noteHas<&Note::isTied>>(beat);
}

QString romanNumber(unsigned number)
{
    struct Numeral {
        unsigned value;
        const char *text;
    };
    constexpr std::array numerals = {Numeral{100, "C"}, Numeral{90, "XC"}, Numeral{50, "L"},
                                     Numeral{40, "XL"}, Numeral{10, "X"},  Numeral{9, "IX"},
                                     Numeral{5, "V"},   Numeral{4, "IV"},  Numeral{1, "I"}};
    QString text;
    for (const Numeral &numeral : numerals)
        for (; number >= numeral.value; number -= numeral.value)
            text += QLatin1String(numeral.text);
    return text;
}

QString barreOf(const Beat &beat, const Glyphs &glyphs)
{
    constexpr Glyph half = {"\u00bd", "1/2"};
    const Barre barre = beat.barre();
    if (barre.fret == 0)
        return QString();
    return (barre.isHalf() ? glyphs.of(half) : QString()) + QLatin1Char('C')
        + romanNumber(barre.fret);
}

} // namespace

QString signsOf(const Beat &beat, const Glyphs &glyphs, Legend &legend)
{
    QString text;
    for (const BeatSign &sign : beatSigns) {
        if (!sign.isOn(beat))
            continue;
        const QString written = glyphs.of(sign.sign);
        legend.use(QStringLiteral("%1 %2").arg(written, QLatin1String(sign.meaning)));
        text += written;
    }
    return text + tremoloOf(beat, glyphs, legend);
}

QStringList techniquesOf(const Beat &beat, const Glyphs &glyphs, Legend &legend)
{
    QStringList words;
    for (const Technique &technique : techniques) {
        if (!technique.isOn(beat))
            continue;
        words.append(glyphs.of(technique.words));
        if (*technique.meaning != '\0')
            legend.use(QStringLiteral("%1 %2").arg(words.last(), QLatin1String(technique.meaning)));
    }
    if (beat.rasgueado() != RasgueadoType::None)
        words.append(QStringLiteral("rasg. %1")
                         .arg(QString::fromStdString(rasgueadoToString(beat.rasgueado()))
                                  .section(QLatin1Char('_'), 0, 0)));
    if (const QString bar = whammyBarOf(beat, glyphs); !bar.isEmpty()) {
        words.append(bar);
        legend.use(QStringLiteral("bar -1 whammy bar, down a tone"));
    }
    return words;
}

const std::vector<RunKind> &runKinds()
{
    static const std::vector<RunKind> kinds = {
        {wordsWhere<any<noteHas<&Note::isPalmMuted>>, palmMuted>, nullptr, Stretch::Style::Dashes,
         "PM palm mute"},
        {wordsWhere<any<noteHas<&Note::letsRing>>, ringing>, nullptr, Stretch::Style::Dashes, ""},
        {trillOf, isTiedOn, Stretch::Style::Wave, "tr1 trill with the note a tone above"},
        {wordsWhere<is<&Beat::barVibrato, Vibrato::Slight>, barVibrato>, nullptr,
         Stretch::Style::Wave, "bar~ vibrato with the whammy bar"},
        {wordsWhere<is<&Beat::barVibrato, Vibrato::Wide>, wideBarVibrato>, nullptr,
         Stretch::Style::Wave, "bar~ vibrato with the whammy bar"},
        {barreOf, nullptr, Stretch::Style::Dashes, "CVII barre at that fret"},
        {wordsWhere<is<&Beat::isSlashed>, slashed>, nullptr, Stretch::Style::Dashes, ""},
        {wordsWhere<is<&Beat::isCue>, cue>, nullptr, Stretch::Style::Dashes, ""},
    };
    return kinds;
}

} // namespace zarn::sheet
