// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/KeptJoints.h>

#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>

namespace zarn {

namespace {

Voice *voiceAt(const ScoreModel &model, const KeptBeats::Place &place)
{
    return voiceOf(model, BeatSpan{place.track, place.staff, place.bar, place.voice, 0, 0});
}

} // namespace

void KeptJoints::add(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar,
                     unsigned voice, unsigned beat)
{
    Place place{track, staff, bar, voice, beat};
    const Voice *node = voiceAt(model, place);
    if (node == nullptr && bar > 0) {
        --place.bar;
        node = voiceAt(model, place);
        if (node != nullptr)
            place.beat = node->beatCount();
    }
    if (node == nullptr)
        return;
    place.beat = std::min(place.beat, node->beatCount());
    keepAround(*node, place.beat, place.beat, _kept, track);
    _joints.push_back(place);
}

void KeptJoints::addBarLine(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar)
{
    if (bar == 0 || bar >= model.masterTrack()->masterBarCount())
        return;
    for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
        add(model, track, staff, bar, voice, 0);
}

void KeptJoints::addNew(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar,
                        unsigned voice, unsigned beat, unsigned end)
{
    const Place place{track, staff, bar, voice, beat};
    if (voiceAt(model, place) != nullptr)
        _new.emplace_back(place, end);
}

void KeptJoints::mend(const ScoreModel &model, TouchedBars &touched)
{
    for (const Place &joint : _joints)
        mendLinks(*voiceAt(model, joint), joint.beat, joint.beat);
    for (const auto &[first, end] : _new) {
        Voice &voice = *voiceAt(model, first);
        mendTiesThroughout(voice, first.beat, end);
        mendThroughout(voice, first.beat, end);
    }
    _kept.settle();
    for (const Place &place : _kept.changed())
        touched.add(place.track, place.staff, place.bar, place.bar);
}

void KeptJoints::putBack(const ScoreModel &model) const
{
    _kept.putBack([&model](const Place &place) -> Beat * {
        const Voice *const voice = voiceAt(model, place);
        return voice != nullptr && place.beat < voice->beatCount()
            ? voice->beats()[place.beat].get()
            : nullptr;
    });
}

} // namespace zarn
