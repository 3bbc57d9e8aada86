// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnWriteBeats.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/model/ZarnScoreModel.h>
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

WriteBeats::WriteBeats() : ReplaceBeats(QStringLiteral("WriteBeats")) { }
WriteBeats::~WriteBeats() = default;

bool WriteBeats::init(Score *score, unsigned track, unsigned staff,
                      std::vector<WrittenStretch> stretches)
{
    ZARN_ASSERT_IN("zarn::cmd::WriteBeats::init", score != NULL);
    addArg(QStringLiteral("Track"), QString::number(track));
    addArg(QStringLiteral("Staff"), QString::number(staff));
    addArg(QStringLiteral("Count"), QString::number(stretches.size()));
    std::set<std::pair<unsigned, unsigned>> voices;
    for (WrittenStretch &stretch : stretches) {
        if (!isWritable(stretch.beats) || stretch.voice >= Bar::MaxVoices
            || !voices.emplace(stretch.bar, stretch.voice).second)
            return false;
        Replacement replacement;
        replacement.place = {track,
                             staff,
                             stretch.bar,
                             stretch.voice,
                             stretch.firstBeat,
                             stretch.firstBeat + stretch.replacedCount - 1};
        replacement.count = stretch.replacedCount;
        replacement.beats = std::move(stretch.beats);
        replacement.bringsTies = true;
        _stretches.push_back(std::move(replacement));
    }
    return !_stretches.empty() && prepare(score);
}

bool WriteBeats::isPossible() const
{
    return std::all_of(_stretches.begin(), _stretches.end(),
                       [this](const Replacement &stretch) { return isPossible(stretch); });
}

bool WriteBeats::isPossible(const Replacement &stretch) const
{
    if (barOf(model(), stretch.place) == nullptr)
        return false;
    const Voice *const voice = voiceOf(model(), stretch.place);
    const unsigned count = voice != nullptr ? voice->beatCount() : 0;
    return stretch.place.firstBeat <= count && stretch.count <= count - stretch.place.firstBeat;
}

WriteBeats::Replacements WriteBeats::replacements() const
{
    return _stretches;
}

} // namespace zarn::cmd
