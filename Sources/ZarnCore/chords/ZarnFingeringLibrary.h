// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChord.h>
#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/chords/ZarnFretboard.h>
#include <ZarnCore/chords/ZarnVoicingFinder.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace zarn {

class KnownUserText;
class UserFile;

namespace chord {

/// A shape of the user's own: how a chord is to be held on a tuning.
struct UserShape {
    std::vector<int> openPitches; ///< MIDI keys, string 0 first, without a capo
    bool hasShortDroneString = false;
    ChordDiagram diagram; ///< frets count from the capo
};

/// Shapes that need no search: the user's own, and those that everybody learns first.
///
/// A shape goes for every tuning with the same intervals between its strings and for every capo
/// over all of them; it is another chord there. The user's own shapes are kept in a file, with the
/// care that is taken of his tunings; what fails is logged on "zarn.core" with file and reason.
///
/// Not locked: it belongs to one thread at a time.
class ZARNCORE_EXPORT FingeringLibrary {
public:
    /// The built-in shapes alone; nothing is read.
    FingeringLibrary();
    FingeringLibrary(const FingeringLibrary &) = delete;
    FingeringLibrary &operator=(const FingeringLibrary &) = delete;
    ~FingeringLibrary();

    /// The shapes for a chord, those of the user first and the rest in the order of learning.
    /// `capos` and `fretCount` are those of the neck.
    std::vector<ChordDiagram> shapes(const Chord &chord, const GuitarTuning &tuning,
                                     const Capos &capos = {}, unsigned fretCount = 24) const;

    /// All ways to play a chord, the shapes in front of what the hand's model finds.
    std::vector<ChordDiagram> voicings(const Chord &chord, const GuitarTuning &tuning,
                                       const Capos &capos = {}, unsigned fretCount = 24,
                                       const VoicingLimits &limits = {}) const;

    // The user's own.

    const std::vector<UserShape> &userShapes() const noexcept { return _userShapes; }

    /// Adds a shape behind the others and saves. False, and nothing happens, when it is there, or
    /// has not a fret for each string of the tuning and a finger for each or none at all.
    bool addUserShape(const GuitarTuning &tuning, const ChordDiagram &diagram);

    /// Takes a shape out and saves; false when there is no such shape.
    bool removeUserShape(const GuitarTuning &tuning, const ChordDiagram &diagram);

    /// "userChordShapes.json" in the application's writable data folder.
    static QString userShapesPath();

    /// Takes the user's shapes from the file, in place of those that are here; none when the file
    /// is missing, damaged or written by a newer version. Shapes that cannot be are left out.
    void loadUserShapes();

    /// Writes all user shapes. The new file takes the place of the old one when it is complete on
    /// the disk. Shapes that another program has put into the file since it was read or written
    /// here join those of the user first. A file with anything in it that was not read is kept
    /// beside it, as "userChordShapes.kept.json"; when that fails, it is not replaced.
    void saveUserShapes();

private:
    bool takeOver(const QByteArray &content);

    std::vector<UserShape> _userShapes;
    std::unique_ptr<UserFile> _userFile;
    std::unique_ptr<KnownUserText> _known;
};

} // namespace chord
} // namespace zarn
