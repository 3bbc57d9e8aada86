// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Beat/ZarnChordSets.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnChordMark.h>

#include <algorithm>

namespace zarn {

namespace {

template <class Set, class Item>
bool addNew(Set &set, const Item &item)
{
    if (std::find(set.begin(), set.end(), item) != set.end())
        return false;
    set.push_back(item);
    return true;
}

} // namespace

void ChordSets::add(Staff &staff, const ChordMark &chord)
{
    auto symbols = staff.chordWorkingSet();
    auto diagrams = staff.diagramWorkingSet();
    const bool isSymbol = !chord.symbol.empty() && addNew(symbols, chord.symbol);
    const bool isDiagram = chord.diagram && addNew(diagrams, *chord.diagram);
    if (!isSymbol && !isDiagram)
        return;
    _added.push_back({staff.track()->index(), staff.index(), isSymbol, isDiagram});
    if (isSymbol)
        staff.setChordWorkingSet(std::move(symbols));
    if (isDiagram)
        staff.setDiagramWorkingSet(std::move(diagrams));
}

void ChordSets::takeBack(ScoreModel &model)
{
    for (auto added = _added.rbegin(); added != _added.rend(); ++added) {
        Staff &staff = *model.tracks()[added->track]->staves()[added->staff];
        if (added->isSymbol) {
            auto symbols = staff.chordWorkingSet();
            symbols.pop_back();
            staff.setChordWorkingSet(std::move(symbols));
        }
        if (added->isDiagram) {
            auto diagrams = staff.diagramWorkingSet();
            diagrams.pop_back();
            staff.setDiagramWorkingSet(std::move(diagrams));
        }
    }
    _added.clear();
}

} // namespace zarn
