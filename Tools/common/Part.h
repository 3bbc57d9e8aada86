// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

namespace zarn::tool {

/// A function of a part of the program that is a library of its own, such as "zarn-audio.so": it is
/// loaded when it is asked for, so that all else starts fast and runs without what the part needs.
/// Null when it cannot be loaded; `error` then says why.
QFunctionPointer partFunction(const QString &part, const char *function, QString &error);

} // namespace zarn::tool
