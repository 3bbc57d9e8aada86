// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/SimileBars.h>

#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <algorithm>

namespace zarn::sheet {
namespace {

/// Whether all that is marked on a beat or note of the bar can be read in the one that it repeats.
template <class Node>
bool hasNoMarkOfItsOwn(const Node &node, const Node &repeated)
{
    const auto &rows = attributesOf<Node>();
    return std::all_of(rows.begin(), rows.end(), [&](const auto &row) {
        return row.isDefault(node) || row.get(node) == row.get(repeated);
    });
}

bool playsTheSame(const Note &left, const Note &right)
{
    return left.midi() == right.midi() && left.string() == right.string()
        && left.fret() == right.fret() && left.staffLine() == right.staffLine()
        && left.percussionArticulation() == right.percussionArticulation()
        && left.isDead() == right.isDead() && hasNoMarkOfItsOwn(left, right);
}

bool playsTheSame(const Beat &left, const Beat &right)
{
    return left.rhythmValue() == right.rhythmValue() && left.graceType() == right.graceType()
        && left.isPlaceHolder() == right.isPlaceHolder() && hasNoMarkOfItsOwn(left, right)
        && std::equal(left.notes().begin(), left.notes().end(), right.notes().begin(),
                      right.notes().end(),
                      [](const auto &a, const auto &b) { return playsTheSame(*a, *b); });
}

bool playsTheSame(const Bar &left, const Bar &right)
{
    static const Voice none;
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
        const Voice &a = left.voices()[slot] ? *left.voices()[slot] : none;
        const Voice &b = right.voices()[slot] ? *right.voices()[slot] : none;
        if (!std::equal(a.beats().begin(), a.beats().end(), b.beats().begin(), b.beats().end(),
                        [](const auto &x, const auto &y) { return playsTheSame(*x, *y); }))
            return false;
    }
    return true;
}

unsigned barsBack(const Bar &bar) noexcept
{
    return bar.simileMark() == SimileMark::Simple ? 1 : 2;
}

} // namespace

bool isDrawnAsSimile(const Bar &bar)
{
    if (!bar.isSimile() || !bar.hasBeats())
        return bar.isSimile();
    const auto staff = bar.parentStaff();
    const Bar *repeated = &bar;
    while (staff && repeated->isSimile() && repeated->index() >= barsBack(*repeated)) {
        repeated = staff->bars()[repeated->index() - barsBack(*repeated)].get();
        if (repeated->hasBeats())
            return playsTheSame(bar, *repeated);
    }
    return false;
}

} // namespace zarn::sheet
