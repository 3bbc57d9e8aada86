// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/NeighbourSearch.h>
#include <ZarnCore/model/places/NodesOfIndex.h>
#include <ZarnCore/model/places/NoteLocator.h>

#include <filesystem/FileHandle.h>

#include <array>
#include <utility>

namespace zarn {
namespace {

/// The node alone, null for null.
template <class Node>
Node *plain(const std::shared_ptr<Node> *node) noexcept
{
    return node ? node->get() : nullptr;
}

[[gnu::always_inline]] inline const std::shared_ptr<Note> *
noteAt(const ScoreModelIndex &index) noexcept
{
    const auto *beat = findBeat(index);
    return beat ? NoteLocator(index).find(**beat) : nullptr;
}

/// What the voice of a beat answers about its time; 0 where there is no beat.
utils::rational timeAt(const ScoreModelIndex &index,
                       utils::rational (Voice::*time)(const Beat &) const)
{
    const auto *beat = findBeat(index);
    return beat ? ((**findVoice(index)).*time)(**beat) : utils::rational();
}

/// In the order of texts and streams; what is unset as -1.
std::array<std::int32_t, 8> numbersOf(const ScoreModelIndex &index) noexcept
{
    const auto asSigned = [](std::uint32_t number) { return static_cast<std::int32_t>(number); };
    return {index.trackIndex(),
            asSigned(index.staffIndex()),
            index.barIndex(),
            asSigned(index.voiceIndex()),
            index.beatIndex(),
            asSigned(index.noteMidi()),
            asSigned(index.noteString()),
            asSigned(index.noteInstrumentArticulation())};
}

} // namespace

ScoreModelIndex::ScoreModelIndex(ScoreModel *model, int track, int bar, int beat, unsigned voice,
                                 unsigned staff) noexcept
    : _barIndex(bar), _beatIndex(beat), _model(model), _staffIndex(staff), _trackIndex(track),
      _voiceIndex(voice)
{
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
    return shared(noteAt(*this));
}

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
    return plain(noteAt(*this));
}

InstrumentSet::Type ScoreModelIndex::type() const
{
    const auto *track = zarn::findTrack(*this);
    return track ? (*track)->type() : InstrumentSet::unknown;
}

void ScoreModelIndex::invalidateTrack() noexcept
{
    _trackIndex = -1;
    _staffIndex = 0;
    invalidateBar();
}

void ScoreModelIndex::invalidateBar() noexcept
{
    _barIndex = -1;
    invalidateBeat();
}

void ScoreModelIndex::invalidateBeat() noexcept
{
    _beatIndex = -1;
    invalidateNote();
}

void ScoreModelIndex::invalidateNote() noexcept
{
    _noteElement = Unset;
    _noteMidi = Unset;
    _noteString = Unset;
}

bool ScoreModelIndex::setTrackIndex(int track, bool keepStaff)
{
    _trackIndex = track;
    if (!keepStaff)
        _staffIndex = 0;
    return isTrackValid();
}

bool ScoreModelIndex::setStaffIndex(unsigned staff)
{
    _staffIndex = staff;
    return this->staff() != nullptr;
}

bool ScoreModelIndex::setBarIndex(int bar)
{
    _barIndex = bar;
    return isBarValid();
}

bool ScoreModelIndex::setVoiceIndex(unsigned voice)
{
    ZARN_ASSERT_IN("zarn::ScoreModelIndex::setVoiceIndex", voice <= zarn::Bar::MaxVoices);
    _voiceIndex = voice;
    return this->voice() != nullptr;
}

bool ScoreModelIndex::setBeatIndex(int beat)
{
    _beatIndex = beat;
    return isBeatValid();
}

bool ScoreModelIndex::setBeatOffset(const utils::rational &offset)
{
    const auto line = voice();
    const auto beat = line ? line->beatAt(offset) : nullptr;
    if (!beat)
        return false;
    _beatIndex = static_cast<std::int32_t>(beat->index());
    return true;
}

bool ScoreModelIndex::setNoteString(std::uint32_t string)
{
    _noteString = string;
    return isNoteValid();
}

