// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>
#include <ZarnCore/music/ZarnKeySignature.h>

namespace zarn::cmd {

/// Sets the key signature of bars, at concert pitch. Notes keep their pitches.
class ZARNCORE_EXPORT SetMasterKeySignature final
    : public SetOnMasterBars<&MasterBar::concertKeySignature, &MasterBar::setConcertKeySignature,
                             evt::MasterBarKeySignature> {
public:
    SetMasterKeySignature();
    ~SetMasterKeySignature() override;

    /// The bars `first` to `last`. False for bars that are not there.
    bool init(Score *score, unsigned first, unsigned last, const KeySignature &signature);
};

} // namespace zarn::cmd
