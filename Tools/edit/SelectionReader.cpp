// SPDX-License-Identifier: MIT
#include "edit/SelectionReader.h"

#include "common/Choices.h"
#include "common/NearestWord.h"
#include "edit/PlaceReader.h"
#include "edit/ScriptLine.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QRegularExpression>

#include <algorithm>

namespace zarn::tool {

namespace {

QStringList stepWords()
{
    QStringList words;
    for (const auto &[word, step] : stepChoices())
        words.append(word);
    return words;
}

std::optional<CursorStep> stepOf(const QString &word)
{
    for (const auto &[text, step] : stepChoices())
        if (text == word)
            return static_cast<CursorStep>(step);
    return std::nullopt;
}

[[noreturn]] void refuse(const Word &word, Kind kind, const QString &hint)
{
    const QString nearest = nearestWord(word.text, placeWords(kind));
    throw LineError(
        word.column,
        QStringLiteral("\"%1\" is not a place; %2")
            .arg(word.text,
                 nearest.isEmpty() ? hint : QStringLiteral("did you mean \"%1\"?").arg(nearest)));
}

/// A word of the kind "track", and what stands behind it; "t2" stands for two words.
struct Named {
    Word name;
    Word value;
};

/// Takes "track 2" or "t2" from a list of words and moves behind it; nothing for other words.
std::optional<Named> takeNamed(const std::vector<Word> &words, std::size_t &next)
{
    static const QRegularExpression brief(QStringLiteral("^([tsv])([0-9]{1,9})$"));
    const Word &word = words[next];
    const QRegularExpressionMatch match = brief.match(word.text);
    if (match.hasMatch()) {
        ++next;
        for (const QString &name : stepWords()) {
            // "s2" is a staff, as in all commands.
            if (name.startsWith(match.captured(1)) && name != QStringLiteral("string"))
                return Named{{name, word.column, false}, {match.captured(2), word.column, false}};
        }
    }
    if (!stepOf(word.text))
        return std::nullopt;
    if (next + 1 == words.size())
        throw LineError(
            word.column + word.text.size(),
            QStringLiteral("the number of the %1 is missing, such as %1 2").arg(word.text));
    next += 2;
    return Named{word, words[next - 1]};
}

SelectionValue::Part partOf(const Word &value, const char *thing, unsigned count)
{
    SelectionValue::Part part;
    part.column = value.column;
    if (value.text != QStringLiteral("all"))
        part.number = readPlace(value.text, value, thing, count);
    return part;
}

/// What stands between the names, put together: "3:2 - 4:1" as one word.
void readBarsOrBeats(SelectionValue &selection, const Word &places, const ReadingContext &context)
{
    static const Parameter parameter = {QString(), Kind::Selection};
    if (places.text.contains(QLatin1Char(':'))) {
        if (const auto beats = readBeats(parameter, places, context))
            selection.places = std::get<BeatRange>(*beats);
        else
            refuse(places, Kind::Selection, QStringLiteral("type beats such as 3:2 - 4:1"));
        return;
    }
    const auto bars = readBars(parameter, places, context);
    if (!bars)
        refuse(places, Kind::Selection, QStringLiteral("type bars such as 3-5"));
    selection.places = std::get<BarRange>(*bars);
}

} // namespace

Value readSelection(const Parameter &, const std::vector<Word> &words, const ReadingContext &given)
{
    ReadingContext context = given;
    SelectionValue selection;
    Word places = {QString(), words.front().column, false};
    std::vector<Named> names;
    int allTracks = 0; ///< column of an "all" behind the bars
    for (std::size_t next = 0; next < words.size();) {
        if (auto named = takeNamed(words, next)) {
            names.push_back(*named);
            continue;
        }
        const Word &word = words[next++];
        const bool isWord = word.text.isEmpty() || word.text.at(0).isLetter();
        if (isWord && word.text != QStringLiteral("all") && word.text != QStringLiteral("none"))
            refuse(word, Kind::Selection,
                   QStringLiteral("type bars such as 3-5, beats such as 3:2 - 4:1, all or none"));
        if (places.text.isEmpty())
            places.column = word.column;
        else if (word.text == QStringLiteral("all"))
            allTracks = word.column;
        if (allTracks == 0)
            places.text += word.text;
    }
    if (allTracks != 0)
        names.push_back({{QStringLiteral("track"), allTracks, false},
                         {QStringLiteral("all"), allTracks, false}});
    // The track first: staves are counted in it.
    std::stable_partition(names.begin(), names.end(), [](const Named &named) {
        return named.name.text == QStringLiteral("track");
    });
    for (const Named &named : names) {
        switch (*stepOf(named.name.text)) {
        case CursorStep::Track:
            selection.track = partOf(named.value, "track", context.model->trackCount());
            context.where.track = selection.track->number.value_or(context.where.track);
            break;
        case CursorStep::Staff:
            selection.staff = partOf(named.value, "staff", staffCount(context));
            break;
        case CursorStep::Voice:
            selection.voice = partOf(named.value, "voice", Bar::MaxVoices);
            break;
        default:
            throw LineError(named.name.column,
                            QStringLiteral("a selection has no %1; it has track, staff and voice")
                                .arg(named.name.text));
        }
    }
    selection.isNone = places.text == QStringLiteral("none");
    selection.isAll = places.text == QStringLiteral("all");
    if (selection.isNone)
        return selection;
    if (barCount(context) == 0)
        throw LineError(places.column, QStringLiteral("the score has no bars to select"));
    if (places.text.isEmpty())
        places.text = QStringLiteral("all");
    readBarsOrBeats(selection, places, context);
    return selection;
}

Value readCursorMoves(const Parameter &, const std::vector<Word> &words,
                      const ReadingContext &given)
{
    ReadingContext context = given;
    static const Parameter parameter = {QString(), Kind::CursorMoves};
    static const QRegularExpression number(QStringLiteral("^[0-9]+$"));
    std::vector<CursorMove> moves;
    const auto add = [&moves](CursorStep step, int typed, int column,
                              CursorMove::To to = CursorMove::To::Number) {
        moves.push_back({step, to, typed, column});
    };
    for (std::size_t next = 0; next < words.size();) {
        const Word &word = words[next];
        const bool isFirst = word.text == QStringLiteral("first");
        if (isFirst || word.text == QStringLiteral("last")) {
            const auto step = next + 1 < words.size() ? stepOf(words[next + 1].text) : std::nullopt;
            if (!step)
                throw LineError(word.column + word.text.size(),
                                QStringLiteral("say what: %1 bar, %1 beat, %1 string and so on")
                                    .arg(word.text));
            add(*step, 0, word.column, isFirst ? CursorMove::To::First : CursorMove::To::Last);
            next += 2;
        } else if (const auto named = takeNamed(words, next)) {
            // How many there are is known when the moves before it are done.
            const int typed = named->value.text.toInt();
            if (typed < 1)
                throw LineError(named->value.column,
                                QStringLiteral("\"%1\" is not a %2 number; they are counted from 1")
                                    .arg(named->value.text, named->name.text));
            add(*stepOf(named->name.text), typed, named->value.column);
        } else if (number.match(word.text).hasMatch()) {
            const auto bar = readBar(parameter, word, context);
            add(CursorStep::Bar, std::get<int>(*bar) + 1, word.column);
            ++next;
        } else if (word.text.contains(QLatin1Char(':'))) {
            const auto beat = std::get<BeatPlace>(*readBeat(parameter, word, context));
            add(CursorStep::Bar, static_cast<int>(beat.bar) + 1, word.column);
            add(CursorStep::Beat, static_cast<int>(beat.beat) + 1, word.column);
            ++next;
        } else {
            refuse(word, Kind::CursorMoves,
                   QStringLiteral("type a bar such as 3, a beat such as 3:2, or such as string 2"));
        }
    }
    return moves;
}

QStringList placeWords(Kind kind)
{
    if (kind == Kind::Selection)
        return {QStringLiteral("all"), QStringLiteral("none"), QStringLiteral("track"),
                QStringLiteral("staff"), QStringLiteral("voice")};
    return stepWords() + QStringList{QStringLiteral("first"), QStringLiteral("last")};
}

} // namespace zarn::tool
