// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnFingeringLibrary.h>

#include <ZarnCore/chords/FirstShapes.h>
#include <ZarnCore/chords/UserShapeText.h>
#include <ZarnCore/chords/VoicingSearch.h>
#include <ZarnCore/instruments/UserFile.h>

#include <QStandardPaths>

#include <algorithm>
#include <set>
#include <utility>

namespace zarn::chord {

namespace {

/// A built-in shape with its chord.
struct KnownShape {
    const FirstShapes *instrument;
    const FirstShape *shape;
    ChordTones tones;
};

std::vector<KnownShape> readFirstShapes()
{
    std::vector<KnownShape> shapes;
    for (const FirstShapes &instrument : allFirstShapes)
        for (const FirstShape *shape = instrument.begin; shape != instrument.end; ++shape)
            if (const auto chord = Chord::fromText(shape->chord))
                shapes.push_back({&instrument, shape, ChordTones::of(*chord)});
    return shapes;
}

const std::vector<KnownShape> &firstShapes()
{
    static const auto shapes = readFirstShapes();
    return shapes;
}

/// Courses without a short drone string, which shapes leave as it is.
std::vector<Course> stoppedCourses(const Fretboard &fretboard)
{
    auto courses = fretboard.courses();
    const auto isDrone = [](const Course &course) { return course.isDrone; };
    courses.erase(std::remove_if(courses.begin(), courses.end(), isDrone), courses.end());
    return courses;
}

/// Semitones, round the octave, that the courses sound above those that a shape was written for;
/// nothing when their intervals are others.
std::optional<int> offsetFrom(const FirstShapes &instrument, const std::vector<Course> &courses)
{
    if (courses.size() != instrument.courseCount)
        return std::nullopt;
    std::optional<int> offset;
    for (std::size_t index = 0; index < courses.size(); ++index) {
        const int apart = Tone(courses[index].openPitch - instrument.openPitches[index]).value();
        if (offset.value_or(apart) != apart)
            return std::nullopt;
        offset = apart;
    }
    return offset;
}

ChordDiagram diagramOf(const FirstShape &shape, const Fretboard &fretboard,
                       const std::vector<Course> &courses, const ChordTones &sounding)
{
    ChordDiagram diagram;
    diagram.frets.assign(fretboard.stringCount(), FretRow::notPlayed);
    diagram.fingers.assign(fretboard.stringCount(), 0);
    for (const Course &course : fretboard.courses())
        if (course.isDrone && sounding.tones.contains(Tone(course.openPitch)))
            diagram.frets[course.firstString] = FretRow::open;
    for (std::size_t index = 0; index < courses.size(); ++index) {
        const Course &course = courses[index];
        for (unsigned string = 0; string < course.stringCount; ++string) {
            const auto at = course.firstString + string;
            if (shape.frets[index] != 'x')
                diagram.frets[at] = static_cast<std::int8_t>(shape.frets[index] - '0');
            diagram.fingers[at] = static_cast<std::uint8_t>(shape.fingers[index] - '0');
        }
    }
    setFirstFret(diagram);
    return diagram;
}

/// Frets of a voicing on the courses without a drone, from its lowest one as 0, `x` for muted ones;
/// empty when open strings sound, which do not move along.
std::string movedShape(const FretRow &frets, const std::vector<Course> &all)
{
    std::string shape;
    const int lowest = lowestStop(frets);
    for (std::size_t index = 0; index < all.size(); ++index) {
        if (all[index].isDrone)
            continue;
        if (frets[index] == FretRow::open)
            return {};
        shape += frets[index] == FretRow::notPlayed
            ? 'x'
            : static_cast<char>('0' + frets[index] - lowest);
    }
    return shape;
}

/// The first shapes of an instrument that move along the neck as they are.
std::set<std::string> movableShapes(const std::vector<Course> &courses)
{
    std::set<std::string> shapes;
    for (const KnownShape &known : firstShapes()) {
        std::string frets(known.shape->frets);
        if (frets.find('0') != std::string::npos || !offsetFrom(*known.instrument, courses))
            continue;
        char lowest = '9';
        for (const char fret : frets)
            lowest = std::min(lowest, fret);
        for (char &fret : frets)
            fret = fret == 'x' ? fret : static_cast<char>(fret - lowest + '0');
        shapes.insert(frets);
    }
    return shapes;
}

/// What is learned as one shape for all roots comes before what is as easy, but known to nobody.
void preferMovedShapes(std::vector<Voicing> &voicings, const Fretboard &fretboard)
{
    // Of what players wrote down, most comes to the front with this; twice as much drives out what
    // lies better.
    constexpr float preference = 1.2F;
    // Where the strings carry no bass, players rather take what lies nearest.
    const auto movable =
        fretboard.hasBass() ? movableShapes(stoppedCourses(fretboard)) : std::set<std::string>();
    if (movable.empty())
        return;
    const auto moved =
        std::stable_partition(voicings.begin(), voicings.end(), [&](const Voicing &voicing) {
            return movable.count(movedShape(voicing.frets, fretboard.courses())) != 0;
        });
    std::for_each(voicings.begin(), moved, [](Voicing &voicing) { voicing.cost -= preference; });
    std::inplace_merge(
        voicings.begin(), moved, voicings.end(),
        [](const Voicing &left, const Voicing &right) { return left.cost < right.cost; });
}

bool hasPartialCapo(const Capos &capos)
{
    return capos.partialFret > capos.fret
        && std::count(capos.partialStrings.begin(), capos.partialStrings.end(), true) > 0;
}

bool isOnNeck(const ChordDiagram &diagram, const Fretboard &fretboard)
{
    for (const Course &course : fretboard.courses()) {
        const int fret = diagram.frets[course.firstString];
        if (fret > 0
            && fret > course.lastStop - (course.isDrone ? fretboard.capo() : course.zeroFret))
            return false;
    }
    return true;
}

bool isSame(const UserShape &shape, const GuitarTuning &tuning, const ChordDiagram &diagram)
{
    return shape.openPitches == tuning.midiNumbers()
        && shape.hasShortDroneString == tuning.hasShortDroneString() && shape.diagram == diagram;
}

} // namespace

FingeringLibrary::FingeringLibrary()
    : _userFile(std::make_unique<UserFile>("FingeringLibrary", userShapesPath)),
      _known(std::make_unique<KnownUserText>())
{
}

FingeringLibrary::~FingeringLibrary() = default;

std::vector<ChordDiagram> FingeringLibrary::shapes(const Chord &chord, const GuitarTuning &tuning,
                                                   const Capos &capos, unsigned fretCount) const
{
    std::vector<ChordDiagram> found;
    const ChordTones tones = ChordTones::of(chord);
    if (tones.tones.isEmpty())
        return found;
    const std::string name = chord.toText();
    const Fretboard fretboard(tuning, capos, fretCount);
    const auto offer = [&](ChordDiagram diagram) {
        const auto isThere = [&](const ChordDiagram &other) {
            return other.frets == diagram.frets;
        };
        if (std::any_of(found.begin(), found.end(), isThere) || !isOnNeck(diagram, fretboard))
            return;
        diagram.name = name;
        found.push_back(std::move(diagram));
    };
    for (const UserShape &shape : _userShapes) {
        if (hasPartialCapo(capos) || shape.openPitches != tuning.midiNumbers()
            || shape.hasShortDroneString != tuning.hasShortDroneString())
            continue;
        const auto named = Chord::fromText(shape.diagram.name);
        if (named && ChordTones::of(*named).transposed(fretboard.capo()) == tones)
            offer(shape.diagram);
    }
    const auto courses = stoppedCourses(fretboard);
    for (const KnownShape &shape : firstShapes()) {
        const auto offset = offsetFrom(*shape.instrument, courses);
        if (offset && shape.tones.transposed(*offset) == tones)
            offer(diagramOf(*shape.shape, fretboard, courses, tones));
    }
    return found;
}

std::vector<ChordDiagram> FingeringLibrary::voicings(const Chord &chord, const GuitarTuning &tuning,
                                                     const Capos &capos, unsigned fretCount,
                                                     const VoicingLimits &limits) const
{
    auto all = shapes(chord, tuning, capos, fretCount);
    std::set<std::vector<std::int8_t>> known;
    for (const ChordDiagram &shape : all)
        known.insert(shape.frets);
    const std::string name = chord.toText();
    const VoicingFinder finder(Fretboard(tuning, capos, fretCount), HandModel(handFor(tuning)));
    auto found = finder.find(ChordTones::of(chord), limits);
    preferMovedShapes(found, finder.fretboard());
    for (const Voicing &voicing : found) {
        auto diagram = finder.diagram(voicing, name);
        if (known.insert(diagram.frets).second)
            all.push_back(std::move(diagram));
    }
    return all;
}

bool FingeringLibrary::addUserShape(const GuitarTuning &tuning, const ChordDiagram &diagram)
{
    const auto isThere = [&](const UserShape &shape) { return isSame(shape, tuning, diagram); };
    UserShape shape{tuning.midiNumbers(), tuning.hasShortDroneString(), diagram};
    if (!isSound(shape) || std::any_of(_userShapes.begin(), _userShapes.end(), isThere))
        return false;
    _userShapes.push_back(std::move(shape));
    saveUserShapes();
    return true;
}

bool FingeringLibrary::removeUserShape(const GuitarTuning &tuning, const ChordDiagram &diagram)
{
    const auto isIt = [&](const UserShape &shape) { return isSame(shape, tuning, diagram); };
    const auto found = std::find_if(_userShapes.begin(), _userShapes.end(), isIt);
    if (found == _userShapes.end())
        return false;
    _userShapes.erase(found);
    saveUserShapes();
    return true;
}

QString FingeringLibrary::userShapesPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QLatin1String("/userChordShapes.json");
}

void FingeringLibrary::loadUserShapes()
{
    _userShapes.clear();
    _known->set({}, true);
    const auto content = _userFile->read();
    if (!content)
        return;
    const UserShapeDocument document(*content);
    _userShapes = document.shapes();
    _known->set(*content, document.fault().isEmpty());
    if (!document.fault().isEmpty())
        _userFile->warn((document.isList() ? QStringLiteral("is read in part: ")
                                           : QStringLiteral("is not read: "))
                        + document.fault());
}

void FingeringLibrary::saveUserShapes()
{
    _known->save(
        *_userFile, [this](const QByteArray &content) { return takeOver(content); },
        [this] { return userShapeText(_userShapes); });
}

bool FingeringLibrary::takeOver(const QByteArray &content)
{
    return _known->takeOver<UserShapeDocument>(
        *_userFile, content, &UserShapeDocument::shapes,
        [](const UserShape &shape) { return userShapeText({shape}); },
        [this](const UserShape &shape) { _userShapes.push_back(shape); });
}

} // namespace zarn::chord
