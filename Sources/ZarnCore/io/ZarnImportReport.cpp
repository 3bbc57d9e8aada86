// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnImportReport.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

std::string ImportProblem::toString() const
{
    std::string place;
    const auto add = [&place](const char *what, std::size_t number) {
        place += (place.empty() ? "" : ", ") + std::string(what) + std::to_string(number);
    };
    if (part >= 0)
        add("part ", static_cast<std::size_t>(part) + 1);
    if (bar >= 0)
        add("bar ", static_cast<std::size_t>(bar) + 1);
    if (line > 0)
        add("line ", line);
    return place.empty() ? text : place + ": " + text;
}

bool ImportReport::hasProblem(const std::string &partOfText) const
{
    return std::any_of(_problems.begin(), _problems.end(), [&](const ImportProblem &problem) {
        return problem.toString().find(partOfText) != std::string::npos;
    });
}

void ImportReport::addProblem(ImportProblem problem)
{
    _problems.push_back(std::move(problem));
}

void ImportReport::addUnheld(const std::string &element, std::uint32_t count)
{
    if (count > 0)
        _unheld[element] += count;
}

void ImportReport::setTally(SourceTally tally)
{
    _tally = std::move(tally);
}

} // namespace zarn::io
