// SPDX-License-Identifier: MIT
#pragma once

#include "actions/Action.h"
#include "dialogs/Form.h"

#include <QVariant>

#include <optional>

namespace zarn {
class Score;
}

namespace zarn::editor {

/// An action that changes the score in one step, named after it; where that is not possible, the
/// status line says so. Its keys, in the words of shortcuts and parted by "; ", count on the pages.
Action scoreStep(const char *id, const QString &text, const char *keys,
                 std::function<bool(const ActionContext &, Score &)> change);

/// A change of the score; nothing when the user was asked and did not want it after all.
using Change = std::function<bool(Score &)>;

/// The same for an action that first asks by a dialog. Then comes the step.
Action askedStep(const char *id, const QString &text, const char *keys,
                 std::function<Change(const ActionContext &)> ask);

/// Asks for a number first, from `present` on.
Action numberStep(const char *id, const QString &text, const QString &label, int least, int most,
                  std::function<int(const ActionContext &)> present,
                  std::function<bool(const ActionContext &, Score &, int)> set);

/// The answers to a form; none when it is taken back.
std::optional<QVariantMap> ask(const ActionContext &context, const Form &form);

/// "&Palm mute..." as "Palm mute".
QString plainText(QString text);

} // namespace zarn::editor
