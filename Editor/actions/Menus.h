// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace zarn::editor {

/// The menus of the menu bar.
enum class Menu { File, Edit, Beat, Note, Bar, Track, Score, Move, Play, View };

/// Titles from the menu bar on, of a menu or of one inside of it.
QStringList titles(Menu menu, const QString &inner = {});

} // namespace zarn::editor
