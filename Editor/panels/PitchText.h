// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace zarn {
class GuitarTuning;
class ScoreModelIndex;
class Staff;
} // namespace zarn

/// How panels name keys, strings and shapes.
namespace zarn::editor {

/// "E♭3": the octave as in MusicXML, the key 60 being C4.
QString pitchText(int midi, bool prefersFlats);

/// The key of such a text, with `b` and `#` too; nothing for another text.
std::optional<int> pitchOfText(const QString &text);

/// Whether the key signature at a place has flats.
bool prefersFlats(const ScoreModelIndex &place);

/// Whether the black keys of a tuning are flats: as in its name, "Eb Standard" or "F# Standard",
/// else unless there is a C# or F# among them.
bool prefersFlats(const GuitarTuning &tuning);

/// The open strings, the lowest of a usual tuning first: "E2 A2 D3 G3 B3 E4".
QString stringsText(const GuitarTuning &tuning);

/// What identifies the neck of a staff: its strings, capos and number of frets.
QString neckKey(const Staff &staff);

} // namespace zarn::editor
