// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnImportReport.h>

#include <utility>

namespace zarn::io {

void ImportReport::setTally(SourceTally tally)
{
    _tally = std::move(tally);
}

} // namespace zarn::io
