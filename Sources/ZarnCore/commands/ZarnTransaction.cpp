// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnTransaction.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/score/ZarnScore.h>

#include <exception>

namespace zarn {

namespace {

CommandStack &stackOf(Score *score)
{
    ZARN_ASSERT_IN("zarn::Transaction::Transaction", score != NULL);
    return score->commandStack();
}

} // namespace

Transaction::Transaction(Score *score, const QString &name)
    : _score(score), _number(stackOf(score).openTransaction(name))
{
}

Transaction::~Transaction()
{
    if (_isCommitted)
        return;
    try {
        _score->commandStack().abandonTransaction(_number);
    } catch (const std::exception &error) {
        qCCritical(log::commands) << "Cannot end a transaction:" << error.what();
    } catch (...) {
        qCCritical(log::commands) << "Cannot end a transaction";
    }
}

void Transaction::commit()
{
    if (_isCommitted)
        return;
    _score->commandStack().commitTransaction(_number);
    _isCommitted = true;
}

} // namespace zarn
