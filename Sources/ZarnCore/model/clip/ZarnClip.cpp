// SPDX-License-Identifier: MIT
#include <ZarnCore/model/clip/ZarnClip.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/barring/BeatPour.h>
#include <ZarnCore/model/notes/LinkFaults.h>
#include <ZarnCore/model/notes/SpanFaults.h>
#include <ZarnCore/model/places/BarSelection.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnRangeBarIterator.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>
#include <vector>

namespace zarn {

namespace {

using utils::rational;

/// The staves of one track that are copied, both included.
struct Staves {
    unsigned first;
    unsigned last;
};
using StavesByTrack = std::map<unsigned, Staves>;

void addStaff(StavesByTrack &tracks, unsigned track, unsigned staff)
{
    Staves &staves = tracks.try_emplace(track, Staves{staff, staff}).first->second;
    staves.first = std::min(staves.first, staff);
    staves.last = std::max(staves.last, staff);
}

/// A track without bars, and with some of its staves alone.
std::shared_ptr<Track> trackWith(const Track &track, const Staves &staves)
{
    auto copy = track.cloneWithoutBars();
    if (staves.first == 0 && staves.last + 1 == track.staffCount())
        return copy;
    Track::Staves others;
    for (unsigned i = staves.first; i <= staves.last; ++i)
        others.push_back(track.staves()[i]->cloneWithoutBars());
    copy->setStaff(0, others.front());
    if (copy->staffCount() > 1)
        copy->takeStavesFrom(1);
    others.erase(others.begin());
    if (!others.empty())
        copy->addStaves(std::move(others));
    return copy;
}

void copyAutomations(const AutomationContainer &from, AutomationContainer &to, unsigned first,
                     unsigned last)
{
    if (!from.hasAutomations())
        return;
    for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot) {
        for (const Automation *automation :
             from.automations(Automation::idType(slot), first, last)) {
            auto copy = automation->cloneAutomation();
            copy->setIndex(automation->index() - first);
            to.insertAutomation(std::move(copy));
        }
    }
}

void copyColumns(const MasterTrack &from, MasterTrack &to, unsigned first, unsigned last)
{
    copyAutomations(from, to, first, last);
    for (int kind = 0; kind < DirectionMarkCount; ++kind) {
        const int bar = from.directionSlots()[static_cast<std::size_t>(kind)];
        if (bar >= static_cast<int>(first) && bar <= static_cast<int>(last))
            to.setDirection(kind, bar - static_cast<int>(first));
    }
}

/// A copy of a bar as it is heard where what it repeats is not at hand.
std::shared_ptr<Bar> copyOfBar(const Staff &staff, unsigned bar, unsigned first, unsigned last)
{
    const Bar &original = *staff.bars()[bar];
    const int step = simileStep(staff, static_cast<int>(bar));
    const bool isWhole = original.simileMark() != SimileMark::FirstOfDouble || bar < last;
    const unsigned partner = original.simileMark() == SimileMark::SecondOfDouble ? bar - 1 : bar;
    const bool isKept = !original.isSimile()
        || (isWhole && step > 0 && partner >= first + static_cast<unsigned>(step));
    if (isKept)
        return original.clone();
    auto copy =
        staff.bars()[static_cast<unsigned>(soundingBar(staff, static_cast<int>(bar)))]->clone();
    copy->setSimileMark(SimileMark::None);
    copy->setClef(original.clef());
    copy->setClefChanges(original.clefChanges());
    copy->setOttavia(original.ottavia());
    return copy;
}

/// Where the beats of a voice go in the one bar of a clip.
struct Stream {
    Voice::Beats beats;
    rational end;
};

void appendRests(Stream &stream, const rational &until)
{
    if (!(stream.end < until))
        return;
    std::vector<RhythmValue> rhythms;
    RhythmValue::rhythms(until - stream.end, rhythms);
    for (const RhythmValue &rhythm : rhythms)
        stream.beats.push_back(std::make_shared<Beat>(rhythm));
    stream.end = until;
}

/// What led out of the copied music leads to nothing in the clip.
std::shared_ptr<ScoreModel> withoutBrokenLinks(std::shared_ptr<ScoreModel> model)
{
    for (const auto &track : model->tracks()) {
        for (const auto &staff : track->staves())
            takeBrokenLinksOff(*staff);
        mendBrokenSpans(*track);
    }
    return model;
}

} // namespace

bool Clip::isEmpty() const
{
    return model == nullptr || !model->hasTracks() || !model->masterTrack()->hasMasterBars();
}

