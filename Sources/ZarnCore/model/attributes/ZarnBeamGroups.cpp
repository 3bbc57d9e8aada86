// SPDX-License-Identifier: MIT
#include <ZarnCore/model/attributes/ZarnBeamGroups.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/ZarnTimeSignature.h>
#include <ZarnCore/utils/TextScanner.h>

#include <algorithm>
#include <numeric>

namespace zarn {

BeamGroups::BeamGroups(std::vector<std::uint8_t> groups) : _groups(std::move(groups))
{
    ZARN_ASSERT_IN("zarn::BeamGroups::BeamGroups", areGroups(_groups));
}

bool BeamGroups::areGroups(const std::vector<std::uint8_t> &groups) noexcept
{
    return groups.size() <= MaxGroups
        && std::all_of(groups.begin(), groups.end(),
                       [](unsigned group) { return group >= 1 && group <= MaxGroup; });
}

bool BeamGroups::fit(const TimeSignature &signature) const noexcept
{
    return isEmpty()
        || std::accumulate(_groups.begin(), _groups.end(), 0U) == signature.getNumerator();
}

std::string BeamGroups::toString() const
{
    std::string text;
    for (const unsigned group : _groups)
        text += (text.empty() ? "" : "+") + std::to_string(group);
    return text;
}

std::optional<BeamGroups> BeamGroups::fromString(std::string_view text)
{
    std::vector<std::uint8_t> groups;
    utils::TextScanner scanner(text);
    while (!scanner.isAtEnd()) {
        groups.push_back(0);
        if ((groups.size() > 1 && !scanner.take("+")) || !scanner.takeNumber(groups.back()))
            return std::nullopt;
    }
    return areGroups(groups) ? std::optional<BeamGroups>(BeamGroups(std::move(groups)))
                             : std::nullopt;
}

} // namespace zarn
