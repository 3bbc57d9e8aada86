// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Score/ZarnChangeView.h>

namespace zarn::cmd {

/// Has a view draw runs of empty bars as one, or each of them by itself. Sends
/// `ScoreViewMultiRest`.
class ZARNCORE_EXPORT SetMultiRest final : public ChangeView {
public:
    SetMultiRest();
    ~SetMultiRest() override;

    /// False for a view that is not there.
    bool init(Score *score, unsigned view, bool checked);

private:
    void change(ScoreView &view) const override;
    void announce(const ScoreView &now) override;

    bool _isChecked = false;
};

} // namespace zarn::cmd
