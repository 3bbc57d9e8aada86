// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn {

struct PageSetup;
struct TrackNotations;

namespace tool {

/// Sets the size of a sheet by a word such as "A4", "letter", or "210x297" in millimetres, and
/// turns it upright. False, and no change, for other words.
bool readSheet(const QString &word, PageSetup &setup);

/// What `readSheet` takes, for messages.
QString sheetWords();

/// Adds what a word names: "staff", "tab" or "slash". False for other words.
bool addNotation(const QString &word, TrackNotations &notations);

int micrometres(double millimetres);

} // namespace tool
} // namespace zarn
