// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <filesystem/FileHandle.h>

namespace zarn {

ScoreModelIndex::ScoreModelIndex(ScoreModel *model, int track, int bar, int beat, unsigned voice,
                                 unsigned staff) noexcept
    : _barIndex(bar), _beatIndex(beat), _model(model), _staffIndex(staff), _trackIndex(track),
      _voiceIndex(voice)
{
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

namespace {

int asSigned(std::uint32_t value) noexcept
{
    return static_cast<std::int32_t>(value);
}

} // namespace

QString ScoreModelIndex::toQString() const
{
    return QStringLiteral("Track:%0, Staff:%1, Bar:%2, Voice:%3, Beat:%4, NoteMidi:%5, "
                          "NoteString:%6, NoteElement:%7")
        .arg(_trackIndex)
        .arg(asSigned(_staffIndex))
        .arg(_barIndex)
        .arg(asSigned(_voiceIndex))
        .arg(_beatIndex)
        .arg(asSigned(_noteMidi))
        .arg(asSigned(_noteString))
        .arg(asSigned(_noteElement));
}

bool ScoreModelIndex::writeToStream(filesystem::FileHandle &file, int) const
{
    const std::int32_t values[] = {_trackIndex,
                                   asSigned(_staffIndex),
                                   _barIndex,
                                   asSigned(_voiceIndex),
                                   _beatIndex,
                                   asSigned(_noteMidi),
                                   asSigned(_noteString),
                                   asSigned(_noteElement)};
    for (const std::int32_t value : values)
        if (!file.writeShort(static_cast<std::int16_t>(value)))
            return false;
    return true;
}

bool ScoreModelIndex::readFromStream(filesystem::FileHandle &file, int)
{
    std::int16_t values[8] = {};
    for (std::int16_t &value : values)
        if (!file.readShort(value))
            return false;
    _trackIndex = values[0];
    _staffIndex = static_cast<std::uint32_t>(std::int32_t(values[1]));
    _barIndex = values[2];
    _voiceIndex = static_cast<std::uint32_t>(std::int32_t(values[3]));
    _beatIndex = values[4];
    _noteMidi = static_cast<std::uint32_t>(std::int32_t(values[5]));
    _noteString = static_cast<std::uint32_t>(std::int32_t(values[6]));
    _noteElement = static_cast<std::uint32_t>(std::int32_t(values[7]));
    return true;
}

} // namespace zarn
