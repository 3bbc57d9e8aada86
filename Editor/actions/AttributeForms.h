// SPDX-License-Identifier: MIT
#pragma once

#include "actions/ScoreStep.h"
#include "document/Attributes.h"

#include <ZarnCore/model/ZarnAttribute.h>

/// What is asked before beats, notes and bars are marked with what is more than on or off.
namespace zarn::editor {

/// Whether an action of its own asks for it, one that menus have in another place.
bool hasOwnForm(BeatAttribute id);
bool hasOwnForm(NoteAttribute id);
bool hasOwnForm(BarAttribute id);
bool hasOwnForm(MasterBarAttribute id);

/// Asks for the value of an attribute in fields that suit its kind; the change gives it to what is
/// selected.
template <class Node>
Change askAttribute(const ActionContext &context, typename AttributeOf<Node>::Id id);

/// How a value is shown that is no text of a table: passes as "1, 2", barres as "½ 5".
QString valueText(const AttributeRange &range, const AttributeValue &value);

} // namespace zarn::editor
