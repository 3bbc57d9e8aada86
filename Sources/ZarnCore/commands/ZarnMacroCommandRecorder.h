// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

namespace zarn {

class Score;

/// Collects the commands that are pushed while it lives into one undoable step. They are executed
/// when it ends, provided that `commit` was called; otherwise (an early return, an exception) they
/// are dropped. Recorders nest.
class ZARNCORE_EXPORT MacroCommandRecorder {
public:
    /// Raises for a null score, which must outlive the recorder.
    explicit MacroCommandRecorder(Score *score);

    /// Executes or drops the commands; what they throw is logged.
    ~MacroCommandRecorder();

    MacroCommandRecorder(const MacroCommandRecorder &) = delete;
    MacroCommandRecorder &operator=(const MacroCommandRecorder &) = delete;

    void commit() noexcept { _isCommitted = true; }

private:
    bool _isCommitted = false;
    Score *_score;
};

} // namespace zarn
