// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatDynamic.h>

namespace zarn::cmd {

SetBeatDynamic::SetBeatDynamic() : SetAttribute(QStringLiteral("SetBeatDynamic")) { }
SetBeatDynamic::~SetBeatDynamic() = default;

bool SetBeatDynamic::init(Score *score, const ScoreModelRange &range, NoteDynamic dynamic)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatDynamic::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Type"), QString::number(static_cast<int>(dynamic.value())));
    return dynamic.value() <= NoteDynamic::Value::FFFFFFF && prepare(score, {range}, dynamic);
}

} // namespace zarn::cmd
