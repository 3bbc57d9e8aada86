// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Puts an ottava sign over beats. It changes what is drawn, not what the notes are.
class ZARNCORE_EXPORT SetBeatOttavia final : public SetMark<BeatAttribute::Ottavia, Ottavia> {
public:
    SetBeatOttavia();
    ~SetBeatOttavia() override;
};

} // namespace zarn::cmd
