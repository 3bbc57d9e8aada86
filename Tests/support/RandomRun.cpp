// SPDX-License-Identifier: MIT
#include "RandomRun.h"

#include "EventMirror.h"
#include "KeptPlaces.h"
#include "RandomCursor.h"
#include "ScoreDump.h"
#include "TextDifference.h"

#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <exception>

using namespace zarn;

namespace {

/// What undo and redo must give back; the cursor has been moved between the edits.
std::string music(const Score &score)
{
    return dump(*score.scoreModel());
}

std::string firstProblem(const Score &score)
{
    const auto problems = checkModel(*score.scoreModel());
    return problems.empty() ? std::string() : "the tree is broken: " + problems.front();
}

/// What edits must not lose although none of them makes it: simile marks and partial capos.
void scatterMarks(ScoreModel &model, std::uint64_t seed)
{
    Random random(seed);
    for (const auto &track : model.tracks()) {
        for (const auto &staff : track->staves()) {
            const auto &bars = staff->bars();
            for (std::size_t i = 1; i < bars.size(); ++i) {
                if (random.percent(15)) {
                    bars[i]->setSimileMark(SimileMark::Simple);
                } else if (i + 1 < bars.size() && random.percent(10)) {
                    bars[i++]->setSimileMark(SimileMark::FirstOfDouble);
                    bars[i]->setSimileMark(SimileMark::SecondOfDouble);
                }
            }
            if (staff->isFretted() && random.coin()) {
                std::vector<bool> strings(staff->tuning().stringCount());
                strings[random.below(strings.size())] = true;
                staff->setPartialCapoFret(2);
                staff->setPartialCapoStringFlags(strings);
            }
        }
    }
}

/// What an editor holds of a score while it changes: a view, selections and the cursor.
struct Watch {
    EventMirror mirror;
    KeptPlaces kept;
    RandomCursor cursor;

    Watch(Score &score, std::uint64_t seed, unsigned wholeLookEvery)
        : mirror(score, wholeLookEvery), kept(score, seed), cursor(score, seed)
    {
    }

    std::string fault()
    {
        std::string fault = mirror.firstFault();
        if (fault.empty())
            fault = kept.fault();
        return fault.empty() ? cursor.fault() : fault;
    }
};

/// The saved state of a score, and that its stack says truly when the score is in it.
class SavedState {
public:
    explicit SavedState(Score &score) : _score(score), _text(music(score)) { }

    void mark()
    {
        _score.commandStack().setClean();
        _text = music(_score);
    }

    /// What is wrong; empty when the score is not said to be in that state, or is.
    std::string fault() const
    {
        return !isReached() || music(_score) == _text ? std::string()
                                                      : "this is said to be the saved state";
    }

    std::string faultUnless(bool isHere) const
    {
        return isReached() == isHere ? std::string()
            : isHere                 ? "back in the saved state, nobody says so"
                                     : "nothing of what was saved is left, and nobody says so";
    }

private:
    bool isReached() const { return _score.commandStack().isClean(); }

    Score &_score;
    std::string _text;
};

/// Back to the start, or until a fault.
std::string undoAll(Score &score, Watch &watch, std::size_t &steps)
{
    std::string fault;
    for (steps = 0; score.commandStack().undoAvailable() && fault.empty(); ++steps) {
        score.commandStack().undo();
        fault = watch.fault();
    }
    return fault;
}

std::string redoAll(Score &score, Watch &watch, std::size_t steps)
{
    std::string fault;
    for (std::size_t i = 0; i < steps && fault.empty(); ++i) {
        score.commandStack().redo();
        fault = watch.fault();
    }
    return fault;
}

std::string compareAfter(const char *what, const std::string &expected, const Score &score)
{
    const std::string found = music(score);
    return found == expected ? firstProblem(score)
                             : std::string(what) + " " + textDifference(expected, found);
}

/// Some steps back and forth in the middle of a run.
std::string checkSomeSteps(Score &score, unsigned steps)
{
    if (std::string problem = firstProblem(score); !problem.empty())
        return problem;
    const std::string here = music(score);
    const unsigned redoable = score.commandStack().redoCount();
    for (unsigned i = 0; i < steps; ++i)
        score.commandStack().undo();
    if (std::string problem = firstProblem(score); !problem.empty())
        return "after steps back, " + problem;
    while (score.commandStack().redoCount() > redoable)
        score.commandStack().redo();
    return compareAfter("after steps back and forth,", here, score);
}

/// The newest step back and forth.
std::string undoAndRedo(Score &score, const std::string &before, const std::string &after)
{
    CommandStack &stack = score.commandStack();
    const std::string args = stack.undoArgList().value(0).toStdString();
    std::string fault;
    try {
        stack.undo();
        fault = compareAfter("undone,", before, score);
        stack.redo();
        if (fault.empty())
            fault = compareAfter("redone,", after, score);
    } catch (const std::exception &error) {
        fault = error.what();
    }
    return fault.empty() ? fault : fault + "\n  " + args;
}

} // namespace

