// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/CharacterRow.h>

#include <QStringList>

#include <vector>

namespace zarn::sheet {

/// A text in lines at most `width` columns long, cut between words; all but the first are indented.
void addWrapped(std::vector<CharacterRow> &rows, const QString &text, int width, Ink ink);

/// Entries with commas between them, in lines of whole entries; only one that is longer than a line
/// is cut.
void addWrapped(std::vector<CharacterRow> &rows, const QStringList &entries, int width);

} // namespace zarn::sheet
