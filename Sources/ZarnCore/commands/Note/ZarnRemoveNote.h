// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Note/ZarnWriteNote.h>

namespace zarn::cmd {

/// Takes one note off a beat; what it was tied to is let go. A beat without further notes is a
/// rest.
class ZARNCORE_EXPORT RemoveNote final : public WriteNote {
public:
    RemoveNote();
    ~RemoveNote() override;

    /// The note that the index names by its string, key or element. False when it is not there.
    bool init(Score *score, const ScoreModelIndex &index);

private:
    std::optional<Placement> placement(const Staff &staff, const Beat &beat) const override;
};

} // namespace zarn::cmd
