// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn::tool {

/// The help of all subcommands as a manual page, in the language of man(7).
QString manualPage();

/// A script for bash that completes subcommands, options and the words that some of them take.
QString bashCompletion();

} // namespace zarn::tool
