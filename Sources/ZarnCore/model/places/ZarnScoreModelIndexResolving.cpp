// SPDX-License-Identifier: MIT
// From the numbers of an index to the nodes of its model.
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <ZarnCore/model/places/NodesOfIndex.h>

#include <utility>

namespace zarn {
namespace {

/// What locates a note within its beat.
struct NoteLocator {
    std::uint32_t midi;
    std::uint32_t string;
    std::uint32_t element;

    static bool isSet(std::uint32_t value) noexcept { return value != ScoreModelIndex::Unset; }

    // Which note it is cannot be foreseen: one branch on all of it is faster than one on each part.
    bool matches(const Note &note) const noexcept
    {
        bool isLocated = false;
        bool differs = false;
        const auto compare = [&](bool counts, std::uint32_t wanted, int found) {
            isLocated |= counts;
            differs |= counts & (wanted != static_cast<std::uint32_t>(found));
        };
        const bool hasString = note.string() != Note::Unset;
        const bool namesString = isSet(string);
        const bool namesElement = isSet(element);
        compare(isSet(midi), midi, note.midi());
        compare(namesString & hasString, string, note.string());
        compare(namesElement & (element != 0), element, note.percussionArticulation());
        return isLocated & !differs;
    }
};

/// The first note that fits. Backwards through all of them: chords are short, and a branch on the
/// first would be guessed wrong every other time.
template <class Fits>
const std::shared_ptr<Note> *firstNote(const Beat &beat, const Fits &fits) noexcept
{
    const std::shared_ptr<Note> *first = nullptr;
    const auto &notes = beat.notes();
    for (auto note = notes.end(); note != notes.begin();) {
        --note;
        first = fits(**note) ? &*note : first;
    }
    return first;
}

} // namespace

const std::shared_ptr<Note> *findNote(const Beat &beat, const ScoreModelIndex &index) noexcept
{
    NoteLocator locator{index.noteMidi(), index.noteString(), index.noteInstrumentArticulation()};
    const bool namesOnlyString = !NoteLocator::isSet(locator.midi)
        && (!NoteLocator::isSet(locator.element) || locator.element == 0);
    const auto *found = namesOnlyString && NoteLocator::isSet(locator.string)
        ? firstNote(beat,
                    [string = static_cast<int>(locator.string)](const Note &note) {
                        return note.string() == string;
                    })
        : firstNote(beat, [&locator](const Note &note) { return locator.matches(note); });
    if (!found && locator.string == 0) {
        // String 0 is also what an index holds that never was given a string.
        locator.string = ScoreModelIndex::Unset;
        found = firstNote(beat, [&locator](const Note &note) { return locator.matches(note); });
    }
    return found;
}

std::shared_ptr<Track> ScoreModelIndex::track() const
{
    return shared(zarn::findTrack(*this));
}

std::shared_ptr<Staff> ScoreModelIndex::staff() const
{
    return shared(zarn::findStaff(*this));
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
    return shared(zarn::findBar(*this));
}

std::shared_ptr<Voice> ScoreModelIndex::voice() const
{
    return shared(zarn::findVoice(*this));
}

std::shared_ptr<Beat> ScoreModelIndex::beat() const
{
    return shared(zarn::findBeat(*this));
}

std::shared_ptr<Note> ScoreModelIndex::note() const
{
    const auto *beat = zarn::findBeat(*this);
    return beat ? shared(zarn::findNote(**beat, *this)) : nullptr;
}

namespace {

/// The node alone, null for null.
template <class Node>
Node *plain(const std::shared_ptr<Node> *node) noexcept
{
    return node ? node->get() : nullptr;
}

} // namespace

Track *ScoreModelIndex::findTrack() const noexcept
{
    return plain(zarn::findTrack(*this));
}

Staff *ScoreModelIndex::findStaff() const noexcept
{
    return plain(zarn::findStaff(*this));
}

MasterBar *ScoreModelIndex::findMasterBar() const noexcept
{
    return _model ? plain(childAt(std::as_const(*_model).masterTrack()->masterBars(), _barIndex))
                  : nullptr;
}

Bar *ScoreModelIndex::findBar() const noexcept
{
    return plain(zarn::findBar(*this));
}

Voice *ScoreModelIndex::findVoice() const noexcept
{
    return plain(zarn::findVoice(*this));
}

Beat *ScoreModelIndex::findBeat() const noexcept
{
    return plain(zarn::findBeat(*this));
}

Note *ScoreModelIndex::findNote() const noexcept
{
    const auto *beat = zarn::findBeat(*this);
    return beat ? plain(zarn::findNote(**beat, *this)) : nullptr;
}

InstrumentSet::Type ScoreModelIndex::type() const
{
    const auto *track = zarn::findTrack(*this);
    return track ? (*track)->type() : InstrumentSet::unknown;
}

bool ScoreModelIndex::isTrackValid() const
{
    return zarn::findTrack(*this) != nullptr;
}

bool ScoreModelIndex::isBarValid() const
{
    return zarn::findBar(*this) != nullptr;
}

bool ScoreModelIndex::isBeatValid() const
{
    return zarn::findBeat(*this) != nullptr;
}

bool ScoreModelIndex::isNoteValid() const
{
    const auto *beat = zarn::findBeat(*this);
    return beat && zarn::findNote(**beat, *this);
}

utils::rational ScoreModelIndex::beatDrawingOffset() const
{
    const auto *beat = zarn::findBeat(*this);
    return beat ? (*zarn::findVoice(*this))->beatDrawingOffset(**beat) : utils::rational();
}

utils::rational ScoreModelIndex::beatDrawingLength() const
{
    const auto *beat = zarn::findBeat(*this);
    return beat ? (*beat)->length() : utils::rational();
}

utils::rational ScoreModelIndex::beatSoundingOffset() const
{
    const auto *beat = zarn::findBeat(*this);
    return beat ? (*zarn::findVoice(*this))->beatSoundingOffset(**beat) : utils::rational();
}

utils::rational ScoreModelIndex::beatSoundingLength() const
{
    const auto *beat = zarn::findBeat(*this);
    return beat ? (*zarn::findVoice(*this))->beatSoundingLength(**beat) : utils::rational();
}

} // namespace zarn
