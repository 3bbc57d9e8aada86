// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnRemoveBeats.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

RemoveBeats::RemoveBeats() : PlacingCommand(QStringLiteral("RemoveBeats"), Kind::Removes) { }
RemoveBeats::~RemoveBeats() = default;

bool RemoveBeats::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN("zarn::cmd::RemoveBeats::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    setScore(score);
    _range = range;
    return canExist(range) && expectPlace([&] { return !beatSpans(model(), range).empty(); });
}

void RemoveBeats::takeOut()
{
    const auto spans = beatSpans(model(), _range);
    requirePlace(!spans.empty());
    _touched.clear();
    _touched.add(_range);
    std::vector<Removed> removed;
    removed.reserve(spans.size());
    for (const BeatSpan &span : spans)
        keepSpans(span.track, span.staff, span.bar, span.bar);
    for (const BeatSpan &span : spans) {
        Voice &voice = *voiceOf(model(), span);
        removed.push_back({span, {}, KeptLinks(voice, span.firstBeat, span.lastBeat + 1)});
        removed.back().beats = voice.takeBeats(span.firstBeat, span.lastBeat, LinkMode::Mend);
        removed.back().links.settle(span, _touched);
    }
    _removed = std::move(removed);
}

/// Backwards, so that each stretch finds its surroundings as they were.
void RemoveBeats::putIn()
{
    for (auto removed = _removed.rbegin(); removed != _removed.rend(); ++removed) {
        Voice &voice = *voiceOf(model(), removed->span);
        voice.insertBeats(removed->span.firstBeat, std::move(removed->beats));
        removed->links.putBack(voice);
    }
    _removed.clear();
}

void RemoveBeats::announceIn()
{
    _touched.announce(score(), this);
}

void RemoveBeats::announceOut()
{
    announceIn();
}

} // namespace zarn::cmd
