// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/ZarnFormWords.h>

#include <ZarnCore/model/ZarnMasterBar.h>

#include <algorithm>
#include <array>

namespace zarn {

namespace {

/// By `DirectionMark`, as they are printed in scores.
constexpr std::array<const char *, DirectionMarkCount> words = {
    "Coda",           "Double Coda", "Segno",          "Segno Segno",
    "Fine",           "D.C.",        "D.C. al Coda",   "D.C. al Double Coda",
    "D.C. al Fine",   "D.S.",        "D.S. al Coda",   "D.S. al Double Coda",
    "D.S. al Fine",   "D.S.S.",      "D.S.S. al Coda", "D.S.S. al Double Coda",
    "D.S.S. al Fine", "To Coda",     "To Double Coda",
};

} // namespace

const char *directionWords(DirectionMark mark) noexcept
{
    const auto index = static_cast<std::size_t>(mark);
    return index < words.size() ? words[index] : "";
}

bool isAtBarEnd(DirectionMark mark) noexcept
{
    return mark == DirectionMark::Fine || isJump(mark);
}

std::vector<EndDirection> endDirections(const std::set<DirectionMark> &marks,
                                        const std::string &jumpText)
{
    std::vector<EndDirection> directions;
    std::size_t start = 0;
    for (const DirectionMark mark : marks) {
        if (!isAtBarEnd(mark))
            continue;
        const auto end = std::min(jumpText.find('\n', start), jumpText.size());
        const auto line = jumpText.substr(start, end - start);
        directions.push_back({mark, line.empty() ? directionWords(mark) : line});
        start = std::min(end + 1, jumpText.size());
    }
    return directions;
}

std::string jumpTextOf(const std::vector<EndDirection> &directions)
{
    std::string text;
    std::size_t filled = 0;
    for (std::size_t i = 0; i < directions.size(); ++i) {
        if (i != 0)
            text += '\n';
        if (directions[i].words == directionWords(directions[i].mark))
            continue;
        text += directions[i].words;
        filled = text.size();
    }
    text.resize(filled);
    return text;
}

std::string endingNumbers(std::uint32_t passes)
{
    std::string text;
    for (unsigned pass = 0; pass < MasterBar::MaxEndings; ++pass)
        if ((passes >> pass & 1U) != 0)
            text += (text.empty() ? "" : " ") + std::to_string(pass + 1) + ".";
    return text;
}

} // namespace zarn
