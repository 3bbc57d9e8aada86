// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnPassageAssistant.h>

namespace zarn::cmd {

/// Lets a passage ring: every note on one of the chosen strings whose string the next beat of its
/// voice does not strike again. The other notes on these strings do not ring afterwards, and dead
/// notes never do. Palm muting goes where a note rings.
class ZARNCORE_EXPORT LetRingAssistant final : public PassageAssistant {
public:
    LetRingAssistant();
    ~LetRingAssistant() override;

private:
    bool isFit(const Beat &beat, const Note &note) const override;
};

} // namespace zarn::cmd
