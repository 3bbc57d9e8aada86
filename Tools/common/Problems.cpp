// SPDX-License-Identifier: MIT
#include "common/Problems.h"

#include "common/Documents.h"
#include "common/Terminal.h"

#include <ZarnCore/io/ZarnExportReport.h>

#include <iostream>

namespace zarn::tool {

std::vector<std::string> problemLines(const OpenedDocument &document)
{
    std::vector<std::string> lines;
    for (const io::ImportProblem &problem : document.report.problems())
        lines.push_back(printable(problem.toString()));
    return lines;
}

void warnOfProblems(const OpenedDocument &document)
{
    const std::size_t problems = document.report.problems().size();
    std::size_t elements = 0;
    for (const auto &[element, count] : document.report.unheld())
        elements += count;
    if (problems == 0 && elements == 0)
        return;
    std::string text;
    if (problems != 0)
        text = counted(problems, "problem");
    if (elements != 0)
        text += (text.empty() ? "" : ", ") + counted(elements, "element") + " not held";
    std::cerr << "zarn: " << nameOfPath(document.path, Direction::In) << ": " << text
              << "; \"zarn info\" lists them\n";
}

void warnOfLosses(const io::ExportReport &report, const std::string &path)
{
    const std::string name = "zarn: " + nameOfPath(path, Direction::Out) + ": ";
    for (const io::ExportProblem &problem : report.problems())
        std::cerr << name << printable(problem.toString("track")) << '\n';
    if (report.unheld().empty())
        return;
    std::cerr << name << "the format has no word for what follows; the file lacks it\n";
    for (const auto &[kind, count] : report.unheld()) {
        const std::string first = report.firstUnheld(kind).toString("track");
        std::cerr << "  " << printable(kind) << ": " << count;
        if (!first.empty())
            std::cerr << (count == 1 ? ", in " : ", the first in ") << first;
        std::cerr << '\n';
    }
}

} // namespace zarn::tool
