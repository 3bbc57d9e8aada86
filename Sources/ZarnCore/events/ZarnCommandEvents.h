// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventOf.h>

#include <QString>
#include <utility>

/// Events of the command stack: each step is announced, then executed.
namespace zarn::evt {

/// Carries the name of a command.
template <Number N>
class CommandNameEvent : public EventOf<N> {
public:
    explicit CommandNameEvent(QString name) : _name(std::move(name)) { }

    const QString &name() const noexcept { return _name; }

private:
    QString _name;
};

/// The sender, a `MacroCommand`, is about to run its commands, forwards or backwards.
class BeginMacro final : public EventOf<Number::BeginMacro> { };

/// The sender, a `MacroCommand`, has run its commands, or given up after undoing those that ran.
class EndMacro final : public EventOf<Number::EndMacro> { };

/// A command is about to be stored and executed; sent outside the lock.
class CommandPushed final : public CommandNameEvent<Number::CommandPushed> {
    using CommandNameEvent::CommandNameEvent;
};

/// A command was executed, undone or redone; sent last, under the lock. A listener that pushes,
/// undoes or redoes gets an exception.
class CommandExecuted final : public EventOf<Number::CommandExecuted> { };

/// A command is about to be undone; sent outside the lock.
class CommandWillUndo final : public CommandNameEvent<Number::CommandWillUndo> {
    using CommandNameEvent::CommandNameEvent;
};

/// A command is about to be redone; sent outside the lock.
class CommandWillRedo final : public CommandNameEvent<Number::CommandWillRedo> {
    using CommandNameEvent::CommandNameEvent;
};

} // namespace zarn::evt
