// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/Movements.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>
#include <set>
#include <string_view>

namespace zarn::io {

namespace {

using Kind = WrittenJump::Kind;

/// As many movements as works in movements have; "C" and "M" would begin too many words.
constexpr std::string_view numerals[] = {"I",    "II",  "III",  "IV",    "V",   "VI",   "VII",
                                         "VIII", "IX",  "X",    "XI",    "XII", "XIII", "XIV",
                                         "XV",   "XVI", "XVII", "XVIII", "XIX", "XX"};

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

/// Whether a part counts its bars from the start again behind the bar `last`. The first bar behind
/// it may have no number: a pickup often has none.
bool countsAgain(const PartFacts &part, int last)
{
    const auto &bars = part.bars;
    const auto count = static_cast<int>(bars.size());
    const auto at = [&](int bar) { return bars[static_cast<std::size_t>(bar)].number; };
    if (last + 1 >= count)
        return false;
    int before = last;
    while (before > 0 && !at(before))
        --before;
    const int next = at(last + 1) || last + 2 >= count ? last + 1 : last + 2;
    return at(before) && at(next) && *at(next) <= 1 && *at(next) <= *at(before);
}

bool hasAnyOf(const std::set<int> &bars, int first, int end)
{
    const auto found = bars.lower_bound(first);
    return found != bars.end() && *found < end;
}

} // namespace

bool isMovementTitle(const std::string &words)
{
    const std::string_view text(words);
    const auto first = text.substr(0, text.find_first_of(". :\n"));
    if (std::find(std::begin(numerals), std::end(numerals), first) != std::end(numerals))
        return true;
    if (first != "No" && first != "Nr")
        return false;
    const auto number = text.find_first_not_of(". ", first.size());
    return number != text.npos && isDigit(text[number]);
}

std::vector<int> movementStarts(const std::vector<PartFacts> &parts)
{
    std::set<int> titled;
    for (const auto &part : parts)
        titled.insert(part.movementTitles.begin(), part.movementTitles.end());
    std::set<int> candidates;
    std::size_t barCount = 0;
    for (const auto &part : parts) {
        barCount = std::max(barCount, part.bars.size());
        for (const int last : part.finalBars)
            if (titled.count(last + 1) != 0 || countsAgain(part, last))
                candidates.insert(last + 1);
    }
    FineBars bars;
    for (const auto &part : parts)
        for (const auto &jump : part.jumps) {
            if (jump.kind == Kind::Fine)
                bars.fines.insert(jump.bar);
            else if (jump.kind == Kind::DaCapo || jump.kind == Kind::DalSegno)
                bars.jumps.insert(jump.bar);
        }
    return bars.movementsAmong(candidates, static_cast<int>(barCount));
}

std::vector<int> FineBars::movementsAmong(const std::set<int> &candidates, int barCount) const
{
    std::vector<int> starts;
    for (auto start = candidates.begin(); start != candidates.end(); ++start) {
        const auto next = std::next(start);
        const int before = starts.empty() ? 0 : starts.back();
        const int end = next == candidates.end() ? barCount : *next;
        const bool belongTogether = hasAnyOf(fines, before, *start)
            && !hasAnyOf(jumps, before, *start) && hasAnyOf(jumps, *start, end)
            && !hasAnyOf(fines, *start, end);
        if (!belongTogether)
            starts.push_back(*start);
    }
    return starts;
}

void reportUnplayedBars(const MasterTrack &master, ImportContext &context)
{
    std::vector<bool> played(master.masterBarCount());
    for (const int bar : master.playlist())
        played[static_cast<std::size_t>(bar)] = true;
    for (auto first = std::find(played.begin(), played.end(), false); first != played.end();) {
        const auto end = std::find(first, played.end(), true);
        const auto from = static_cast<int>(first - played.begin());
        const auto to = static_cast<int>(end - played.begin());
        context.addProblemInBar(from, {},
                                to - from == 1
                                    ? "repeats and jumps lead past this bar; it is never played"
                                    : "repeats and jumps lead past the bars up to "
                                        + std::to_string(to) + "; they are never played");
        first = std::find(end, played.end(), false);
    }
}

} // namespace zarn::io
