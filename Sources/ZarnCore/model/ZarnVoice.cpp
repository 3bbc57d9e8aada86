// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnVoice.h>

#include <ZarnCore/model/notes/Ties.h>

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
    forgetOffsets();
    if (mode == LinkMode::Mend)
        mendTies(*this, at, at + 1);
}

void Voice::insertBeats(unsigned index, Beats beats, LinkMode mode)
{
    const unsigned at = std::min(index, beatCount());
    const auto count = static_cast<unsigned>(beats.size());
    _beats.insert(at, std::move(beats), asParent());
    forgetOffsets();
    if (mode == LinkMode::Mend && count != 0)
        mendTies(*this, at, at + count);
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
    if (mode == LinkMode::Mend && !taken.empty())
        mendTies(*this, first, first);
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

bool operator==(const Voice &left, const Voice &right)
{
    return left._beats == right._beats;
}

} // namespace zarn
