// SPDX-License-Identifier: MIT
#include "RandomEditor.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/commands/ZarnTransaction.h>
#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/score/ZarnScore.h>

#include <exception>
#include <stdexcept>
#include <type_traits>
#include <utility>

using namespace zarn;

RandomEditor::RandomEditor(Score &score, std::uint64_t seed, unsigned maximumUndo)
    : _score(score), _random(seed), _edited(score, _random)
{
    score.commandStack().setMaximumUndo(maximumUndo);
    for (const RandomOperation &operation : randomOperations())
        _weights += operation.weight;
    evt::forEachEvent(evt::eventTable, [this](const auto &row) {
        using E = typename std::decay_t<decltype(row)>::Event;
        // When these come, the step is done.
        if (row.number != evt::CommandExecuted::TypeNumber
            && row.number != evt::ScoreCursorMoved::TypeNumber)
            _connections.push_back(_score.connectScoped<E>(this, [this](const E &) { fail(); }));
    });
}

void RandomEditor::fail()
{
    if (_failIn == 0 || --_failIn > 0)
        return;
    _failIn = std::exchange(_failAgainIn, 0);
    throw std::runtime_error("a listener fails");
}

void RandomEditor::step()
{
    _failIn = _random.percent(2) ? 1 + _random.below(5) : 0;
    _failAgainIn = _failIn > 0 && _random.coin() ? 1 + _random.below(3) : 0;
    _lastStep.clear();
    const unsigned before = _tally.edits;
    const auto accepted = _tally.accepted;
    try {
        if (_random.percent(9)) {
            group(1);
        } else if (_random.percent(5)) {
            stepBackAndForth();
        } else if (operate()) {
            ++_tally.edits;
        }
    } catch (const CoreException &error) {
        _lastStep += std::string(" raised: ") + error.what();
        ++_tally.takenBack;
        _tally.edits = before;
        _tally.accepted = accepted;
    } catch (const std::runtime_error &error) {
        _lastStep += std::string(" raised: ") + error.what();
        ++_tally.takenBack;
        _tally.edits = before;
        _tally.accepted = accepted;
    }
    _failIn = _failAgainIn = 0;
}

bool RandomEditor::operate()
{
    unsigned chosen = _random.below(_weights);
    for (const RandomOperation &operation : randomOperations()) {
        if (chosen >= operation.weight) {
            chosen -= operation.weight;
            continue;
        }
        _lastStep += std::string(_lastStep.empty() ? "" : ", ") + operation.name;
        const bool isAccepted = operation.act(_edited);
        ++(isAccepted ? _tally.accepted[operation.name] : _tally.refused);
        return isAccepted;
    }
    return false;
}

void RandomEditor::group(unsigned depth)
{
    if (_random.percent(60))
        macro(depth);
    else
        transaction(depth);
}

void RandomEditor::fill(unsigned depth)
{
    for (unsigned i = _random.below(7); i > 0; --i) {
        if (depth < 3 && _random.percent(10))
            group(depth + 1);
        else if (operate())
            ++_tally.edits;
    }
}

/// What is in it runs when the outermost macro ends; an inner one may be abandoned alone.
void RandomEditor::macro(unsigned depth)
{
    CommandStack &stack = _score.commandStack();
    const unsigned before = _tally.edits;
    const auto accepted = _tally.accepted;
    _lastStep += _lastStep.empty() ? "begin" : ", begin";
    stack.beginMacroCommand();
    fill(depth);
    const bool isCommitted = _random.percent(80);
    _lastStep += isCommitted ? ", commit" : ", abandon";
    if (isCommitted) {
        ++_tally.macros;
    } else {
        ++_tally.abandoned;
        _tally.edits = before;
        _tally.accepted = accepted;
    }
    stack.endMacroCommand(isCommitted);
}

/// What is in it runs at once, unless a macro is open around it.
void RandomEditor::transaction(unsigned depth)
{
    const unsigned before = _tally.edits;
    const auto accepted = _tally.accepted;
    _lastStep += _lastStep.empty() ? "open" : ", open";
    Transaction transaction(&_score, QStringLiteral("random"));
    fillBearing(depth);
    if (_random.percent(75)) {
        _lastStep += ", commit";
        transaction.commit();
        ++_tally.transactions;
        return;
    }
    _lastStep += ", take back";
    ++_tally.abandoned;
    _tally.edits = before;
    _tally.accepted = accepted;
}

/// What raises in a transaction that runs at once leaves it as it was, and it may go on.
void RandomEditor::fillBearing(unsigned depth)
{
    const bool bears = !_score.commandStack().isMacroOpen() && _random.coin();
    const unsigned before = _tally.edits;
    const auto accepted = _tally.accepted;
    try {
        fill(depth);
    } catch (const std::exception &error) {
        if (!bears || _score.commandStack().isMacroOpen())
            throw;
        _lastStep += std::string(" raised: ") + error.what() + ", borne";
        // What ran before it stays, but nobody counts it.
        _tally.edits = before;
        _tally.accepted = accepted;
    }
}

void RandomEditor::stepBackAndForth()
{
    CommandStack &stack = _score.commandStack();
    const unsigned back = 1 + _random.below(4);
    const unsigned forth = _random.below(back + 1);
    _lastStep = "undo " + std::to_string(back) + ", redo " + std::to_string(forth);
    for (unsigned i = 0; i < back; ++i)
        stack.undo();
    _tally.undone += back;
    for (unsigned i = 0; i < forth; ++i)
        stack.redo();
}
