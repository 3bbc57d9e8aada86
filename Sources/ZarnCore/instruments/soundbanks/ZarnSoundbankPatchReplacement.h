// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zarn {

class SoundbankPatch;

/// Patch identifiers that stand for others, so that scores which name variants that are not
/// available, or identifiers in older forms, still get a sound: (identifier, replacement), in the
/// order of the table. It has 175 rows; two of them stand twice.
ZARNCORE_EXPORT const std::vector<std::pair<std::string, std::string>> &
soundbankPatchReplacements();

/// The replacement of an identifier, one step: "Fretless JB" gives "Fretless-Bass", which has a
/// replacement of its own. Empty for an identifier that stands for itself.
ZARNCORE_EXPORT const std::string &soundbankPatchReplacement(const std::string &id);

using SoundbankPatches = std::unordered_map<std::string, std::shared_ptr<SoundbankPatch>>;

/// The patch that an identifier stands for, or nothing. Candidates in order: its replacement, the
/// identifier itself, the replacement's own replacement.
ZARNCORE_EXPORT std::shared_ptr<SoundbankPatch>
resolveSoundbankPatch(const SoundbankPatches &patches, const std::string &id);

} // namespace zarn
