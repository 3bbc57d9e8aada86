// SPDX-License-Identifier: MIT
#pragma once

#include "GeneralMidiTable.h"

#include <QDir>

#include <map>
#include <set>
#include <string>

namespace zarn::resources {

/// The sound-bank patches of the templates: the one that a row names, or the one of its category
/// which plays every element by the bank that the instrument set names.
class TemplateSounds {
public:
    /// Reads the instrument sets and the patches below the folder Resources. Raises
    /// `CoreException` when they are broken.
    explicit TemplateSounds(const QDir &resources);

    /// Empty for none. Raises a `CoreException` when there is no such patch.
    std::string patchId(const TemplateRow &row) const;

private:
    std::set<std::string> _patches;
    std::map<InstrumentSet::Type, std::string> _usual;
};

} // namespace zarn::resources
