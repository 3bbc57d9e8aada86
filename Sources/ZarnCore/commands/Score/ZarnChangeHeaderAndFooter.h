// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/layout/ZarnHeaderAndFooter.h>

#include <string>

namespace zarn::cmd {

/// Sets a header or footer text, with words such as "%Title%" in it. Sends
/// `HeaderAndFooterChanged`.
class ZARNCORE_EXPORT ChangeHeaderAndFooter final : public ScoreCommand {
public:
    ChangeHeaderAndFooter();
    ~ChangeHeaderAndFooter() override;

    /// False for an unknown part of the page.
    bool init(Score *score, HeaderAndFooter part, const QString &text);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    HeaderAndFooter _part = HeaderAndFooter::HeaderLeft;
    std::string _text;
    std::string _before;
};

} // namespace zarn::cmd
