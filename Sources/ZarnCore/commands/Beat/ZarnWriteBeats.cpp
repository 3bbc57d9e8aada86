// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnWriteBeats.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <set>

namespace zarn::cmd {

namespace {

bool isWritable(const std::vector<std::shared_ptr<Beat>> &beats)
{
    return !beats.empty()
        && std::all_of(beats.begin(), beats.end(), [](const std::shared_ptr<Beat> &beat) {
               return beat != nullptr && beat->parentVoice() == nullptr
                   && SetBeatRhythm::isWritable(beat->rhythmValue());
           });
}

} // namespace

WriteBeats::WriteBeats() : ScoreCommand(QStringLiteral("WriteBeats")) { }
WriteBeats::~WriteBeats() = default;

bool WriteBeats::init(Score *score, unsigned track, unsigned staff,
                      std::vector<WrittenStretch> stretches)
{
    ZARN_ASSERT_IN("zarn::cmd::WriteBeats::init", score != NULL);
    addArg(QStringLiteral("Track"), QString::number(track));
    addArg(QStringLiteral("Staff"), QString::number(staff));
    addArg(QStringLiteral("Count"), QString::number(stretches.size()));
    setScore(score);
    std::set<std::pair<unsigned, unsigned>> voices;
    for (WrittenStretch &stretch : stretches) {
        if (!isWritable(stretch.beats) || stretch.voice >= Bar::MaxVoices
            || !voices.emplace(stretch.bar, stretch.voice).second)
            return false;
        Place place;
        place.span.track = track;
        place.span.staff = staff;
        place.span.bar = stretch.bar;
        place.span.voice = stretch.voice;
        place.span.firstBeat = stretch.firstBeat;
        place.span.lastBeat = stretch.firstBeat + stretch.replacedCount - 1;
        place.replacedCount = stretch.replacedCount;
        place.writtenCount = static_cast<unsigned>(stretch.beats.size());
        place.written = std::move(stretch.beats);
        place.voice = std::make_shared<Voice>();
        _places.push_back(std::move(place));
    }
    return !_places.empty() && expectPlace([this] { return arePossible(); });
}

bool WriteBeats::arePossible() const
{
    return std::all_of(_places.begin(), _places.end(),
                       [this](const Place &place) { return isPossible(place); });
}

bool WriteBeats::isPossible(const Place &place) const
{
    if (barOf(model(), place.span) == nullptr)
        return false;
    const Voice *const voice = voiceOf(model(), place.span);
    const unsigned count = voice != nullptr ? voice->beatCount() : 0;
    return place.span.firstBeat <= count && place.replacedCount <= count - place.span.firstBeat;
}

Voice &WriteBeats::voiceAt(Place &place) const
{
    place.needsVoice = voiceOf(model(), place.span) == nullptr;
    if (place.needsVoice)
        barOf(model(), place.span)->setVoice(place.span.voice, std::move(place.voice));
    return *voiceOf(model(), place.span);
}

void WriteBeats::apply()
{
    requirePlace(arePossible());
    _links.clear();
    _touched.clear();
    for (Place &place : _places) {
        const Voice &voice = voiceAt(place);
        const unsigned first = place.span.firstBeat;
        _links.emplace_back(voice, first, first + place.replacedCount);
        _touched.add(place.span.track, place.span.staff, place.span.bar, place.span.bar);
    }
    for (Place &place : _places) {
        Voice &voice = *voiceOf(model(), place.span);
        if (place.replacedCount != 0)
            place.replaced =
                voice.takeBeats(place.span.firstBeat, place.span.lastBeat, LinkMode::Mend);
        else
            mendTies(voice, place.span.firstBeat, place.span.firstBeat);
    }
    // Only now: mending a neighbouring bar would undo ties of what was written already.
    for (Place &place : _places)
        voiceOf(model(), place.span)->insertBeats(place.span.firstBeat, std::move(place.written));
    for (const Place &place : _places) {
        Voice &voice = *voiceOf(model(), place.span);
        const unsigned first = place.span.firstBeat;
        carryOver(voice, first, first + place.writtenCount);
        mendThroughout(voice, first, first + place.writtenCount);
    }
    for (std::size_t i = 0; i < _places.size(); ++i) {
        const Place &place = _places[i];
        _links[i].cutSlurs(*voiceOf(model(), place.span),
                           place.span.firstBeat + place.writtenCount);
        _links[i].settle(place.span, _touched);
    }
}

void WriteBeats::revert()
{
    for (auto place = _places.rbegin(); place != _places.rend(); ++place) {
        Voice &voice = *voiceOf(model(), place->span);
        const unsigned first = place->span.firstBeat;
        place->written = voice.takeBeats(first, first + place->writtenCount - 1);
        if (place->replacedCount != 0)
            voice.insertBeats(first, std::move(place->replaced));
    }
    for (std::size_t i = _places.size(); i-- > 0;)
        _links[i].putBack(*voiceOf(model(), _places[i].span));
    for (Place &place : _places) {
        if (!place.needsVoice)
            continue;
        const Bar &bar = *barOf(model(), place.span);
        place.voice = bar.voices()[place.span.voice];
        barOf(model(), place.span)->setVoice(place.span.voice, nullptr);
    }
}

void WriteBeats::announceApplied()
{
    _touched.announce(score(), this);
}

void WriteBeats::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
