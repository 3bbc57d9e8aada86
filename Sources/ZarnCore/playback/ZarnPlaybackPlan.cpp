// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ChannelPlan.h>
#include <ZarnCore/playback/HeldSwells.h>
#include <ZarnCore/playback/NoteOrder.h>
#include <ZarnCore/playback/TempoReading.h>
#include <ZarnCore/playback/TrackControls.h>
#include <ZarnCore/playback/TrackPerformance.h>

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>

namespace zarn::playback {

namespace {

using utils::rational;

std::vector<bool> audibleTracks(const ScoreModel &model, const PlanOptions &options)
{
    const auto &tracks = model.tracks();
    const bool heedsSwitches = options.audibility == Audibility::AsSwitched;
    const bool hasSolo = std::any_of(tracks.begin(), tracks.end(), [](const auto &track) {
        return track->playback() == TrackPlayback::Solo;
    });
    std::vector<bool> audible;
    for (const auto &track : tracks) {
        const bool isOn = hasSolo ? track->playback() == TrackPlayback::Solo
                                  : track->playback() != TrackPlayback::Mute;
        const bool isChosen = options.tracks.empty()
            || std::find(options.tracks.begin(), options.tracks.end(), track->index())
                != options.tracks.end();
        audible.push_back(isChosen && (isOn || !heedsSwitches));
    }
    return audible;
}

/// The notes of all tracks in the order in which they sound.
std::vector<PlannedNote> inOrder(const std::vector<TrackPerformance> &performances,
                                 const std::vector<NoteOrder::Place> &places)
{
    std::vector<PlannedNote> notes;
    notes.reserve(places.size());
    const auto noteAt = [&](const NoteOrder::Place &place) -> const PlannedNote & {
        return performances[place.list].notes[place.index];
    };
    // They come from many places: memory is asked for them early.
    constexpr std::size_t ahead = 8;
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (i + ahead < places.size())
            __builtin_prefetch(&noteAt(places[i + ahead]));
        notes.push_back(noteAt(places[i]));
    }
    return notes;
}

/// The key that a note occupies on its channel.
std::size_t occupied(const PlannedNote &note, const std::vector<Lane> &lanes)
{
    const Lane &lane = lanes[note.lane];
    return (std::size_t(lane.port) * 16 + lane.channel) * 128 + note.key;
}

} // namespace

PlaybackPlan::PlaybackPlan(const ScoreModel &model, const PlanOptions &options)
    : PlaybackPlan(model, options, ScoreSurvey(model))
{
}

PlaybackPlan::PlaybackPlan(const ScoreModel &model, const PlanOptions &options,
                           const ScoreSurvey &survey)
    : _bars(model, survey.barLengths), _tempo(readTempo(model, _bars, survey.barsWithCaesura))
{
    const auto audible = audibleTracks(model, options);
    std::vector<TrackPerformance> performances;
    NoteOrder order(_bars);
    for (unsigned i = 0; i < model.trackCount(); ++i) {
        if (!audible[i])
            continue;
        performances.push_back(TrackPerformance::of(model, i, _bars, _tempo, survey.tracks[i]));
        TrackPerformance &performed = performances.back();
        order.add(performed.notes);
        const auto firstMotion = static_cast<std::int32_t>(_motions.size());
        if (firstMotion != 0)
            for (PlannedNote &note : performed.notes)
                if (note.motion != PlannedNote::NoMotion)
                    note.motion += firstMotion;
        _motions.insert(_motions.end(), std::make_move_iterator(performed.motions.begin()),
                        std::make_move_iterator(performed.motions.end()));
        auto controls =
            controlsOf(*model.tracks()[i], _bars, survey.tracks[i].hasMarkedBeats, _sounds);
        addHeldSwells(std::move(performed.swells), performed.notes, controls);
        // In front of what has an expression of its own at the note that ends a fade.
        const auto fades = controlsOfSlides(std::move(performed.fades), performed.notes);
        _controls.insert(_controls.end(), fades.begin(), fades.end());
        _controls.insert(_controls.end(), controls.begin(), controls.end());
        _controls.insert(_controls.end(), performed.controls.begin(), performed.controls.end());
        for (const UnknownPercussion &each : performed.unknown)
            if (_unknown.empty() || _unknown.back().track != each.track
                || _unknown.back().bar != each.bar)
                _unknown.push_back({each.track, each.bar});
    }
    std::vector<ChannelPlan::Kinds> kinds(model.trackCount());
    _notes = inOrder(performances, order.sorted());
    for (const TrackPerformance &each : performances)
        if (!each.notes.empty())
            kinds[each.notes.front().track] = {each.hasPitches, each.hasPercussion};
    std::stable_sort(_controls.begin(), _controls.end(),
                     [](const PlannedControl &left, const PlannedControl &right) {
                         return left.time < right.time;
                     });
    ChannelPlan channels(model, options.channels);
    channels.assign(_notes, kinds, _motions);
    _lanes = channels.take();
    endRepeatedKeys();
    if (options.bars)
        cut(_bars.within(options.bars->first, options.bars->second));
    addSeconds();
}

