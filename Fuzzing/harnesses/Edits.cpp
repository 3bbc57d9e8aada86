// SPDX-License-Identifier: MIT
#include "Documents.h"
#include "FailingListener.h"
#include "Fuzzing.h"
#include "StackOracle.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/ZarnTransaction.h>
#include <ZarnCore/io/ZarnNativeExporter.h>

#include <support/EventMirror.h>
#include <support/RandomOperations.h>
#include <support/SmallScore.h>

#include <optional>
#include <utility>

namespace {

using namespace zarn;
using fuzz::expect;

/// Everything that a step has to bring back: the document, and what it leaves out.
std::string look(const Score &score)
{
    const ScoreModel &model = *score.scoreModel();
    std::string text = io::NativeExporter().toText(model);
    text += score.scoreCursor().index().toQString().toStdString();
    text += "\nplay list";
    for (const int bar : model.masterTrack()->playlist())
        text += ' ' + std::to_string(bar);
    text += "\nempty voices";
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (const auto &bar : staff->bars())
                for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
                    text += bar->voice(voice) != nullptr ? '1' : '0';
    return text;
}

/// A score that is edited as the input says, and the oracle beside it.
class Session {
public:
    explicit Session(std::string_view input)
        : _random(input), _oracle(rings[_random.below(std::size(rings))])
    {
        _score.commandStack().setMaximumUndo(static_cast<unsigned>(_oracle.maximum()));
        _now = _saved = look(_score);
    }

    void run()
    {
        while (!_random.isUsedUp())
            step();
        _failing.failAt(0);
        while (_openMacros > 0)
            endMacro(false);
        while (_oracle.undoCount() > 0)
            undo();
        while (_oracle.redoCount() > 0)
            redo();
        fuzz::expectToComeBack(*_score.scoreModel());
    }

private:
    enum class Outcome { Done, Refused, TakenBack };

    void step()
    {
        _failing.failAt(_random.percent(10) ? 1 + _random.below(6) : 0);
        const unsigned kind = _random.below(27);
        if (kind < 12)
            operate();
        else if (kind < 15)
            undo();
        else if (kind < 17)
            redo();
        else if (kind < 19)
            beginMacro();
        else if (kind < 21)
            endMacro(_random.percent(75));
        else if (kind == 21)
            forget();
        else if (kind == 22)
            setMaximum();
        else if (kind == 23)
            replaceModel();
        else if (kind == 24)
            markSaved();
        else
            transaction();
    }

    template <class Act>
    Outcome attempt(Act act)
    {
        try {
            return act() ? Outcome::Done : Outcome::Refused;
        } catch (const CoreException &) {
            return Outcome::TakenBack;
        } catch (const fuzz::ListenerFailure &) {
            return _failing.hasFailedAfterStep() ? Outcome::Done : Outcome::TakenBack;
        }
    }

    void operate()
    {
        EditedScore edited(_score, _random);
        const auto &operations = randomOperations();
        const RandomOperation &operation = operations[_random.below(operations.size())];
        _last = operation.name;
        close(attempt([&] { return operation.act(edited); }));
    }

    /// What has to be true when an operation, or the outermost macro, is through.
    void close(Outcome outcome)
    {
        if (outcome == Outcome::Done && _openMacros == 0) {
            _oracle.push(std::exchange(_now, look(_score)));
            expectAllWell();
        } else {
            expectNow("what is refused, fails or waits in a macro leaves no trace");
        }
    }

    void undo()
    {
        _last = "undo";
        if (attempt([&] { return _score.commandStack().undo(), true; }) == Outcome::Done
            && _oracle.undoCount() > 0)
            _now = _oracle.undo(std::move(_now));
        expectNow("a step that is undone leaves no trace");
    }

    void redo()
    {
        _last = "redo";
        if (attempt([&] { return _score.commandStack().redo(), true; }) == Outcome::Done
            && _oracle.redoCount() > 0)
            _now = _oracle.redo(std::move(_now));
        expectNow("a step that is redone does the same again");
    }

    void beginMacro()
    {
        if (_openMacros >= maximumMacros)
            return;
        _last = "beginMacroCommand";
        _score.commandStack().beginMacroCommand();
        ++_openMacros;
        expectNow("an open macro changes nothing");
    }

