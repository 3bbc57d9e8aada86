// SPDX-License-Identifier: MIT
// What comes behind and in front of a place in its line.
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/notes/StaffLineOfNote.h>
#include <ZarnCore/model/places/NodesOfIndex.h>
#include <ZarnCore/model/places/VoiceLine.h>

#include <optional>

namespace zarn {
namespace {

constexpr auto Next = VoiceLine::Direction::Next;
constexpr auto Previous = VoiceLine::Direction::Previous;
using FoundNote = const std::shared_ptr<Note> *;

/// How far a search goes: to the beat a number of steps away, or on until something is found.
struct Exactly {
    unsigned count;
};
struct Nearest {
    bool here;
};

/// Calls `look` at the beats of a search until it answers true.
template <class Look>
bool search(VoiceLine &line, VoiceLine::Direction direction, Exactly reach, Look look)
{
    return line.step(direction, VoiceLine::Gaps::Stop, reach.count) && look();
}

template <class Look>
bool search(VoiceLine &line, VoiceLine::Direction direction, Nearest reach, Look look)
{
    if (reach.here && line.beat() != nullptr && look())
        return true;
    while (line.step(direction, VoiceLine::Gaps::Skip))
        if (look())
            return true;
    return false;
}

template <class Reach>
std::shared_ptr<Beat> beatFrom(const ScoreModelIndex &index, VoiceLine::Direction direction,
                               Reach reach)
{
    VoiceLine line(index);
    return search(line, direction, reach, [] { return true; }) ? *line.beat() : nullptr;
}

/// `find` answers a note of the beat that the line stands at, or null.
template <class Reach, class Find>
std::shared_ptr<Note> noteFrom(const ScoreModelIndex &index, VoiceLine::Direction direction,
                               Reach reach, Find find)
{
    VoiceLine line(index);
    FoundNote found = nullptr;
    search(line, direction, reach, [&] { return (found = find(line)) != nullptr; });
    return shared(found);
}

template <class Matches>
FoundNote firstNote(const VoiceLine &line, Matches matches)
{
    for (const auto &note : (*line.beat())->notes())
        if (matches(*note))
            return &note;
    return nullptr;
}

auto onString(int string)
{
    return [string](const VoiceLine &line) {
        return firstNote(
            line, [string](const Note &note) { return string >= 0 && note.string() == string; });
    };
}

auto withMidi(int midi)
{
    return [midi](const VoiceLine &line) {
        return firstNote(line,
                         [midi](const Note &note) { return midi >= 0 && note.midi() == midi; });
    };
}

auto onStaffLine(int staffLine)
{
    return [staffLine](const VoiceLine &line) {
        return firstNote(line, [&](const Note &note) {
            return staffLineOf(note, **line.beat(), line.bar()) == staffLine;
        });
    };
}

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

template <class Reach>
std::shared_ptr<Note> sameNoteFrom(const ScoreModelIndex &index, VoiceLine::Direction direction,
                                   Reach reach)
{
    if (!canLocateNotes(index))
        return {};
    return noteFrom(index, direction, reach,
                    [&](const VoiceLine &line) { return findNote(**line.beat(), index); });
}

} // namespace

std::shared_ptr<Beat> ScoreModelIndex::nextBeat(const ScoreModelIndex &index, unsigned count)
{
    return beatFrom(index, Next, Exactly{count});
}

std::shared_ptr<Beat> ScoreModelIndex::previousBeat(const ScoreModelIndex &index, unsigned count)
{
    return beatFrom(index, Previous, Exactly{count});
}

std::shared_ptr<Beat> ScoreModelIndex::nextValidBeat(const ScoreModelIndex &index, bool here)
{
    return beatFrom(index, Next, Nearest{here});
}

std::shared_ptr<Beat> ScoreModelIndex::previousValidBeat(const ScoreModelIndex &index, bool here)
{
    return beatFrom(index, Previous, Nearest{here});
}

std::shared_ptr<Note> ScoreModelIndex::nextNoteWithSameLocators(const ScoreModelIndex &index,
                                                                unsigned count)
{
    return sameNoteFrom(index, Next, Exactly{count});
}

std::shared_ptr<Note> ScoreModelIndex::previousNoteWithSameLocators(const ScoreModelIndex &index,
                                                                    unsigned count)
{
    return sameNoteFrom(index, Previous, Exactly{count});
}

std::shared_ptr<Note> ScoreModelIndex::nextValidNoteWithSameLocators(const ScoreModelIndex &index,
                                                                     bool here)
{
    return sameNoteFrom(index, Next, Nearest{here});
}

std::shared_ptr<Note>
ScoreModelIndex::previousValidNoteWithSameLocators(const ScoreModelIndex &index, bool here)
{
    return sameNoteFrom(index, Previous, Nearest{here});
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstNoteWithString(const ScoreModelIndex &index,
                                                               int string, unsigned count)
{
    return noteFrom(index, Next, Exactly{count}, onString(string));
}

std::shared_ptr<Note> ScoreModelIndex::previousFirstNoteWithString(const ScoreModelIndex &index,
                                                                   int string, unsigned count)
{
    return noteFrom(index, Previous, Exactly{count}, onString(string));
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstValidNoteWithString(const ScoreModelIndex &index,
                                                                    int string, bool here)
{
    return noteFrom(index, Next, Nearest{here}, onString(string));
}

std::shared_ptr<Note>
ScoreModelIndex::previousFirstValidNoteWithString(const ScoreModelIndex &index, int string,
                                                  bool here)
{
    return noteFrom(index, Previous, Nearest{here}, onString(string));
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstNoteWithMidi(const ScoreModelIndex &index, int midi,
                                                             unsigned count)
{
    return noteFrom(index, Next, Exactly{count}, withMidi(midi));
}

std::shared_ptr<Note> ScoreModelIndex::previousFirstNoteWithMidi(const ScoreModelIndex &index,
                                                                 int midi, unsigned count)
{
    return noteFrom(index, Previous, Exactly{count}, withMidi(midi));
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstValidNoteWithMidi(const ScoreModelIndex &index,
                                                                  int midi, bool here)
{
    return noteFrom(index, Next, Nearest{here}, withMidi(midi));
}

std::shared_ptr<Note> ScoreModelIndex::previousFirstValidNoteWithMidi(const ScoreModelIndex &index,
                                                                      int midi, bool here)
{
    return noteFrom(index, Previous, Nearest{here}, withMidi(midi));
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstNoteWithStaffLine(const ScoreModelIndex &index,
                                                                  int line, unsigned count)
{
    return noteFrom(index, Next, Exactly{count}, onStaffLine(line));
}

std::shared_ptr<Note> ScoreModelIndex::previousFirstNoteWithStaffLine(const ScoreModelIndex &index,
                                                                      int line, unsigned count)
{
    return noteFrom(index, Previous, Exactly{count}, onStaffLine(line));
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstValidNoteWithStaffLine(const ScoreModelIndex &index,
                                                                       int line, bool here)
{
    return noteFrom(index, Next, Nearest{here}, onStaffLine(line));
}

std::shared_ptr<Note>
ScoreModelIndex::previousFirstValidNoteWithStaffLine(const ScoreModelIndex &index, int line,
                                                     bool here)
{
    return noteFrom(index, Previous, Nearest{here}, onStaffLine(line));
}

ScoreModelIndex ScoreModelIndex::mapOnVoice(unsigned voice, bool nearest) const
{
    ScoreModelIndex mapped = *this;
    if (voice == _voiceIndex)
        return mapped;
    mapped._voiceIndex = voice;
    mapped._beatIndex = -1;
    const auto *target = zarn::findVoice(mapped);
    if (!isBeatValid() || !target || (*target)->isEmpty())
        return mapped;
    const auto beat = (*target)->beatAt(beatDrawingOffset());
    if (beat)
        mapped._beatIndex = static_cast<std::int32_t>(beat->index());
    else if (nearest)
        mapped._beatIndex = static_cast<std::int32_t>((*target)->beatCount()) - 1;
    return mapped;
}

} // namespace zarn
