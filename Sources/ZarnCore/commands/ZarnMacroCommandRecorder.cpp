// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnMacroCommandRecorder.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/score/ZarnScore.h>

#include <exception>

namespace zarn {

MacroCommandRecorder::MacroCommandRecorder(Score *score) : _score(score)
{
    ZARN_ASSERT_IN("zarn::MacroCommandRecorder::MacroCommandRecorder", score != NULL);
    _score->commandStack().beginMacroCommand();
}

MacroCommandRecorder::~MacroCommandRecorder()
{
    try {
        _score->commandStack().endMacroCommand(_isCommitted);
    } catch (const std::exception &error) {
        qCCritical(log::commands) << "Cannot execute a macro:" << error.what();
    } catch (...) {
        qCCritical(log::commands) << "Cannot execute a macro";
    }
}

} // namespace zarn
