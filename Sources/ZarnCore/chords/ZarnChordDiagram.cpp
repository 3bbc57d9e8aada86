// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <algorithm>
#include <cstddef>

namespace zarn {

namespace {

/// Of a diagram that begins at the nut.
constexpr int rowsAtNut = 4;

/// The number of the course that each string belongs to.
std::vector<unsigned> coursesOfStrings(std::size_t stringCount, const std::vector<unsigned> &sizes)
{
    std::vector<unsigned> courses;
    for (unsigned course = 0; course < sizes.size(); ++course)
        courses.insert(courses.end(), sizes[course], course);
    if (courses.size() != stringCount) {
        courses.resize(stringCount);
        for (unsigned string = 0; string < stringCount; ++string)
            courses[string] = string;
    }
    return courses;
}

} // namespace

void setFirstFret(ChordDiagram &diagram)
{
    int lowest = 0;
    int highest = 0;
    for (const int fret : diagram.frets) {
        if (fret > 0 && (lowest == 0 || fret < lowest))
            lowest = fret;
        highest = std::max(highest, fret);
    }
    diagram.firstFret = static_cast<std::uint8_t>(highest > rowsAtNut ? lowest : 1);
}

std::vector<DiagramBarre> barresOf(const ChordDiagram &diagram,
                                   const std::vector<unsigned> &courseSizes)
{
    const std::size_t stringCount = std::min(diagram.frets.size(), diagram.fingers.size());
    const auto courses = coursesOfStrings(stringCount, courseSizes);
    std::vector<DiagramBarre> barres;
    for (std::size_t first = 0; first < stringCount; ++first) {
        const auto finger = diagram.fingers[first];
        const auto fret = diagram.frets[first];
        const auto isSameFinger = [&](const DiagramBarre &barre) {
            return barre.finger == finger && barre.fret == fret;
        };
        if (finger == 0 || fret <= 0 || std::any_of(barres.begin(), barres.end(), isSameFinger))
            continue;
        std::size_t last = first;
        for (std::size_t string = first; string < stringCount; ++string)
            if (diagram.fingers[string] == finger && diagram.frets[string] == fret)
                last = string;
        if (courses[last] > courses[first])
            barres.push_back(
                {finger, fret, static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(last)});
    }
    std::stable_sort(
        barres.begin(), barres.end(),
        [](const DiagramBarre &left, const DiagramBarre &right) { return left.fret < right.fret; });
    return barres;
}

} // namespace zarn
