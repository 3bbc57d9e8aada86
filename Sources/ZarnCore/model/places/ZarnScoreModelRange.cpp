// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/places/BarSelection.h>
#include <ZarnCore/model/places/NodesOfIndex.h>
#include <ZarnCore/model/places/VoiceLine.h>
#include <ZarnCore/model/places/ZarnRangeBarIterator.h>
#include <ZarnCore/model/places/ZarnRangeSpanIterator.h>

#include <filesystem/FileHandle.h>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace zarn {

ScoreModelRange::ScoreModelRange(const ScoreModelIndex &index, SelectionMode mode) noexcept
    : _mode(mode), _first(index), _second(index)
{
}

ScoreModelRange::ScoreModelRange(const ScoreModelIndex &a, const ScoreModelIndex &b,
                                 SelectionMode mode)
    : _mode(mode)
{
    const bool ordered = a == b || a < b;
    _first = ordered ? a : b;
    _second = ordered ? b : a;
}

void ScoreModelRange::setBit(SelectionMode bit, bool on) noexcept
{
    const unsigned rest = static_cast<unsigned>(_mode) & ~static_cast<unsigned>(bit);
    _mode = static_cast<SelectionMode>(on ? rest | static_cast<unsigned>(bit) : rest);
}

bool ScoreModelRange::isMultiSelection() const noexcept
{
    return hasMode(_mode, SelectionMode::MultiSelection) || _first != _second;
}

bool ScoreModelRange::isSingleBeat() const noexcept
{
    return _first.equalBeat(_second) && _first.barIndex() != -1;
}

bool ScoreModelRange::isPlaceHolder() const
{
    if (isMultiSelection())
        return false;
    const auto beat = _first.beat();
    return beat && beat->isPlaceHolder();
}

unsigned ScoreModelRange::barCount() const noexcept
{
    if (_first.barIndex() < 0 || _second.barIndex() < 0)
        return 0;
    return static_cast<unsigned>(std::abs(_second.barIndex() - _first.barIndex())) + 1;
}

unsigned ScoreModelRange::beatCount() const
{
    unsigned count = 0;
    for (RangeSpanIterator it(*this); it.oneStep();)
        count += it.endBeat() - it.firstBeat();
    return count;
}

bool ScoreModelRange::hasAnyBeat() const
{
    return RangeSpanIterator(*this).iterate();
}

std::shared_ptr<Beat> ScoreModelRange::lowerBeat() const
{
    if (!isMultiVoice())
        return _first.beat();
    if (const auto bar = _first.bar())
        for (const auto &voice : bar->voices())
            if (voice && !voice->isEmpty())
                return voice->beats().front();
    return {};
}

std::shared_ptr<Beat> ScoreModelRange::upperBeat() const
{
    if (!isMultiVoice())
        return _second.beat();
    if (const auto bar = _second.bar())
        for (const auto &voice : bar->voices())
            if (voice && !voice->isEmpty())
                return voice->beats().back();
    return {};
}

namespace {

using BeatOffset = utils::rational (Voice::*)(const Beat &) const;

utils::rational offsetOf(const std::shared_ptr<Beat> &beat, BeatOffset offset)
{
    const auto voice = beat ? beat->parentVoice() : nullptr;
    return voice ? ((*voice).*offset)(*beat) : utils::rational();
}

utils::rational beginOffset(const ScoreModelRange &range, BeatOffset offset)
{
    return range.isMultiVoice() ? utils::rational() : offsetOf(range.lowerBeat(), offset);
}

utils::rational endOffset(const ScoreModelRange &range, BeatOffset offset)
{
    const auto beat = range.isMultiVoice() ? nullptr : range.upperBeat();
    if (beat)
        return offsetOf(beat, offset) + beat->length();
    const auto bar = range.second().bar();
    if (!bar)
        return {};
    utils::rational end;
    for (const auto &voice : bar->voices())
        if (voice)
            end = std::max(end, voice->length());
    return bar->hasBeats() ? end : bar->length();
}

} // namespace

utils::rational ScoreModelRange::beginSelectionOffset() const
{
    return beginOffset(*this, &Voice::beatDrawingOffset);
}

utils::rational ScoreModelRange::endSelectionOffset() const
{
    return endOffset(*this, &Voice::beatDrawingOffset);
}

utils::rational ScoreModelRange::beginSelectionOffsetIgnoringGraceBeats() const
{
    return beginOffset(*this, &Voice::beatOffsetIgnoringGraceBeats);
}

utils::rational ScoreModelRange::endSelectionOffsetIgnoringGraceBeats() const
{
    return endOffset(*this, &Voice::beatOffsetIgnoringGraceBeats);
}

bool ScoreModelRange::trimLastBeat()
{
    if (!isMultiSelection() || _first.trackIndex() != _second.trackIndex() || _first.barIndex() < 0)
        return false;
    ScoreModelIndex end = _second;
    const bool isWholeBar = end.beatIndex() < 0;
    if (isWholeBar)
        end.setBeatIndex(std::numeric_limits<int>::max());
    VoiceLine line(end);
    if (!line.step(VoiceLine::Direction::Previous, VoiceLine::Gaps::Skip, isWholeBar ? 2 : 1))
        return false;
    end.setBarIndex(line.barIndex());
    end.setBeatIndex(line.beatIndex());
    if (end.barIndex() < _first.barIndex() || end < _first)
        return false;
    _second = end;
    return true;
}

ScoreModelRange ScoreModelRange::sortedRange() const
{
    return isMultiSelection() ? ScoreModelRange(_second, _first, _mode) : *this;
}

ScoreModelRange ScoreModelRange::sortRange(const ScoreModelRange &range)
{
    return range.sortedRange();
}

