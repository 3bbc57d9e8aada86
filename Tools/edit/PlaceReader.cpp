// SPDX-License-Identifier: MIT
#include "edit/PlaceReader.h"

#include "edit/ScriptLine.h"

#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::tool {

namespace {

std::optional<int> wholeNumber(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? std::optional<int>(number) : std::nullopt;
}

BeatPlace beatPlace(const QString &text, const Word &word, const ReadingContext &context,
                    unsigned newBars = 0)
{
    const QStringList numbers = text.split(QLatin1Char(':'));
    if (numbers.size() != 2)
        throw LineError(
            word.column,
            QStringLiteral("\"%1\" is not a beat; type bar and beat, such as 3:2").arg(text));
    const auto beat = wholeNumber(numbers.last());
    if (!beat || *beat < 1)
        throw LineError(word.column,
                        QStringLiteral("\"%1\" is not a beat number; the first beat of bar 3 "
                                       "is 3:1")
                            .arg(numbers.last()));
    return {readPlace(numbers.first(), word, "bar", barCount(context) + newBars),
            static_cast<unsigned>(*beat) - 1};
}

} // namespace

unsigned barCount(const ReadingContext &context)
{
    return context.model->masterTrack()->masterBarCount();
}

unsigned staffCount(const ReadingContext &context)
{
    const auto track = context.model->track(context.where.track);
    return track ? track->staffCount() : 1;
}

unsigned readPlace(const QString &text, const Word &word, const char *thing, unsigned count)
{
    const auto number = wholeNumber(text);
    if (!number)
        throw LineError(
            word.column,
            QStringLiteral("\"%1\" is not a %2 number").arg(text, QLatin1String(thing)));
    if (count == 0)
        throw LineError(word.column,
                        QStringLiteral("the score has no %1s yet").arg(QLatin1String(thing)));
    if (*number < 1 || static_cast<unsigned>(*number) > count)
        throw LineError(word.column,
                        (count == 1 ? QStringLiteral("there is no %1 %2, only %1 1")
                                    : QStringLiteral("there is no %1 %2; they go from 1 to %3"))
                            .arg(QLatin1String(thing))
                            .arg(*number)
                            .arg(count));
    return static_cast<unsigned>(*number) - 1;
}

std::optional<Value> readBar(const Parameter &, const Word &word, const ReadingContext &context)
{
    return static_cast<int>(readPlace(word.text, word, "bar", barCount(context)));
}

std::optional<Value> readBarGap(const Parameter &, const Word &word, const ReadingContext &context)
{
    return static_cast<int>(readPlace(word.text, word, "bar", barCount(context) + 1));
}

std::optional<Value> readBars(const Parameter &, const Word &word, const ReadingContext &context)
{
    const unsigned count = barCount(context);
    if (word.text == QStringLiteral("all") && count > 0)
        return BarRange{0, count - 1};
    const QStringList ends = word.text.split(QLatin1Char('-'));
    if (ends.size() > 2)
        return std::nullopt;
    const BarRange bars = {readPlace(ends.first(), word, "bar", count),
                           readPlace(ends.last(), word, "bar", count)};
    if (bars.last < bars.first)
        throw LineError(word.column,
                        QStringLiteral("bars %1 end before they begin; type %2-%3")
                            .arg(word.text, ends.last(), ends.first()));
    return bars;
}

std::optional<Value> readBeat(const Parameter &, const Word &word, const ReadingContext &context)
{
    return beatPlace(word.text, word, context);
}

std::optional<Value> readNewBeat(const Parameter &, const Word &word, const ReadingContext &context)
{
    return beatPlace(word.text, word, context, 1);
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
                        QStringLiteral("beats %1 end before they begin").arg(word.text));
    return beats;
}

std::optional<Value> readTrack(const Parameter &, const Word &word, const ReadingContext &context)
{
    return static_cast<int>(readPlace(word.text, word, "track", context.model->trackCount()));
}

std::optional<Value> readTrackGap(const Parameter &, const Word &word,
                                  const ReadingContext &context)
{
    return static_cast<int>(readPlace(word.text, word, "track", context.model->trackCount() + 1));
}

std::optional<Value> readStrip(const Parameter &parameter, const Word &word,
                               const ReadingContext &context)
{
    constexpr int master = -1;
    if (word.text == QLatin1String("master"))
        return master;
    return readTrack(parameter, word, context);
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
    return static_cast<int>(count - 1 - readPlace(word.text, word, "string", count));
}

} // namespace zarn::tool
