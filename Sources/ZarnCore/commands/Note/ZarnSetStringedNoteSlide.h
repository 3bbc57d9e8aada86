// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

#include <optional>

namespace zarn::cmd {

/// Slides into notes and out of them. A slide that has an aim leads to the next note of the string;
/// a legato slide takes a hammer-on or pull-off off.
class ZARNCORE_EXPORT SetStringedNoteSlide final : public SetByTable<Note> {
public:
    SetStringedNoteSlide();
    ~SetStringedNoteSlide() override;

    /// What is not given stays as it is. False when nothing is given, and when no note of the range
    /// is fretted and, for a slide that has an aim, has a next one with another fret.
    bool init(Score *score, const ScoreModelRange &range, std::optional<SlideIn> in,
              std::optional<SlideOut> out);

private:
    bool takes(const MarkedPlace &place, const Beat &beat, const Note &note) const override;
    void change(const MarkedPlace &place, Beat &beat, Note &note) override;
    static bool isTaken(const Given &given, const MarkedPlace &place, const Beat &beat,
                        const Note &note);
};

} // namespace zarn::cmd
