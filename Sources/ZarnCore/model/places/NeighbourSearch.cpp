// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/NeighbourSearch.h>

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/model/notes/StaffLineOfNote.h>
#include <ZarnCore/model/places/NodesOfIndex.h>
#include <ZarnCore/model/places/NoteLocator.h>

namespace zarn {
namespace {

/// Whether there is something to locate notes by; logs when there is not.
bool canLocateNotes(const ScoreModelIndex &index)
{
    const std::uint32_t element = index.noteInstrumentArticulation();
    const bool hasElement = element != ScoreModelIndex::Unset && element != 0;
    const bool elementDecides = index.noteMidi() == ScoreModelIndex::Unset
        && (index.noteString() == ScoreModelIndex::Unset
            || (index.noteString() == 0 && hasElement));
    const auto *track = findTrack(index);
    if (!track || !elementDecides || (hasElement && (*track)->instrumentSet()))
        return true;
    qCWarning(log::model).noquote()
        << "[ZarnScoreModelIndex] WARNING: "
           "ZarnScoreModelIndex::previousValidNoteWithSameLocators : articulationIndex or "
           "instrumentSet is empty.";
    return false;
}

} // namespace

/// Calls `look` at the beats of the search until it answers true.
template <class Look>
bool NeighbourSearch::walk(VoiceLine &line, Look look) const
{
    if (_count)
        return line.step(_direction, Gaps::Stop, *_count) && look();
    if (_here && line.beat() != nullptr && look())
        return true;
    while (line.step(_direction, Gaps::Skip))
        if (look())
            return true;
    return false;
}

/// `find` answers a note of the beat that the line stands at, or null.
template <class Find>
std::shared_ptr<Note> NeighbourSearch::note(Find find) const
{
    VoiceLine line(_place);
    const std::shared_ptr<Note> *found = nullptr;
    walk(line, [&] { return (found = find(line)) != nullptr; });
    return shared(found);
}

/// `matches` is asked about a note, its beat and the bar of that.
template <class Matches>
std::shared_ptr<Note> NeighbourSearch::noteThat(Matches matches) const
{
    return note([&](const VoiceLine &line) -> const std::shared_ptr<Note> * {
        const Beat &beat = **line.beat();
        for (const auto &note : beat.notes())
            if (matches(*note, beat, line.bar()))
                return &note;
        return nullptr;
    });
}

std::shared_ptr<Beat> NeighbourSearch::beat() const
{
    VoiceLine line(_place);
    return walk(line, [] { return true; }) ? *line.beat() : nullptr;
}

std::shared_ptr<Note> NeighbourSearch::noteWithSameLocators() const
{
    if (!canLocateNotes(_place))
        return {};
    const NoteLocator locator(_place);
    return note([&](const VoiceLine &line) { return locator.find(**line.beat()); });
}

std::shared_ptr<Note> NeighbourSearch::noteWithString(int string) const
{
    return noteThat([string](const Note &note, const Beat &, const Bar &) {
        return string >= 0 && note.string() == string;
    });
}

std::shared_ptr<Note> NeighbourSearch::noteWithMidi(int midi) const
{
    return noteThat([midi](const Note &note, const Beat &, const Bar &) {
        return midi >= 0 && note.midi() == midi;
    });
}

std::shared_ptr<Note> NeighbourSearch::noteWithStaffLine(int staffLine) const
{
    return noteThat([staffLine](const Note &note, const Beat &beat, const Bar &bar) {
        return staffLineOf(note, beat, bar) == staffLine;
    });
}

} // namespace zarn
