// SPDX-License-Identifier: MIT
#include <ZarnCore/score/CursorPlaces.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/score/ZarnScoreCursor.h>

#include <algorithm>
#include <array>

namespace zarn::cursor {

namespace {

const Track *trackOf(const ScoreModelIndex &place) noexcept
{
    const ScoreModel *const model = place.model();
    const auto track = static_cast<unsigned>(place.trackIndex());
    return model != nullptr && model->hasTrackIndex(track) ? model->tracks()[track].get() : nullptr;
}

const Staff *staffOf(const ScoreModelIndex &place) noexcept
{
    const Track *const track = trackOf(place);
    return track != nullptr && place.staffIndex() < track->staffCount()
        ? track->staves()[place.staffIndex()].get()
        : nullptr;
}

/// The bar of a place as the tree's own functions take it; its track and bar must not be negative.
BeatSpan spanOf(const ScoreModelIndex &place) noexcept
{
    return {static_cast<unsigned>(place.trackIndex()), place.staffIndex(),
            static_cast<unsigned>(place.barIndex()), place.voiceIndex()};
}

const Voice *voiceAt(const ScoreModelIndex &place) noexcept
{
    return voiceOf(*place.model(), spanOf(place));
}

int countAsInt(std::size_t count) noexcept
{
    return static_cast<int>(count);
}

int beatCount(const ScoreModelIndex &place) noexcept
{
    const Voice *const voice = voiceAt(place);
    return voice != nullptr ? countAsInt(voice->beatCount()) : 0;
}

int stringCount(const ScoreModelIndex &place) noexcept
{
    const Staff *const staff = staffOf(place);
    return staff != nullptr ? countAsInt(staff->tuning().stringCount()) : 0;
}

bool namesNoNote(std::uint32_t locator) noexcept
{
    return locator == ScoreModelIndex::Unset;
}

/// Whether a beat can still be entered behind the last one.
bool hasRoom(const ScoreModelIndex &place)
{
    const Voice *const voice = voiceAt(place);
    const auto master = place.masterBar();
    if (voice == nullptr || voice->isEmpty() || master == nullptr || master->isFreeTime())
        return true;
    return voice->length() < master->length();
}

/// What locates a note in its beat goes when the beat is left; the string stays.
ScoreModelIndex &leaveNote(ScoreModelIndex &place)
{
    place.setNoteMidi(ScoreModelIndex::Unset);
    place.setNotePercussionActiculation(0);
    return place;
}

void clipString(ScoreModelIndex &place)
{
    const int count = stringCount(place);
    if (count > 0 && !namesNoNote(place.noteString()))
        place.setNoteString(std::min(place.noteString(), static_cast<std::uint32_t>(count - 1)));
}

// Time.

utils::rational offsetOf(const ScoreModelIndex &place)
{
    const Voice *const voice = voiceAt(place);
    if (voice == nullptr || place.beatIndex() < 0)
        return {};
    const auto beat = static_cast<unsigned>(place.beatIndex());
    return beat < voice->beatCount() ? voice->beatDrawingOffset(*voice->beats()[beat])
                                     : voice->length();
}

/// The beat that starts nearest to an offset, the earlier of two; no grace beat where another
/// starts at the same time. Behind the last beat counts where there is room.
int beatNearestTo(const ScoreModelIndex &bar, const utils::rational &offset)
{
    const Voice *const voice = voiceAt(bar);
    if (voice == nullptr || voice->isEmpty())
        return 0;
    int nearest = 0;
    utils::rational start;
    utils::rational least;
    bool isLeastGrace = true;
    const auto offer = [&](int beat, bool isGrace) {
        const utils::rational distance = start < offset ? offset - start : start - offset;
        if (beat == 0 || distance < least || (distance == least && isLeastGrace)) {
            nearest = beat;
            least = distance;
            isLeastGrace = isGrace;
        }
    };
    for (const auto &beat : voice->beats()) {
        offer(countAsInt(beat->index()), beat->isGrace());
        start += beat->length();
    }
    if (hasRoom(bar))
        offer(countAsInt(voice->beatCount()), false);
    return nearest;
}

ScoreModelIndex atTime(ScoreModelIndex bar, const utils::rational &offset)
{
    bar.setBeatIndex(beatNearestTo(bar, offset));
    clipString(bar);
    return bar;
}

// One row per step: which number a place has, how many there are, the place with another number.

int beatNumber(const ScoreModelIndex &from)
{
    return std::max(from.beatIndex(), -1);
}

int beatsOrEntry(const ScoreModelIndex &from)
{
    return std::max(beatCount(from), 1);
}

Target toBeat(ScoreModelIndex place, int number)
{
    if (number < 0 || number > beatCount(place))
        return std::nullopt;
    place.setBeatIndex(number);
    return place;
}

int barNumber(const ScoreModelIndex &from)
{
    return from.barIndex();
}

int barsOfStaff(const ScoreModelIndex &from)
{
    return countAsInt(staffOf(from)->barCount());
}

Target toBar(ScoreModelIndex place, int number)
{
    place.setBarIndex(number);
    place.setBeatIndex(0);
    return place;
}

int voiceNumber(const ScoreModelIndex &from)
{
    return static_cast<int>(from.voiceIndex());
}

int voiceSlots(const ScoreModelIndex &)
{
    return static_cast<int>(Bar::MaxVoices);
}

Target toVoice(ScoreModelIndex place, int number)
{
    const utils::rational offset = offsetOf(place);
    place.setVoiceIndex(static_cast<unsigned>(number));
    return atTime(place, offset);
}

int staffNumber(const ScoreModelIndex &from)
{
    return static_cast<int>(from.staffIndex());
}

int stavesOfTrack(const ScoreModelIndex &from)
{
    return countAsInt(trackOf(from)->staffCount());
}

Target toStaff(ScoreModelIndex place, int number)
{
    const utils::rational offset = offsetOf(place);
    place.setStaffIndex(static_cast<unsigned>(number));
    return place.isBarValid() ? Target(atTime(place, offset)) : std::nullopt;
}

int trackNumber(const ScoreModelIndex &from)
{
    return from.trackIndex();
}

int tracksOfModel(const ScoreModelIndex &from)
{
    return countAsInt(from.model()->trackCount());
}

Target toTrack(ScoreModelIndex place, int number)
{
    const utils::rational offset = offsetOf(place);
    place.setTrackIndex(number);
    const unsigned staves = trackOf(place)->staffCount();
    place.setStaffIndex(std::min(place.staffIndex(), staves - 1));
    return place.isBarValid() ? Target(atTime(place, offset)) : std::nullopt;
}

/// Without a string a cursor stands above the highest one.
int stringNumber(const ScoreModelIndex &from)
{
    return namesNoNote(from.noteString()) ? stringCount(from) : static_cast<int>(from.noteString());
}

Target toString(ScoreModelIndex place, int number)
{
    leaveNote(place).setNoteString(static_cast<std::uint32_t>(number));
    return place;
}

/// Beyond the beats of the bar: behind the last one where there is room, then the next bar; back,
/// the last place of the bar before.
Target beyondBeats(ScoreModelIndex place, Way way)
{
    const int count = beatCount(place);
    if (way == Way::Forth && count > 0 && place.beatIndex() == count - 1 && hasRoom(place))
        return toBeat(place, count);
    const int bar = place.barIndex() + (way == Way::Forth ? 1 : -1);
    if (bar < 0 || bar >= barsOfStaff(place))
        return std::nullopt;
    place = *toBar(place, bar);
    if (way == Way::Back)
        place.setBeatIndex(beatCount(place) - (hasRoom(place) ? 0 : 1));
    return place;
}

/// On a staff without strings the notes of the beat are what there is from top to bottom.
Target beyondStrings(ScoreModelIndex place, Way way)
{
    const auto beat = place.beat();
    if (stringCount(place) > 0 || beat == nullptr)
        return std::nullopt;
    const bool isDown = way == Way::Forth;
    const int from =
        namesNoNote(place.noteMidi()) ? (isDown ? 128 : -1) : static_cast<int>(place.noteMidi());
    int found = Note::Unset;
    for (const auto &note : beat->notes()) {
        const int key = note->midi();
        const bool isAhead = isDown ? key < from : key > from;
        const bool isNearer = found == Note::Unset || (isDown ? key > found : key < found);
        if (key != Note::Unset && isAhead && isNearer)
            found = key;
    }
    if (found == Note::Unset)
        return std::nullopt;
    leaveNote(place).setNoteMidi(static_cast<std::uint32_t>(found));
    return place;
}

Target nowhere(ScoreModelIndex, Way)
{
    return std::nullopt;
}

struct Row {
    CursorStep step;
    int (*number)(const ScoreModelIndex &);
    int (*count)(const ScoreModelIndex &);
    Target (*to)(ScoreModelIndex, int);
    Target (*beyond)(ScoreModelIndex, Way) = nowhere;
    int forth = 1; ///< what a step forth adds to the number
};

/// Strings are counted from the lowest and follow each other from the highest.
constexpr std::array<Row, 6> rows = {{
    {CursorStep::Beat, beatNumber, beatsOrEntry, toBeat, beyondBeats},
    {CursorStep::Bar, barNumber, barsOfStaff, toBar},
    {CursorStep::Voice, voiceNumber, voiceSlots, toVoice},
    {CursorStep::String, stringNumber, stringCount, toString, beyondStrings, -1},
    {CursorStep::Staff, staffNumber, stavesOfTrack, toStaff},
    {CursorStep::Track, trackNumber, tracksOfModel, toTrack},
}};

constexpr bool followTheEnumeration()
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (static_cast<std::size_t>(rows[i].step) != i)
            return false;
    return true;
}
static_assert(followTheEnumeration());

const Row &rowOf(CursorStep step)
{
    return rows.at(static_cast<std::size_t>(step));
}

Target leavingNote(const ScoreModelIndex &from, Target target)
{
    if (target && !target->equalBeat(from))
        leaveNote(*target);
    return target;
}

} // namespace

