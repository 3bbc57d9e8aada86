// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatDeadSlapped.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/EmptyBeats.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::cmd {

namespace {

bool isFretted(const ScoreModel &model, const BeatSpan &span)
{
    return model.tracks()[span.track]->staves()[span.staff]->isFretted();
}

} // namespace

SetBeatDeadSlapped::SetBeatDeadSlapped() : ReplaceBeats(QStringLiteral("SetBeatDeadSlapped")) { }
SetBeatDeadSlapped::~SetBeatDeadSlapped() = default;

bool SetBeatDeadSlapped::init(Score *score, const ScoreModelRange &range, bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatDeadSlapped::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Checked"), checked ? QStringLiteral("true") : QStringLiteral("false"));
    _checked = checked;
    return prepare(score, range);
}

bool SetBeatDeadSlapped::isPossible() const
{
    const auto spans = beatSpans(model(), range());
    return std::any_of(spans.begin(), spans.end(),
                       [this](const BeatSpan &span) { return isFretted(model(), span); });
}

/// A rest of a whole bar, whose length has no note value, becomes a slap and rests behind it.
ReplaceBeats::Beats SetBeatDeadSlapped::beatsFor(const Beat &beat) const
{
    std::optional<std::vector<RhythmValue>> rhythms = {{beat.rhythmValue()}};
    if (_checked && beat.isWholeBarRest())
        rhythms = rhythmsOf(beat.length());
    if (!rhythms || rhythms->empty() || (!_checked && !beat.isDeadSlapped()))
        return {beat.clone()};
    Beats beats = {emptyBeat(beat, rhythms->front())};
    beats.front()->setDeadSlapped(_checked);
    for (std::size_t i = 1; i < rhythms->size(); ++i)
        beats.push_back(std::make_shared<Beat>((*rhythms)[i]));
    return beats;
}

ReplaceBeats::Replacements SetBeatDeadSlapped::replacements() const
{
    Replacements all;
    for (const BeatSpan &span : beatSpans(model(), range())) {
        if (!isFretted(model(), span))
            continue;
        Replacement slapped = {span, span.count(), {}, false};
        for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i)
            for (auto &beat : beatsFor(*voiceOf(model(), span)->beats()[i]))
                slapped.beats.push_back(std::move(beat));
        all.push_back(std::move(slapped));
    }
    return all;
}

} // namespace zarn::cmd
