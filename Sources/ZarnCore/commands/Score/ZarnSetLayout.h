// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Score/ZarnChangeView.h>

namespace zarn::cmd {

/// Says how a view lays the music out: on pages, on one endless sheet, or in one line. Sends
/// `ScoreViewLayoutChanged`.
class ZARNCORE_EXPORT SetLayout final : public ChangeView {
public:
    SetLayout();
    ~SetLayout() override;

    /// False for a view that is not there, and for an unknown layout.
    bool init(Score *score, unsigned view, ViewLayout layout);

private:
    void change(ScoreView &view) const override;
    void announce(const ScoreView &now) override;

    ViewLayout _layout = ViewLayout::Pages;
};

} // namespace zarn::cmd
