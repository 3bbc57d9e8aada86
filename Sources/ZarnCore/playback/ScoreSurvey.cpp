// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ScoreSurvey.h>

#include <ZarnCore/playback/PlayingTime.h>

#include <algorithm>

namespace zarn::playback {

namespace {

/// To a part of a quarter that bars can be added up in.
utils::rational roundedUp(const utils::rational &length)
{
    constexpr int ticksPerQuarter = 960;
    return {(length * ticksPerQuarter).ceil(), ticksPerQuarter};
}

/// Beats that room is made for when a voice begins.
constexpr std::size_t mostReserved = 1 << 14;

/// Adds what a voice has; answers its length.
utils::rational survey(const Voice &voice, std::vector<ScoreSurvey::OfBeat> &beats,
                       ScoreSurvey::OfTrack &track, bool &hasCaesura)
{
    utils::rational length;
    for (const auto &beat : voice.beats()) {
        beats.push_back({beat.get(), lengthOf(*beat)});
        advance(length, beats.back().length);
        track.hasGraces = track.hasGraces || beat->isGrace();
        track.hasDynamics = track.hasDynamics || beat->dynamic() != NoteDynamic::Value::None;
        if (beat->isCommon())
            continue;
        track.hasMarkedBeats = true;
        track.hasDynamics = track.hasDynamics || beat->hairpin() != Hairpin::NoHairpin
            || beat->attackDynamic() != AttackDynamic::None;
        hasCaesura = hasCaesura || beat->breath() == BreathSign::Caesura;
    }
    return length;
}

} // namespace

ScoreSurvey::ScoreSurvey(const ScoreModel &model)
{
    for (const auto &bar : model.masterTrack()->masterBars())
        barLengths.push_back(bounded(bar->length()));
    barsWithCaesura.resize(barLengths.size());
    tracks.resize(model.trackCount());
    for (const auto &track : model.tracks()) {
        OfTrack &ofTrack = tracks[track->index()];
        ofTrack.voices.resize(track->staffCount() * Bar::MaxVoices);
        for (const auto &staff : track->staves()) {
            OfVoice *const voices = &ofTrack.voices[staff->index() * Bar::MaxVoices];
            const auto count = std::min<std::size_t>(barLengths.size(), staff->barCount());
            for (std::size_t i = 0; i < count; ++i)
                for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
                    OfVoice &ofVoice = voices[slot];
                    if (const auto &voice = staff->bars()[i]->voices()[slot]) {
                        if (ofVoice.beats.empty())
                            ofVoice.beats.reserve(
                                std::min(mostReserved, voice->beatCount() * (count - i)));
                        bool hasCaesura = false;
                        const auto length = survey(*voice, ofVoice.beats, ofTrack, hasCaesura);
                        if (length > barLengths[i])
                            barLengths[i] = roundedUp(length);
                        if (hasCaesura)
                            barsWithCaesura[i] = true;
                    }
                    ofVoice.barEnds.push_back(static_cast<std::uint32_t>(ofVoice.beats.size()));
                }
        }
    }
}

} // namespace zarn::playback
