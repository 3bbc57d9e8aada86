// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ContentSwap.h>

#include <ZarnCore/commands/MasterBar/AnnounceMasterBars.h>
#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <unordered_map>

namespace zarn {

namespace {

Bar *findBar(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar)
{
    return barOf(model, BeatSpan{track, staff, bar, 0, 0, 0});
}

/// A bar that is there.
Bar &barAt(const ScoreModel &model, const std::tuple<unsigned, unsigned, unsigned> &place)
{
    return *findBar(model, std::get<0>(place), std::get<1>(place), std::get<2>(place));
}

} // namespace

/// Places mostly come in their order.
ContentSwap::Content &ContentSwap::contentOf(const VoicePlace &place)
{
    return _voices.try_emplace(_voices.end(), place)->second;
}

void ContentSwap::setBeats(const VoicePlace &place, Beats beats, Joints joints)
{
    Content &content = contentOf(place);
    content.beats = std::move(beats);
    content.hasSlot = true;
    content.joints = joints;
}

void ContentSwap::dropVoice(const VoicePlace &place)
{
    Content &content = contentOf(place);
    content.beats.clear();
    content.hasSlot = false;
    content.joints = Joints::Found;
}

const ContentSwap::Beats *ContentSwap::beatsAt(const VoicePlace &place) const
{
    const auto found = _voices.find(place);
    return found != _voices.end() ? &found->second.beats : nullptr;
}

void ContentSwap::setSimileMark(unsigned track, unsigned staff, unsigned bar, SimileMark mark)
{
    _similes[BarPlace(track, staff, bar)] = mark;
}

void ContentSwap::setClefs(unsigned track, unsigned staff, unsigned bar, ClefType clef,
                           std::vector<ClefChange> changes)
{
    _clefs[BarPlace(track, staff, bar)] = Clefs{clef, std::move(changes)};
}

void ContentSwap::setFermatas(unsigned bar, FermataMarks marks)
{
    _fermatas[bar] = std::move(marks);
}

void ContentSwap::addJoint(const VoicePlace &place, unsigned beat)
{
    _jointPlaces.emplace_back(place, beat);
}

void ContentSwap::addNewBeats(const VoicePlace &place, unsigned first, unsigned end)
{
    _newBeats.emplace_back(place, std::make_pair(first, end));
}

void ContentSwap::addBarLine(unsigned track, unsigned staff, unsigned bar)
{
    _barLines.emplace_back(track, staff, bar);
}

void ContentSwap::holdOver(const VoicePlace &place, std::vector<unsigned> notes)
{
    _heldOver[place] = std::move(notes);
}

void ContentSwap::tieOver(const ScoreModel &model) const
{
    for (const auto &[place, numbers] : _heldOver) {
        const Voice &voice =
            *voiceOf(model, BeatSpan{place.track, place.staff, place.bar, place.voice, 0, 0});
        const auto front = beatInFrontOfJoint(voice, 0);
        for (const unsigned number : numbers) {
            Note &held = *voice.beats().front()->notes()[number];
            for (unsigned i = 0; front != nullptr && i < front->noteCount(); ++i) {
                if (!sameLocation(*front->notes()[i], held))
                    continue;
                front->notes()[i]->setTieOrigin(true);
                held.setTied(true);
            }
        }
    }
}

bool ContentSwap::isEmpty() const noexcept
{
    return _voices.empty() && _similes.empty() && _clefs.empty() && _fermatas.empty();
}

bool ContentSwap::fits(const ScoreModel &model) const
{
    const auto isThere = [&model](const auto &entry) {
        const auto &[track, staff, bar] = entry.first;
        return findBar(model, track, staff, bar) != nullptr;
    };
    return std::all_of(_voices.begin(), _voices.end(),
                       [&](const auto &entry) {
                           const VoicePlace &place = entry.first;
                           return findBar(model, place.track, place.staff, place.bar) != nullptr
                               && place.voice < Bar::MaxVoices;
                       })
        && std::all_of(_similes.begin(), _similes.end(), isThere)
        && std::all_of(_clefs.begin(), _clefs.end(), isThere)
        && (_fermatas.empty() || model.masterTrack()->hasMasterBarIndex(_fermatas.rbegin()->first));
}

// All of the old beats go out before any goes in: one may only have changed its place.
void ContentSwap::exchange(ScoreModel &model, const BeforeBar &beforeBar)
{
    struct Taken {
        Bar *bar;
        Beats beats;
    };
    std::vector<Taken> taken;
    taken.reserve(_voices.size());
    for (const auto &entry : _voices) {
        const VoicePlace &place = entry.first;
        Bar *const bar = findBar(model, place.track, place.staff, place.bar);
        if (beforeBar && (taken.empty() || taken.back().bar != bar))
            beforeBar(place.track, place.staff, place.bar);
        taken.push_back({bar, {}});
        const auto &voice = taken.back().bar->voices()[place.voice];
        if (voice != nullptr && !voice->isEmpty())
            taken.back().beats = voice->takeBeats(0, voice->beatCount() - 1);
    }
    std::size_t number = 0;
    for (auto &[place, content] : _voices) {
        Bar &bar = *taken[number].bar;
        const std::shared_ptr<Voice> voice = bar.voices()[place.voice];
        const bool hadSlot = voice != nullptr;
        if (content.hasSlot && !hadSlot) {
            bar.setVoice(place.voice,
                         content.voice != nullptr ? content.voice : std::make_shared<Voice>());
            content.voice.reset();
        } else if (!content.hasSlot && hadSlot) {
            content.voice = voice;
            bar.setVoice(place.voice, nullptr);
        }
        if (content.hasSlot && !content.beats.empty())
            bar.voices()[place.voice]->insertBeats(0, std::move(content.beats));
        content.beats = std::move(taken[number++].beats);
        content.hasSlot = hadSlot;
    }
    for (auto &[place, mark] : _similes) {
        Bar &bar = barAt(model, place);
        const SimileMark before = bar.simileMark();
        bar.setSimileMark(mark);
        mark = before;
    }
    for (auto &[place, clefs] : _clefs) {
        Bar &bar = barAt(model, place);
        Clefs before{bar.clef(), bar.clefChanges()};
        bar.setClef(clefs.clef);
        bar.setClefChanges(std::move(clefs.changes));
        clefs = std::move(before);
    }
    for (auto &[bar, marks] : _fermatas) {
        MasterBar &master = *model.masterTrack()->masterBars()[bar];
        FermataMarks before = master.fermatas();
        master.setFermatas(marks);
        marks = std::move(before);
    }
}

void ContentSwap::collectTouched(const ScoreModel &model)
{
    _touched.clear();
    if (_allTracks)
        _touched.addAllTracks(_allTracks->first, _allTracks->second);
    for (const auto &entry : _voices)
        _touched.add(entry.first.track, entry.first.staff, entry.first.bar, entry.first.bar);
    for (const auto &[place, mark] : _similes)
        if (barAt(model, place).simileMark() != mark)
            _touched.addSimile(std::get<0>(place), std::get<1>(place), std::get<2>(place));
    _changedClefs.clear();
    for (const auto &[place, clefs] : _clefs) {
        const Bar &bar = barAt(model, place);
        if (bar.clef() != clefs.clef || bar.clefChanges() != clefs.changes)
            _changedClefs.push_back(place);
    }
}

/// Joints where beats meet that were not neighbours, and those at ends that are others now.
void ContentSwap::addChangedJoints(const ScoreModel &model)
{
    for (const auto &[place, content] : _voices) {
        if (content.joints == Joints::Named)
            continue;
        const Voice *const voice =
            voiceOf(model, BeatSpan{place.track, place.staff, place.bar, place.voice, 0, 0});
        std::unordered_map<const Beat *, std::size_t> before;
        for (const auto &beat : content.beats)
            before.emplace(beat.get(), before.size() + 1);
        // Numbers from 1; 0 in front of them, and one more behind.
        const auto numberOf = [&before](const Beat &beat) {
            const auto found = before.find(&beat);
            return found != before.end() ? found->second : before.size() + 2;
        };
        const unsigned count = voice != nullptr ? voice->beatCount() : 0;
        std::size_t left = 0;
        for (unsigned i = 0; i <= count; ++i) {
            const std::size_t right = i < count ? numberOf(*voice->beats()[i]) : before.size() + 1;
            const bool areNeighbours = right == left + 1 && right <= before.size() + 1;
            if (!areNeighbours)
                _joints.add(model, place.track, place.staff, place.bar, place.voice, i);
            left = right;
        }
        if (voice == nullptr)
            _joints.add(model, place.track, place.staff, place.bar + 1, place.voice, 0);
    }
}

void ContentSwap::apply(ScoreModel &model, const BeforeBar &beforeBar)
{
    exchange(model, beforeBar);
    collectTouched(model);
    _joints = {};
    addChangedJoints(model);
    for (const auto &[place, beat] : _jointPlaces)
        _joints.add(model, place.track, place.staff, place.bar, place.voice, beat);
    for (const auto &[place, stretch] : _newBeats)
        _joints.addNew(model, place.track, place.staff, place.bar, place.voice, stretch.first,
                       stretch.second);
    for (const auto &[track, staff, bar] : _barLines)
        _joints.addBarLine(model, track, staff, bar);
    tieOver(model);
    _joints.mend(model, _touched);
}

void ContentSwap::revert(ScoreModel &model)
{
    _joints.putBack(model);
    exchange(model, nullptr);
}

void ContentSwap::announce(ScoreBase &score, const void *sender) const
{
    _touched.announce(score, sender);
    for (const auto &[track, staff, bar] : _changedClefs)
        score.notify(sender,
                     evt::TrackClefChanged(static_cast<int>(track), static_cast<int>(staff),
                                           static_cast<int>(bar), static_cast<int>(bar)));
    if (!_fermatas.empty())
        announceMasterBars(score, sender, evt::MasterBarFermata::TypeNumber,
                           _fermatas.begin()->first, _fermatas.rbegin()->first);
}

} // namespace zarn