QString ScoreModelRange::toQString() const
{
    const auto word = [this](SelectionMode bit, const char *text) {
        return hasMode(_mode, bit) ? QString::fromLatin1(text) : QString();
    };
    return QStringLiteral("[ %0 %1 %2%3%4%5]")
        .arg(_first.toQString(), _second.toQString(),
             word(SelectionMode::MultiTrack, "MultiTrack "),
             word(SelectionMode::MultiVoice, "MultiVoice "),
             word(SelectionMode::MultiSelection, "MultiSelection "), QString());
}

bool ScoreModelRange::writeToStream(filesystem::FileHandle &file, int version) const
{
    return file.writeByte(static_cast<std::uint8_t>(_mode)) && _first.writeToStream(file, version)
        && _second.writeToStream(file, version);
}

bool ScoreModelRange::readFromStream(filesystem::FileHandle &file, int version)
{
    std::uint8_t mode = 0;
    ScoreModelRange read = *this;
    if (!file.readByte(mode) || !read._first.readFromStream(file, version)
        || !read._second.readFromStream(file, version))
        return false;
    if (mode > 7)
        ZARN_RAISE_IN("zarn::ScoreModelRange::readFromStream",
                      "Invalid selection mode: " + std::to_string(mode));
    read._mode = static_cast<SelectionMode>(mode);
    *this = read;
    return true;
}

ScoreModelRange ScoreModelRange::overBars(int firstBar, int lastBar) const
{
    const bool ordered = _first.barIndex() <= _second.barIndex();
    ScoreModelRange range(*this);
    range._first = ordered ? _first : _second;
    range._second = ordered ? _second : _first;
    const auto place = [](ScoreModelIndex &end, int bar, bool atEnd) {
        end.invalidateBar();
        end.setBarIndex(bar);
        const auto *voice = findVoice(end);
        if (voice && !(*voice)->isEmpty())
            end.setBeatIndex(atEnd ? static_cast<int>((*voice)->beatCount()) - 1 : 0);
    };
    place(range._first, firstBar, false);
    place(range._second, lastBar, true);
    range.setMultiSelection(true);
    return range;
}

bool ScoreModelRange::hasAnySimile() const
{
    for (RangeBarIterator it(*this); it.oneStep();)
        if (it.bar()->isSimile())
            return true;
    return false;
}

ScoreModelRange ScoreModelRange::extendedBarRange() const
{
    return extendedBorderBarRange(0);
}

ScoreModelRange ScoreModelRange::extendedBorderBarRange(int count) const
{
    const BarSelection selection = BarSelection::of(*this);
    if (selection.staves.empty())
        return *this;
    const int lastBar = static_cast<int>(selection.staves.front()->barCount()) - 1;
    const int border = std::clamp(count, 0, lastBar);
    return overBars(std::max(selection.first - border, 0),
                    std::min(selection.last + border, lastBar));
}

ScoreModelRange ScoreModelRange::extendedTiedBarRange(int limit) const
{
    const BarSelection selection = BarSelection::of(*this);
    if (selection.staves.empty())
        return *this;
    const unsigned firstVoice = isMultiVoice() ? 0 : _first.voiceIndex();
    const unsigned lastVoice = isMultiVoice() ? Bar::MaxVoices - 1 : firstVoice;
    const auto isCrossed = [&](int bar) {
        return selection.isCrossedByTie(bar, firstVoice, lastVoice);
    };
    BarSelection reached = selection;
    const int most = limit < 0 ? std::numeric_limits<int>::max() : limit;
    for (int left = most; left > 0 && isCrossed(reached.first); --left)
        --reached.first;
    for (int left = most; left > 0 && isCrossed(reached.last + 1); --left)
        ++reached.last;
    return overBars(reached.first, reached.last);
}

ScoreModelRange ScoreModelRange::extendedSoundingSimileRange() const
{
    const BarSelection selection = BarSelection::of(*this);
    if (selection.staves.empty())
        return *this;
    BarSelection reached = selection;
    int barCount = 0;
    while (barCount != reached.barCount()) {
        barCount = reached.barCount();
        for (const Staff *const staff : selection.staves)
            reached.reachSimiles(*staff);
    }
    return overBars(reached.first, reached.last);
}

ScoreModelRange ScoreModelRange::soundingBarRange() const
{
    const BarSelection selection = BarSelection::of(*this);
    if (selection.staves.empty())
        return *this;
    const BarSelection reached = selection.sounding();
    return overBars(reached.first, reached.last);
}

ScoreModelRange ScoreModelRange::extendedBarRange(const ScoreModelRange &range)
{
    return range.extendedBarRange();
}

ScoreModelRange ScoreModelRange::extendedBorderBarRange(const ScoreModelRange &range, int count)
{
    return range.extendedBorderBarRange(count);
}

ScoreModelRange ScoreModelRange::extendedTiedBarRange(const ScoreModelRange &range, int limit)
{
    return range.extendedTiedBarRange(limit);
}

ScoreModelRange ScoreModelRange::extendedSoundingSimileRange(const ScoreModelRange &range)
{
    return range.extendedSoundingSimileRange();
}

ScoreModelRange ScoreModelRange::soundingBarRange(const ScoreModelRange &range)
{
    return range.soundingBarRange();
}

ScoreModelIndex ScoreModelRange::mapFirst(unsigned voice) const
{
    return _first.mapOnVoice(voice, true);
}

ScoreModelIndex ScoreModelRange::mapSecond(unsigned voice) const
{
    return _second.mapOnVoice(voice, true);
}

ScoreModelRange ScoreModelRange::mapRange(unsigned voice) const
{
    ScoreModelRange range(*this);
    range._first = mapFirst(voice);
    range._second = mapSecond(voice);
    return range;
}

} // namespace zarn
