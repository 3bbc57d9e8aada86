// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/SpanMatcher.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace zarn::io {

namespace {

/// So many signs of a kind are never open at once; what is more is a broken document.
constexpr std::size_t mostOpen = 256;

/// Takes the last one that fits out of a list, one of the same voice before others.
template <typename Fits>
bool takeLast(std::vector<SpanEnd> &ends, const NotePlace &place, Fits fits, SpanEnd &taken)
{
    auto found = ends.rend();
    for (auto end = ends.rbegin(); end != ends.rend(); ++end) {
        if (!fits(*end))
            continue;
        if (end->place.voice == place.voice && end->place.staff == place.staff) {
            found = end;
            break;
        }
        if (found == ends.rend()
            || (found->place.voice != place.voice && end->place.voice == place.voice))
            found = end;
    }
    if (found == ends.rend())
        return false;
    taken = *found;
    ends.erase(std::next(found).base());
    return true;
}

} // namespace

bool SpanMatcher::mayBelong(const SpanEnd &begin, const SpanEnd &end) const
{
    if (begin.number != end.number || (_names == Names::Apart && begin.tag != end.tag))
        return false;
    // A wavy line may lie over a single note.
    if (begin.place.beat && begin.place.isInLineOf(end.place) && begin.tag != Tag::WavyLine)
        return begin.place.inLine() < end.place.inLine();
    return begin.place.inTime() <= end.place.inTime();
}

bool SpanMatcher::add(const SpanEnd &end)
{
    const std::string_view type = end.node.attribute("type").value();
    if (type == "start")
        begin(end);
    else if (type == "stop")
        this->end(end);
    else
        return type == "continue";
    return true;
}

void SpanMatcher::begin(const SpanEnd &begin)
{
    forgetEndsBefore(begin.place.bar);
    Span span;
    const auto fits = [&](const SpanEnd &end) { return mayBelong(begin, end); };
    if (takeLast(_ended, begin.place, fits, span.end)) {
        span.begin = begin;
        _spans.push_back(span);
    } else if (_begun.size() < mostOpen) {
        _begun.push_back(begin);
    } else {
        report(begin, " begins here that nothing ends");
    }
}

void SpanMatcher::end(const SpanEnd &end)
{
    forgetEndsBefore(end.place.bar);
    Span span;
    const auto fits = [&](const SpanEnd &begin) { return mayBelong(begin, end); };
    if (takeLast(_begun, end.place, fits, span.begin)) {
        span.end = end;
        _spans.push_back(span);
    } else {
        _ended.push_back(end);
    }
}

void SpanMatcher::forgetEndsBefore(int bar)
{
    if (_ended.empty() || _ended.front().place.bar >= bar)
        return;
    _stray.insert(_stray.end(), _ended.begin(), _ended.end());
    _ended.clear();
}

std::vector<SpanEnd> SpanMatcher::takeEnds()
{
    _stray.insert(_stray.end(), _ended.begin(), _ended.end());
    _ended.clear();
    return std::exchange(_stray, {});
}

std::vector<SpanMatcher::Span> SpanMatcher::finish()
{
    for (const auto &end : takeEnds())
        report(end, " ends here that nothing begins");
    for (const auto &begin : _begun)
        report(begin, " begins here that nothing ends");
    _begun.clear();
    return std::exchange(_spans, {});
}

void SpanMatcher::report(const SpanEnd &end, const char *what)
{
    _context.addUnheld(end.node, end.tag);
    _context.addProblemInBar(end.place.bar, end.node, std::string("a ") + tagName(end.tag) + what);
}

} // namespace zarn::io
