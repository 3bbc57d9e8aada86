// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>

using namespace rich;

std::vector<CommandRow> formRows()
{
    return {
        {"CreateBars", [](SmallScore &s) { return s.score.createBars(2, 3); },
         "AddBars(2,3) ModifyBarRange(0,0,1,1) ModifyBarRange(0,0,5,5) "
         "SimileMarkBarChanged(0,0,5,5) RequestMasterBarPlaylistUpdate ",
         "RemoveBars(2,3) ModifyBarRange(0,0,1,2) SimileMarkBarChanged(0,0,2,2) "
         "RequestMasterBarPlaylistUpdate "},
        {"CreateBarsAtTheStart", [](SmallScore &s) { return s.score.createBars(0, 2); },
         "AddBars(0,2) RequestMasterBarPlaylistUpdate "
         "MasterTrackAutomationChanged(Tempo,0,2) AutomationChanged ",
         "RemoveBars(0,2) RequestMasterBarPlaylistUpdate "
         "MasterTrackAutomationChanged(Tempo,0,0) AutomationChanged ",
         true},
        {"CreateBarsAtTheEnd", [](SmallScore &s) { return s.score.createBars(6, 1); },
         "AddBars(6,1) RequestMasterBarPlaylistUpdate ",
         "RemoveBars(6,1) RequestMasterBarPlaylistUpdate "},
        {"RemoveBarsFromTheStart", [](SmallScore &s) { return s.score.removeBarRange(0, 2); },
         "RemoveBars(0,3) ModifyBarRangeAllTracks(0,2) ModifyBarRange(0,0,0,0) "
         "MasterBarDirection(1,2,-1) RequestMasterBarPlaylistUpdate "
         "MasterTrackAutomationChanged(Tempo,0,0) TrackAutomationChanged(1,Sound,0,0) "
         "SoundAutomationChanged(1,0,0) AutomationChanged ",
         "AddBars(0,3) ModifyBarRangeAllTracks(0,2) ModifyBarRange(0,0,3,3) "
         "MasterBarDirection(1,-1,2) RequestMasterBarPlaylistUpdate "
         "MasterTrackAutomationChanged(Tempo,0,3) TrackAutomationChanged(1,Sound,0,3) "
         "SoundAutomationChanged(1,0,3) AutomationChanged "},
        {"RemoveAllBars", [](SmallScore &s) { return s.score.removeBarRange(0, 5); },
         "RemoveBars(0,6) ModifyBarRangeAllTracks(0,5) MasterBarDirection(0,3,-1) "
         "MasterBarDirection(1,2,-1) RequestMasterBarPlaylistUpdate "
         "MasterTrackAutomationChanged(Tempo,0,0) TrackAutomationChanged(1,Sound,0,0) "
         "SoundAutomationChanged(1,0,0) AutomationChanged ",
         "AddBars(0,6) ModifyBarRangeAllTracks(0,5) MasterBarDirection(0,-1,3) "
         "MasterBarDirection(1,-1,2) RequestMasterBarPlaylistUpdate "
         "MasterTrackAutomationChanged(Tempo,0,5) TrackAutomationChanged(1,Sound,0,5) "
         "SoundAutomationChanged(1,0,5) AutomationChanged "},
        {"RemoveBars", [](SmallScore &s) { return s.score.removeBarRange(1, 2); },
         "RemoveBars(1,2) ModifyBarRangeAllTracks(1,2) ModifyBarRange(0,0,0,0) "
         "MasterBarDirection(1,2,-1) "
         "RequestMasterBarPlaylistUpdate MasterTrackAutomationChanged(Tempo,1,1) "
         "TrackAutomationChanged(1,Sound,1,1) SoundAutomationChanged(1,1,1) "
         "AutomationChanged ",
         "AddBars(1,2) ModifyBarRangeAllTracks(1,2) ModifyBarRange(0,0,0,0) "
         "MasterBarDirection(1,-1,2) "
         "RequestMasterBarPlaylistUpdate MasterTrackAutomationChanged(Tempo,1,2) "
         "TrackAutomationChanged(1,Sound,1,2) SoundAutomationChanged(1,1,2) "
         "AutomationChanged "},
        {"RemoveBarsThatBeginAMovement", [](SmallScore &s) { return s.score.removeBarRange(4, 4); },
         "RemoveBars(4,1) ModifyBarRangeAllTracks(4,4) ModifyBarRange(0,0,3,3) "
         "SimileMarkBarChanged(0,0,4,4) MasterBarAttribute(4,4) RequestMasterBarPlaylistUpdate ",
         "AddBars(4,1) ModifyBarRangeAllTracks(4,4) ModifyBarRange(0,0,3,3) "
         "SimileMarkBarChanged(0,0,5,5) MasterBarAttribute(5,5) RequestMasterBarPlaylistUpdate "},
        {"SetClef", [](SmallScore &s) { return s.score.setClef(1, 0, 1, 3, ClefType::C3); },
         "TrackClefChanged(1,0,1,3) ", nullptr},
        {"SetMasterTimeSignature",
         [](SmallScore &s) {
             return s.score.setMasterTimeSignature(1, 3, {7, 8});
         },
         "MasterBarTimeSignature(1,3) ", nullptr},
        {"SetMasterKeySignature",
         [](SmallScore &s) {
             return s.score.setMasterKeySignature(0, 5, KeySignature(-3, false, true));
         },
         "MasterBarKeySignature(0,5) ", nullptr},
        {"SetMasterTripletFeel",
         [](SmallScore &s) { return s.score.setMasterTripletFeel(0, 5, TripletFeel::Triplet8th); },
         "MasterBarTripletFeel(0,5) ", nullptr},
        {"SetMasterBarFreeTime",
         [](SmallScore &s) { return s.score.setMasterBarFreeTime(2, 2, true); },
         "MasterBarFreeTime(2,2) ", nullptr},
        {"SetMasterBarDoubleBar",
         [](SmallScore &s) { return s.score.setMasterBarDoubleBar(5, true); },
         "MasterBarDoubleBar(5,5) ", nullptr},
        {"SetMasterBarMovementStart",
         [](SmallScore &s) { return s.score.setMasterBarMovementStart(2, true); },
         "MasterBarAttribute(2,2) RequestMasterBarPlaylistUpdate ", nullptr},
        {"SetBarRepeatStart", [](SmallScore &s) { return s.score.setBarRepeatStart(1, true); },
         "MasterBarRepeat(1,1) RequestMasterBarPlaylistUpdate ", nullptr},
        {"SetBarRepeatEnd", [](SmallScore &s) { return s.score.setBarRepeatEnd(4, 3); },
         "MasterBarRepeat(4,4) RequestMasterBarPlaylistUpdate ", nullptr},
        {"SetBarAlternateEndings",
         [](SmallScore &s) { return s.score.setBarAlternateEndings(3, 4, 5); },
         "MasterBarAlternateEnding(3,4) RequestMasterBarPlaylistUpdate ", nullptr},
        {"SetBarDirection",
         [](SmallScore &s) { return s.score.setBarDirection(DirectionMark::DaCapoAlFine, 4); },
         "MasterBarDirection(8,-1,4) RequestMasterBarPlaylistUpdate ",
         "MasterBarDirection(8,4,-1) RequestMasterBarPlaylistUpdate "},
        {"SetBarDirections",
         [](SmallScore &s) {
             return s.score.setBarDirections(2, {DirectionMark::Segno, DirectionMark::Fine});
         },
         "MasterBarDirection(1,2,-1) MasterBarDirection(2,-1,2) "
         "MasterBarDirection(4,-1,2) RequestMasterBarPlaylistUpdate ",
         "MasterBarDirection(1,-1,2) MasterBarDirection(2,2,-1) "
         "MasterBarDirection(4,2,-1) RequestMasterBarPlaylistUpdate "},
        {"SetBarDirectionsWithFurtherOnes",
         [](SmallScore &s) {
             return s.score.setBarDirections(5, {DirectionMark::DaCapo, DirectionMark::Fine});
         },
         "MasterBarDirection(4,-1,5) MasterBarAttribute(5,5) RequestMasterBarPlaylistUpdate ",
         "MasterBarDirection(4,5,-1) MasterBarAttribute(5,5) RequestMasterBarPlaylistUpdate "},
        {"SetMasterBarSection",
         [](SmallScore &s) {
             return s.score.setMasterBarSection(3, QStringLiteral("B"), QStringLiteral("Bridge"));
         },
         "SetBarSection(3,3) ", "UnsetBarSection(3,3) "},
        {"SetMasterBarAttribute",
         [](SmallScore &s) {
             return s.score.setMasterBarAttribute(0, 2, MasterBarAttribute::Fermatas,
                                                  FermataMarks{FermataMark::at(1, Fermata::Long)});
         },
         "MasterBarFermata(0,2) ", nullptr},
        {"SetMasterBarAttributes",
         [](SmallScore &s) {
             return s.score.setMasterBarAttributes(
                 0, 3,
                 {{MasterBarAttribute::TimeSignature, TimeSignature(5, 8)},
                  {MasterBarAttribute::OwnLength, std::optional<utils::rational>(2)},
                  {MasterBarAttribute::RepeatStart, true},
                  {MasterBarAttribute::RepeatCount, 3},
                  {MasterBarAttribute::MovementStart, true},
                  {MasterBarAttribute::BeamGroups, BeamGroups({2, 3})},
                  {MasterBarAttribute::Section, Section{"A", "", true}},
                  {MasterBarAttribute::BarLine, BarLine::Dashed},
                  {MasterBarAttribute::MeterSign, MeterSign::UpperNumber},
                  {MasterBarAttribute::LayoutRatio, 2.0},
                  {MasterBarAttribute::EndingText, "last time"},
                  {MasterBarAttribute::EndingHidden, true},
                  {MasterBarAttribute::FurtherDirections,
                   directionBit(DirectionMark::Coda) | directionBit(DirectionMark::DaCapo)},
                  {MasterBarAttribute::JumpText, "from the start"}});
         },
         "MasterBarTimeSignature(0,3) MasterBarAttribute(0,3) MasterBarRepeat(0,3) "
         "SetBarSection(0,3) "
         "MasterBarBeamGroups(0,3) BarLayoutRatiosChanged(0,3) RequestMasterBarPlaylistUpdate ",
         "MasterBarTimeSignature(0,3) MasterBarAttribute(0,3) MasterBarRepeat(0,3) "
         "UnsetBarSection(0,3) MasterBarBeamGroups(0,3) BarLayoutRatiosChanged(0,3) "
         "RequestMasterBarPlaylistUpdate "},
        {"SetMasterTimeSignatureThatGroupsDoNotFit",
         [](SmallScore &s) {
             return s.score.setMasterTimeSignature(4, 5, {3, 4});
         },
         "MasterBarTimeSignature(4,5) MasterBarBeamGroups(4,5) ", nullptr},
        {"SetAnacrusis",
         [](SmallScore &s) {
             return s.score.setMasterBarAttribute(0, 0, MasterBarAttribute::Anacrusis, true);
         },
         "AnacrusisChanged(0,1) ", "AnacrusisChanged(1,0) "},
        {"UnsetMasterBarAttributes",
         [](SmallScore &s) {
             return s.score.unsetMasterBarAttributes(
                 3, 5, {MasterBarAttribute::FreeTime, MasterBarAttribute::MovementStart});
         },
         "MasterBarFreeTime(3,5) MasterBarAttribute(3,5) RequestMasterBarPlaylistUpdate ", nullptr},
        {"SetBarAttribute",
         [](SmallScore &s) {
             return s.score.setBarAttribute(1, 0, 1, 3, BarAttribute::LayoutRatio, 0.5);
         },
         "BarLayoutRatiosChanged(1,3) ", nullptr},
        {"SetBarAttributes",
         [](SmallScore &s) {
             return s.score.setBarAttributes(
                 1, 0, 1, 2,
                 {{BarAttribute::Clef, ClefType::C4}, {BarAttribute::Ottavia, Ottavia::_8vb}});
         },
         "TrackClefChanged(1,0,1,2) ModifyBarRange(1,0,1,2) ", nullptr},
        {"UnsetBarAttributes",
         [](SmallScore &s) {
             return s.score.unsetBarAttributes(1, 0, 3, 5,
                                               {BarAttribute::Clef, BarAttribute::SimileMark});
         },
         "TrackClefChanged(1,0,3,5) SimileMarkBarChanged(1,0,3,5) ModifyBarRange(1,0,3,5) ",
         nullptr},
        {"SetBarSimileMark",
         [](SmallScore &s) { return s.score.setBarSimileMark(0, 0, 2, 5, SimileMark::Double); },
         "SimileMarkBarChanged(0,0,2,5) ModifyBarRange(0,0,2,5) ", nullptr},
    };
}

void expectFormCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    expectAllRefused(
        score,
        {
            [&] { return score.setClef(0, 1, 0, 0, ClefType::F4); },
            [&] { return score.setClef(0, 0, 3, 6, ClefType::F4); },
            [&] { return score.setClef(0, 0, 0, 0, ClefType::None); },
            [&] {
                return score.setMasterTimeSignature(2, 1, {3, 4});
            },
            [&] {
                return score.setMasterTimeSignature(0, 0, {3, 5});
            },
            [&] {
                return score.setMasterTimeSignature(0, 0, {0, 4});
            },
            [&] { return score.setMasterKeySignature(6, 6, KeySignature(1, true, true)); },
            [&] { return score.setMasterTripletFeel(0, 0, static_cast<TripletFeel>(7)); },
            [&] { return score.setBarRepeatEnd(2, 1); },
            [&] { return score.setBarRepeatEnd(2, 256); },
            [&] { return score.setBarDirection(DirectionMark::NoDirection, 2); },
            [&] { return score.setBarDirection(DirectionMark::Fine, 6); },
            [&] { return score.setBarDirection(DirectionMark::Fine, -2); },
            [&] { return score.setBarDirections(2, {DirectionMark::NoDirection}); },
            [&] { return score.setMasterBarSection(6, QStringLiteral("A"), QString()); },
            [&] { return score.setMasterBarAttributes(0, 0, {}); },
            [&] {
                return score.setMasterBarAttribute(0, 0, MasterBarAttribute::OwnLength,
                                                   std::optional<utils::rational>(0));
            },
            [&] {
                return score.setMasterBarAttribute(0, 0, MasterBarAttribute::BeamGroups,
                                                   BeamGroups({3, 2}));
            },
            [&] {
                return score.setMasterBarAttribute(
                    0, 0, MasterBarAttribute::Fermatas,
                    FermataMarks{FermataMark::at(5, Fermata::Short)});
            },
            [&] { return score.setMasterBarAttribute(0, 1, MasterBarAttribute::Anacrusis, true); },
            [&] {
                return score.setMasterBarAttribute(0, 0, MasterBarAttribute::LayoutRatio, 11.0);
            },
            [&] {
                return score.unsetMasterBarAttributes(0, 0, {MasterBarAttribute::KeySignature});
            },
            [&] { return score.setBarSimileMark(0, 0, 0, 0, SimileMark::Simple); },
            [&] { return score.setBarSimileMark(0, 0, 1, 2, SimileMark::Double); },
            [&] { return score.setBarSimileMark(0, 0, 2, 4, SimileMark::Double); },
            [&] { return score.setBarSimileMark(0, 0, 2, 2, SimileMark::FirstOfDouble); },
            [&] { return score.setBarAttribute(0, 0, 5, 6, BarAttribute::LayoutRatio, 2.0); },
            [&] { return score.unsetBarAttributes(0, 0, 0, 2, {BarAttribute::Clef}); },
        });
}
