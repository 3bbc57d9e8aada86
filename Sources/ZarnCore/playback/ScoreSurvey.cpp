// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ScoreSurvey.h>

#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/playback/PlayedVoice.h>
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

/// Asks memory, which answers late, for the bars of a staff that a walk comes to soon: for each in
/// time for what it leads to.
void prefetchBehind(const Staff::Bars &bars, std::size_t at, unsigned slot)
{
    constexpr std::size_t step = 2;
    const auto voiceAt = [&](std::size_t bar) {
        return bar < bars.size() ? bars[bar]->voices()[slot].get() : nullptr;
    };
    if (at + 4 * step < bars.size())
        __builtin_prefetch(bars[at + 4 * step].get());
    __builtin_prefetch(voiceAt(at + 3 * step));
    if (const Voice *const voice = voiceAt(at + 2 * step))
        __builtin_prefetch(voice->beats().data());
    if (const Voice *const voice = voiceAt(at + step))
        for (const auto &beat : voice->beats())
            __builtin_prefetch(&beat->rhythmValue());
}

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

/// Bars that repeat others last as long as what they repeat.
void lengthenSimiles(const Staff &staff, const ScoreSurvey::OfVoice *voices,
                     std::vector<utils::rational> &barLengths)
{
    const auto sources = sourceBars(staff);
    const auto count = std::min(barLengths.size(), sources.size());
    for (unsigned bar = 0; bar < count; ++bar) {
        const unsigned source = sources[bar];
        for (unsigned slot = 0; source != bar && slot < Bar::MaxVoices; ++slot) {
            const ScoreSurvey::OfVoice &voice = voices[slot];
            utils::rational length;
            for (auto beat = source == 0 ? 0 : voice.barEnds[source - 1];
                 beat < voice.barEnds[source]; ++beat)
                advance(length, voice.beats[beat].length);
            if (length > barLengths[bar])
                barLengths[bar] = roundedUp(length);
        }
    }
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
            bool hasSimiles = false;
            for (std::size_t i = 0; i < count; ++i) {
                hasSimiles = hasSimiles || staff->bars()[i]->simileMark() != SimileMark::None;
                for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
                    OfVoice &ofVoice = voices[slot];
                    prefetchBehind(staff->bars(), i, slot);
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
            if (hasSimiles)
                lengthenSimiles(*staff, voices, barLengths);
        }
    }
}

} // namespace zarn::playback
