// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <limits>

using namespace rich;

std::vector<CommandRow> playingRows()
{
    return {
        {"MoveTrack", [](SmallScore &s) { return s.score.moveTrack(1, 0); }, "SwapTrack(1,0) ",
         "SwapTrack(0,1) "},
        {"SetTrackColor", [](SmallScore &s) { return s.score.setTrackColor(0, 0x12ABEF); },
         "TrackColorChanged(0) ", nullptr},
        {"SetStaffCountLower", [](SmallScore &s) { return s.score.setStaffCount(1, 1); },
         "RequestTrackStaffChanged(1) ", nullptr},
        {"SetStaffCountHigher", [](SmallScore &s) { return s.score.setStaffCount(0, 3); },
         "RequestTrackStaffChanged(0) ", nullptr},
        {"SetTrackMidiConnection",
         [](SmallScore &s) {
             return s.score.setTrackMidiConnection(1, MidiConnection{1, 2, 15});
         },
         "MIDIConnectionChanged(1) ", nullptr},
        {"SetOneChannelPerString",
         [](SmallScore &s) { return s.score.setOneChannelPerString(0, true); },
         "UseOneChannelOrkaPerStringChanged(0,1) ", "UseOneChannelOrkaPerStringChanged(0,0) "},
        {"SetPlayingStyle",
         [](SmallScore &s) {
             return s.score.setPlayingStyle(0, PlayingStyle::StringedFingerPicking);
         },
         "PlayingStyleChanged(0) ", nullptr},
        {"SetTrackPlayback",
         [](SmallScore &s) { return s.score.setTrackPlayback(1, TrackPlayback::Solo); },
         "TrackPlayback(1) ", nullptr},
        {"SetTrackNotations",
         [](SmallScore &s) {
             return s.score.setTrackNotations(0, TrackNotations{false, true, true});
         },
         "TrackViewNotationsChanged(0,0) ", nullptr},
        {"SetAutoAccentuation", [](SmallScore &s) { return s.score.setAutoAccentuation(1, true); },
         "AutoAccentuationChanged(1,1) ", "AutoAccentuationChanged(1,0) "},
        {"SetAutoBrush", [](SmallScore &s) { return s.score.setAutoBrush(0, true); },
         "AutoBrushChanged(0,1) ", "AutoBrushChanged(0,0) "},
        {"SetLetRingThroughout",
         [](SmallScore &s) { return s.score.setLetRingThroughout(1, true); },
         "LetRingThroughoutChanged(1,1) ", "LetRingThroughoutChanged(1,0) "},
        {"SetPalmMute", [](SmallScore &s) { return s.score.setPalmMute(0, 0.75F); },
         "PalmMuteChanged(0) ", nullptr},
    };
}

void expectPlayingCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    expectAllRefused(
        score,
        {
            [&] { return score.moveTrack(1, 1); },
            [&] { return score.moveTrack(0, 2); },
            [&] { return score.moveTrack(2, 0); },
            [&] { return score.setTrackColor(0, 0x1000000); },
            [&] { return score.setTrackColor(2, 0); },
            [&] { return score.setStaffCount(0, 0); },
            [&] { return score.setStaffCount(0, 17); },
            [&] { return score.setStaffCount(2, 1); },
            [&] {
                return score.setTrackMidiConnection(0, MidiConnection{16, 0, 0});
            },
            [&] { return score.setTrackMidiConnection(2, MidiConnection()); },
            [&] { return score.setOneChannelPerString(2, true); },
            [&] { return score.setPlayingStyle(0, static_cast<PlayingStyle>(8)); },
            [&] { return score.setTrackPlayback(0, static_cast<TrackPlayback>(3)); },
            [&] { return score.setTrackPlayback(2, TrackPlayback::Mute); },
            [&] { return score.setTrackNotations(2, std::nullopt); },
            [&] {
                return score.setTrackNotations(0, TrackNotations{false, false, false});
            },
            [&] { return score.setAutoAccentuation(2, true); },
            [&] { return score.setPalmMute(0, 1.5F); },
            [&] { return score.setPalmMute(0, std::numeric_limits<float>::quiet_NaN()); },
            [&] { return score.setPalmMute(1, 0.5F); },
        });
}