    void endMacro(bool isCommitted)
    {
        const bool wasOpen = _openMacros > 0;
        _last = "endMacroCommand";
        _openMacros -= wasOpen ? 1 : 0;
        const Outcome outcome = attempt([&] {
            _score.commandStack().endMacroCommand(isCommitted);
            return wasOpen && isCommitted;
        });
        close(outcome);
    }

    /// One step, or none: what is refused or fails in it leaves it as it was.
    void transaction()
    {
        EditedScore edited(_score, _random);
        const auto &operations = randomOperations();
        const auto isDoneInside = [&] {
            const std::string before = look(_score);
            const Outcome outcome =
                attempt([&] { return operations[_random.below(operations.size())].act(edited); });
            if (outcome != Outcome::Done)
                fuzz::expectEqual(before, look(_score), "what fails in a transaction is undone");
            return outcome == Outcome::Done;
        };
        const Outcome outcome = attempt([&] {
            Transaction transaction(&_score, QStringLiteral("fuzz"));
            bool hasRun = false;
            for (unsigned left = _random.below(5); left > 0; --left)
                hasRun = isDoneInside() || hasRun;
            if (_random.percent(30))
                return false;
            transaction.commit();
            return hasRun;
        });
        _last = "transaction";
        close(outcome);
    }

    void markSaved()
    {
        _last = "setClean";
        _score.commandStack().setClean();
        _saved = _now;
        expectNow("marking the saved state changes nothing");
    }

    void forget()
    {
        CommandStack &stack = _score.commandStack();
        switch (_random.below(3)) {
        case 0:
            _last = "clearRedoStack";
            stack.clearRedoStack();
            _oracle.forgetRedo();
            break;
        case 1:
            if (!_oracle.isClearable())
                return;
            _last = "clearUndoStack";
            stack.clearUndoStack();
            _oracle.forgetUndo();
            break;
        default:
            if (!_oracle.isClearable())
                return;
            _last = "clear";
            stack.clear();
            _oracle.forgetUndo();
            _oracle.forgetRedo();
        }
        expectNow("forgetting commands changes nothing");
    }

    void setMaximum()
    {
        _last = "setMaximumUndo";
        _oracle.setMaximum(rings[_random.below(std::size(rings))]);
        _score.commandStack().setMaximumUndo(static_cast<unsigned>(_oracle.maximum()));
        expectNow("another ring changes nothing");
    }

    void replaceModel()
    {
        while (_openMacros > 0)
            endMacro(false);
        if (_random.coin()) {
            _last = "setScoreModel";
            _score.setScoreModel(_small.score.scoreModel()->clone());
        } else {
            _last = "operator=";
            _score = SmallScore().score;
        }
        _oracle.setMaximum(_oracle.maximum());
        _mirror.emplace(_score);
        _now = _saved = look(_score);
        expectAllWell();
    }

    void expectNow(const char *law)
    {
        const std::string found = look(_score);
        if (found != _now)
            fuzz::expectEqual(_now, found, (std::string(law) + " (" + _last + ")").c_str());
        expectAllWell();
    }

    void expectAllWell()
    {
        fuzz::expectToBeSound(*_score.scoreModel());
        const std::string fault = _mirror->fault();
        if (!fault.empty())
            fuzz::breakLaw("events name everything that changed",
                           std::string(_last) + ": " + fault);
        const CommandStack &stack = _score.commandStack();
        expect(stack.undoAvailable() == (_oracle.undoCount() > 0),
               "there is something to undo when there is");
        expect(stack.redoAvailable() == (_oracle.redoCount() > 0),
               "there is something to redo when there is");
        expect(!stack.isClean() || _now == _saved, "the saved state is what was saved");
        expect(stack.redoCount() == _oracle.redoCount(), "the steps to redo are counted");
        expect(static_cast<std::size_t>(stack.undoCommandList().size()) == _oracle.undoCount(),
               "the steps to undo are listed");
    }

    static constexpr unsigned rings[] = {0, 1, 2, 3, 5, 16};
    static constexpr unsigned maximumMacros = 4;

    Random _random;
    fuzz::StackOracle _oracle;
    SmallScore _small;
    Score &_score = _small.score;
    std::optional<EventMirror> _mirror{std::in_place, _score};
    fuzz::FailingListener _failing{_score};
    unsigned _openMacros = 0;
    std::string _now;
    std::string _saved; ///< what the score was when that was marked
    const char *_last = "";
};

} // namespace

/// The input says how a small score is edited.
void fuzz::check(std::string_view input)
{
    Session(input).run();
}
