// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnSetBeatFreeText.h>

namespace zarn::cmd {

SetBeatFreeText::SetBeatFreeText() : SetByTable(QStringLiteral("SetBeatFreeText")) { }
SetBeatFreeText::~SetBeatFreeText() = default;

bool SetBeatFreeText::init(Score *score, const ScoreModelRange &range, const QString &text)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBeatFreeText::init", score != NULL);
    return prepare(score, range, {{BeatAttribute::Text, text.toStdString()}});
}

} // namespace zarn::cmd
