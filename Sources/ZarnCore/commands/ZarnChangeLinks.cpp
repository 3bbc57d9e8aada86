// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnChangeLinks.h>

#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace zarn {

ChangeLinks::ChangeLinks(const QString &name) : ScoreCommand(name) { }
ChangeLinks::~ChangeLinks() = default;

bool ChangeLinks::prepare(Score *score, const ScoreModelRange &range)
{
    setScore(score);
    _range = range;
    return canExist(range)
        && expectPlace([this] { return !takingLines(beatSpans(model(), _range)).empty(); });
}

std::vector<ChangeLinks::Line> ChangeLinks::lines(const std::vector<BeatSpan> &spans) const
{
    std::vector<Line> lines;
    std::map<std::tuple<unsigned, unsigned, unsigned>, std::size_t> lineOfVoice;
    for (const BeatSpan &span : spans) {
        const Voice &voice = *voiceOf(model(), span);
        const auto before = beatInFrontOfJoint(voice, span.firstBeat);
        const auto behind = beatBehindJoint(voice, span.lastBeat + 1);
        const auto number =
            lineOfVoice.emplace(std::make_tuple(span.track, span.staff, span.voice), lines.size());
        const bool goesOn = !number.second && before != nullptr
            && lines[number.first->second].beats.back() == before;
        if (!goesOn) {
            number.first->second = lines.size();
            lines.push_back({before, {}, nullptr});
        }
        Line &line = lines[number.first->second];
        for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i)
            line.beats.push_back(voice.beats()[i].get());
        line.behind = behind;
    }
    return lines;
}

std::vector<ChangeLinks::Line> ChangeLinks::takingLines(const std::vector<BeatSpan> &spans) const
{
    std::vector<Line> all = lines(spans);
    all.erase(
        std::remove_if(all.begin(), all.end(), [this](const Line &line) { return !takes(line); }),
        all.end());
    return all;
}

void ChangeLinks::apply()
{
    const auto spans = beatSpans(model(), _range);
    const auto taking = takingLines(spans);
    requirePlace(!taking.empty());
    _links.clear();
    _links.keep(model(), spans);
    for (const Line &line : taking)
        change(line);
    _links.mend(model());
    _links.settle();
}

void ChangeLinks::revert()
{
    _links.putBack(model());
}

void ChangeLinks::announceApplied()
{
    TouchedBars touched;
    touched.add(_range);
    _links.addChanged(touched);
    touched.announce(score(), this);
}

void ChangeLinks::announceReverted()
{
    announceApplied();
}

} // namespace zarn
