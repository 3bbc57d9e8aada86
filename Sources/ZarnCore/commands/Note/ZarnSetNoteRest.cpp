// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetNoteRest.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

SetNoteRest::SetNoteRest() : ScoreCommand(QStringLiteral("SetNoteRest")) { }
SetNoteRest::~SetNoteRest() = default;

bool SetNoteRest::init(Score *score, const ScoreModelRange &range)
{
    ZARN_ASSERT_IN("zarn::cmd::SetNoteRest::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    setScore(score);
    _range = range;
    return canExist(range) && expectPlace([&] { return !beatSpans(model(), range).empty(); });
}

void SetNoteRest::apply()
{
    const auto spans = beatSpans(model(), _range);
    requirePlace(!spans.empty());
    _touched.clear();
    _touched.add(_range);
    std::vector<Stretch> stretches;
    stretches.reserve(spans.size());
    for (const BeatSpan &span : spans) {
        Voice &voice = *voiceOf(model(), span);
        stretches.push_back({span, {}, KeptLinks(voice, span.firstBeat, span.lastBeat + 1)});
        for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i) {
            Beat &beat = *voice.beats()[i];
            const bool isWholeBarRest = beat.isWholeBarRest();
            const BeatMarks marks = beat.marks();
            stretches.back().beats.push_back({beat.takeNotes(), marks});
            beat.setPlaceHolder(false);
            beat.setWholeBarRest(isWholeBarRest);
        }
        mendLinks(voice, span.firstBeat, span.lastBeat + 1);
        mendThroughout(voice, span.firstBeat, span.lastBeat + 1);
        stretches.back().links.settle(span, _touched);
    }
    _stretches = std::move(stretches);
}

/// Backwards, so that each stretch finds its surroundings as they were.
void SetNoteRest::revert()
{
    for (auto stretch = _stretches.rbegin(); stretch != _stretches.rend(); ++stretch) {
        Voice &voice = *voiceOf(model(), stretch->span);
        unsigned index = stretch->span.firstBeat;
        for (Emptied &emptied : stretch->beats) {
            Beat &beat = *voice.beats()[index++];
            for (const auto &note : emptied.notes)
                beat.addNote(note);
            beat.setMarks(emptied.marks);
        }
        stretch->links.putBack(voice);
    }
    _stretches.clear();
}

void SetNoteRest::announceApplied()
{
    _touched.announce(score(), this);
}

void SetNoteRest::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
