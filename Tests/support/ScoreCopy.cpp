// SPDX-License-Identifier: MIT
#include "ScoreCopy.h"

#include "TextDifference.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/ZarnPlayList.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>

using namespace zarn;

namespace {

/// All of a score that is no bar and stands at none, and no tracks.
std::shared_ptr<ScoreModel> headOf(const ScoreModel &model)
{
    auto head = std::make_shared<ScoreModel>();
    for (unsigned i = 0; i <= static_cast<unsigned>(ScoreProperty::Notice); ++i) {
        const auto property = static_cast<ScoreProperty>(i);
        head->setScoreProperty(property, model.property(property));
    }
    for (unsigned i = 0; i < HeaderAndFooterCount; ++i) {
        const auto part = static_cast<HeaderAndFooter>(i);
        head->setHeaderAndFooter(part, model.headerAndFooter(part));
    }
    head->setPageSetup(model.pageSetup());
    head->setConcertTone(model.concertTone());
    head->setIgnoreCapo(model.ignoreCapo());
    head->setPrintable(model.isPrintable());
    head->setProtected(model.isProtected());
    head->setFullScoreSystemsLayout(model.fullScoreSystemsLayout());
    head->setFullScoreDefaultBarCountBySystem(model.fullScoreDefaultBarCountBySystem());
    head->setViews(model.views());
    head->setTrackGroups(model.trackGroups());
    for (const auto &track : model.audioTracks())
        head->addAudioTrack(std::make_shared<AudioTrack>(*track));
    MasterTrack &master = *head->masterTrack();
    master.setTempoSettings(model.masterTrack()->tempoSettings());
    master.setAnacrusis(model.masterTrack()->hasAnacrusis());
    master.setMastering(model.masterTrack()->mastering());
    return head;
}

double tempoAtStart(const MasterTrack &master)
{
    const auto *const tempo =
        dynamic_cast<const TempoAutomation *>(master.automation(Automation::Tempo, 0, 0));
    return tempo != nullptr ? static_cast<double>(tempo->quarterValue())
                            : master.quarterTempoValue();
}

/// A slot without a voice is not a voice without beats.
bool isSame(const Bar &left, const Bar &right)
{
    return left == right
        && std::equal(left.voices().begin(), left.voices().end(), right.voices().begin(),
                      [](const auto &a, const auto &b) { return !a == !b; });
}

std::string text(const ScoreModel &model)
{
    return io::NativeExporter().toText(model);
}
std::string text(const std::shared_ptr<Track> &track)
{
    ScoreModel model;
    model.addTrack(track->clone());
    return text(model);
}
std::string text(const Bar &bar)
{
    ScoreModel model;
    model.createAndInsertTrack(0, InstrumentSet::unknown);
    model.insertEmptyBarColumns(0, 1);
    model.track(0)->staff(0)->replaceBar(0, bar.clone());
    std::string slots;
    for (const auto &voice : bar.voices())
        slots += voice ? "v" : "-";
    return text(model) + slots;
}
std::string text(const MasterBar &bar)
{
    ScoreModel model;
    model.masterTrack()->addMasterBar(bar.clone());
    return text(model);
}

std::string numbers(const std::vector<int> &list)
{
    std::string all;
    for (const int number : list)
        all += std::to_string(number) + " ";
    return all;
}

} // namespace

ScoreCopy::TrackCopy::TrackCopy(const Track &track)
    : head(track.cloneWithoutBars()), automations(track.automations())
{
    for (const auto &staff : track.staves()) {
        staves.emplace_back();
        for (const auto &bar : staff->bars())
            staves.back().push_back(bar->clone());
    }
}

ScoreCopy::ScoreCopy(const Score &score)
    : head(headOf(*score.scoreModel())), directions(score.masterTrack()->directionSlots()),
      playList(score.masterTrack()->playlist()), cursor(score.scoreCursor().index()),
      startTempo(tempoAtStart(*score.masterTrack())), automations(*score.masterTrack())
{
    for (const auto &bar : score.masterTrack()->masterBars())
        masterBars.push_back(bar->clone());
    for (const auto &track : score.scoreModel()->tracks())
        tracks.emplace_back(*track);
}

std::string ScoreCopy::difference(const Score &score, int from, int to) const
{
    std::string difference = differenceBesideBars(score);
    if (difference.empty())
        difference = differenceOfTracks(*score.scoreModel());
    if (difference.empty())
        difference = differenceInBars(*score.scoreModel(), from, to);
    return difference;
}

std::string ScoreCopy::differenceBesideBars(const Score &score) const
{
    const ScoreModel &model = *score.scoreModel();
    const MasterTrack &master = *model.masterTrack();
    if (const auto now = headOf(model); *now != *head)
        return "the head of the score: " + textDifference(text(*head), text(*now));
    const auto &marks = master.directionSlots();
    for (std::size_t i = 0; i < marks.size(); ++i) {
        if (marks[i] != directions[i])
            return "direction " + std::to_string(i) + " is known at bar "
                + std::to_string(directions[i]) + " and stands at " + std::to_string(marks[i]);
    }
    if (master.playlist() != playList || unfoldPlayList(master) != playList)
        return "the play list is known as " + numbers(playList) + ", the score has "
            + numbers(master.playlist()) + ", and it should be " + numbers(unfoldPlayList(master));
    if (score.scoreCursor().index() != cursor)
        return "nobody heard of the cursor at "
            + score.scoreCursor().index().toQString().toStdString();
    if (tempoAtStart(master) != startTempo)
        return "the tempo of the start is known as " + std::to_string(startTempo) + " and is "
            + std::to_string(tempoAtStart(master));
    const std::string fault = automations.difference(master);
    return fault.empty() ? fault : "of the master track, " + fault;
}

std::string ScoreCopy::differenceOfTracks(const ScoreModel &model) const
{
    if (tracks.size() != model.trackCount())
        return std::to_string(tracks.size()) + " tracks are known, and there are "
            + std::to_string(model.trackCount());
    for (unsigned i = 0; i < tracks.size(); ++i) {
        const Track &track = *model.tracks()[i];
        std::string fault = tracks[i].automations.difference(track.automations());
        if (const auto now = track.cloneWithoutBars(); *now != *tracks[i].head)
            fault = textDifference(text(tracks[i].head), text(now));
        if (!fault.empty())
            return "of track " + std::to_string(i) + ", " + fault;
    }
    return {};
}

std::string ScoreCopy::differenceInBars(const ScoreModel &model, int from, int to) const
{
    const auto place = [](int bar) { return "bar " + std::to_string(bar); };
    const auto &bars = model.masterTrack()->masterBars();
    if (masterBars.size() != bars.size())
        return std::to_string(masterBars.size()) + " bars are known, and there are "
            + std::to_string(bars.size());
    const int end = std::min(to + 1, static_cast<int>(bars.size()));
    for (int i = std::max(from, 0); i < end; ++i) {
        if (*masterBars[i] != *bars[i])
            return "master " + place(i) + ": "
                + textDifference(text(*masterBars[i]), text(*bars[i]));
        for (std::size_t t = 0; t < tracks.size(); ++t) {
            for (std::size_t s = 0; s < tracks[t].staves.size(); ++s) {
                const Bar &known = *tracks[t].staves[s].at(i);
                const Bar &bar = *model.tracks()[t]->staves()[s]->bars().at(i);
                if (!isSame(known, bar))
                    return place(i) + " of track " + std::to_string(t) + ", staff "
                        + std::to_string(s) + ": " + textDifference(text(known), text(bar));
            }
        }
    }
    return {};
}
