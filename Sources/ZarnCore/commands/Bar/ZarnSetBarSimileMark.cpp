// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnSetBarSimileMark.h>

namespace zarn::cmd {

SetBarSimileMark::SetBarSimileMark() : SetBarsByTable(QStringLiteral("SetBarSimileMark")) { }
SetBarSimileMark::~SetBarSimileMark() = default;

bool SetBarSimileMark::init(Score *score, unsigned track, unsigned staff, unsigned first,
                            unsigned last, SimileMark mark)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarSimileMark::init", score != NULL);
    return prepare(score, track, staff, first, last, {{BarAttribute::SimileMark, mark}});
}

} // namespace zarn::cmd
