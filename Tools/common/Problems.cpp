// SPDX-License-Identifier: MIT
#include "common/Problems.h"

#include "common/Documents.h"
#include "common/Terminal.h"

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

} // namespace zarn::tool
