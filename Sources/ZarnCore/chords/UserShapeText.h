// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnFingeringLibrary.h>

#include <QByteArray>
#include <QString>

#include <vector>

namespace zarn::chord {

/// The text of the user's shapes, always the same for the same shapes: JSON, a shape a line.
QByteArray userShapeText(const std::vector<UserShape> &shapes);

/// The user's shapes as they were read from a text.
class UserShapeDocument {
public:
    /// Empty, with a fault, when the text is no list of shapes.
    explicit UserShapeDocument(const QByteArray &text);

    const std::vector<UserShape> &shapes() const noexcept { return _shapes; }

    bool isList() const noexcept { return _isList; }

    /// What was not understood first; empty when everything was.
    const QString &fault() const noexcept { return _fault; }

private:
    std::vector<UserShape> _shapes;
    QString _fault;
    bool _isList = false;
};

/// Whether a shape has a fret for each string of its tuning, a finger for each or none at all, and
/// nothing that the text has no room for.
bool isSound(const UserShape &shape);

} // namespace zarn::chord
