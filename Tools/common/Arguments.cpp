// SPDX-License-Identifier: MIT
#include "common/Arguments.h"

#include <QCommandLineParser>

#include <algorithm>

namespace zarn::tool {

namespace {

const Option HelpOption = {QStringLiteral("help"), QStringLiteral("h"), QString(),
                           QStringLiteral("Show this help.")};

QString usageOf(const Subcommand &command)
{
    const QString options = command.options.empty() ? QString() : QStringLiteral("[OPTION...] ");
    return QStringLiteral("zarn %1 %2%3").arg(command.name, options, command.operands);
}

} // namespace

Arguments::Arguments(const Subcommand &command, const QStringList &words)
{
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsCompactedShortOptions);
    std::vector<Option> options = command.options;
    options.push_back(HelpOption);
    for (const Option &option : options) {
        QStringList names(option.name);
        if (!option.shortName.isEmpty())
            names.append(option.shortName);
        parser.addOption({names, option.text, option.valueName});
    }
    if (!parser.parse(QStringList(QStringLiteral("zarn")) + words))
        throw UsageError{parser.errorText()};
    // The parser keeps the order of the names, and of the values of each option.
    std::map<QString, int> taken;
    for (const QString &name : parser.optionNames()) {
        const auto option = std::find_if(options.begin(), options.end(), [&](const Option &known) {
            return known.name == name || known.shortName == name;
        });
        const QString value = parser.values(option->name).value(taken[option->name]++);
        _given.emplace_back(option->name, value);
        _values[option->name] = value;
    }
    _operands = parser.positionalArguments();
    if (asksForHelp())
        return;
    if (_operands.size() < command.leastOperands)
        throw UsageError{
            QStringLiteral("%1 is missing; usage: %2")
                .arg(command.operands.split(QLatin1Char(' ')).value(_operands.size(), QString()),
                     usageOf(command))};
    if (command.mostOperands >= 0 && _operands.size() > command.mostOperands)
        throw UsageError{QStringLiteral("\"%1\" is one too many; usage: %2")
                             .arg(_operands.at(command.mostOperands), usageOf(command))};
}

QString Arguments::value(const QString &option) const
{
    const auto found = _values.find(option);
    return found == _values.end() ? QString() : found->second;
}

std::vector<std::string> Arguments::values(const QString &option) const
{
    std::vector<std::string> values;
    for (const auto &[given, value] : _given)
        if (given == option)
            values.push_back(value.toStdString());
    return values;
}

int Arguments::number(const QString &option, int least, int most, int otherwise) const
{
    if (!has(option))
        return otherwise;
    bool isNumber = false;
    const int number = value(option).toInt(&isNumber);
    if (!isNumber || number < least || number > most)
        throw UsageError{QStringLiteral("--%1 takes a number from %2 to %3, not \"%4\"")
                             .arg(option)
                             .arg(least)
                             .arg(most)
                             .arg(value(option))};
    return number;
}

QString helpOf(const Subcommand &command)
{
    QString help = QStringLiteral("Usage: %1\n\n%2\n").arg(usageOf(command), command.summary);
    if (!command.details.isEmpty())
        help += QLatin1Char('\n') + command.details + QLatin1Char('\n');
    help += QStringLiteral("\nOptions:\n");
    std::vector<Option> options = command.options;
    options.push_back(HelpOption);
    std::vector<QString> words;
    int widest = 0;
    for (const Option &option : options) {
        QString word = option.shortName.isEmpty() ? QStringLiteral("    ")
                                                  : QStringLiteral("-%1, ").arg(option.shortName);
        word += QStringLiteral("--%1").arg(option.name);
        if (!option.valueName.isEmpty())
            word += QLatin1Char(' ') + option.valueName;
        widest = std::max(widest, word.size());
        words.push_back(word);
    }
    for (std::size_t i = 0; i < options.size(); ++i)
        help += QStringLiteral("  %1  %2\n").arg(words[i].leftJustified(widest), options[i].text);
    return help;
}

} // namespace zarn::tool
