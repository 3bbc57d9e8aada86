// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventOf.h>

#include <QString>
#include <utility>

/// Events of the command stack. Each step is announced, by `CommandPushed` when a command is done
/// for the first time, by `CommandWillUndo` or by `CommandWillRedo`; then come the events of what
/// it changes, and `CommandExecuted` when all of it is done. A step that raises ends without
/// `CommandExecuted`: its events have been followed by those that take them back.
namespace zarn::evt {

/// Carries the name of a command.
template <class Self>
class CommandNameEvent : public EventOf<Self> {
public:
    explicit CommandNameEvent(QString name) : _name(std::move(name)) { }

    const QString &name() const noexcept { return _name; }

private:
    QString _name;
};

/// The sender, a `MacroCommand`, is about to run its commands, forwards or backwards; or a
/// `Transaction` has begun, the commands of which run as they are called, up to `EndMacro`.
class BeginMacro final : public EventOf<BeginMacro> { };

/// The sender of `BeginMacro` has run its commands, or given up after undoing those that ran.
class EndMacro final : public EventOf<EndMacro> { };

/// A command is about to be stored and executed; sent outside the lock. Commands of a macro or a
/// transaction are announced once, as a whole, a transaction before the first of them runs.
class CommandPushed final : public CommandNameEvent<CommandPushed> {
    using CommandNameEvent::CommandNameEvent;
};

/// A step is over: a command, a macro or a transaction was executed, undone or redone, or a
/// transaction was taken back; sent last, under the lock. Which of them it was tells the
/// announcement in front: the last of `CommandPushed`, `CommandWillUndo` and `CommandWillRedo` that
/// came. A listener that pushes, undoes or redoes gets an exception.
class CommandExecuted final : public EventOf<CommandExecuted> { };

/// A command is about to be undone; sent outside the lock.
class CommandWillUndo final : public CommandNameEvent<CommandWillUndo> {
    using CommandNameEvent::CommandNameEvent;
};

/// A command is about to be redone; sent outside the lock.
class CommandWillRedo final : public CommandNameEvent<CommandWillRedo> {
    using CommandNameEvent::CommandNameEvent;
};

} // namespace zarn::evt
