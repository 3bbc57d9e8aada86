// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarBeamGroups.h>

namespace zarn::cmd {

SetMasterBarBeamGroups::SetMasterBarBeamGroups()
    : SetMasterBarsByTable(QStringLiteral("SetMasterBarBeamGroups"))
{
}
SetMasterBarBeamGroups::~SetMasterBarBeamGroups() = default;

bool SetMasterBarBeamGroups::init(Score *score, unsigned first, unsigned last,
                                  const BeamGroups &groups)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterBarBeamGroups::init", score != NULL);
    return prepare(score, first, last, {{MasterBarAttribute::BeamGroups, groups}});
}

} // namespace zarn::cmd
