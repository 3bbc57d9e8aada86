// SPDX-License-Identifier: MIT
#include "edit/CommandReader.h"

#include "common/NearestWord.h"
#include "edit/Commands.h"
#include "edit/ScriptLine.h"

#include <algorithm>

namespace zarn::tool {

namespace {

QStringList commandNames()
{
    QStringList names;
    for (const CommandArea &area : commandAreas())
        for (const Command &command : area.commands)
            names.append(command.name);
    return names;
}

QString unknownCommand(const QString &name)
{
    const QString nearest = nearestWord(name, commandNames());
    return nearest.isEmpty()
        ? QStringLiteral("\"%1\" is not a command; \"help\" lists them").arg(name)
        : QStringLiteral("\"%1\" is not a command; did you mean \"%2\"?").arg(name, nearest);
}

/// Takes the words that name a track, staff or voice out of a line.
void takeWhere(std::vector<Word> &words, ReadingContext &context)
{
    const auto isWhere = [&](const Word &word) { return readWhere(word, context, context.where); };
    // The track first: staves are counted in it.
    std::stable_sort(words.begin() + 1, words.end(), [](const Word &a, const Word &b) {
        const auto isTrack = [](const Word &word) {
            return !word.isQuoted && word.text.startsWith(QLatin1Char('t')) && word.text.size() > 1
                && word.text.at(1).isDigit();
        };
        return isTrack(a) && !isTrack(b);
    });
    words.erase(std::remove_if(words.begin() + 1, words.end(), isWhere), words.end());
}

/// Written as an option of "zarn new", a command is for the whole score: "--time 3/4".
void addWholeScore(const Command &command, std::vector<Word> &words)
{
    if (!words.front().text.startsWith(QStringLiteral("--")) || words.size() != 2
        || command.parameters.size() < 2)
        return;
    const Parameter &place = command.parameters.front();
    if (place.presence != Presence::Assumed)
        return;
    const int column = words.back().column;
    if (place.kind == Kind::Bars)
        words.insert(words.begin() + 1, Word{QStringLiteral("all"), column, false});
    else if (place.kind == Kind::Bar)
        words.insert(words.begin() + 1, Word{QStringLiteral("1"), column, false});
}

/// Takes what is given by name out of a line: "--strings 7".
void takeOptions(const Command &command, std::vector<Word> &words, const ReadingContext &context,
                 Values &values)
{
    for (const Parameter &option : command.options) {
        const QString name = option.name.toLower();
        const auto given = std::find_if(words.begin() + 1, words.end(), [&name](const Word &word) {
            return !word.isQuoted && word.text == QStringLiteral("--") + name;
        });
        if (given == words.end())
            continue;
        const auto value = given + 1;
        if (value == words.end())
            throw LineError(given->column,
                            QStringLiteral("%1 is missing: type --%2 and %3")
                                .arg(option.name, name, expectation(option)));
        values.addOption(name,
                         takesAllWords(option) ? readValues(option, {*value}, context)
                                               : readValue(option, *value, context),
                         value->column);
        words.erase(given, value + 1);
    }
}

/// How many words the parameters behind one need at least.
std::size_t wordsNeededBehind(const Command &command, std::size_t parameter,
                              const ReadingContext &context)
{
    std::size_t needed = 0;
    for (std::size_t i = parameter + 1; i < command.parameters.size(); ++i) {
        const Parameter &later = command.parameters[i];
        needed += later.presence == Presence::Required
            || (later.presence == Presence::Assumed && !isAssumable(later, context));
    }
    return needed;
}

/// Whether the next word, if there is one, is meant for a later parameter: that is so when the
/// later ones need all the words, or when it looks like nothing for this one and they have room.
bool isLeftOut(const Command &command, std::size_t parameter, const std::vector<Word> &words,
               std::size_t next, const ReadingContext &context)
{
    const Parameter &here = command.parameters[parameter];
    if (here.presence != Presence::Assumed || !isAssumable(here, context))
        return false;
    const std::size_t needed = wordsNeededBehind(command, parameter, context);
    const bool hasRoomForAll =
        std::any_of(command.parameters.begin() + static_cast<std::ptrdiff_t>(parameter) + 1,
                    command.parameters.end(), takesAllWords);
    const std::size_t left = words.size() - next;
    const bool hasRoom = hasRoomForAll || left < command.parameters.size() - parameter;
    return hasRoom && (left <= needed || !looksLike(here, words[next]));
}

/// Whether a word of a line stands for a parameter that nothing else can stand for: it is missing
/// when the words that are left are needed for others.
bool isMissing(const Command &command, std::size_t parameter, const std::vector<Word> &words,
               std::size_t next, const ReadingContext &context)
{
    const Parameter &here = command.parameters[parameter];
    if (next == words.size())
        return true;
    return here.presence == Presence::Assumed && !isAssumable(here, context)
        && words.size() - next <= wordsNeededBehind(command, parameter, context)
        && !looksLike(here, words[next]);
}

/// Whether a word is nothing for a parameter that may be missing, but a choice of the next.
bool isPassedOver(const Command &command, std::size_t parameter, const Word &word)
{
    const auto takes = [&word](const Parameter &one) {
        return std::any_of(one.choices->begin(), one.choices->end(), [&word](const auto &choice) {
            return choice.first.compare(word.text, Qt::CaseInsensitive) == 0;
        });
    };
    if (parameter + 1 >= command.parameters.size())
        return false;
    const Parameter &here = command.parameters[parameter];
    const Parameter &behind = command.parameters[parameter + 1];
    if (here.presence != Presence::Optional || behind.presence != Presence::Optional
        || behind.kind != Kind::Choice)
        return false;
    return takes(behind) && (here.kind == Kind::Choice ? !takes(here) : !looksLike(here, word));
}

void readParameters(const Command &command, const std::vector<Word> &words, int endColumn,
                    const ReadingContext &context, Values &values)
{
    std::size_t next = 1;
    for (std::size_t i = 0; i < command.parameters.size(); ++i) {
        const Parameter &parameter = command.parameters[i];
        if (isLeftOut(command, i, words, next, context)
            || (next < words.size() && isPassedOver(command, i, words[next]))) {
            values.add(std::monostate(), next < words.size() ? words[next].column : endColumn);
            continue;
        }
        if (isMissing(command, i, words, next, context)) {
            if (parameter.presence == Presence::Optional) {
                values.add(std::monostate(), endColumn);
                continue;
            }
            const QString why = missingAssumption(parameter);
            throw LineError(next < words.size() ? words[next].column : endColumn,
                            QStringLiteral("%1 is missing: %2%3; usage: %4")
                                .arg(parameter.name,
                                     why.isEmpty() ? why : why + QStringLiteral("; type "),
                                     expectation(parameter), usageOf(command)));
        }
        if (!takesAllWords(parameter)) {
            values.add(readValue(parameter, words[next], context), words[next].column);
            ++next;
            continue;
        }
        const auto rest = words.begin() + static_cast<std::ptrdiff_t>(next);
        values.add(readValues(parameter, {rest, words.end()}, context), rest->column);
        next = words.size();
    }
    if (next < words.size())
        throw LineError(words[next].column,
                        QStringLiteral("\"%1\" is one word too many; usage: %2")
                            .arg(words[next].text, usageOf(command)));
}

/// What the word behind those of a line may be; a parameter that was left out counts for nothing.
QStringList suggestionsFor(const Command &command, const QStringList &before)
{
    std::size_t parameter = 0;
    const auto isAssumed = [&] {
        return command.parameters[parameter].presence == Presence::Assumed;
    };
    for (int word = 1; word < before.size() && parameter < command.parameters.size(); ++word) {
        while (parameter + 1 < command.parameters.size() && isAssumed()
               && !looksLike(command.parameters[parameter], {before.at(word), 1, false}))
            ++parameter;
        if (!takesAllWords(command.parameters[parameter]))
            ++parameter;
    }
    QStringList words;
    for (; parameter < command.parameters.size(); ++parameter) {
        words += suggestions(command.parameters[parameter]);
        if (!isAssumed())
            break;
    }
    for (const Parameter &option : command.options)
        words.append(QStringLiteral("--") + option.name.toLower());
    return words;
}

} // namespace

std::optional<ReadLine> readLine(const QString &line, const ReadingContext &context)
{
    std::vector<Word> words = splitLine(line);
    if (words.empty())
        return std::nullopt;
    const Word name = words.front();
    const Command *const command = findCommand(name.text);
    if (command == nullptr)
        throw LineError(name.column, unknownCommand(name.text));
    ReadingContext here = context;
    const Word &last = words.back();
    const int endColumn = last.column + last.text.size() + (last.isQuoted ? 2 : 0);
    const std::size_t wordCount = words.size();
    if (command->takesWhere)
        takeWhere(words, here);
    ReadLine read = {command, Values(here.where), name.column};
    read.values.setNamesWhere(words.size() != wordCount);
    takeOptions(*command, words, here, read.values);
    addWholeScore(*command, words);
    readParameters(*command, words, endColumn, here, read.values);
    return read;
}

std::vector<std::string> completions(const std::string &line)
{
    QString text = QString::fromStdString(line);
    const int wordStart = text.lastIndexOf(QLatin1Char(' ')) + 1;
    const QString begun = text.mid(wordStart);
    const QStringList before = text.left(wordStart).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QStringList words;
    if (before.isEmpty() || before == QStringList(QStringLiteral("help"))) {
        words = commandNames();
    } else if (const Command *const command = findCommand(before.first())) {
        words = suggestionsFor(*command, before);
    }
    std::vector<std::string> fitting;
    for (const QString &word : words)
        if (word.startsWith(begun))
            fitting.push_back(word.toStdString());
    std::sort(fitting.begin(), fitting.end());
    return fitting;
}

} // namespace zarn::tool
