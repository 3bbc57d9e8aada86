// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/OpenTies.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <cstring>

namespace zarn::io {

namespace {

/// So many ties are never open at once.
constexpr std::size_t mostTies = 256;

/// One number for each pitch, and behind them for each place on the staff of an unpitched note.
int pitchOf(const WrittenNote &note)
{
    constexpr int pitches = 128;
    return note.kind == NoteKind::Pitched ? note.midi : pitches + 7 * (note.octave + 1) + note.step;
}

} // namespace

void OpenTies::startPart()
{
    _ties.clear();
    _lengthBefore = 0;
}

void OpenTies::follow(WrittenNote &note)
{
    if (note.kind != NoteKind::Pitched && note.kind != NoteKind::Unpitched)
        return;
    if (note.tieStop) {
        if (!stop(note))
            _context.addProblem(note.node, "a tie ends here that nothing begins");
    } else if (!_ties.empty()) {
        note.tieStop = hold(note);
    }
    if (note.tieStart && _ties.size() < mostTies)
        _ties.push_back({pitchOf(note), note.voice, _context.bar(), note.onset + note.length,
                         note.node, note.instrument});
}

bool OpenTies::isFollowedBy(const Tie &tie, const WrittenNote &note) const
{
    if (tie.bar == _context.bar())
        return tie.end == note.onset;
    return tie.bar + 1 == _context.bar() && note.onset == utils::rational(0)
        && tie.end == _lengthBefore;
}

/// Ends the tie that leads to the note: of its own voice, if there is one.
bool OpenTies::stop(const WrittenNote &note)
{
    const int pitch = pitchOf(note);
    const auto is = [&](const Tie &tie) { return tie.pitch == pitch; };
    auto found = std::find_if(_ties.begin(), _ties.end(),
                              [&](const Tie &tie) { return is(tie) && tie.voice == note.voice; });
    if (found == _ties.end())
        found = std::find_if(_ties.begin(), _ties.end(), is);
    if (found == _ties.end())
        return false;
    _ties.erase(found);
    return true;
}

bool OpenTies::hold(const WrittenNote &note)
{
    const int pitch = pitchOf(note);
    const auto found = std::find_if(_ties.begin(), _ties.end(), [&](const Tie &tie) {
        return tie.pitch == pitch && tie.voice == note.voice && isFollowedBy(tie, note)
            && (note.kind == NoteKind::Pitched
                || std::strcmp(tie.instrument, note.instrument) == 0);
    });
    if (found == _ties.end())
        return false;
    _ties.erase(found);
    return true;
}

void OpenTies::finishPart()
{
    for (const auto &tie : _ties)
        _context.addProblemInBar(tie.bar, tie.node, "a tie is begun here that nothing ends");
}

} // namespace zarn::io
