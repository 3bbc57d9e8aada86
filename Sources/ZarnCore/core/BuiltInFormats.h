// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

namespace zarn {

class FormatRegistry;

/// Registers the importers and exporters of the library, which live as long as the process.
ZARNCORE_EXPORT void addBuiltInFormats(FormatRegistry &formats);

} // namespace zarn
