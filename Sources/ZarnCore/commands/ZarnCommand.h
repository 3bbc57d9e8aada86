// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>
#include <QStringList>

namespace zarn {

/// An undoable change of a score. A concrete command has an `init` of its own, which checks and
/// records what it is to do and changes nothing; it names places by coordinates and resolves them
/// each time it runs. While a macro is open, `init` checks values alone, and `redo` raises when the
/// place is not there. A `redo` or `undo` that throws leaves the score as it was.
class ZARNCORE_EXPORT Command {
public:
    Command();
    virtual ~Command();
    Command(const Command &) = delete;
    Command &operator=(const Command &) = delete;

    /// Performs the change, the first time and again after each `undo`.
    virtual void redo() = 0;

    /// Reverts exactly what the last `redo` did.
    virtual void undo() = 0;

    QString name() const { return _name; }
    void setName(QString name) { _name = std::move(name); }

    /// Records "{key:value}", as it is, for the log and the lists of the command stack.
    void addArg(const QString &key, const QString &value);

    /// All recorded arguments, one behind the other.
    QString args() const;

private:
    QString _name;
    QStringList _args;
};

} // namespace zarn