bool exists(const ScoreModelIndex &place) noexcept
{
    const Staff *const staff = staffOf(place);
    const int bar = place.barIndex();
    if (staff == nullptr || bar < 0 || bar >= countAsInt(staff->barCount())
        || place.voiceIndex() >= Bar::MaxVoices || place.beatIndex() < -1)
        return false;
    const auto &voice = staff->bars()[static_cast<std::size_t>(bar)]->voices()[place.voiceIndex()];
    if (place.beatIndex() > (voice != nullptr ? countAsInt(voice->beatCount()) : 0))
        return false;
    const unsigned strings = staff->tuning().stringCount();
    return strings == 0 || namesNoNote(place.noteString()) || place.noteString() < strings;
}

ScoreModelIndex nearest(ScoreModelIndex place)
{
    const auto clip = [](int number, std::size_t count) {
        return std::clamp(number, 0, countAsInt(count) - 1);
    };
    const ScoreModelIndex from = place;
    if (place.model() != nullptr && place.model()->hasTracks()) {
        place.setTrackIndex(clip(place.trackIndex(), place.model()->trackCount()));
        place.setStaffIndex(std::min(place.staffIndex(), trackOf(place)->staffCount() - 1));
    }
    const Staff *const staff = staffOf(place);
    if (staff == nullptr || staff->barCount() == 0) {
        place.invalidateTrack();
        return place;
    }
    if (place.barIndex() < 0) {
        place.setBeatIndex(0);
        place.setNoteString(staff->tuning().stringCount() - 1); // unset without strings
    }
    place.setBarIndex(clip(place.barIndex(), staff->barCount()));
    place.setVoiceIndex(std::min(place.voiceIndex(), Bar::MaxVoices - 1));
    place.setBeatIndex(std::clamp(place.beatIndex(), -1, beatCount(place)));
    clipString(place);
    return *leavingNote(from, place);
}

Target neighbour(const ScoreModelIndex &from, CursorStep step, Way way)
{
    if (!exists(from))
        return std::nullopt;
    const Row &row = rowOf(step);
    const int next = row.number(from) + (way == Way::Forth ? row.forth : -row.forth);
    const bool isThere = next >= 0 && next < row.count(from);
    return leavingNote(from, isThere ? row.to(from, next) : row.beyond(from, way));
}

Target end(const ScoreModelIndex &from, CursorStep step, Way way)
{
    const Row &row = rowOf(step);
    const int count = exists(from) ? row.count(from) : 0;
    if (count == 0)
        return std::nullopt;
    const bool isLowest = (way == Way::Back) == (row.forth > 0);
    return leavingNote(from, row.to(from, isLowest ? 0 : count - 1));
}

Target numbered(const ScoreModelIndex &from, CursorStep step, int number)
{
    if (!exists(from))
        return std::nullopt;
    const Row &row = rowOf(step);
    // A beat may also be the one that is not there yet, behind the last.
    const int count = row.count(from) + (step == CursorStep::Beat ? 1 : 0);
    return number >= 0 && number < count ? leavingNote(from, row.to(from, number)) : std::nullopt;
}

} // namespace zarn::cursor
