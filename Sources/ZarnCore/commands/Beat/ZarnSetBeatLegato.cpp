// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatLegato.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>

namespace zarn::cmd {

namespace {

using Beats = std::vector<Beat *>;

bool sounds(const Beat *beat)
{
    return beat->hasNotes();
}

/// From the first beat with notes to the last one, with the one behind when there is only one.
Beats slurred(const Beats &beats, Beat *behind)
{
    const auto first = std::find_if(beats.begin(), beats.end(), sounds);
    const auto last = std::find_if(beats.rbegin(), std::make_reverse_iterator(first), sounds);
    Beats found(first, last.base());
    if (found.size() == 1 && last == beats.rbegin() && behind != nullptr && sounds(behind))
        found.push_back(behind);
    return found.size() < 2 ? Beats() : found;
}

void setJoint(Beat &before, Beat &after, bool slurred)
{
    before.setSlurredToNext(slurred);
    after.setSlurredToPrevious(slurred);
    for (Beat *const beat : {&before, &after})
        if (beat->hasDetails() && !beat->isSlurredToNext() && !beat->isSlurredToPrevious()) {
            beat->setSlurLine(SlurLine::Solid);
            beat->setSlurSide(SlurSide::Auto);
        }
}

} // namespace

SetBeatLegato::SetBeatLegato() : ChangeLinks(QStringLiteral("SetBeatLegato")) { }
SetBeatLegato::~SetBeatLegato() = default;

bool SetBeatLegato::init(Score *score, const ScoreModelRange &range, bool checked)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatLegato::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Checked"), checked ? QStringLiteral("true") : QStringLiteral("false"));
    _checked = checked;
    return prepare(score, range);
}

bool SetBeatLegato::takes(const Line &line) const
{
    return !_checked || !slurred(line.beats, line.behind).empty();
}

void SetBeatLegato::change(const Line &line)
{
    if (_checked) {
        const Beats beats = slurred(line.beats, line.behind);
        for (std::size_t i = 1; i < beats.size(); ++i) {
            setJoint(*beats[i - 1], *beats[i], true);
            beats[i]->setSlurBegins(false);
        }
        beats.front()->setSlurBegins(beats.front()->isSlurredToPrevious());
        beats.back()->setSlurBegins(beats.back()->isSlurredToNext());
        return;
    }
    Beat *before = line.before;
    for (Beat *const beat : line.beats) {
        if (before != nullptr)
            setJoint(*before, *beat, false);
        before = beat;
    }
    if (line.behind != nullptr)
        setJoint(*before, *line.behind, false);
}

} // namespace zarn::cmd
