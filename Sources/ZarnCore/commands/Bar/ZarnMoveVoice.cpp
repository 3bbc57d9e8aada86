// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnMoveVoice.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Bar/ContentSwap.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/barring/BeatCut.h>

#include <algorithm>
#include <optional>

namespace zarn::cmd {

namespace {

using utils::rational;
using Beats = Voice::Beats;

unsigned sizeOf(const Beats &beats)
{
    return static_cast<unsigned>(beats.size());
}

bool givesWay(const Beat &beat)
{
    return !beat.isGrace() && (beat.isRest() || beat.isPlaceHolder());
}

/// Nothing that somebody wrote.
bool isIdle(const Beat &beat)
{
    BeatMarks marks = beat.marks();
    marks.setPlaceHolder(false);
    marks.setWholeBarRest(false);
    return !beat.hasNotes() && marks.isPlain() && !beat.hasDetails();
}

std::shared_ptr<Beat> restLike(const Beat &beat)
{
    auto rest = std::make_shared<Beat>(beat.rhythmValue());
    rest->setWholeBarRest(beat.isWholeBarRest());
    return rest;
}

/// What stands around a stretch of time in a voice once rests have given way; nothing when notes
/// are in it.
struct Surroundings {
    Beats front;
    Beats back;
};
std::optional<Surroundings> surroundingsOf(const Voice *voice, const rational &start,
                                           const rational &end)
{
    Surroundings found;
    rational from;
    for (unsigned i = 0; voice != nullptr && i < voice->beatCount(); ++i) {
        const auto &beat = voice->beats()[i];
        const rational to = from + beat->length();
        if (to <= start && (from < start || !(start < end))) {
            found.front.push_back(beat);
        } else if (end <= from) {
            found.back.push_back(beat);
        } else if (!givesWay(*beat)) {
            return std::nullopt;
        } else {
            const auto append = [](Beats &beats, const Beats &more) {
                beats.insert(beats.end(), more.begin(), more.end());
            };
            std::vector<rational> lengths;
            if (from < start)
                lengths.push_back(start - from);
            lengths.push_back(std::min(to, end) - std::max(from, start));
            if (end < to)
                lengths.push_back(to - end);
            const auto pieces = cutBeat(*beat, lengths);
            if (from < start)
                append(found.front, pieces.front());
            if (end < to)
                append(found.back, pieces.back());
        }
        from = to;
    }
    if (from < start) {
        std::vector<RhythmValue> gap;
        RhythmValue::rhythms(start - from, gap);
        for (const RhythmValue &rhythm : gap) {
            found.front.push_back(std::make_shared<Beat>(rhythm));
            found.front.back()->setPlaceHolder(true);
        }
    }
    return found;
}

} // namespace

MoveVoice::MoveVoice() : SwapContent(QStringLiteral("MoveVoice")) { }
MoveVoice::~MoveVoice() = default;

bool MoveVoice::init(Score *score, const ScoreModelRange &range, unsigned voice)
{
    ZARN_ASSERT_IN("zarn::cmd::MoveVoice::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Voice"), QString::number(voice));
    setScore(score);
    _range = range;
    _voice = voice;
    return voice < Bar::MaxVoices && canExist(range) && expectPlace([this] { return hasWork(); });
}

void MoveVoice::plan(ContentSwap &swap) const
{
    ContentSwap planned;
    const BeatSpan *last = nullptr;
    const auto spans = beatSpans(model(), _range);
    for (const BeatSpan &span : spans) {
        const bool isOfSameBar = last != nullptr && last->bar == span.bar
            && last->staff == span.staff && last->track == span.track;
        if (isOfSameBar || span.voice == _voice || !planBar(planned, span))
            return;
        last = &span;
    }
    swap = std::move(planned);
}

bool MoveVoice::planBar(ContentSwap &swap, const BeatSpan &span) const
{
    const Voice &source = *voiceOf(model(), span);
    const VoicePlace from{span.track, span.staff, span.bar, span.voice};
    const VoicePlace to{span.track, span.staff, span.bar, _voice};
    BeatSpan targetSpan = span;
    targetSpan.voice = _voice;

    rational start;
    Beats kept;
    for (unsigned i = 0; i < span.firstBeat; ++i) {
        start += source.beats()[i]->length();
        kept.push_back(source.beats()[i]);
    }
    rational end = start;
    Beats moved;
    for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i) {
        const auto &beat = source.beats()[i];
        end += beat->length();
        moved.push_back(beat);
        if (!beat->isGrace())
            kept.push_back(restLike(*beat));
    }
    const unsigned restEnd = sizeOf(kept);
    kept.insert(kept.end(), source.beats().begin() + span.lastBeat + 1, source.beats().end());

    auto around = surroundingsOf(voiceOf(model(), targetSpan), start, end);
    if (!around)
        return false;
    Beats &all = around->front;
    const unsigned first = sizeOf(all);
    all.insert(all.end(), moved.begin(), moved.end());
    const unsigned behind = sizeOf(all);
    all.insert(all.end(), around->back.begin(), around->back.end());
    swap.setBeats(to, std::move(all));
    swap.addJoint(to, first);
    swap.addJoint(to, behind);

    if (std::all_of(kept.begin(), kept.end(), [](const auto &beat) { return isIdle(*beat); })) {
        swap.dropVoice(from);
        swap.addBarLine(span.track, span.staff, span.bar);
        swap.addBarLine(span.track, span.staff, span.bar + 1);
    } else {
        swap.setBeats(from, std::move(kept));
        swap.addJoint(from, span.firstBeat);
        swap.addJoint(from, restEnd);
    }
    return true;
}

} // namespace zarn::cmd
