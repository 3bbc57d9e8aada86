// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"

#include <iterator>

namespace zarn::editor {

const std::vector<ActionGroup> &actionTable()
{
    static const std::vector<ActionGroup> table = [] {
        std::vector<ActionGroup> all;
        for (const auto part :
             {fileActions, editActions, entryActions, noteActions, attributeActions, barActions,
              trackActions, scoreActions, moveActions, playActions, viewActions}) {
            std::vector<ActionGroup> groups = part();
            std::move(groups.begin(), groups.end(), std::back_inserter(all));
        }
        return all;
    }();
    return table;
}

} // namespace zarn::editor
