// SPDX-License-Identifier: MIT
#include "Fuzzing.h"
#include "Scratch.h"

#include <ZarnCore/chords/ZarnFingeringLibrary.h>

#include <QDir>
#include <QFileInfo>

/// The input is the file with the user's shapes of chords.
void fuzz::check(std::string_view input)
{
    using zarn::chord::FingeringLibrary;
    static const ScratchFolder folder("XDG_DATA_HOME");
    const QString path = FingeringLibrary::userShapesPath();
    QDir().mkpath(QFileInfo(path).path());
    folder.write(path, input);
    FingeringLibrary first;
    first.loadUserShapes();
    expectEqual(std::string(input), folder.read(path), "loading writes nothing");
    first.saveUserShapes();
    const std::string saved = folder.read(path);
    FingeringLibrary second;
    second.loadUserShapes();
    const auto &shapes = first.userShapes();
    const auto &again = second.userShapes();
    expect(again.size() == shapes.size(), "as many shapes are read back as were saved");
    for (std::size_t i = 0; i < shapes.size(); ++i)
        expect(again[i].openPitches == shapes[i].openPitches
                   && again[i].hasShortDroneString == shapes[i].hasShortDroneString
                   && again[i].diagram == shapes[i].diagram,
               "a shape is read back as it was");
    second.saveUserShapes();
    expectEqual(saved, folder.read(path), "saving is stable");
    // Whatever a file says, chords are looked up.
    zarn::GuitarTuning tuning;
    for (const auto &shape : shapes) {
        tuning.setMidiNumbers(shape.openPitches);
        tuning.setShortDroneString(shape.hasShortDroneString);
        if (const auto chord = zarn::chord::Chord::fromText(shape.diagram.name))
            second.shapes(*chord, tuning);
    }
}
