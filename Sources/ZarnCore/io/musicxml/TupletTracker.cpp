// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/TupletTracker.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

namespace {

/// Deeper nesting is no music; it would only make the search for a voice's tuplets long.
constexpr std::size_t mostOpen = 64;

constexpr int mostOfRatio = 255;

} // namespace

void TupletTracker::start(int voice, int number, const TupletRatio &ratio)
{
    stop(voice, number);
    if (_open.size() < mostOpen)
        _open.push_back({voice, number, ratio});
}

void TupletTracker::startAt(int voice, int number, const TupletRatio &told)
{
    stop(voice, number);
    const bool isOutermost = outermost(voice) == nullptr;
    start(voice, number, isOutermost ? told : TupletRatio());
    if (isOutermost && !_open.empty())
        _open.back().isTold = false;
}

void TupletTracker::supplyDots(int voice, int dots)
{
    const auto found = std::find_if(_open.begin(), _open.end(),
                                    [&](const Open &open) { return open.voice == voice; });
    if (found != _open.end())
        found->dots = dots;
}

int TupletTracker::suppliedDots(int voice) const
{
    const auto *const open = outermost(voice);
    return open ? open->dots : 0;
}

const TupletTracker::Open *TupletTracker::outermost(int voice) const
{
    const auto found = std::find_if(_open.begin(), _open.end(),
                                    [&](const Open &open) { return open.voice == voice; });
    return found == _open.end() ? nullptr : &*found;
}

bool TupletTracker::stop(int voice, int number)
{
    const auto found = std::find_if(_open.begin(), _open.end(), [&](const Open &open) {
        return open.voice == voice && open.number == number;
    });
    if (found == _open.end())
        return false;
    const bool isHeld = found->isHeld;
    _open.erase(found);
    return isHeld;
}

int TupletTracker::hold(int voice, int ratios)
{
    int held = 0;
    int lost = 0;
    for (const auto &open : _open)
        held += open.voice == voice && open.isHeld;
    for (auto &open : _open) {
        if (open.voice != voice || !std::exchange(open.isNew, false))
            continue;
        open.isHeld = held < ratios;
        open.isHeld ? ++held : ++lost;
    }
    return lost;
}

void TupletTracker::tell(int voice, WrittenRhythm &rhythm) const
{
    rhythm.outer = rhythm.inner = {};
    int depth = 0;
    for (const auto &open : _open) {
        if (open.voice != voice)
            continue;
        auto &ratio = depth == 0 ? rhythm.outer : rhythm.inner;
        const auto actual = ratio.actual * open.ratio.actual;
        const auto normal = ratio.normal * open.ratio.normal;
        if (open.ratio.isPlain() || actual > mostOfRatio || normal > mostOfRatio) {
            rhythm.outer = rhythm.inner = {};
            return;
        }
        ratio = {actual, normal};
        ++depth;
    }
}

void TupletTracker::split(int voice, const TupletRatio &modification, WrittenRhythm &rhythm) const
{
    rhythm.outer = modification;
    rhythm.inner = {};
    const auto *const outer = outermost(voice);
    if (!outer || outer->ratio.isPlain() || outer->ratio == modification)
        return;
    const auto rest = utils::rational(modification.actual, modification.normal)
        / utils::rational(outer->ratio.actual, outer->ratio.normal);
    if (rest.numerator() > mostOfRatio || rest.denominator() > mostOfRatio)
        return;
    // What is no faster than the tuplet around it stands behind one that was left open.
    if (!outer->isTold && !(rest > utils::rational(1)))
        return;
    rhythm.outer = outer->ratio;
    // Six in the time of four is more than three in the time of two.
    for (const auto &open : _open)
        if (open.voice == voice && &open != outer
            && utils::rational(open.ratio.actual, open.ratio.normal) == rest) {
            rhythm.inner = open.ratio;
            return;
        }
    rhythm.inner = {static_cast<int>(rest.numerator()), static_cast<int>(rest.denominator())};
}

} // namespace zarn::io
