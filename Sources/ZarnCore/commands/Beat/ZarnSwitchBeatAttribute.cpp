// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSwitchBeatAttribute.h>

#include <ZarnCore/commands/NotePlaces.h>

namespace zarn::cmd {

SwitchBeatAttribute::SwitchBeatAttribute() : SetByTable(QStringLiteral("SwitchBeatAttribute")) { }
SwitchBeatAttribute::~SwitchBeatAttribute() = default;

bool SwitchBeatAttribute::init(Score *score, const ScoreModelRange &range, BeatAttribute id)
{
    ZARN_ASSERT_IN("zarn::cmd::SwitchBeatAttribute::init", score != NULL);
    return isAttribute(id) && prepare(score, range, {{id, true}}, Recorded::NamesAndValues);
}

void SwitchBeatAttribute::begin(ScoreModel &model)
{
    setGiven(0, true);
    bool isOnEverywhere = true;
    visitBeats(model, range(), [&](const MarkedPlace &place, const Beat &beat) {
        if (takes(place, beat, beat))
            isOnEverywhere = given()[0].row->get(beat) == AttributeValue(true);
        return isOnEverywhere;
    });
    setGiven(0, !isOnEverywhere);
}

} // namespace zarn::cmd
