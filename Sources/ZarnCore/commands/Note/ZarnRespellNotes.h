// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnMoveNotes.h>
#include <ZarnCore/music/ZarnPitch.h>

namespace zarn {

/// Base of commands that start from how notes are spelled: as they say or, where they do not, as
/// the key signature of their bar does.
class ZARNCORE_EXPORT RespellNotes : public MoveNotes {
protected:
    explicit RespellNotes(const QString &name);
    ~RespellNotes() override;

    /// How a note is written, octave and all; its pitch is known.
    core::Pitch written(const Note &note) const;

    bool takes(const MarkedPlace &place, const Note &note) const final;

private:
    void enterBar(const Bar &bar) final;

    int _keyAccidentals = 0; ///< of the bar at hand
};

} // namespace zarn
