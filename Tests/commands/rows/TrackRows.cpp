// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <cmath>

using namespace rich;

namespace {

GuitarTuning withOffset(int semitones)
{
    GuitarTuning tuning{40, 45};
    tuning.setMidiOffset(semitones);
    return tuning;
}

std::shared_ptr<Track> withProgram(int program)
{
    auto track = ScoreModel::createTrack(InstrumentSet::flute);
    track->addSound(std::make_shared<Sound>("Odd", MIDISound(program)));
    return track;
}

AudioTrack withVolume(float volume)
{
    AudioTrack track("Take");
    track.setVolume(volume);
    return track;
}

} // namespace

std::vector<CommandRow> trackRows()
{
    return {
        {"CreateTrack", [](SmallScore &s) { return s.score.createTrack(1, InstrumentSet::violin); },
         "RequestAddTracks(1,1) ", "WillRemoveTrack(1) RemoveTrack(1) "},
        {"InsertTrack", [](SmallScore &s) { return s.score.insertTrack(2, shortTrack()); },
         "RequestAddTracks(2,1) ", "WillRemoveTrack(2) RemoveTrack(2) "},
        {"RemoveTrack", [](SmallScore &s) { return s.score.removeTrack(1); },
         "WillRemoveTrack(1) RemoveTrack(1) ", "RequestAddTracks(1,1) "},
        {"SetTrackName",
         [](SmallScore &s) { return s.score.setTrackName(0, QStringLiteral("Lead %0")); },
         "TrackNameChanged(0) ", nullptr},
        {"SetTrackShortName",
         [](SmallScore &s) { return s.score.setTrackShortName(1, QStringLiteral("pn.")); },
         "TrackShortNameChanged(1) ", nullptr},
        {"SetTrackIcon", [](SmallScore &s) { return s.score.setTrackIcon(0, ZarnIconID::Banjo); },
         "TrackIconChanged(0) ", nullptr},
        {"SetGuitarFullTuning",
         [](SmallScore &s) {
             return s.score.setGuitarFullTuning(0, 0, {38, 45, 50, 55, 59, 64}, 2);
         },
         "GuitarFullTuningChanged(0,0) ModifyBarRange(0,0,0,4) ChordsChanged(0,0) ", nullptr},
        {"SetGuitarFullTuningWithoutPartialCapo",
         [](SmallScore &s) {
             return s.score.setGuitarFullTuning(0, 0, {40, 45, 50, 55}, 0, Retuning::KeepPitches);
         },
         "GuitarFullTuningChanged(0,0) ModifyBarRange(0,0,0,4) ChordsChanged(0,0) ", nullptr},
        {"CreateAudioTrack",
         [](SmallScore &s) {
             return s.score.createAudioTrack(0, std::make_shared<AudioTrack>("Demo"));
         },
         "AddAudioTrack(0) ", "RemoveAudioTrack(0) ", true},
        {"RemoveAudioTrack", [](SmallScore &s) { return s.score.removeAudioTrack(1); },
         "RemoveAudioTrack(1) ", "AddAudioTrack(1) "},
        {"SetAudioTrack",
         [](SmallScore &s) {
             AudioTrack track("Take 2");
             track.setFilePath("take2.flac");
             track.setStartOffset(-250);
             track.setVolume(0.5F);
             track.setPan(-1);
             track.setMuted(true);
             return s.score.setAudioTrack(1, track);
         },
         "AudioTrackChanged(1) ", nullptr},
    };
}

void expectTrackCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    auto longTrack = ScoreModel::createTrack(InstrumentSet::flute);
    longTrack->addEmptyBars(7);
    expectAllRefused(score,
                     {
                         [&] { return score.createTrack(3, InstrumentSet::flute); },
                         [&] { return score.insertTrack(0, nullptr); },
                         [&] { return score.insertTrack(0, rich.model.track(1)); },
                         [&] { return score.insertTrack(0, longTrack); },
                         [&] { return score.removeTrack(2); },
                         [&] { return score.setTrackName(2, QStringLiteral("x")); },
                         [&] { return score.setTrackIcon(0, static_cast<ZarnIconID>(0)); },
                         [&] { return score.setGuitarFullTuning(1, 2, {40}); },
                         [&] { return score.setGuitarFullTuning(0, 0, {40}, 99); },
                         [&] { return score.setGuitarFullTuning(0, 0, withOffset(128)); },
                         [&] { return score.insertTrack(0, withProgram(128)); },
                         [&] { return score.createAudioTrack(3, std::make_shared<AudioTrack>()); },
                         [&] { return score.createAudioTrack(0, rich.model.audioTracks()[1]); },
                         [&] { return score.removeAudioTrack(2); },
                         [&] { return score.setAudioTrack(2, AudioTrack("Take")); },
                         [&] { return score.setAudioTrack(0, withVolume(-1)); },
                         [&] { return score.setAudioTrack(0, withVolume(std::nanf(""))); },
                         [&] {
                             return score.createAudioTrack(
                                 0, std::make_shared<AudioTrack>(withVolume(101)));
                         },
                     });
}
