// SPDX-License-Identifier: MIT
// From the numbers of an index to the nodes of its model.
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <ZarnCore/model/places/NodesOfIndex.h>

namespace zarn {
namespace {

/// What locates a note within its beat.
struct NoteLocator {
    std::uint32_t midi;
    std::uint32_t string;
    std::uint32_t element;

    static bool isSet(std::uint32_t value) noexcept { return value != ScoreModelIndex::Unset; }

    bool matches(const Note &note) const noexcept
    {
        bool located = false;
        const auto agrees = [&located](bool set, std::uint32_t wanted, int found) {
            located |= set;
            return !set || wanted == static_cast<std::uint32_t>(found);
        };
        return agrees(isSet(midi), midi, note.midi())
            && agrees(isSet(string) && note.string() != Note::Unset, string, note.string())
            && agrees(isSet(element) && element != 0, element, note.percussionArticulation())
            && located;
    }
};

} // namespace

const std::shared_ptr<Note> *findNote(const Beat &beat, const ScoreModelIndex &index) noexcept
{
    NoteLocator locator{index.noteMidi(), index.noteString(), index.noteInstrumentArticulation()};
    const auto search = [&]() -> const std::shared_ptr<Note> * {
        for (const auto &note : beat.notes())
            if (locator.matches(*note))
                return &note;
        return nullptr;
    };
    const auto *found = search();
    if (!found && locator.string == 0) {
        // String 0 is also what an index holds that never was given a string.
        locator.string = ScoreModelIndex::Unset;
        found = search();
    }
    return found;
}

std::shared_ptr<Track> ScoreModelIndex::track() const
{
    return shared(findTrack(*this));
}

std::shared_ptr<Staff> ScoreModelIndex::staff() const
{
    return shared(findStaff(*this));
}

std::shared_ptr<MasterTrack> ScoreModelIndex::masterTrack() const
{
    return _model ? _model->masterTrack() : nullptr;
}

std::shared_ptr<MasterBar> ScoreModelIndex::masterBar() const
{
    return _model ? shared(childAt(_model->masterTrack()->masterBars(), _barIndex)) : nullptr;
}

std::shared_ptr<Bar> ScoreModelIndex::bar() const
{
    return shared(findBar(*this));
}

std::shared_ptr<Voice> ScoreModelIndex::voice() const
{
    return shared(findVoice(*this));
}

std::shared_ptr<Beat> ScoreModelIndex::beat() const
{
    return shared(findBeat(*this));
}

std::shared_ptr<Note> ScoreModelIndex::note() const
{
    const auto *beat = findBeat(*this);
    return beat ? shared(findNote(**beat, *this)) : nullptr;
}

InstrumentSet::Type ScoreModelIndex::type() const
{
    const auto *track = findTrack(*this);
    return track ? (*track)->type() : InstrumentSet::unknown;
}

bool ScoreModelIndex::isTrackValid() const
{
    return findTrack(*this) != nullptr;
}

bool ScoreModelIndex::isBarValid() const
{
    return findBar(*this) != nullptr;
}

bool ScoreModelIndex::isBeatValid() const
{
    return findBeat(*this) != nullptr;
}

bool ScoreModelIndex::isNoteValid() const
{
    const auto *beat = findBeat(*this);
    return beat && findNote(**beat, *this);
}

utils::rational ScoreModelIndex::beatDrawingOffset() const
{
    const auto *beat = findBeat(*this);
    return beat ? (*findVoice(*this))->beatDrawingOffset(**beat) : utils::rational();
}

utils::rational ScoreModelIndex::beatDrawingLength() const
{
    const auto *beat = findBeat(*this);
    return beat ? (*beat)->length() : utils::rational();
}

utils::rational ScoreModelIndex::beatSoundingOffset() const
{
    const auto *beat = findBeat(*this);
    return beat ? (*findVoice(*this))->beatSoundingOffset(**beat) : utils::rational();
}

utils::rational ScoreModelIndex::beatSoundingLength() const
{
    const auto *beat = findBeat(*this);
    return beat ? (*findVoice(*this))->beatSoundingLength(**beat) : utils::rational();
}

} // namespace zarn
