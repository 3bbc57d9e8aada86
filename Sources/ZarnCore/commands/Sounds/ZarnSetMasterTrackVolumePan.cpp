// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ZarnSetMasterTrackVolumePan.h>

namespace zarn::cmd {

SetMasterTrackVolumePan::SetMasterTrackVolumePan()
    : SetAttribute(QStringLiteral("SetMasterTrackVolumePan"))
{
}
SetMasterTrackVolumePan::~SetMasterTrackVolumePan() = default;

bool SetMasterTrackVolumePan::init(Score *score, const ZarnVolumePan &volumePan)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterTrackVolumePan::init", score != NULL);
    addArg(QStringLiteral("Volume"), QString::number(static_cast<double>(volumePan.volume())));
    addArg(QStringLiteral("Pan"), QString::number(static_cast<double>(volumePan.pan())));
    return prepare(score, {}, volumePan);
}

} // namespace zarn::cmd
