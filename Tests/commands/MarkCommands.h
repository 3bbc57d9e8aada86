// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScore.h>

#include <variant>
#include <vector>

/// A command that sets one attribute of beats or notes, and what the general one is told to do the
/// same.
struct MarkCommand {
    const char *name;
    bool (*act)(zarn::Score &score, const zarn::ScoreModelRange &range);
    std::variant<zarn::BeatAttribute, zarn::NoteAttribute> id;
    zarn::AttributeValue value;

    bool actByTable(zarn::Score &score, const zarn::ScoreModelRange &range) const
    {
        if (const auto *const beatId = std::get_if<zarn::BeatAttribute>(&id))
            return score.setBeatAttribute(range, *beatId, value);
        return score.setNoteAttribute(range, std::get<zarn::NoteAttribute>(id), value);
    }
};

const std::vector<MarkCommand> &markCommands();
