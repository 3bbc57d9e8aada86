// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnFormatReport.h>

namespace zarn::io {

using ExportProblem = FormatProblem;

/// What an export has to tell besides the file: what was written otherwise than it stands in the
/// score (problems), and what the format has no word for, by kinds such as "whammy bar". Parts are
/// tracks.
class ZARNCORE_EXPORT ExportReport final : public FormatReport { };

} // namespace zarn::io
