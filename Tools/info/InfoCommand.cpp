// SPDX-License-Identifier: MIT
#include "info/InfoCommand.h"

#include "common/Documents.h"
#include "common/Failure.h"
#include "common/ListText.h"
#include "common/Problems.h"
#include "common/Terminal.h"
#include "info/ScoreSummary.h"

#include <ZarnCore/io/ZarnScoreStatistics.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QJsonArray>
#include <QJsonDocument>

#include <iostream>

namespace zarn::tool {

namespace {

/// The counts of a document, with "unheld" (elements by name) and "problems" beside them.
QJsonObject jsonOf(const OpenedDocument &document)
{
    QJsonObject object = io::ScoreStatistics(*document.model, document.report.tally()).toJson();
    QJsonObject unheld;
    for (const auto &[element, count] : document.report.unheld())
        unheld.insert(QString::fromStdString(element), static_cast<int>(count));
    object.insert(QStringLiteral("unheld"), unheld);
    QJsonArray problems;
    for (const std::string &line : problemLines(document))
        problems.append(QString::fromStdString(line));
    object.insert(QStringLiteral("problems"), problems);
    return object;
}

void print(const OpenedDocument &document, int width)
{
    std::cout << "File: " << nameOfPath(document.path, Direction::In) << " (" << document.format
              << ")\n"
              << summaryOf(*document.model, width);
    const std::vector<std::string> problems = problemLines(document);
    std::cout << (problems.empty() ? "Problems: none\n" : "Problems:\n");
    for (const std::string &line : problems)
        std::cout << "  " << line << '\n';
    if (document.report.unheld().empty())
        return;
    QStringList elements;
    for (const auto &[element, count] : document.report.unheld())
        elements.append(
            QStringLiteral("%1 %2").arg(QString::fromStdString(printable(element))).arg(count));
    std::cout << listText("Not held, by element", elements, width);
}

int runInfo(const Arguments &arguments, const Terminal &terminal)
{
    const bool asJson = arguments.has(QStringLiteral("json"));
    QJsonObject all;
    int code = Done;
    for (int i = 0; i < arguments.operands().size(); ++i) {
        try {
            const OpenedDocument document = openDocument(arguments.operand(i), terminal);
            if (asJson) {
                all.insert(arguments.operands().at(i), jsonOf(document));
            } else {
                std::cout << (i > 0 ? "\n" : "");
                print(document, terminal.width());
            }
        } catch (const std::exception &error) {
            std::cerr << "zarn: " << explain(error) << '\n';
            code = Failed;
        }
    }
    if (asJson)
        std::cout << QJsonDocument(all).toJson().toStdString();
    return code;
}

} // namespace

Subcommand infoCommand()
{
    return {
        QStringLiteral("info"),
        QStringLiteral("FILE..."),
        1,
        -1,
        QStringLiteral("Tells what is in scores, and what was wrong with their files."),
        QStringLiteral(
            "With --json, prints one object with an entry for each file, under its name as given:\n"
            "the counts parts, staves, measures, notes, midi_sum, midi_low, midi_high, keys,\n"
            "times, clefs, tuplets and per_part; under unheld, the elements that the score cannot\n"
            "hold; and problems. A file that cannot be read is left out, and the exit code is 1."),
        {{QStringLiteral("json"), QStringLiteral("j"), QString(),
          QStringLiteral("Print counts as JSON for programs.")}},
        runInfo,
    };
}

} // namespace zarn::tool
