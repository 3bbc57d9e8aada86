// SPDX-License-Identifier: MIT
#include "chord/UserShapes.h"

#include "chord/DiagramPicture.h"
#include "chord/ShapeText.h"
#include "common/BuiltIns.h"
#include "common/Failure.h"
#include "common/Terminal.h"
#include "common/TextTable.h"
#include "common/Texts.h"
#include "common/TuningWord.h"

#include <ZarnCore/chords/ZarnFingeringLibrary.h>

#include <algorithm>
#include <iostream>

namespace zarn::tool {

namespace {

QString addOption()
{
    return QStringLiteral("add");
}

QString removeOption()
{
    return QStringLiteral("remove");
}

QString listOption()
{
    return QStringLiteral("shapes");
}

/// Fingers for a shape, as the hand's model holds it; none when no hand does.
std::vector<std::uint8_t> fingersFor(const chord::Chord &chord, const GuitarTuning &tuning,
                                     const ChordDiagram &shape)
{
    for (const ChordDiagram &found : loadedCore().fingeringLibrary().voicings(chord, tuning))
        if (found.frets == shape.frets)
            return found.fingers;
    return {};
}

} // namespace

std::vector<Option> UserShapes::options()
{
    return {{addOption(), QString(), QString(),
             QStringLiteral("Keep a shape of your own for the chord.")},
            {removeOption(), QString(), QString(),
             QStringLiteral("Take it away, or all that the chord has.")},
            {listOption(), QString(), QString(), QStringLiteral("List the shapes of your own.")}};
}

bool UserShapes::isAskedFor(const Arguments &arguments)
{
    return arguments.has(addOption()) || arguments.has(removeOption())
        || arguments.has(listOption());
}

UserShapes::UserShapes(const Arguments &arguments)
    : _arguments(arguments), _tuning(anyTuning(arguments.has(QStringLiteral("tuning"))
                                                   ? arguments.value(QStringLiteral("tuning"))
                                                   : QStringLiteral("Guitar")))
{
    const bool adds = arguments.has(addOption());
    const bool removes = arguments.has(removeOption());
    if (int(adds) + int(removes) + int(arguments.has(listOption())) != 1)
        throw UsageError{QStringLiteral("--add, --remove and --shapes do not go together")};
    const int words = arguments.operands().size();
    if (adds && words != 2)
        throw UsageError{QStringLiteral("--add takes a chord and its shape, such as C x32010")};
    if (removes && words == 0)
        throw UsageError{QStringLiteral("--remove takes a chord, and a shape when it has several")};
    if (!adds && !removes && words != 0)
        throw UsageError{QStringLiteral("--shapes lists all shapes, and takes no chord")};
}

int UserShapes::run(const Terminal &terminal) const
{
    return _arguments.has(addOption())   ? add(terminal)
        : _arguments.has(removeOption()) ? remove()
                                         : list(terminal);
}

int UserShapes::add(const Terminal &terminal) const
{
    const std::string name = _arguments.operand(0);
    const auto chord = chord::Chord::fromText(name);
    if (!chord)
        throw Failure("\"" + printable(name) + "\" is no chord symbol that zarn knows");
    ChordDiagram shape = shapeOf(_arguments.operands().at(1), _tuning.stringCount());
    shape.name = name;
    shape.fingers = fingersFor(*chord, _tuning, shape);
    chord::FingeringLibrary &library = loadedCore().fingeringLibrary();
    const auto isIt = [&](const chord::UserShape &other) {
        return other.openPitches == _tuning.midiNumbers() && other.diagram.name == name
            && other.diagram.frets == shape.frets;
    };
    const auto &shapes = library.userShapes();
    if (std::any_of(shapes.begin(), shapes.end(), isIt) || !library.addUserShape(_tuning, shape))
        throw Failure("this shape is there already");
    std::cout << diagramPicture({shape}, chord::courseSizes(_tuning), terminal);
    return Done;
}

int UserShapes::remove() const
{
    const std::string name = _arguments.operand(0);
    chord::FingeringLibrary &library = loadedCore().fingeringLibrary();
    std::vector<ChordDiagram> found;
    for (const chord::UserShape &shape : library.userShapes())
        if (shape.openPitches == _tuning.midiNumbers() && shape.diagram.name == name)
            found.push_back(shape.diagram);
    if (_arguments.operands().size() > 1) {
        const ChordDiagram asked = shapeOf(_arguments.operands().at(1), _tuning.stringCount());
        found.erase(
            std::remove_if(found.begin(), found.end(),
                           [&](const ChordDiagram &shape) { return shape.frets != asked.frets; }),
            found.end());
    }
    for (const ChordDiagram &shape : found)
        library.removeUserShape(_tuning, shape);
    if (found.empty())
        throw Failure("there is no such shape of your own; --shapes lists them");
    return Done;
}

int UserShapes::list(const Terminal &terminal)
{
    const auto &shapes = loadedCore().fingeringLibrary().userShapes();
    if (shapes.empty()) {
        std::cout << "There are no shapes of your own; --add keeps one.\n";
        return Done;
    }
    TextTable table(
        {{QStringLiteral("Chord")}, {QStringLiteral("Shape")}, {QStringLiteral("Strings")}});
    for (const chord::UserShape &shape : shapes) {
        GuitarTuning tuning(static_cast<unsigned>(shape.openPitches.size()));
        for (unsigned i = 0; i < tuning.stringCount(); ++i)
            tuning.setTuning(i, shape.openPitches[i]);
        table.addRow({QString::fromStdString(printable(shape.diagram.name)),
                      QString::fromStdString(shapeText(shape.diagram)),
                      openStrings(tuning, Signs::Letters).join(QLatin1Char(' '))});
    }
    std::cout << table.text(terminal);
    return Done;
}

} // namespace zarn::tool
