// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/TrackPerformance.h>

#include <ZarnCore/playback/GraceTiming.h>
#include <ZarnCore/playback/VoicePerformance.h>

#include <algorithm>
#include <map>
#include <utility>

namespace zarn::playback {

namespace {

std::vector<LooseEnd> inOrderOfTime(std::vector<LooseEnd> ends)
{
    std::stable_sort(ends.begin(), ends.end(), [](const LooseEnd &left, const LooseEnd &right) {
        return left.time < right.time;
    });
    return ends;
}

/// Joins notes that are tied from one voice of the track to another: what is held up to a time goes
/// on as the note of the same key that is held from then on.
void joinAcrossVoices(std::vector<PlannedNote> &notes, const std::vector<LooseEnd> &starts,
                      const std::vector<LooseEnd> &ends)
{
    if (starts.empty() || ends.empty())
        return;
    std::map<std::pair<utils::rational, int>, std::size_t> waiting;
    for (const LooseEnd &end : ends)
        waiting.insert({{end.time, notes[end.note].key}, end.note});
    std::vector<std::size_t> joined;
    std::map<std::size_t, std::size_t> owners;
    for (const LooseEnd &start : inOrderOfTime(starts)) {
        const PlannedNote &later = notes[start.note];
        const auto found = waiting.find({start.time, later.key});
        if (found == waiting.end() || found->second == start.note)
            continue;
        // What goes on may itself go on from a third voice.
        auto owner = found->second;
        for (auto it = owners.find(owner); it != owners.end(); it = owners.find(owner))
            owner = it->second;
        PlannedNote &earlier = notes[owner];
        earlier.end = std::max(earlier.end, later.end);
        owners[start.note] = found->second;
        waiting.erase(found);
        joined.push_back(start.note);
    }
    std::sort(joined.begin(), joined.end());
    std::size_t index = 0;
    const auto isJoined = [&](const PlannedNote &) {
        return std::binary_search(joined.begin(), joined.end(), index++);
    };
    notes.erase(std::remove_if(notes.begin(), notes.end(), isJoined), notes.end());
}

} // namespace

TrackPerformance TrackPerformance::of(const ScoreModel &model, unsigned index,
                                      const PlayedBars &bars, const TempoMap &tempo,
                                      const ScoreSurvey::OfTrack &survey)
{
    TrackPerformance result;
    const Track &track = *model.tracks()[index];
    const auto dynamics = survey.hasDynamics ? DynamicsCurve::ofTrack(track, bars)
                                             : DynamicsCurve::ofPlainTrack(track);
    std::vector<LooseEnd> starts;
    std::vector<LooseEnd> ends;
    std::vector<RingingNote> ringing;
    for (const auto &staff : track.staves()) {
        const auto sources = sourceBars(*staff);
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            const auto &voice = survey.voices[staff->index() * Bar::MaxVoices + slot];
            if (voice.beats.empty())
                continue;
            PlayedBeats beats = playVoice(model, voice, bars, sources);
            if (survey.hasGraces)
                placeGraceBeats(beats);
            const VoicePlace place{model,
                                   track,
                                   *staff,
                                   slot,
                                   bars,
                                   tempo,
                                   dynamics[staff->index() * Bar::MaxVoices + slot],
                                   survey.hasMarkedBeats};
            VoicePerformance(place, beats, result, ringing, starts, ends).play();
        }
    }
    letRing(result.notes, ringing);
    joinAcrossVoices(result.notes, starts, ends);
    return result;
}

} // namespace zarn::playback
