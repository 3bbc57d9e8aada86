// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnFormatReport.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

std::string FormatPlace::toString(const std::string &partWord) const
{
    std::string place;
    const auto add = [&place](const std::string &what, std::size_t number) {
        place += (place.empty() ? "" : ", ") + what + ' ' + std::to_string(number);
    };
    if (part >= 0)
        add(partWord, static_cast<std::size_t>(part) + 1);
    if (bar >= 0)
        add("bar", static_cast<std::size_t>(bar) + 1);
    if (line > 0)
        add("line", line);
    return place;
}

std::string FormatProblem::toString(const std::string &partWord) const
{
    const std::string where = place().toString(partWord);
    return where.empty() ? text : where + ": " + text;
}

bool FormatReport::hasProblem(const std::string &partOfText) const
{
    return std::any_of(_problems.begin(), _problems.end(), [&](const FormatProblem &problem) {
        return problem.toString().find(partOfText) != std::string::npos;
    });
}

FormatPlace FormatReport::firstUnheld(const std::string &kind) const
{
    const auto found = _firstUnheld.find(kind);
    return found != _firstUnheld.end() ? found->second : FormatPlace();
}

void FormatReport::addProblem(FormatProblem problem)
{
    _problems.push_back(std::move(problem));
}

void FormatReport::addUnheld(const std::string &kind, std::uint32_t count)
{
    if (count > 0)
        _unheld[kind] += count;
}

void FormatReport::addUnheld(const std::string &kind, const FormatPlace &place)
{
    ++_unheld[kind];
    _firstUnheld.emplace(kind, place);
}

} // namespace zarn::io
