// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnStaff.h>

#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/ZarnTrackDefaults.h>
#include <ZarnCore/model/notes/Links.h>

#include <algorithm>

namespace zarn {

Staff &Staff::operator=(const Staff &other)
{
    if (this == &other)
        return *this;
    _bars = other._bars;
    copySettings(other);
    markOrphans();
    return *this;
}

void Staff::copySettings(const Staff &other)
{
    _tuning = other._tuning;
    _capoFret = other._capoFret;
    _partialCapoFret = other._partialCapoFret;
    _fretCount = other._fretCount;
    _partialCapoStrings = other._partialCapoStrings;
    _chordCollection = other._chordCollection;
    _chordWorkingSet = other._chordWorkingSet;
    _diagramCollection = other._diagramCollection;
    _diagramWorkingSet = other._diagramWorkingSet;
}

std::shared_ptr<Staff> Staff::clone() const
{
    return ChildLinkAccess::clone(*this);
}

std::shared_ptr<Staff> Staff::cloneWithoutBars() const
{
    auto copy = std::make_shared<Staff>();
    copy->copySettings(*this);
    return copy;
}

void Staff::setParentTrack(const std::shared_ptr<Track> &track)
{
    ChildLinkAccess::setParent(*this, track);
}

void Staff::addBar(const std::shared_ptr<Bar> &bar, LinkMode mode)
{
    insertBar(barCount(), bar, mode);
}

void Staff::insertBar(unsigned index, const std::shared_ptr<Bar> &bar, LinkMode mode)
{
    ChildLinkAccess::requireDetached(bar);
    unmarkSimile(index);
    const ClefAndOttavia start = deduceBarClefAndOttavia(index);
    bar->setClef(start.clef);
    bar->setOttavia(start.ottavia);
    _bars.insert(index, bar, asParent());
    if (mode == LinkMode::Mend)
        mendAround(bar->index(), 1);
}

void Staff::addEmptyBars(unsigned count, LinkMode mode)
{
    insertEmptyBars(barCount(), count, mode);
}

void Staff::insertEmptyBars(unsigned index, unsigned count, LinkMode mode)
{
    if (count == 0)
        return;
    unmarkSimile(index);
    const ClefAndOttavia start = deduceBarClefAndOttavia(index);
    Bars bars(count);
    for (auto &bar : bars) {
        bar = std::make_shared<Bar>();
        bar->setClef(start.clef);
        bar->setOttavia(start.ottavia);
    }
    insertBars(index, std::move(bars));
    if (mode == LinkMode::Mend)
        mendAround(std::min(index, barCount() - count), count);
}

void Staff::mendAround(unsigned index, unsigned count)
{
    mendSimilesAround(index);
    // At the ends of the staff nothing was parted: a tie out of the last bar waits for its end.
    if (index > 0 && index + count < barCount()) {
        mendLinksOverBarLine(*this, index);
        mendLinksOverBarLine(*this, index + count);
    }
}

void Staff::insertBars(unsigned index, Bars bars)
{
    _bars.insert(index, std::move(bars), asParent());
}

std::shared_ptr<Bar> Staff::removeBar(unsigned index, LinkMode mode)
{
    auto taken = takeBars(index, index, mode);
    return taken.empty() ? nullptr : std::move(taken.front());
}

Staff::Bars Staff::takeBars(unsigned first, unsigned last, LinkMode mode)
{
    auto taken = _bars.take(first, last);
    if (mode == LinkMode::Mend && !taken.empty()) {
        unmarkSimile(first);
        mendSimilesAround(first);
        keepApartAtBarLine(*this, first, taken);
        mendLinksOverBarLine(*this, first);
    }
    return taken;
}

void Staff::removeAllBars()
{
    if (barCount() != 0)
        _bars.take(0, barCount() - 1);
}

std::shared_ptr<Bar> Staff::replaceBar(unsigned index, const std::shared_ptr<Bar> &bar)
{
    ZARN_ASSERT_IN("zarn::Staff::replaceBar", index < barCount());
    return _bars.replace(index, bar, asParent());
}

ClefAndOttavia Staff::deduceBarClefAndOttavia(unsigned index) const
{
    if (barCount() == 0) {
        const auto parent = track();
        return {parent ? defaultClef(parent->type(), this->index()) : ClefType::G2, Ottavia::None};
    }
    if (index == 0)
        return {bars().front()->clef(), bars().front()->ottavia()};
    const Bar &before = *bars()[std::min(index, barCount()) - 1];
    const auto &changes = before.clefChanges();
    return {changes.empty() ? before.clef() : changes.back().clef, before.ottavia()};
}

void Staff::unmarkSimile(unsigned index)
{
    if (index >= barCount())
        return;
    const SimileMark mark = bars()[index]->simileMark();
    bars()[index]->setSimileMark(SimileMark::None);
    if (mark == SimileMark::SecondOfDouble && index > 0
        && bars()[index - 1]->simileMark() == SimileMark::FirstOfDouble)
        bars()[index - 1]->setSimileMark(SimileMark::None);
    if (mark == SimileMark::FirstOfDouble && index + 1 < barCount()
        && bars()[index + 1]->simileMark() == SimileMark::SecondOfDouble)
        bars()[index + 1]->setSimileMark(SimileMark::None);
}

/// A first half without its second one, or the other way round, at the joint in front of a bar.
void Staff::mendSimilesAround(unsigned index)
{
    const auto markAt = [this](unsigned bar) {
        return bar < barCount() ? bars()[bar]->simileMark() : SimileMark::None;
    };
    const unsigned first = index < 2 ? 0 : index - 2;
    for (unsigned i = first; i < std::min(index + 2, barCount()); ++i) {
        const bool lostSecond =
            markAt(i) == SimileMark::FirstOfDouble && markAt(i + 1) != SimileMark::SecondOfDouble;
        const bool lostFirst = markAt(i) == SimileMark::SecondOfDouble
            && (i == 0 || markAt(i - 1) != SimileMark::FirstOfDouble);
        if (lostSecond || lostFirst)
            bars()[i]->setSimileMark(SimileMark::None);
    }
}

void Staff::setTuning(const GuitarTuning &tuning)
{
    _tuning = tuning;
}

void Staff::setPartialCapoStringFlags(const std::vector<bool> &flags)
{
    _partialCapoStrings = flags;
}

void Staff::setChordCollection(std::vector<std::string> names)
{
    _chordCollection = std::move(names);
}

void Staff::setChordWorkingSet(std::vector<std::string> names)
{
    _chordWorkingSet = std::move(names);
}

void Staff::setDiagramCollection(std::vector<ChordDiagram> diagrams)
{
    _diagramCollection = std::move(diagrams);
}

void Staff::setDiagramWorkingSet(std::vector<ChordDiagram> diagrams)
{
    _diagramWorkingSet = std::move(diagrams);
}

bool operator==(const Staff &left, const Staff &right)
{
    return left._tuning == right._tuning && left._capoFret == right._capoFret
        && left._partialCapoFret == right._partialCapoFret && left._fretCount == right._fretCount
        && left._partialCapoStrings == right._partialCapoStrings
        && left._chordCollection == right._chordCollection
        && left._chordWorkingSet == right._chordWorkingSet
        && left._diagramCollection == right._diagramCollection
        && left._diagramWorkingSet == right._diagramWorkingSet && left._bars == right._bars;
}

} // namespace zarn
