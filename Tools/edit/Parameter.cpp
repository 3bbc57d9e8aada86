// SPDX-License-Identifier: MIT
#include "edit/Parameter.h"

#include "edit/MusicReader.h"
#include "edit/NearestWord.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QRegularExpression>

#include <array>

namespace zarn::tool {

namespace {

/// One kind: what it takes, in words, and how it is read. A reader answers nothing for a word
/// that is none of its kind.
using Reader = std::optional<Value> (*)(const Parameter &, const Word &, const ReadingContext &);
struct KindRow {
    Kind kind;
    const char *expectation;
    Reader read;
};

std::optional<int> wholeNumber(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? std::optional<int>(number) : std::nullopt;
}

/// A place typed from 1 as an index from 0; checks it against a count, with one place more for
/// what is put in between.
unsigned place(const QString &text, const Word &word, const char *thing, unsigned count,
               const ReadingContext &context)
{
    const auto number = wholeNumber(text);
    if (!number)
        throw LineError(
            word.column,
            QStringLiteral("\"%1\" is no number of a %2").arg(text, QLatin1String(thing)));
    if (*number < 1 || (context.knowsCounts && static_cast<unsigned>(*number) > count))
        throw LineError(word.column,
                        QStringLiteral("there is no %1 %2; they go from 1 to %3")
                            .arg(QLatin1String(thing))
                            .arg(*number)
                            .arg(count));
    return static_cast<unsigned>(*number) - 1;
}

unsigned barCount(const ReadingContext &context)
{
    return context.model->masterTrack()->masterBarCount();
}

std::optional<Value> readWhole(const Parameter &parameter, const Word &word, const ReadingContext &)
{
    const auto number = wholeNumber(word.text);
    if (!number || *number < parameter.least || *number > parameter.most)
        return std::nullopt;
    return *number;
}

std::optional<Value> readDecimal(const Parameter &parameter, const Word &word,
                                 const ReadingContext &)
{
    bool isNumber = false;
    const double number = word.text.toDouble(&isNumber);
    if (!isNumber || !(number >= parameter.least && number <= parameter.most))
        return std::nullopt;
    return number;
}

std::optional<Value> readSwitch(const Parameter &, const Word &word, const ReadingContext &)
{
    if (word.text == QStringLiteral("on"))
        return true;
    if (word.text == QStringLiteral("off"))
        return false;
    return std::nullopt;
}

std::optional<Value> readText(const Parameter &, const Word &word, const ReadingContext &)
{
    return word.text;
}

std::optional<Value> readChoice(const Parameter &parameter, const Word &word,
                                const ReadingContext &)
{
    for (const auto &[text, number] : *parameter.choices)
        if (text.compare(word.text, Qt::CaseInsensitive) == 0)
            return number;
    return std::nullopt;
}

std::optional<Value> readBar(const Parameter &, const Word &word, const ReadingContext &context)
{
    return static_cast<int>(place(word.text, word, "bar", barCount(context), context));
}

std::optional<Value> readBarGap(const Parameter &, const Word &word, const ReadingContext &context)
{
    return static_cast<int>(place(word.text, word, "bar", barCount(context) + 1, context));
}

std::optional<Value> readBars(const Parameter &, const Word &word, const ReadingContext &context)
{
    const unsigned count = barCount(context);
    if (word.text == QStringLiteral("all") && count > 0)
        return BarRange{0, count - 1};
    const QStringList ends = word.text.split(QLatin1Char('-'));
    if (ends.size() > 2)
        return std::nullopt;
    const BarRange bars = {place(ends.first(), word, "bar", count, context),
                           place(ends.last(), word, "bar", count, context)};
    if (bars.last < bars.first)
        throw LineError(word.column,
                        QStringLiteral("the bars %1 end before they begin; type %2-%3")
                            .arg(word.text, ends.last(), ends.first()));
    return bars;
}

BeatPlace beatPlace(const QString &text, const Word &word, const ReadingContext &context)
{
    const QStringList numbers = text.split(QLatin1Char(':'));
    if (numbers.size() != 2)
        throw LineError(
            word.column,
            QStringLiteral("\"%1\" is no beat; type bar and beat, such as 3:2").arg(text));
    const auto beat = wholeNumber(numbers.last());
    if (!beat || *beat < 1)
        throw LineError(word.column,
                        QStringLiteral("\"%1\" is no number of a beat; the first beat "
                                       "of bar 3 is 3:1")
                            .arg(numbers.last()));
    return {place(numbers.first(), word, "bar", barCount(context), context),
            static_cast<unsigned>(*beat) - 1};
}

std::optional<Value> readBeat(const Parameter &, const Word &word, const ReadingContext &context)
{
    return beatPlace(word.text, word, context);
}

std::optional<Value> readBeats(const Parameter &, const Word &word, const ReadingContext &context)
{
    const QStringList ends = word.text.split(QLatin1Char('-'));
    if (ends.size() > 2)
        return std::nullopt;
    BeatRange beats;
    beats.first = beatPlace(ends.first(), word, context);
    if (ends.size() == 1) {
        beats.last = beats.first;
    } else if (ends.last().contains(QLatin1Char(':'))) {
        beats.last = beatPlace(ends.last(), word, context);
    } else {
        const QString bar = ends.first().section(QLatin1Char(':'), 0, 0);
        beats.last = beatPlace(bar + QLatin1Char(':') + ends.last(), word, context);
    }
    const auto order = [](const BeatPlace &at) { return std::pair(at.bar, at.beat); };
    if (order(beats.last) < order(beats.first))
        throw LineError(word.column,
                        QStringLiteral("the beats %1 end before they begin").arg(word.text));
    return beats;
}

std::optional<Value> readTrack(const Parameter &, const Word &word, const ReadingContext &context)
{
    return static_cast<int>(place(word.text, word, "track", context.model->trackCount(), context));
}

std::optional<Value> readTrackGap(const Parameter &, const Word &word,
                                  const ReadingContext &context)
{
    return static_cast<int>(
        place(word.text, word, "track", context.model->trackCount() + 1, context));
}

std::optional<Value> readString(const Parameter &, const Word &word, const ReadingContext &context)
{
    const auto track = context.model->track(context.where.track);
    const auto staff = track ? track->staff(context.where.staff) : nullptr;
    const unsigned count = staff ? staff->tuning().stringCount() : 0;
    if (count == 0)
        throw LineError(word.column,
                        QStringLiteral("track %1 has no strings; name a track that "
                                       "has, such as t2")
                            .arg(context.where.track + 1));
    ReadingContext exact = context;
    exact.knowsCounts = true;
    return static_cast<int>(count - 1 - place(word.text, word, "string", count, exact));
}

template <class T, std::optional<T> (*Parse)(const QString &)>
std::optional<Value> readMusic(const Parameter &, const Word &word, const ReadingContext &)
{
    if (auto value = Parse(word.text))
        return Value(*std::move(value));
    return std::nullopt;
}

std::optional<Value> readPitches(const Parameter &, const Word &word, const ReadingContext &)
{
    const auto pitch = parsePitch(word.text);
    return pitch ? std::optional<Value>(std::vector<int>{pitch->midi}) : std::nullopt;
}

constexpr std::array<KindRow, 19> Kinds = {{
    {Kind::Whole, "a whole number", readWhole},
    {Kind::Decimal, "a number", readDecimal},
    {Kind::Switch, "on or off", readSwitch},
    {Kind::Text, "a text, in \"quotes\" when it has spaces", readText},
    {Kind::Choice, "one of", readChoice},
    {Kind::Bar, "a bar such as 5", readBar},
    {Kind::BarGap, "a bar such as 5, or the number behind the last", readBarGap},
    {Kind::Bars, "a bar such as 5, bars such as 5-8, or all", readBars},
    {Kind::Beat, "bar and beat such as 3:2", readBeat},
    {Kind::Beats, "beats such as 3:2, 3:2-4 or 3:2-4:1", readBeats},
    {Kind::Track, "a track such as 2", readTrack},
    {Kind::TrackGap, "a track such as 2, or the number behind the last", readTrackGap},
    {Kind::String, "a string, 1 being the highest", readString},
    {Kind::Rhythm, "a rhythm such as quarter, e., h or e/3:2 (a triplet eighth)",
     readMusic<RhythmValue, parseRhythm>},
    {Kind::Time, "a time signature such as 3/4", readMusic<TimeSignature, parseTime>},
    {Kind::Key, "a key such as G, F#m, Ebm or Bb", readMusic<KeySignature, parseKey>},
    {Kind::Pitch, "a note such as C#4 (C4 is middle C) or a MIDI key",
     readMusic<PitchValue, parsePitch>},
    {Kind::Pitches, "notes such as E2 A2 D3, the lowest string first", readPitches},
    {Kind::Passes, "passes such as 1, 1,3 or 1-3, or none", readMusic<int, parsePasses>},
}};

const KindRow &rowOf(Kind kind)
{
    return Kinds.at(static_cast<std::size_t>(kind));
}

} // namespace

namespace {

/// The expectation in a message: a long list of words belongs into the help.
QString shortExpectation(const Parameter &parameter)
{
    constexpr std::size_t LongList = 20;
    if (parameter.choices != nullptr && parameter.choices->size() > LongList)
        return QStringLiteral("one of the %1 words that \"help\" lists for this command")
            .arg(parameter.choices->size());
    return expectation(parameter);
}

} // namespace

Value readValue(const Parameter &parameter, const Word &word, const ReadingContext &context)
{
    if (auto value = rowOf(parameter.kind).read(parameter, word, context))
        return *std::move(value);
    const QString nearest = nearestWord(word.text, suggestions(parameter));
    throw LineError(word.column,
                    QStringLiteral("\"%1\" is not right for %2; %3")
                        .arg(word.text, parameter.name,
                             nearest.isEmpty()
                                 ? QStringLiteral("type ") + shortExpectation(parameter)
                                 : QStringLiteral("did you mean \"%1\"?").arg(nearest)));
}

bool readWhere(const Word &word, const ReadingContext &context, Where &where)
{
    static const QRegularExpression pattern(QStringLiteral("^([tsv])([0-9]{1,6})$"));
    const QRegularExpressionMatch match = pattern.match(word.text);
    if (!match.hasMatch() || word.isQuoted)
        return false;
    const QString number = match.captured(2);
    switch (match.captured(1).at(0).toLatin1()) {
    case 't':
        where.track = place(number, word, "track", context.model->trackCount(), context);
        break;
    case 's': {
        const auto track = context.model->track(where.track);
        where.staff = place(number, word, "staff", track ? track->staffCount() : 1, context);
        break;
    }
    default:
        where.voice = place(number, word, "voice", Bar::MaxVoices, {context.model, where, true});
    }
    return true;
}

QString expectation(const Parameter &parameter)
{
    const QString text = QLatin1String(rowOf(parameter.kind).expectation);
    switch (parameter.kind) {
    case Kind::Whole:
    case Kind::Decimal:
        return QStringLiteral("%1 from %2 to %3")
            .arg(text)
            .arg(parameter.least)
            .arg(parameter.most);
    case Kind::Choice:
        return text + QLatin1Char(' ') + suggestions(parameter).join(QStringLiteral(", "));
    default:
        return text;
    }
}

QStringList suggestions(const Parameter &parameter)
{
    if (parameter.kind == Kind::Switch)
        return {QStringLiteral("on"), QStringLiteral("off")};
    QStringList words;
    if (parameter.choices != nullptr)
        for (const auto &[text, number] : *parameter.choices)
            words.append(text);
    return words;
}

} // namespace zarn::tool
