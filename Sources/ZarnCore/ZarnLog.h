// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QLoggingCategory>

/// Logging categories; each is created on first use and may be used from any thread. Warnings and
/// worse are logged; rules such as QT_LOGGING_RULES="zarn.core.*=true" turn on the rest.
namespace zarn::log {

ZARNCORE_EXPORT const QLoggingCategory &chords();
ZARNCORE_EXPORT const QLoggingCategory &commands();
ZARNCORE_EXPORT const QLoggingCategory &core();
ZARNCORE_EXPORT const QLoggingCategory &events();
ZARNCORE_EXPORT const QLoggingCategory &model();
ZARNCORE_EXPORT const QLoggingCategory &notation();
ZARNCORE_EXPORT const QLoggingCategory &scales();
ZARNCORE_EXPORT const QLoggingCategory &score();
/// Named "zarn.core.sounfonts"; log filters rely on that spelling.
ZARNCORE_EXPORT const QLoggingCategory &soundfonts();

} // namespace zarn::log