bool ScoreModelIndex::setNoteMidi(std::uint32_t midi)
{
    _noteMidi = midi;
    return isNoteValid();
}

bool ScoreModelIndex::setNotePercussionActiculation(std::uint32_t element)
{
    _noteElement = element;
    return isNoteValid();
}

utils::rational ScoreModelIndex::beatDrawingOffset() const
{
    return timeAt(*this, &Voice::beatDrawingOffset);
}

utils::rational ScoreModelIndex::beatDrawingLength() const
{
    const auto *beat = zarn::findBeat(*this);
    return beat ? (*beat)->length() : utils::rational();
}

utils::rational ScoreModelIndex::beatSoundingOffset() const
{
    return timeAt(*this, &Voice::beatSoundingOffset);
}

utils::rational ScoreModelIndex::beatSoundingLength() const
{
    return timeAt(*this, &Voice::beatSoundingLength);
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

std::shared_ptr<Beat> ScoreModelIndex::nextBeat(const ScoreModelIndex &index, unsigned count)
{
    return NeighbourSearch::next(index, count).beat();
}

std::shared_ptr<Beat> ScoreModelIndex::previousBeat(const ScoreModelIndex &index, unsigned count)
{
    return NeighbourSearch::previous(index, count).beat();
}

std::shared_ptr<Beat> ScoreModelIndex::nextValidBeat(const ScoreModelIndex &index, bool here)
{
    return NeighbourSearch::nextValid(index, here).beat();
}

std::shared_ptr<Beat> ScoreModelIndex::previousValidBeat(const ScoreModelIndex &index, bool here)
{
    return NeighbourSearch::previousValid(index, here).beat();
}

std::shared_ptr<Note> ScoreModelIndex::nextNoteWithSameLocators(const ScoreModelIndex &index,
                                                                unsigned count)
{
    return NeighbourSearch::next(index, count).noteWithSameLocators();
}

std::shared_ptr<Note> ScoreModelIndex::previousNoteWithSameLocators(const ScoreModelIndex &index,
                                                                    unsigned count)
{
    return NeighbourSearch::previous(index, count).noteWithSameLocators();
}

std::shared_ptr<Note> ScoreModelIndex::nextValidNoteWithSameLocators(const ScoreModelIndex &index,
                                                                     bool here)
{
    return NeighbourSearch::nextValid(index, here).noteWithSameLocators();
}

std::shared_ptr<Note>
ScoreModelIndex::previousValidNoteWithSameLocators(const ScoreModelIndex &index, bool here)
{
    return NeighbourSearch::previousValid(index, here).noteWithSameLocators();
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstNoteWithString(const ScoreModelIndex &index,
                                                               int string, unsigned count)
{
    return NeighbourSearch::next(index, count).noteWithString(string);
}

std::shared_ptr<Note> ScoreModelIndex::previousFirstNoteWithString(const ScoreModelIndex &index,
                                                                   int string, unsigned count)
{
    return NeighbourSearch::previous(index, count).noteWithString(string);
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstValidNoteWithString(const ScoreModelIndex &index,
                                                                    int string, bool here)
{
    return NeighbourSearch::nextValid(index, here).noteWithString(string);
}

std::shared_ptr<Note>
ScoreModelIndex::previousFirstValidNoteWithString(const ScoreModelIndex &index, int string,
                                                  bool here)
{
    return NeighbourSearch::previousValid(index, here).noteWithString(string);
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstNoteWithMidi(const ScoreModelIndex &index, int midi,
                                                             unsigned count)
{
    return NeighbourSearch::next(index, count).noteWithMidi(midi);
}

std::shared_ptr<Note> ScoreModelIndex::previousFirstNoteWithMidi(const ScoreModelIndex &index,
                                                                 int midi, unsigned count)
{
    return NeighbourSearch::previous(index, count).noteWithMidi(midi);
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstValidNoteWithMidi(const ScoreModelIndex &index,
                                                                  int midi, bool here)
{
    return NeighbourSearch::nextValid(index, here).noteWithMidi(midi);
}

std::shared_ptr<Note> ScoreModelIndex::previousFirstValidNoteWithMidi(const ScoreModelIndex &index,
                                                                      int midi, bool here)
{
    return NeighbourSearch::previousValid(index, here).noteWithMidi(midi);
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstNoteWithStaffLine(const ScoreModelIndex &index,
                                                                  int line, unsigned count)
{
    return NeighbourSearch::next(index, count).noteWithStaffLine(line);
}

std::shared_ptr<Note> ScoreModelIndex::previousFirstNoteWithStaffLine(const ScoreModelIndex &index,
                                                                      int line, unsigned count)
{
    return NeighbourSearch::previous(index, count).noteWithStaffLine(line);
}

std::shared_ptr<Note> ScoreModelIndex::nextFirstValidNoteWithStaffLine(const ScoreModelIndex &index,
                                                                       int line, bool here)
{
    return NeighbourSearch::nextValid(index, here).noteWithStaffLine(line);
}

std::shared_ptr<Note>
ScoreModelIndex::previousFirstValidNoteWithStaffLine(const ScoreModelIndex &index, int line,
                                                     bool here)
{
    return NeighbourSearch::previousValid(index, here).noteWithStaffLine(line);
}

bool ScoreModelIndex::equalBeat(const ScoreModelIndex &other) const noexcept
{
    return _model == other._model && _trackIndex == other._trackIndex
        && _staffIndex == other._staffIndex && _barIndex == other._barIndex
        && _voiceIndex == other._voiceIndex && _beatIndex == other._beatIndex;
}

bool operator==(const ScoreModelIndex &left, const ScoreModelIndex &right) noexcept
{
    return left.equalBeat(right) && left._noteMidi == right._noteMidi
        && left._noteString == right._noteString;
}

namespace {

// The names that the assertions of the order print.
void requireComparable(int _trackIndex, int otherTrack, int _barIndex, int otherBar)
{
    struct {
        int _trackIndex;
        int _barIndex;
    } other{otherTrack, otherBar};
    ZARN_ASSERT_IN("zarn::ScoreModelIndex::operator <", _trackIndex == other._trackIndex);
    ZARN_ASSERT_IN("zarn::ScoreModelIndex::operator <", _barIndex != -1 && other._barIndex != -1);
}

} // namespace

bool operator<(const ScoreModelIndex &left, const ScoreModelIndex &right)
{
    requireComparable(left._trackIndex, right._trackIndex, left._barIndex, right._barIndex);
    if (left._barIndex != right._barIndex)
        return left._barIndex < right._barIndex;
    if (left._beatIndex == -1 && right._beatIndex == -1)
        return false;
    if (left._voiceIndex != right._voiceIndex)
        return left.beatDrawingOffset() < right.beatDrawingOffset();
    return left._beatIndex < right._beatIndex;
}

QString ScoreModelIndex::toQString() const
{
    QString text = QStringLiteral("Track:%0, Staff:%1, Bar:%2, Voice:%3, Beat:%4, NoteMidi:%5, "
                                  "NoteString:%6, NoteElement:%7");
    for (const std::int32_t number : numbersOf(*this))
        text = text.arg(number);
    return text;
}

bool ScoreModelIndex::writeToStream(filesystem::FileHandle &file, int) const
{
    for (const std::int32_t number : numbersOf(*this))
        if (!file.writeShort(static_cast<std::int16_t>(number)))
            return false;
    return true;
}

bool ScoreModelIndex::readFromStream(filesystem::FileHandle &file, int)
{
    std::int16_t values[8] = {};
    for (std::int16_t &value : values)
        if (!file.readShort(value))
            return false;
    const auto asUnsigned = [](std::int32_t number) { return static_cast<std::uint32_t>(number); };
    _trackIndex = values[0];
    _staffIndex = asUnsigned(values[1]);
    _barIndex = values[2];
    _voiceIndex = asUnsigned(values[3]);
    _beatIndex = values[4];
    _noteMidi = asUnsigned(values[5]);
    _noteString = asUnsigned(values[6]);
    _noteElement = asUnsigned(values[7]);
    return true;
}

} // namespace zarn
