// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zarn::tool {

class Terminal;
class Arguments;

/// Exit codes of the program.
enum ExitCode : int {
    Done = 0,
    Failed = 1,  ///< a document or an edit had an error
    Misused = 2, ///< the command line is wrong
};

/// One option of a subcommand. An option without a value name is a switch.
struct Option {
    QString name;      ///< long form without dashes
    QString shortName; ///< one letter, or empty
    QString valueName;
    QString text;
};

/// One subcommand: what it takes, what its help says, and what runs it.
struct Subcommand {
    QString name;
    QString operands; ///< as the usage line shows them: "FILE..."
    int leastOperands;
    int mostOperands; ///< -1: any number
    QString summary;  ///< one line, for the list of subcommands
    QString details;  ///< for its own help; lines are printed as they stand
    std::vector<Option> options;
    int (*run)(const Arguments &, const Terminal &);
};

/// The command line was wrong; the text says how.
struct UsageError {
    QString text;
};

/// The options and operands that a user gave to a subcommand.
class Arguments {
public:
    /// Reads the words after the subcommand's name. Raises `UsageError`.
    Arguments(const Subcommand &command, const QStringList &words);

    bool has(const QString &option) const { return _values.count(option) != 0; }

    /// Value of an option, empty when it was not given; the last one of those that were.
    QString value(const QString &option) const;

    /// All values of an option, in the order in which they were given.
    std::vector<std::string> values(const QString &option) const;

    /// Every option with its value, in the order in which they were given.
    const std::vector<std::pair<QString, QString>> &given() const noexcept { return _given; }

    /// Value of an option as a whole number in a range. Raises `UsageError`.
    int number(const QString &option, int least, int most, int otherwise) const;

    const QStringList &operands() const noexcept { return _operands; }
    std::string operand(int index) const { return _operands.at(index).toStdString(); }

    bool asksForHelp() const { return has(QStringLiteral("help")); }

private:
    std::map<QString, QString> _values;
    std::vector<std::pair<QString, QString>> _given;
    QStringList _operands;
};

/// The help page of one subcommand.
QString helpOf(const Subcommand &command);

} // namespace zarn::tool