Clip copyOfBars(ScoreModel &model, const ScoreModelRange &range)
{
    StavesByTrack tracks;
    unsigned first = 0;
    unsigned last = 0;
    for (RangeBarIterator it(rangeIn(model, range)); it.oneStep();) {
        addStaff(tracks, it.trackIndex(), it.staffIndex());
        first = it.isFirstBar() ? it.barIndex() : first;
        last = it.isLastBar() ? it.barIndex() : last;
    }
    Clip clip;
    if (tracks.empty())
        return clip;
    clip.hasColumns = range.isMultiTrack();
    clip.firstStaff = tracks.size() == 1 ? tracks.begin()->second.first : 0;
    auto copy = std::make_shared<ScoreModel>();
    const MasterTrack &master = *model.masterTrack();
    for (unsigned bar = first; bar <= last; ++bar)
        copy->masterTrack()->addMasterBar(master.masterBars()[bar]->clone());
    copy->masterTrack()->setTempoSettings(master.tempoSettings());
    if (clip.hasColumns)
        copyColumns(master, *copy->masterTrack(), first, last);
    for (const auto &[number, staves] : tracks) {
        const Track &source = *model.tracks()[number];
        const auto track = trackWith(source, staves);
        for (unsigned i = staves.first; i <= staves.last; ++i) {
            const Staff &staff = *source.staves()[i];
            Staff::Bars bars;
            for (unsigned bar = first; bar <= last; ++bar)
                bars.push_back(copyOfBar(staff, bar, first, last));
            track->staves()[i - staves.first]->insertBars(0, std::move(bars));
        }
        if (clip.hasColumns)
            copyAutomations(source.automations(), track->mutableAutomations(), first, last);
        copy->addTrack(track);
    }
    clip.model = withoutBrokenLinks(std::move(copy));
    return clip;
}

Clip copyOfBeats(ScoreModel &model, const ScoreModelRange &range)
{
    const auto spans = beatSpans(model, range);
    Clip clip;
    clip.kind = Clip::Kind::Beats;
    if (spans.empty())
        return clip;
    const auto &masterBars = model.masterTrack()->masterBars();
    unsigned firstBar = spans.front().bar;
    unsigned lastBar = firstBar;
    for (const BeatSpan &span : spans) {
        firstBar = std::min(firstBar, span.bar);
        lastBar = std::max(lastBar, span.bar);
    }
    // As long as the longest of the voices: one that is too long pushes the others on.
    std::vector<rational> starts(lastBar - firstBar + 2);
    for (const BeatSpan &span : spans) {
        auto &length = starts[span.bar - firstBar + 1];
        length = std::max({length, masterBars[span.bar]->length(), voiceOf(model, span)->length()});
    }
    for (std::size_t i = 1; i < starts.size(); ++i) {
        if (starts[i].sign() == 0)
            starts[i] = masterBars[firstBar + static_cast<unsigned>(i) - 1]->length();
        starts[i] += starts[i - 1];
    }
    const auto startOf = [&](const BeatSpan &span) {
        const Voice &voice = *voiceOf(model, span);
        return starts[span.bar - firstBar]
            + voice.beatDrawingOffset(*voice.beats()[span.firstBeat]);
    };
    rational origin = startOf(spans.front());
    for (const BeatSpan &span : spans)
        origin = std::min(origin, startOf(span));

    StavesByTrack tracks;
    std::map<std::array<unsigned, 3>, Stream> streams;
    for (const BeatSpan &span : spans) {
        addStaff(tracks, span.track, span.staff);
        Stream &stream = streams[{span.track, span.staff, span.voice}];
        appendRests(stream, startOf(span) - origin);
        const rational barLength = masterBars[span.bar]->length();
        for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i) {
            auto beat = voiceOf(model, span)->beats()[i]->clone();
            if (beat->isWholeBarRest()) {
                BeatPour pour({barLength + rational(1)}, barLength + rational(1));
                pour.add(beat, barLength);
                for (const auto &rest : pour.bars().front())
                    stream.beats.push_back(rest);
                stream.end += barLength;
                continue;
            }
            stream.end += beat->length();
            stream.beats.push_back(std::move(beat));
        }
    }

    auto copy = std::make_shared<ScoreModel>();
    copy->masterTrack()->addMasterBar(masterBars[firstBar]->clone());
    std::map<unsigned, std::shared_ptr<Track>> copies;
    for (const auto &[number, staves] : tracks) {
        const auto track = trackWith(*model.tracks()[number], staves);
        for (unsigned i = staves.first; i <= staves.last; ++i) {
            auto bar = std::make_shared<Bar>();
            bar->setClef(model.tracks()[number]->staves()[i]->bars()[firstBar]->clef());
            track->staves()[i - staves.first]->insertBars(0, {bar});
        }
        copy->addTrack(track);
        copies[number] = track;
    }
    for (auto &[place, stream] : streams) {
        for (const auto &note : stream.beats.front()->notes())
            note->setTied(false);
        for (const auto &note : stream.beats.back()->notes())
            note->setTieOrigin(false);
        const auto track = copies[place[0]];
        const unsigned staff = place[1] - tracks.at(place[0]).first;
        track->bar(0, staff)->ensureVoice(place[2])->insertBeats(0, std::move(stream.beats));
    }
    clip.firstStaff = tracks.size() == 1 ? tracks.begin()->second.first : 0;
    clip.model = withoutBrokenLinks(std::move(copy));
    return clip;
}

} // namespace zarn
