// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "Scratch.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <QDir>
#include <QFileInfo>

namespace {

using namespace zarn;

GuitarTuningLibrary::Tunings load(GuitarTuningLibrary &library)
{
    library.loadUserTunings();
    return library.getTunings(GuitarTuning::UserRole);
}

/// Compares what the file holds. Of the rest, the reference tuning is computed when it is saved,
/// and the range of the pitches tells of pitches that have been.
void expectSame(const GuitarTuning &saved, const GuitarTuning &found)
{
    fuzz::expectEqual(saved.name(), found.name(), "a tuning keeps its name");
    fuzz::expect(saved.stringCount() == found.stringCount(), "a tuning keeps its strings");
    for (unsigned string = 0; string < saved.stringCount(); ++string) {
        // A string whose pitch could not be read has none yet.
        const int pitch = saved.tuning(string);
        fuzz::expect(pitch == 0 || pitch == found.tuning(string), "a string keeps its pitch");
    }
    fuzz::expect(saved.instrument() == found.instrument() && saved.isFlat() == found.isFlat()
                     && saved.hasShortDroneString() == found.hasShortDroneString(),
                 "a tuning keeps its instrument and its flags");
}

} // namespace

/// The input is the file with the user's tunings.
void fuzz::check(std::string_view input)
{
    static const ScratchFolder folder("XDG_DATA_HOME");
    const QString path = GuitarTuningLibrary::userTuningsPath();
    QDir().mkpath(QFileInfo(path).path());
    folder.write(path, input);
    GuitarTuningLibrary first;
    const auto tunings = load(first);
    if (tunings.empty())
        return;
    GuitarTuningLibrary second;
    const auto again = load(second);
    expect(again.size() == tunings.size(), "as many tunings are read back as were saved");
    for (std::size_t i = 0; i < tunings.size(); ++i)
        expectSame(*tunings[i], *again[i]);
    const std::string saved = folder.read(path);
    GuitarTuningLibrary third;
    load(third);
    third.saveUserTunings();
    expectEqual(saved, folder.read(path), "saving is stable");
}