/// A channel sounds each key once: what is struck again ends, and notes of one key that are struck
/// together end together, for the first end would end all of them.
void PlaybackPlan::endRepeatedKeys()
{
    constexpr std::uint32_t none = 0xFFFFFFFF;
    struct Last {
        std::uint32_t note = none;
        double end = -std::numeric_limits<double>::infinity();
    };
    std::vector<Last> last(std::size_t(16) * 16 * 128);
    std::vector<std::uint32_t> struckWith(_notes.size(), none);
    for (std::uint32_t i = 0; i < _notes.size(); ++i) {
        Last &lastOfKey = last[occupied(_notes[i], _lanes)];
        const std::uint32_t before = lastOfKey.note;
        const rational start = _notes[i].start;
        // Rounded times are quick to compare, and never in another order than exact ones.
        if (lastOfKey.end >= start.toDouble() && _notes[before].end > start) {
            const bool isTogether = _notes[before].start == start;
            const rational end = isTogether ? std::max(_notes[before].end, _notes[i].end) : start;
            for (auto other = before; other != none; other = struckWith[other])
                _notes[other].end = end;
            if (isTogether) {
                _notes[i].end = end;
                struckWith[i] = before;
            }
        }
        lastOfKey = {i, _notes[i].end.toDouble()};
    }
}

/// Keeps what begins in a stretch, with the state that holds at its start, and puts it to 0.
void PlaybackPlan::cut(const PlayedBars::Stretch &stretch)
{
    if (stretch.begin == stretch.end) {
        _bars = PlayedBars();
        _notes.clear();
        _controls.clear();
        return;
    }
    const rational from = _bars.bars()[stretch.begin].start;
    const PlayedBar &lastBar = _bars.bars()[stretch.end - 1];
    const rational to = lastBar.start + lastBar.length;
    const auto isOutside = [&](const PlannedNote &note) {
        return note.start < from || note.start >= to;
    };
    _notes.erase(std::remove_if(_notes.begin(), _notes.end(), isOutside), _notes.end());
    for (PlannedNote &note : _notes) {
        note.end = std::min(note.end, to) - from;
        note.start -= from;
        note.playedBar -= static_cast<std::uint32_t>(stretch.begin);
    }
    for (PitchMotion &motion : _motions)
        for (PitchMotion::Point &point : motion.points)
            point.time -= from;
    std::map<std::tuple<unsigned, PlannedControl::Kind, int>, PlannedControl> state;
    std::vector<PlannedControl> inside;
    for (PlannedControl control : _controls) {
        if (control.time >= to)
            break;
        control.time -= from;
        const bool isProgram = control.kind == PlannedControl::Kind::Program;
        if (control.time.sign() > 0) {
            inside.push_back(control);
        } else {
            control.time = 0;
            state[{control.track, control.kind, isProgram ? 0 : control.number}] = control;
        }
    }
    _controls.clear();
    for (const auto &[subject, control] : state)
        _controls.push_back(control);
    _controls.insert(_controls.end(), inside.begin(), inside.end());
    _secondsBefore = _tempo.secondsAt(from);
    _tempo = _tempo.from(from);
    _bars = _bars.part(stretch);
}

void PlaybackPlan::addSeconds()
{
    _end = _bars.length();
    TempoCursor starts(_tempo);
    TempoCursor ends(_tempo);
    double lastSecond = _tempo.secondsAt(_end);
    for (PlannedNote &note : _notes) {
        note.startSecond = starts.secondsAt(note.start);
        note.endSecond = ends.secondsAt(note.end);
        // Exact times are compared where rounded ones leave it open.
        if (note.endSecond < lastSecond)
            continue;
        _end = std::max(_end, note.end);
        lastSecond = note.endSecond;
    }
    if (!_notes.empty() && _notes.front().start.sign() < 0)
        _start = _notes.front().start;
    for (PlannedControl &control : _controls) {
        // The sounds are there when the first note begins.
        if (control.time.isZero())
            control.time = _start;
        control.second = _tempo.secondsAt(control.time);
    }
}

std::optional<PlayPlace> PlaybackPlan::placeAt(double second) const
{
    if (_bars.isEmpty())
        return std::nullopt;
    // Seconds are rounded: a place is found again to a part of a quarter that nothing is written
    // in.
    constexpr int ticks = 20160 * 16;
    const double quarters = _tempo.quartersAt(second) * ticks;
    constexpr double most = 1e15;
    const auto time = static_cast<std::int64_t>(
        std::clamp(quarters < 0 ? quarters - 0.5 : quarters + 0.5, -most, most));
    return _bars.placeAt({time, ticks});
}

std::optional<double> PlaybackPlan::secondOf(unsigned bar, const rational &offset,
                                             unsigned pass) const
{
    const auto time = _bars.timeOf(bar, offset, pass);
    return time ? std::optional<double>(_tempo.secondsAt(*time)) : std::nullopt;
}

} // namespace zarn::playback
