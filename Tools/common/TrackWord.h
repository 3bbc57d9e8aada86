// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <memory>

namespace zarn {

class Track;

namespace tool {

/// A new track as a person asks for it: "guitar", "bass", "piano" or "drums"; a General MIDI
/// program by its number from 1 or its name ("Acoustic Guitar (nylon)"), a percussion key by its
/// name ("Cowbell"); a category by its text or its name ("steelGuitar", "Steel Guitar"). Letters
/// may be of either case. Raises `Failure`, which offers what may have been meant.
std::shared_ptr<Track> makeTrack(const QString &word);

/// The words to offer: those of everyday, and the categories.
QStringList trackWords();

} // namespace tool
} // namespace zarn
