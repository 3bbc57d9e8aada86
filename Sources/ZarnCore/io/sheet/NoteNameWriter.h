// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/SoundingPitch.h>
#include <ZarnCore/io/sheet/StaffWriter.h>

#include <vector>

namespace zarn {

class Staff;

namespace sheet {

/// A pitched staff as note names under their rhythm, each voice in rows of its own, the notes of
/// a chord below each other.
class NoteNameWriter final : public StaffWriter {
public:
    NoteNameWriter(Sheet &sheet, const Staff &staff, const QString &name, const Glyphs &glyphs,
                   Legend &legend);

private:
    void writeNotes(const BeatPlace &place, SheetBar &into) override;
    void writeDeadSlap(const BeatPlace &place, SheetBar &into) override;
    void beginBar(const Bar &bar) override;

    std::array<int, Bar::MaxVoices> _topLanes = {};
    SoundingPitch _pitch;
};

} // namespace sheet
} // namespace zarn
