// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <ZarnCore/model/ZarnBarColumns.h>
#include <ZarnCore/model/clip/ZarnClip.h>

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

/// What is pasted comes from a score of its own.
RichScore &source()
{
    static RichScore score;
    return score;
}

} // namespace

std::vector<CommandRow> structureRows()
{
    return {
        {"CompleteReduceBarsWithRests",
         [](SmallScore &s) { return s.score.completeReduceBarsWithRests(s.everything(3, 3)); },
         "ModifyBarRange(0,0,3,3) ", nullptr},
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
        {"ReplaceScore",
         [](SmallScore &s) {
             const auto model = s.score.scoreModel()->clone();
             model->setScoreProperty(ScoreProperty::Title, "Another");
             model->takeBarColumns(1, 5);
             return s.score.replaceScore(model);
         },
         "ScoreChanged ", nullptr, true},
        {"PasteBarRangeOfAllTracks",
         [](SmallScore &s) {
             const Clip clip = copyOfBars(source().model, source().everything(2, 3));
             return s.score.pasteBarRange(clip, 0, 0, 2, PasteMode::Insert);
         },
         "AddBars(0,4) RequestMasterBarPlaylistUpdate MasterTrackAutomationChanged(Tempo,0,4) "
         "AutomationChanged ModifyBarRangeAllTracks(0,3) TrackClefChanged(1,0,0,0) "
         "TrackClefChanged(1,0,2,2) MasterTrackAutomationChanged(Tempo,0,4) "
         "GlobalTempoChanged(100,120) AutomationChanged ",
         "MasterTrackAutomationChanged(Tempo,0,4) GlobalTempoChanged(120,100) AutomationChanged "
         "ModifyBarRangeAllTracks(0,3) TrackClefChanged(1,0,0,0) TrackClefChanged(1,0,2,2) "
         "RemoveBars(0,4) RequestMasterBarPlaylistUpdate MasterTrackAutomationChanged(Tempo,0,0) "
         "AutomationChanged "},
        {"PasteBarRangeOfOneTrack",
         [](SmallScore &s) {
             const Clip clip = copyOfBars(source().model, source().from(0, -1, 1, -1));
             return s.score.pasteBarRange(clip, 4, 1, 1, PasteMode::Insert);
         },
         "AddBars(4,2) ModifyBarRange(0,0,3,3) ModifyBarRange(0,0,6,6) "
         "RequestMasterBarPlaylistUpdate ModifyBarRange(1,0,4,5) ",
         "ModifyBarRange(1,0,4,5) RemoveBars(4,2) ModifyBarRange(0,0,3,4) "
         "RequestMasterBarPlaylistUpdate "},
        {"PasteBarRangeOverTheEnd",
         [](SmallScore &s) {
             const Clip clip = copyOfBars(source().model, source().everythingOf(0, 0, 1));
             return s.score.pasteBarRange(clip, 4, 0, 2, PasteMode::Replace);
         },
         "AddBars(6,2) RequestMasterBarPlaylistUpdate ModifyBarRange(0,0,3,7) "
         "SimileMarkBarChanged(0,0,5,5) ",
         "ModifyBarRange(0,0,3,7) SimileMarkBarChanged(0,0,5,5) RemoveBars(6,2) "
         "RequestMasterBarPlaylistUpdate "},
        {"PasteBeatRangeInserted",
         [](SmallScore &s) {
             const Clip clip = copyOfBeats(source().model, source().from(0, 1, 1, 0));
             return s.score.pasteBeatRange(clip, s.at(3, 1), 2, PasteMode::Insert);
         },
         "ModifyBarRange(0,0,3,3) ", nullptr},
        {"PasteBeatRangeReplacing",
         [](SmallScore &s) {
             const Clip clip = copyOfBeats(source().model, source().from(0, 1, 1, 0));
             return s.score.pasteBeatRange(clip, s.at(4, 2), 3, PasteMode::Replace);
         },
         "AddBars(6,2) RequestMasterBarPlaylistUpdate ModifyBarRange(0,0,4,7) "
         "SimileMarkBarChanged(0,0,5,5) ",
         "ModifyBarRange(0,0,4,7) SimileMarkBarChanged(0,0,5,5) RemoveBars(6,2) "
         "RequestMasterBarPlaylistUpdate "},
        {"PasteBeatRangeMerged",
         [](SmallScore &s) {
             const Clip clip = copyOfBeats(source().model, source().from(0, 0, 0, 3));
             return s.score.pasteBeatRange(clip, s.at(3, 1), 1, PasteMode::Merge);
         },
         "ModifyBarRange(0,0,3,4) ", nullptr},
    };
}

void expectStructureCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    const Clip bars = copyOfBars(rich.model, rich.everything(0, 1));
    const Clip beats = copyOfBeats(rich.model, rich.from(0, 1, 1, 0));
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
            [&] { return score.completeReduceBarsWithRests(rich.everything(0, 2)); },
            [&] { return score.arrangeBars(5, 5); },
            [&] { return score.arrangeBars(0, 6); },
            [&] { return score.arrangeBars(2, 1); },
            [&] { return score.replaceScore(nullptr); },
            [&] { return score.replaceScore(score.scoreModel()); },
            [&] {
                const auto broken = score.scoreModel()->clone();
                broken->track(0)->staff(0)->removeBar(0);
                return score.replaceScore(broken);
            },
            [&] { return score.pasteBarRange({}, 0, 0, 1, PasteMode::Insert); },
            [&] { return score.pasteBarRange(bars, 7, 0, 1, PasteMode::Insert); },
            [&] { return score.pasteBarRange(bars, 6, 0, 1, PasteMode::Replace); },
            [&] { return score.pasteBarRange(bars, 0, 1, 1, PasteMode::Insert); },
            [&] { return score.pasteBarRange(bars, 0, 0, 0, PasteMode::Insert); },
            [&] { return score.pasteBarRange(bars, 0, 0, 100, PasteMode::Insert); },
            [&] { return score.pasteBarRange(bars, 0, 0, 1, PasteMode::Merge); },
            [&] { return score.pasteBarRange(beats, 0, 0, 1, PasteMode::Insert); },
            [&] { return score.pasteBeatRange({}, rich.at(0, 0), 1, PasteMode::Insert); },
            [&] { return score.pasteBeatRange(bars, rich.at(0, 0), 1, PasteMode::Insert); },
            [&] { return score.pasteBeatRange(beats, rich.at(0, 5), 1, PasteMode::Insert); },
            [&] { return score.pasteBeatRange(beats, rich.at(6, 0), 1, PasteMode::Replace); },
            [&] { return score.pasteBeatRange(beats, rich.at(0, 0), 0, PasteMode::Replace); },
            // A simile bar is in the way.
            [&] { return score.pasteBeatRange(beats, rich.at(1, 3), 1, PasteMode::Merge); },
        });
}
