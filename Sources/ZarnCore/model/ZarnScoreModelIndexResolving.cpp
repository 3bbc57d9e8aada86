// SPDX-License-Identifier: MIT
// From the numbers of an index to the nodes of its model.
#include <ZarnCore/model/ZarnScoreModelIndex.h>

#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn {
namespace {

/// The child with a number; null for a number that stands for none.
template <class Children, class Number>
auto childAt(const Children &children, Number number) noexcept -> decltype(children[0].get())
{
    return static_cast<std::int64_t>(number) >= 0
            && static_cast<std::uint64_t>(number) < children.size()
        ? children[static_cast<std::size_t>(number)].get()
        : nullptr;
}

Track *findTrack(const ScoreModelIndex &index) noexcept
{
    const ScoreModel *model = index.model();
    return model ? childAt(model->tracks(), index.trackIndex()) : nullptr;
}

Staff *findStaff(const ScoreModelIndex &index) noexcept
{
    const Track *track = findTrack(index);
    return track ? childAt(track->staves(), index.staffIndex()) : nullptr;
}

Bar *findBar(const ScoreModelIndex &index) noexcept
{
    const Staff *staff = findStaff(index);
    return staff ? childAt(staff->bars(), index.barIndex()) : nullptr;
}

Voice *findVoice(const ScoreModelIndex &index) noexcept
{
    const Bar *bar = findBar(index);
    return bar ? childAt(bar->voices(), index.voiceIndex()) : nullptr;
}

Beat *findBeat(const ScoreModelIndex &index) noexcept
{
    const Voice *voice = findVoice(index);
    return voice ? childAt(voice->beats(), index.beatIndex()) : nullptr;
}

template <class Node>
std::shared_ptr<Node> shared(Node *node)
{
    return node ? node->shared_from_this() : nullptr;
}

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

Note *findNote(const ScoreModelIndex &index) noexcept
{
    const Beat *beat = findBeat(index);
    if (!beat)
        return nullptr;
    NoteLocator locator{index.noteMidi(), index.noteString(), index.noteInstrumentArticulation()};
    const auto search = [&]() -> Note * {
        for (const auto &note : beat->notes())
            if (locator.matches(*note))
                return note.get();
        return nullptr;
    };
    Note *found = search();
    if (!found && locator.string == 0) {
        // String 0 is also what an index holds that never was given a string.
        locator.string = ScoreModelIndex::Unset;
        found = search();
    }
    return found;
}

} // namespace

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
    return shared(findNote(*this));
}

InstrumentSet::Type ScoreModelIndex::type() const
{
    const Track *track = findTrack(*this);
    return track ? track->type() : InstrumentSet::unknown;
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
    return findNote(*this) != nullptr;
}

utils::rational ScoreModelIndex::beatDrawingOffset() const
{
    const Beat *beat = findBeat(*this);
    return beat ? findVoice(*this)->beatDrawingOffset(*beat) : utils::rational();
}

utils::rational ScoreModelIndex::beatDrawingLength() const
{
    const Beat *beat = findBeat(*this);
    return beat ? beat->length() : utils::rational();
}

utils::rational ScoreModelIndex::beatSoundingOffset() const
{
    const Beat *beat = findBeat(*this);
    return beat ? findVoice(*this)->beatSoundingOffset(*beat) : utils::rational();
}

utils::rational ScoreModelIndex::beatSoundingLength() const
{
    const Beat *beat = findBeat(*this);
    return beat ? findVoice(*this)->beatSoundingLength(*beat) : utils::rational();
}

} // namespace zarn
