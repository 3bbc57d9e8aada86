// SPDX-License-Identifier: MIT
#include "edit/Parameter.h"

#include "common/MusicReader.h"
#include "common/NearestWord.h"
#include "common/TrackWord.h"
#include "edit/PlaceReader.h"
#include "edit/ScriptLine.h"
#include "edit/SelectionReader.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnDrumKeys.h>

#include <QRegularExpression>

#include <array>

namespace zarn::tool {

namespace {

/// One kind: what it takes, in words, and how it is read. A reader answers nothing for a word
/// that is none of its kind.
using Reader = std::optional<Value> (*)(const Parameter &, const Word &, const ReadingContext &);
using ListReader = Value (*)(const Parameter &, const std::vector<Word> &, const ReadingContext &);
struct KindRow {
    Kind kind;
    const char *expectation;
    Reader read;
    const char *shape = ".*";     ///< of words that are meant for it, right or wrong
    ListReader readAll = nullptr; ///< of kinds that take all words
};

std::optional<int> wholeNumber(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? std::optional<int>(number) : std::nullopt;
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

std::optional<Value> readPitch(const Parameter &, const Word &word, const ReadingContext &context)
{
    const auto track = context.model->track(context.where.track);
    if (track && InstrumentSet::isUnpitched(track->type()))
        if (const int key = drumKeyOf(word.text.toLower().toStdString()); key >= 0)
            return PitchValue{key, std::nullopt};
    if (auto pitch = parsePitch(word.text))
        return *pitch;
    return std::nullopt;
}

std::optional<Value> readMusicText(const Parameter &, const Word &word, const ReadingContext &)
{
    return word.isQuoted ? std::optional<Value>(word.text) : std::nullopt;
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

template <class T, std::optional<T> (*Parse)(const QString &)>
std::optional<Value> readMusic(const Parameter &, const Word &word, const ReadingContext &)
{
    if (auto value = Parse(word.text))
        return Value(*std::move(value));
    return std::nullopt;
}

Value readWords(const Parameter &, const std::vector<Word> &words, const ReadingContext &)
{
    QStringList texts;
    for (const Word &word : words)
        texts.append(word.text);
    return texts.join(QLatin1Char(' '));
}

std::optional<Value> readNone(const Parameter &, const Word &, const ReadingContext &)
{
    return std::nullopt;
}

/// What is read for a name of a list.
int numberOf(const Parameter &list, const Word &word, const ReadingContext &context)
{
    Parameter name = list;
    name.kind = Kind::Choice;
    return std::get<int>(readValue(name, word, context));
}

Value readNamedValues(const Parameter &parameter, const std::vector<Word> &words,
                      const ReadingContext &context)
{
    std::vector<NamedValue> read;
    for (std::size_t i = 0; i < words.size(); i += 2) {
        const Word &name = words[i];
        const int number = numberOf(parameter, name, context);
        for (const NamedValue &other : read)
            if (other.number == number)
                throw LineError(name.column,
                                QStringLiteral("\"%1\" stands here twice").arg(name.text));
        if (i + 1 == words.size())
            throw LineError(name.column + name.text.size(),
                            QStringLiteral("the value of \"%1\" is missing").arg(name.text));
        read.push_back({number, words[i + 1].text, words[i + 1].column});
    }
    return read;
}

Value readSeveral(const Parameter &parameter, const std::vector<Word> &words,
                  const ReadingContext &context)
{
    std::vector<int> numbers;
    if (words.size() == 1 && words.front().text == QLatin1String("none"))
        return numbers;
    for (const Word &word : words)
        numbers.push_back(numberOf(parameter, word, context));
    return numbers;
}

constexpr const char *Number = "[0-9]+";

constexpr std::array<KindRow, 27> Kinds = {{
    {Kind::Whole, "a whole number", readWhole},
    {Kind::Decimal, "a number", readDecimal},
    {Kind::Switch, "on or off", readSwitch},
    {Kind::Text, "a text, in \"quotes\" when it has spaces", readText},
    {Kind::Choice, "one of", readChoice, "[^0-9].*"},
    {Kind::Bar, "a bar such as 5", readBar, Number},
    {Kind::BarGap, "a bar such as 5, or the number behind the last", readBarGap, Number},
    {Kind::Bars, "a bar such as 5, bars such as 5-8, or all", readBars, "[0-9][0-9-]*|all"},
    {Kind::Beat, "bar and beat such as 3:2", readBeat, "[0-9]+:.*"},
    {Kind::NewBeat, "bar and beat such as 3:2, or the beginning of a bar behind the last",
     readNewBeat, "[0-9]+:.*"},
    {Kind::Beats, "beats such as 3:2, 3:2-4 or 3:2-4:1", readBeats, "[0-9]+:.*"},
    {Kind::Selection,
     "bars such as 3 or 3-5, beats such as 3:2 - 4:1, all or none, then track, staff and voice, "
     "each with a number or all",
     readNone, ".*", readSelection},
    {Kind::CursorMoves,
     "a bar such as 3, a beat such as 3:2, track, staff, voice, bar, beat or string with a number, "
     "or such as first bar, last beat",
     readNone, ".*", readCursorMoves},
    {Kind::Track, "a track such as 2", readTrack},
    {Kind::TrackGap, "a track such as 2, or the number behind the last", readTrackGap},
    {Kind::String, "a string, 1 being the highest", readString, Number},
    {Kind::Rhythm, "a rhythm such as quarter, q., 8th, 1/8 or e/3 (an eighth of a triplet)",
     readMusic<RhythmValue, parseRhythm>},
    {Kind::Time, "a time signature such as 3/4", readMusic<TimeSignature, parseTime>},
    {Kind::Key, "a key such as G, F#m, Ebm or Bb", readMusic<KeySignature, parseKey>},
    {Kind::Pitch, "a note as it sounds, such as C#4 (C4 is middle C), a MIDI key, or on drums kick",
     readPitch},
    {Kind::Music, "music in \"quotes\", such as \"6:0e [5:2 4:2]q. rh\"", readMusicText},
    {Kind::Instrument, "an instrument such as guitar, drums or \"Overdriven Guitar\"", readText},
    {Kind::Tuning,
     "the name of a tuning such as \"Drop D\", or the notes of the strings, the lowest first",
     readNone, ".*", readWords},
    {Kind::Passes, "passes such as 1, 1,3 or 1-3, or none", readMusic<int, parsePasses>},
    {Kind::Strip, "a track such as 2, or master", readStrip},
    {Kind::NamedValues, "names, each with its value behind it; the names are", readNone, "[^0-9].*",
     readNamedValues},
    {Kind::Several, "none, or one or several of", readNone, "[^0-9].*", readSeveral},
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
        return QStringLiteral("one of the %1 words that \"help\" and the name of the command list")
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
                    QStringLiteral("\"%1\" is not what %2 takes; %3")
                        .arg(word.text, parameter.name,
                             nearest.isEmpty()
                                 ? QStringLiteral("type ") + shortExpectation(parameter)
                                 : QStringLiteral("did you mean \"%1\"?").arg(nearest)));
}

bool takesAllWords(const Parameter &parameter)
{
    return rowOf(parameter.kind).readAll != nullptr;
}

Value readValues(const Parameter &parameter, const std::vector<Word> &words,
                 const ReadingContext &context)
{
    return rowOf(parameter.kind).readAll(parameter, words, context);
}

bool looksLike(const Parameter &parameter, const Word &word)
{
    const QString shape =
        QStringLiteral("^(?:%1)$").arg(QLatin1String(rowOf(parameter.kind).shape));
    if (parameter.kind == Kind::Music)
        return word.isQuoted;
    return !word.isQuoted && QRegularExpression(shape).match(word.text).hasMatch();
}

bool isAssumable(const Parameter &parameter, const ReadingContext &context)
{
    switch (parameter.kind) {
    case Kind::Bars:
    case Kind::Beats:
    case Kind::String:
        return context.hasCursor || context.hasSelection;
    case Kind::Bar:
    case Kind::BarGap:
    case Kind::Beat:
    case Kind::NewBeat:
        return context.hasCursor;
    default:
        return true;
    }
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
        where.track = readPlace(number, word, "track", context.model->trackCount());
        break;
    case 's':
        where.staff = readPlace(number, word, "staff", staffCount({context.model, where}));
        break;
    default:
        where.voice = readPlace(number, word, "voice", Bar::MaxVoices);
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
    case Kind::NamedValues:
    case Kind::Several:
        return text + QLatin1Char(' ') + suggestions(parameter).join(QStringLiteral(", "));
    default:
        return text;
    }
}

QString assumption(const Parameter &parameter)
{
    if (parameter.presence != Presence::Assumed)
        return QString();
    switch (parameter.kind) {
    case Kind::Bars:
    case Kind::Beats:
        return QStringLiteral("what is selected, else where the cursor is");
    case Kind::String:
        return QStringLiteral("of what is selected the string of each note, else the string that "
                              "the cursor is on");
    case Kind::Switch:
        return suggestions(parameter).first();
    case Kind::Choice:
        return suggestions(parameter).first();
    default:
        return QStringLiteral("where the cursor is");
    }
}

QString missingAssumption(const Parameter &parameter)
{
    if (parameter.presence != Presence::Assumed)
        return QString();
    const bool isRange = parameter.kind == Kind::Bars || parameter.kind == Kind::Beats;
    return isRange ? QStringLiteral("nothing is selected and the cursor is nowhere")
                   : QStringLiteral("the cursor is nowhere");
}

QStringList suggestions(const Parameter &parameter)
{
    if (parameter.kind == Kind::Selection || parameter.kind == Kind::CursorMoves)
        return placeWords(parameter.kind);
    if (parameter.kind == Kind::Switch)
        return {QStringLiteral("on"), QStringLiteral("off")};
    if (parameter.kind == Kind::Instrument)
        return trackWords();
    QStringList words;
    if (parameter.choices != nullptr)
        for (const auto &[text, number] : *parameter.choices)
            words.append(text);
    return words;
}

} // namespace zarn::tool
