// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnPassageAssistant.h>

namespace zarn::cmd {

/// Mutes a passage with the palm: the notes on the chosen strings in beats that sound no other
/// string, as the low strings between chords are played. The other notes on these strings are not
/// muted afterwards. Let ring goes where a note is muted.
class ZARNCORE_EXPORT PalmMuteAssistant final : public PassageAssistant {
public:
    PalmMuteAssistant();
    ~PalmMuteAssistant() override;

private:
    bool isFit(const Beat &beat, const Note &note) const override;
};

} // namespace zarn::cmd
