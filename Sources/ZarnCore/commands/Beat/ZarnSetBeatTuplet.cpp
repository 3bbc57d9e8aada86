// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatTuplet.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

namespace {

QString textOf(const RhythmValue::TupletRatio &ratio)
{
    return QStringLiteral("%1/%2").arg(ratio.first).arg(ratio.second);
}

bool isTupletOrNone(const RhythmValue::TupletRatio &ratio) noexcept
{
    const bool isNone = ratio.first == 0 && ratio.second == 0;
    return isNone || (ratio.first > 1 && ratio.second > 1);
}

} // namespace

SetBeatTuplet::SetBeatTuplet() : ChangeRhythm(QStringLiteral("SetBeatTuplet")) { }
SetBeatTuplet::~SetBeatTuplet() = default;

bool SetBeatTuplet::init(Score *score, const ScoreModelRange &range, RhythmValue::TupletRatio outer,
                         RhythmValue::TupletRatio inner)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatTuplet::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Type"), textOf(outer));
    addArg(QStringLiteral("Value"), textOf(inner));
    _outer = outer;
    _inner = inner;
    const bool isNested = inner.first == 0 || outer.first != 0;
    return isTupletOrNone(outer) && isTupletOrNone(inner) && isNested && prepare(score, {range});
}

std::optional<RhythmValue> SetBeatTuplet::changed(const RhythmValue &rhythm) const
{
    RhythmValue tuplet = rhythm;
    tuplet.setPrimaryTupletRatio(_outer);
    tuplet.setSecondaryTupletRatio(_inner);
    return tuplet;
}

} // namespace zarn::cmd
