// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace zarn::tool {

/// The word that was probably meant: one that begins like what was typed, else one that differs in
/// few letters, else one that contains it; empty when none is near.
QString nearestWord(const QString &typed, const QStringList &words);

} // namespace zarn::tool
