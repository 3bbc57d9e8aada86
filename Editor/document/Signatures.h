// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnKeySignature.h>

#include <QString>
#include <QStringList>

#include <vector>

/// Meters and keys as a user chooses them.
namespace zarn::editor {

/// Denominators of meters.
const std::vector<unsigned> &beatUnits();
/// "1/4", in the same order.
QStringList beatUnitTexts();

constexpr int mostBeatsOfBar = 64;

/// All keys, by the circle of fifths from the flats to the sharps, major ones first.
const std::vector<KeySignature> &usualKeys();
/// "E♭ major", in the same order.
QStringList keyTexts();
/// The place of a key among them, 0 where it is none.
int placeOfKey(const KeySignature &key);

} // namespace zarn::editor
