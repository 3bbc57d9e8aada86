// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnFormatReport.h>
#include <ZarnCore/io/ZarnSourceTally.h>

namespace zarn::io {

using ImportProblem = FormatProblem;

/// What an import has to tell besides the score: kinds that the tree has no place for are names of
/// elements.
class ZARNCORE_EXPORT ImportReport final : public FormatReport {
public:
    const SourceTally &tally() const noexcept { return _tally; }
    void setTally(SourceTally tally);

private:
    SourceTally _tally;
};

} // namespace zarn::io
