// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>

#include <map>
#include <string>

namespace zarn {

/// Base of commands that set text properties of the score.
class ZARNCORE_EXPORT ModifyProperties : public ScoreCommand {
protected:
    using Properties = std::map<ScoreProperty, std::string>;

    using ScoreCommand::ScoreCommand;
    ~ModifyProperties() override;

    /// False for no properties, and for one that is unknown.
    bool prepare(Score *score, Properties properties);

private:
    void apply() override;
    void revert() override;
    void write(const Properties &properties);

    Properties _properties;
    Properties _before;
};

} // namespace zarn
