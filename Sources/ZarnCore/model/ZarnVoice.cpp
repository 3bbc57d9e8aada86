// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnVoice.h>

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/form/Swing.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/NotePlacing.h>

#include <algorithm>

namespace zarn {

Voice &Voice::operator=(const Voice &other)
{
    _beats = other._beats;
    markOrphans();
    forgetOffsets();
    return *this;
}

std::shared_ptr<Voice> Voice::clone() const
{
    return ChildLinkAccess::clone(*this);
}

void Voice::addBeat(const std::shared_ptr<Beat> &beat, LinkMode mode)
{
    insertBeat(beatCount(), beat, mode);
}

void Voice::insertBeat(unsigned index, const std::shared_ptr<Beat> &beat, LinkMode mode)
{
    const unsigned at = std::min(index, beatCount());
    _beats.insert(at, beat, asParent());
    noteSpans(*beat);
    forgetOffsets();
    if (mode == LinkMode::Mend)
        joinInserted(at, 1);
}

void Voice::insertBeats(unsigned index, Beats beats, LinkMode mode)
{
    const unsigned at = std::min(index, beatCount());
    const auto count = static_cast<unsigned>(beats.size());
    _beats.insert(at, std::move(beats), asParent());
    for (unsigned i = at; i < at + count; ++i)
        noteSpans(*_beats.items()[i]);
    forgetOffsets();
    if (mode == LinkMode::Mend && count != 0)
        joinInserted(at, count);
}

void Voice::joinInserted(unsigned index, unsigned count)
{
    carryOver(*this, index, index + count);
    mendLinks(*this, index, index + count);
}

std::shared_ptr<Beat> Voice::removeBeat(unsigned index, LinkMode mode)
{
    auto taken = takeBeats(index, index, mode);
    return taken.empty() ? nullptr : std::move(taken.front());
}

Voice::Beats Voice::takeBeats(unsigned first, unsigned last, LinkMode mode)
{
    auto taken = _beats.take(first, last);
    forgetOffsets();
    if (mode == LinkMode::Mend && !taken.empty()) {
        keepApart(*this, first, taken);
        mendLinks(*this, first, first);
    }
    return taken;
}

void Voice::clear()
{
    if (!isEmpty())
        takeBeats(0, beatCount() - 1);
}

unsigned Voice::removePlaceHolderBeats(unsigned first, unsigned last)
{
    if (first >= beatCount() || first > last)
        return 0;
    Beats kept = takeBeats(first, last);
    const auto end = std::remove_if(kept.begin(), kept.end(),
                                    [](const auto &beat) { return beat->isPlaceHolder(); });
    const auto removed = static_cast<unsigned>(kept.end() - end);
    kept.erase(end, kept.end());
    insertBeats(first, std::move(kept));
    return removed;
}

utils::rational Voice::length() const
{
    utils::rational sum;
    for (const auto &beat : beats())
        sum += beat->length();
    return sum;
}

Voice::Offsets Voice::sumUp() const
{
    Offsets offsets(1);
    offsets.reserve(beatCount() + 1);
    for (const auto &beat : beats())
        offsets.push_back(offsets.back() + beat->length());
    return offsets;
}

const Voice::Offsets &Voice::offsets(Offsets &scratch) const
{
    linkChildren();
    const Offsets &kept = _offsets.get([this] {
        const bool hearsOfChanges = !hasOrphans()
            && std::none_of(beats().begin(), beats().end(),
                            [](const auto &beat) { return beat->isWholeBarRest(); });
        return hearsOfChanges ? sumUp() : Offsets();
    });
    if (!kept.empty())
        return kept;
    scratch = sumUp();
    return scratch;
}

utils::rational Voice::offsetOf(const Beat &beat, const char *function) const
{
    const unsigned index = beat.index();
    if (index >= beatCount() || beats()[index].get() != &beat)
        ZARN_RAISE_IN(function, "The beat is not in this voice");
    Offsets scratch;
    return offsets(scratch)[index];
}

utils::rational Voice::beatOffsetIgnoringGraceBeats(const Beat &beat) const
{
    return offsetOf(beat, "zarn::Voice::beatOffsetIgnoringGraceBeats");
}

utils::rational Voice::beatDrawingOffset(const Beat &beat) const
{
    return offsetOf(beat, "zarn::Voice::beatDrawingOffset");
}

utils::rational Voice::soundingJoint(unsigned index) const
{
    Offsets scratch;
    const Offsets &all = offsets(scratch);
    const utils::rational offset = all[index];
    const auto bar = parentBar();
    const auto master = bar ? bar->masterBar() : nullptr;
    if (!master || master->tripletFeel() == TripletFeel::NoTripletFeel)
        return offset;
    const auto [here, behind] = std::equal_range(all.begin(), all.end(), offset);
    const auto before = here == all.begin() ? utils::rational() : offset - *(here - 1);
    const auto after = behind == all.end() ? utils::rational() : *behind - offset;
    return swungJoint(offset, before, after, master->tripletFeel());
}

utils::rational Voice::beatSoundingOffset(const Beat &beat) const
{
    const unsigned index = beat.index();
    ZARN_ASSERT_IN("zarn::Voice::beatSoundingOffset",
                   index < beatCount() && beats()[index].get() == &beat);
    return soundingJoint(index);
}

utils::rational Voice::beatSoundingLength(const Beat &beat) const
{
    const utils::rational start = beatSoundingOffset(beat);
    return beat.isGrace() ? utils::rational() : soundingJoint(beat.index() + 1) - start;
}

std::shared_ptr<Beat> Voice::beatStartingAt(const utils::rational &offset) const
{
    const auto beat = beatAt(offset);
    return beat && beatDrawingOffset(*beat) == offset ? beat : nullptr;
}

std::shared_ptr<Beat> Voice::beatAt(const utils::rational &offset) const
{
    Offsets scratch;
    const Offsets &all = offsets(scratch);
    const auto behind = std::upper_bound(all.begin(), all.end(), offset);
    if (behind == all.begin() || behind == all.end())
        return {};
    return beats()[static_cast<std::size_t>(behind - all.begin() - 1)];
}

Voice::Beats Voice::insertNotesInBeatsBetween(const Notes &notes, const utils::rational &start,
                                              const utils::rational &end)
{
    return placeNotes(*this, notes, start, end);
}

Voice::Beats Voice::insertNoteWithCut(const std::shared_ptr<Note> &note,
                                      const utils::rational &start, const utils::rational &length)
{
    return placeNotes(*this, {note}, start, start + length);
}

bool operator==(const Voice &left, const Voice &right)
{
    return left._beats == right._beats;
}

} // namespace zarn
