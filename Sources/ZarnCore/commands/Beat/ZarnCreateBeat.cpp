// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnCreateBeat.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn::cmd {

CreateBeat::CreateBeat() : PlacingCommand(QStringLiteral("CreateBeat"), Kind::Inserts) { }
CreateBeat::~CreateBeat() = default;

bool CreateBeat::init(Score *score, const ScoreModelIndex &index, const RhythmValue &rhythm)
{
    ZARN_ASSERT_IN("zarn::cmd::CreateBeat::init", score != NULL);
    addArg(QStringLiteral("StageIndex"), index.toQString());
    addArg(QStringLiteral("Type"), rhythm.toQString());
    if (index.trackIndex() < 0 || index.barIndex() < 0 || index.beatIndex() < 0)
        return false;
    setScore(score);
    _place.track = static_cast<unsigned>(index.trackIndex());
    _place.staff = index.staffIndex();
    _place.bar = static_cast<unsigned>(index.barIndex());
    _place.voice = index.voiceIndex();
    _place.firstBeat = _place.lastBeat = static_cast<unsigned>(index.beatIndex());
    _beat = std::make_shared<Beat>(rhythm);
    _voice = std::make_shared<Voice>();
    return _place.voice < Bar::MaxVoices && SetBeatRhythm::isWritable(rhythm)
        && expectPlace([this] { return isPossible(); });
}

bool CreateBeat::isPossible() const
{
    if (barOf(model(), _place) == nullptr)
        return false;
    const Voice *const voice = voiceOf(model(), _place);
    return _place.firstBeat <= (voice != nullptr ? voice->beatCount() : 0);
}

void CreateBeat::putIn()
{
    requirePlace(isPossible());
    _needsVoice = voiceOf(model(), _place) == nullptr;
    if (_needsVoice) {
        barOf(model(), _place)->setVoice(_place.voice, _voice);
        _voice.reset();
    }
    Voice &voice = *voiceOf(model(), _place);
    keepSpans(_place.track, _place.staff, _place.bar, _place.bar);
    _links.emplace(voice, _place.firstBeat, _place.firstBeat);
    voice.insertBeat(_place.firstBeat, _beat, LinkMode::Mend);
    _beat.reset();
    _touched.clear();
    _touched.add(_place.track, _place.staff, _place.bar, _place.bar);
    _links->settle(_place, _touched);
}

void CreateBeat::takeOut()
{
    Voice &voice = *voiceOf(model(), _place);
    _beat = voice.removeBeat(_place.firstBeat);
    _links->putBack(voice);
    if (_needsVoice) {
        _voice = barOf(model(), _place)->voice(_place.voice);
        barOf(model(), _place)->setVoice(_place.voice, nullptr);
    }
}

void CreateBeat::announceIn()
{
    _touched.announce(score(), this);
}

void CreateBeat::announceOut()
{
    announceIn();
}

} // namespace zarn::cmd
