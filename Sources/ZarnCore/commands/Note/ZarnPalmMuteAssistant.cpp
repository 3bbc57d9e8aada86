// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnPalmMuteAssistant.h>

#include <algorithm>

namespace zarn::cmd {

PalmMuteAssistant::PalmMuteAssistant()
    : PassageAssistant("zarn::cmd::PalmMuteAssistant::init", QStringLiteral("PalmMuteAssistant"),
                       NoteAttribute::PalmMute)
{
}
PalmMuteAssistant::~PalmMuteAssistant() = default;

bool PalmMuteAssistant::isFit(const Beat &beat, const Note &) const
{
    const auto &notes = beat.notes();
    return std::all_of(notes.begin(), notes.end(),
                       [this](const auto &note) { return isChosen(*note); });
}

} // namespace zarn::cmd
