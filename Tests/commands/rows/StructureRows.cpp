// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <ZarnCore/model/ZarnBarColumns.h>

using namespace rich;

namespace {

/// A bar with a single note, tied on.
std::shared_ptr<Bar> barWithNote(int midi)
{
    auto bar = std::make_shared<Bar>();
    auto beat = std::make_shared<Beat>(RhythmValue(RhythmValue::NoteValue::Whole));
    auto note = std::make_shared<Note>(midi);
    note->setTieOrigin(true);
    beat->addNote(note);
    bar->ensureVoice(0)->addBeat(beat);
    return bar;
}

/// Columns for the two tracks of the small score.
BarColumns columns(unsigned count)
{
    BarColumns made;
    Staff::Bars bars[3];
    for (unsigned i = 0; i < count; ++i) {
        made.masterBars.push_back(std::make_shared<MasterBar>());
        made.masterBars.back()->setTimeSignature({3, 4});
        made.masterBars.back()->setSection({"X", "new"});
        for (Staff::Bars &list : bars)
            list.push_back(barWithNote(60 + static_cast<int>(i)));
    }
    made.bars = {{bars[0]}, {bars[1], bars[2]}};
    return made;
}

} // namespace

std::vector<CommandRow> structureRows()
{
    return {
        {"ModifyBarRange",
         [](SmallScore &s) {
             auto first = barWithNote(60);
             first->setClef(ClefType::F4);
             first->setLayoutRatio(2);
             return s.score.modifyBarRange(0, 0, 2, {first, barWithNote(62)});
         },
         "ModifyBarRange(0,0,1,4) SimileMarkBarChanged(0,0,2,2) TrackClefChanged(0,0,2,2) "
         "BarLayoutRatiosChanged(2,2) ",
         nullptr},
        {"ModifyBarRangeAllTracks",
         [](SmallScore &s) { return s.score.modifyBarRangeAllTracks(1, 2, columns(2)); },
         "ModifyBarRangeAllTracks(1,2) ModifyBarRange(0,0,0,0) ModifyBarRange(0,0,3,3) "
         "SimileMarkBarChanged(0,0,2,2) TrackClefChanged(1,0,2,2) TrackClefChanged(1,1,1,2) "
         "SetBarSection(1,2) MasterBarTimeSignature(1,2) ",
         "ModifyBarRangeAllTracks(1,2) ModifyBarRange(0,0,0,0) ModifyBarRange(0,0,3,3) "
         "SimileMarkBarChanged(0,0,2,2) TrackClefChanged(1,0,2,2) TrackClefChanged(1,1,1,2) "
         "UnsetBarSection(1,2) MasterBarTimeSignature(1,2) "},
        {"ModifyBarRangeAllTracksToMore",
         [](SmallScore &s) { return s.score.modifyBarRangeAllTracks(1, 1, columns(3)); },
         "AddBars(2,2) ModifyBarRange(0,0,1,1) ModifyBarRange(0,0,4,4) "
         "SimileMarkBarChanged(0,0,4,4) RequestMasterBarPlaylistUpdate "
         "ModifyBarRangeAllTracks(1,3) ModifyBarRange(0,0,0,0) TrackClefChanged(1,1,1,3) "
         "SetBarSection(1,3) MasterBarTimeSignature(1,3) ",
         "ModifyBarRangeAllTracks(1,3) ModifyBarRange(0,0,0,0) TrackClefChanged(1,1,1,3) "
         "UnsetBarSection(1,3) MasterBarTimeSignature(1,3) RemoveBars(2,2) ModifyBarRange(0,0,1,2) "
         "SimileMarkBarChanged(0,0,2,2) RequestMasterBarPlaylistUpdate "},
        {"ModifyBarRangeAllTracksToFewer",
         [](SmallScore &s) { return s.score.modifyBarRangeAllTracks(1, 4, columns(1)); },
         "RemoveBars(2,3) ModifyBarRangeAllTracks(2,4) ModifyBarRange(0,0,1,1) "
         "SimileMarkBarChanged(0,0,2,2) MasterBarAttribute(2,2) MasterBarDirection(0,3,-1) "
         "MasterBarDirection(1,2,-1) RequestMasterBarPlaylistUpdate "
         "MasterTrackAutomationChanged(Tempo,2,2) AutomationChanged ModifyBarRangeAllTracks(1,1) "
         "ModifyBarRange(0,0,0,0) TrackClefChanged(1,1,1,1) SetBarSection(1,1) "
         "MasterBarTimeSignature(1,1) ",
         "ModifyBarRangeAllTracks(1,1) ModifyBarRange(0,0,0,0) TrackClefChanged(1,1,1,1) "
         "UnsetBarSection(1,1) MasterBarTimeSignature(1,1) AddBars(2,3) "
         "ModifyBarRangeAllTracks(2,4) ModifyBarRange(0,0,1,1) SimileMarkBarChanged(0,0,5,5) "
         "MasterBarAttribute(5,5) MasterBarDirection(0,-1,3) MasterBarDirection(1,-1,2) "
         "RequestMasterBarPlaylistUpdate MasterTrackAutomationChanged(Tempo,2,4) "
         "AutomationChanged "},
        {"SwapVoices",
         [](SmallScore &s) { return s.score.swapVoices(s.everythingOf(0, 1, 2), 0, 3); },
         "ModifyBarRange(0,0,0,3) ", nullptr},
        {"MoveVoice", [](SmallScore &s) { return s.score.moveVoice(s.from(0, 3, 1, 1), 1); },
         "ModifyBarRange(0,0,0,1) ", nullptr},
        {"MoveVoiceWhole", [](SmallScore &s) { return s.score.moveVoice(s.from(1, 0, 1, 3), 2); },
         "ModifyBarRange(0,0,0,2) ", nullptr},
        {"ArrangeBars", [](SmallScore &s) { return s.score.arrangeBars(1, 5); },
         "ModifyBarRangeAllTracks(1,5) SimileMarkBarChanged(0,0,2,2) "
         "SimileMarkBarChanged(0,0,5,5) ",
         nullptr},
    };
}

void expectStructureCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    expectAllRefused(
        score,
        {
            [&] { return score.modifyBarRange(0, 0, 0, {}); },
            [&] { return score.modifyBarRange(0, 0, 0, {nullptr}); },
            [&] { return score.modifyBarRange(0, 1, 0, {barWithNote(60)}); },
            [&] {
                return score.modifyBarRange(0, 0, 5, {barWithNote(60), barWithNote(60)});
            },
            [&] {
                const auto bar = barWithNote(60);
                return score.modifyBarRange(0, 0, 0, {bar, bar});
            },
            [&] { return score.modifyBarRange(0, 0, 0, {rich.model.track(0)->bar(1)}); },
            [&] { return score.modifyBarRangeAllTracks(0, 0, columns(0)); },
            [&] { return score.modifyBarRangeAllTracks(1, 0, columns(1)); },
            [&] { return score.modifyBarRangeAllTracks(5, 6, columns(1)); },
            [&] {
                auto wrong = columns(2);
                wrong.bars[1].pop_back();
                return score.modifyBarRangeAllTracks(0, 0, std::move(wrong));
            },
            [&] { return score.swapVoices(rich.everything(0, 5), 1, 1); },
            [&] { return score.swapVoices(rich.everything(0, 5), 0, 4); },
            [&] { return score.swapVoices(rich.everything(5, 5), 1, 3); },
            [&] { return score.moveVoice(rich.from(0, 0, 0, 1), 0); },
            [&] { return score.moveVoice(rich.from(0, 0, 0, 1), 4); },
            // Notes in the way.
            [&] { return score.moveVoice(ScoreModelRange(rich.at(0, 0, 1, 0)), 2); },
            [&] { return score.completeReduceBarsWithRests(rich.everything(0, 5)); },
            [&] { return score.arrangeBars(5, 5); },
            [&] { return score.arrangeBars(0, 6); },
            [&] { return score.arrangeBars(2, 1); },
        });
}
