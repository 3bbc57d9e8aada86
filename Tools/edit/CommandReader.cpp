// SPDX-License-Identifier: MIT
#include "edit/CommandReader.h"

#include "edit/Commands.h"
#include "edit/NearestWord.h"
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
        ? QStringLiteral("\"%1\" is no command; \"help\" lists them").arg(name)
        : QStringLiteral("\"%1\" is no command; did you mean \"%2\"?").arg(name, nearest);
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

void readParameters(const Command &command, const std::vector<Word> &words, int endColumn,
                    const ReadingContext &context, Values &values)
{
    std::size_t next = 1;
    for (const Parameter &parameter : command.parameters) {
        if (next == words.size()) {
            if (parameter.presence == Presence::Optional)
                continue;
            throw LineError(endColumn,
                            QStringLiteral("%1 is missing: %2; usage: %3")
                                .arg(parameter.name, expectation(parameter), usageOf(command)));
        }
        if (parameter.kind != Kind::Pitches) {
            values.add(readValue(parameter, words[next], context), words[next].column);
            ++next;
            continue;
        }
        std::vector<int> keys;
        const int column = words[next].column;
        for (; next < words.size(); ++next)
            keys.push_back(
                std::get<std::vector<int>>(readValue(parameter, words[next], context)).front());
        values.add(keys, column);
    }
    if (next < words.size())
        throw LineError(words[next].column,
                        QStringLiteral("\"%1\" is one word too many; usage: %2")
                            .arg(words[next].text, usageOf(command)));
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
    if (command->takesWhere)
        takeWhere(words, here);
    ReadLine read = {command, Values(here.where), name.column};
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
        const auto parameter = static_cast<std::size_t>(before.size()) - 1;
        if (parameter < command->parameters.size())
            words = suggestions(command->parameters[parameter]);
    }
    std::vector<std::string> fitting;
    for (const QString &word : words)
        if (word.startsWith(begun))
            fitting.push_back(word.toStdString());
    std::sort(fitting.begin(), fitting.end());
    return fitting;
}

} // namespace zarn::tool