RandomRun::Result RandomRun::run() const
{
    Result result;
    try {
        runAll(result);
    } catch (const std::exception &error) {
        result.fault = error.what();
    }
    return result;
}

void RandomRun::runAll(Result &result) const
{
    Score score;
    *score.scoreModel() = model;
    scatterMarks(*score.scoreModel(), seed);
    Watch watch(score, seed, EventMirror::wholeLookInterval(model));
    RandomEditor editor(score, seed, 2 * edits + 64);
    const std::string before = music(score);
    SavedState saved(score);
    const unsigned interval = std::max(1U, edits / std::max(1U, checks));
    unsigned nextCheck = interval;
    while (editor.tally().edits < edits && result.fault.empty()) {
        watch.cursor.move();
        editor.step();
        result.fault = watch.fault();
        if (result.fault.empty())
            result.fault = saved.fault();
        if (result.fault.empty() && editor.tally().edits >= nextCheck) {
            nextCheck += interval;
            saved.mark();
            result.fault = checkSomeSteps(score, interval / 2);
            if (result.fault.empty())
                result.fault = saved.faultUnless(true);
        }
    }
    result.tally = editor.tally();
    if (!result.fault.empty())
        return;
    const std::string after = music(score);
    saved.mark();
    for (int round = 0; round < 2 && result.fault.empty(); ++round) {
        result.fault = undoAll(score, watch, result.steps);
        if (result.fault.empty())
            result.fault = compareAfter("undone,", before, score);
        if (result.fault.empty())
            result.fault = watch.mirror.fault();
        if (result.fault.empty())
            result.fault = saved.faultUnless(result.steps == 0);
        if (!result.fault.empty())
            break;
        result.fault = redoAll(score, watch, result.steps);
        if (result.fault.empty())
            result.fault = compareAfter("redone,", after, score);
        if (result.fault.empty())
            result.fault = watch.mirror.fault();
        if (result.fault.empty())
            result.fault = saved.faultUnless(true);
    }
    result.comparedSteps = watch.mirror.steps();
}

std::string RandomRun::findCulprit() const
{
    Score score;
    *score.scoreModel() = model;
    scatterMarks(*score.scoreModel(), seed);
    Watch watch(score, seed, 1);
    RandomEditor editor(score, seed, 2 * edits + 64);
    std::string before = music(score);
    for (unsigned number = 1; editor.tally().edits < edits; ++number) {
        const RandomEditor::Tally tally = editor.tally();
        watch.cursor.move();
        editor.step();
        const std::string after = music(score);
        const std::string name = "step " + std::to_string(number) + " (" + editor.lastStep() + ") ";
        std::string fault = firstProblem(score);
        if (fault.empty())
            fault = watch.fault();
        const bool isStepped = editor.lastStep().compare(0, 4, "undo") == 0;
        if (fault.empty() && !isStepped && editor.tally().takenBack != tally.takenBack
            && after != before)
            fault = "left a trace: " + textDifference(before, after);
        if (fault.empty() && editor.tally().edits != tally.edits)
            fault = undoAndRedo(score, before, after);
        if (!fault.empty())
            return name + fault;
        before = after;
    }
    return {};
}
