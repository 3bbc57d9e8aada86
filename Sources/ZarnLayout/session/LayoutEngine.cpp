// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/LayoutEngine.h>

#include <ZarnLayout/page/BarNumber.h>
#include <ZarnLayout/page/PageFiller.h>
#include <ZarnLayout/page/SystemHead.h>
#include <ZarnLayout/session/ColumnEngraver.h>
#include <ZarnLayout/session/LinesOverBars.h>
#include <ZarnLayout/session/MultiRests.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

namespace zarn::engraving {

namespace {

constexpr std::uint32_t isNew = SystemBreaks::isNew;

/// Whether bars are engraved in the same way for both.
bool haveEqualRows(const ScoreSource &a, const ScoreSource &b)
{
    return a.rows == b.rows && a.staffOfRow == b.staffOfRow && a.isPart == b.isPart;
}

bool haveEqualHeads(const ScoreSource &a, const ScoreSource &b)
{
    return haveEqualRows(a, b) && a.tracks == b.tracks && a.groups == b.groups
        && a.firstNumber == b.firstNumber;
}

/// The same for a bar in all rows, which is beside a system.
bool lookAlikeFromOutside(const ShownColumn &a, const ShownColumn &b)
{
    const auto haveEqualStaves = [](const BarColumn &left, const BarColumn &right) {
        return std::equal(left.staves.begin(), left.staves.end(), right.staves.begin(),
                          right.staves.end(), [](const auto &staff, const auto &other) {
                              return staff == other || lookAlikeFromOutside(*staff, *other);
                          });
    };
    return &a == &b
        || (a.count == b.count && a.first->shared == b.first->shared
            && a.last->shared == b.last->shared && haveEqualStaves(*a.first, *b.first));
}

} // namespace

LayoutEngine::LayoutEngine(std::shared_ptr<const layout::MusicFont> font,
                           const layout::TextMeasure &texts)
    : _font(std::move(font)), _fonts(*_font, texts), _pen(_fonts), _pages(_pen), _line(_pen)
{
}

std::shared_ptr<const layout::Layout> LayoutEngine::layOut(std::shared_ptr<const ScoreSource> next)
{
    const ScoreSource &source = *next;
    const Sheet sheet(source.page);
    _oldSystems.swap(_systems);
    _systems.clear();
    const auto old = std::exchange(_source, nullptr);
    _hasOtherHeads = !old || !haveEqualHeads(*old, source);
    if (!old) { // nothing of a layout that failed is where it says
        _score = {};
        _oldSystems.clear();
        _gone.clear();
        _line.forget();
    }
    if (_hasOtherHeads) {
        _score.rows = source.rows;
        _score.staffOfRow = source.staffOfRow;
        _score.tracks = source.tracks;
        _score.groups = source.groups;
        _score.firstNumber = source.firstNumber;
    }
    const Origins origins = engrave(source, old.get());
    _breaks.measure(_score, origins, _pen);
    const bool isEmpty = _score.rows.empty() || _score.shown.empty();
    if (isEmpty || source.view != ViewLayout::SingleLine)
        _line.forget();
    if (!isEmpty) {
        if (source.view == ViewLayout::SingleLine)
            buildLine(source, origins);
        else
            buildSystems(source, sheet, origins);
    }
    Problems problems = collectProblems(source, sheet);
    layout::Layout::Content content;
    content.font = _font;
    content.staffSpace = sheet.setup.staffSpace;
    content.pages = source.view == ViewLayout::SingleLine
        ? _pages.makeLine(source, sheet, _line, problems)
        : _pages.make(source, sheet, _systems, problems);
    content.title = source.texts->property(ScoreProperty::Title);
    for (const auto &problem : problems.list())
        content.problems.push_back({problem.place, problem.text});
    auto layout = std::make_shared<const layout::Layout>(std::move(content));

    forgetEngraved();
    _former.clear();
    _gone.clear();
    _oldSystems.clear();
    _source = std::move(next); // at the end: after a failure everything is made anew
    return layout;
}

LayoutEngine::Origins LayoutEngine::engrave(const ScoreSource &source, const ScoreSource *old)
{
    _former.clear();
    _former.shown.swap(_score.shown);
    for (const auto &column : _score.columns)
        _former.columns.push_back(column.get());
    findShownBars(source, _score.shown);
    Origins origins(_score.shown.size(), isNew);
    if (old && haveEqualRows(*old, source))
        origins = originsOf(source, *old);
    takeBarsOver(origins);
    _hasOtherBarProblems =
        _hasOtherBarProblems || !old || source.multiRest || !(_former.shown == _score.shown);
    for (std::size_t i = 0; i < origins.size(); ++i)
        if (origins[i] == isNew)
            engraveBar(source, i);
    return origins;
}

/// Puts what stays where it stands now; mostly it stands there already.
void LayoutEngine::takeBarsOver(const Origins &origins)
{
    bool isInPlace = origins.size() == _score.columns.size();
    for (std::size_t i = 0; isInPlace && i < origins.size(); ++i)
        isInPlace = origins[i] == i || origins[i] == isNew;
    if (isInPlace)
        return;
    _hasOtherBarProblems = true;
    _gone = std::exchange(_score.columns, {});
    auto engraved = std::exchange(_score.engraved, {});
    _score.columns.resize(origins.size());
    _score.engraved.resize(origins.size());
    for (std::size_t i = 0; i < origins.size(); ++i)
        if (origins[i] != isNew) {
            _score.columns[i] = _gone[origins[i]];
            _score.engraved[i] = std::move(engraved[origins[i]]);
        }
}

void LayoutEngine::engraveBar(const ScoreSource &source, std::size_t shownBar)
{
    const auto hasProblems = [](const ShownColumn &column) {
        return !column.problems.list().empty() || !column.first->longVoices.empty();
    };
    const ShownBar &bars = _score.shown[shownBar];
    auto engraved = engraveColumn(source, bars, _pen);
    auto column = std::make_shared<ShownColumn>();
    column->first = source.columns[bars.bar - source.firstBar];
    column->last = source.columns[bars.bar + bars.count - 1 - source.firstBar];
    column->count = bars.count;
    column->width = engraved->spaced.width;
    column->words = engraved->spaced.words;
    column->textsAfter = engraved->spaced.textsAfter;
    if (bars.count == 1) {
        column->wordsLines = wordsLinesOf(*column->first);
        column->openSyllables = openSyllablesOf(*column->first);
    }
    column->problems = engraved->problems;
    auto &place = _score.columns[shownBar];
    _hasOtherBarProblems =
        _hasOtherBarProblems || hasProblems(*column) || (place && hasProblems(*place));
    if (place)
        _gone.push_back(std::move(place));
    place = std::move(column);
    _score.engraved[shownBar] = std::move(engraved);
}

/// Sees to it that a bar is engraved and that the needs of its columns are known.
void LayoutEngine::spaceAgain(const ScoreSource &source, std::size_t shownBar)
{
    auto &engraved = _score.engraved[shownBar];
    if (!engraved || !engraved->isSpaced)
        engraved = engraveColumn(source, _score.shown[shownBar], _pen);
}

/// What is engraved stays where systems were built, which is where the next edit is likely to be;
/// behind a layout of the whole score nowhere.
void LayoutEngine::forgetEngraved()
{
    constexpr std::size_t fewBars = 64;
    std::size_t count = 0;
    eachShown([&](const auto &shown) { count += shown.isNew ? shown.end - shown.first : 0; });
    const bool keepsNew = count <= fewBars || _systems.size() == 1;
    eachShown([&](const auto &shown) {
        for (unsigned i = shown.first; i < shown.end && !(shown.isNew && keepsNew); ++i)
            _score.engraved[i].reset();
    });
}

LayoutEngine::Origins LayoutEngine::originsOf(const ScoreSource &source,
                                              const ScoreSource &old) const
{
    const auto &shown = _score.shown;
    Origins origins(shown.size(), isNew);
    if (source.firstBar == old.firstBar && source.columns.size() == old.columns.size()
        && shown == _former.shown) {
        for (std::size_t i = 0; i < shown.size(); ++i) {
            const std::size_t first = shown[i].bar - source.firstBar;
            const std::size_t last = first + shown[i].count - 1;
            if (source.columns[first] == old.columns[first]
                && source.columns[last] == old.columns[last])
                origins[i] = static_cast<std::uint32_t>(i);
        }
        return origins;
    }
    const auto isSameBar = [&](std::size_t i, std::size_t before) {
        const ShownColumn &column = *_former.columns[before];
        const std::size_t number = shown[i].bar - source.firstBar;
        return column.count == shown[i].count && column.first == source.columns[number]
            && column.last == source.columns[number + shown[i].count - 1];
    };
    std::unordered_map<const BarColumn *, std::uint32_t> places;
    for (std::size_t i = 0; i < _former.columns.size(); ++i)
        places.emplace(_former.columns[i]->first.get(), static_cast<std::uint32_t>(i));
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const auto place = places.find(source.columns[shown[i].bar - source.firstBar].get());
        if (place != places.end() && isSameBar(i, place->second))
            origins[i] = place->second;
    }
    return origins;
}

void LayoutEngine::buildSystems(const ScoreSource &source, const Sheet &sheet,
                                const Origins &origins)
{
    _oldSystemAt.assign(_former.shown.size(), isNew);
    for (std::size_t i = 0; i < _oldSystems.size(); ++i)
        _oldSystemAt[_oldSystems[i].first] = static_cast<std::uint32_t>(i);
    const double first = sheet.width - indentOf(_score, _pen, true) - 0.2;
    const double others = sheet.width - indentOf(_score, _pen, false) - 0.2;
    unsigned bar = 0;
    OpenLines open;
    for (const unsigned bars : _breaks.find(source, _score.shown, {first, others})) {
        ShownSystem system(bar, bar + bars, {sheet.width, true});
        system.open = open;
        addSystem(source, std::move(system), origins);
        open = _systems.back().openBehind;
        bar += bars;
    }
}

void LayoutEngine::buildLine(const ScoreSource &source, const Origins &origins)
{
    const auto space = [&](unsigned shownBar) { spaceAgain(source, shownBar); };
    const auto engrave = [&](unsigned shownBar) {
        if (!_score.engraved[shownBar])
            _score.engraved[shownBar] = engraveColumn(source, _score.shown[shownBar], _pen, false);
    };
    _line.make({_score, _former, origins, _hasOtherHeads, space, engrave});
}

/// Calls with each system, or each part of a line.
template <class Visit>
void LayoutEngine::eachShown(const Visit &visit) const
{
    for (const ShownSystem &system : _systems)
        visit(system);
    for (const LinePart &part : _line.parts())
        visit(part);
}

void LayoutEngine::addSystem(const ScoreSource &source, ShownSystem system, const Origins &origins)
{
    const std::uint32_t origin = origins[system.first];
    const std::uint32_t before = origin == isNew ? isNew : _oldSystemAt[origin];
    if (before != isNew && isSame(_oldSystems[before], system))
        takeOver(_oldSystems[before], system);
    if (!system.built) {
        for (unsigned i = system.first; i < system.end; ++i)
            spaceAgain(source, i);
        system.isNew = true;
        Problems problems;
        DrawnSystem drawn = SystemBuilder(_score, _pen, problems)
                                .build(system.first, system.end, system.width.width,
                                       system.width.isJustified, system.open);
        system.openBehind = system.open;
        for (unsigned i = system.first; i < system.end; ++i)
            passBar(system.openBehind, *_score.columns[i]);
        system.built = std::make_shared<const BuiltSystem>(std::move(drawn.system));
        system.drawing = std::move(drawn.drawing);
        system.stretch = 0;
        system.problems = nullptr;
        if (!problems.list().empty())
            system.problems = std::make_shared<const Problems>(std::move(problems));
        system.lookAtBuilt();
    }
    const BuiltSystem *const above = _systems.empty() ? nullptr : _systems.back().built.get();
    if (system.above != above) {
        system.above = above;
        const double reach = above->below.distance(system.built->above);
        const double least = above->lastRow + reach;
        system.height.nesting = std::max(0.0, above->bottom + system.height.top - least);
        system.height.leastGap =
            leastGapOf(reach, above->below.outermost(),
                       above->lastHeight + system.built->bare.above.outermost());
    }
    _systems.push_back(std::move(system));
}

/// The old system is not needed any more.
void LayoutEngine::takeOver(ShownSystem &old, ShownSystem &system) const
{
    const auto bars = static_cast<std::int32_t>(_score.shown[system.first].bar)
        - static_cast<std::int32_t>(_former.shown[old.first].bar);
    system.openBehind = std::move(old.openBehind);
    system.drawing = std::move(old.drawing);
    system.stretch = old.stretch;
    if (bars == 0) {
        system.built = std::move(old.built);
        system.problems = std::move(old.problems);
        system.above = old.above;
        system.height = old.height;
        system.right = old.right;
        return;
    }
    system.built = movedBy(*old.built, system.drawing, bars, _score.number(system.first), _pen);
    system.lookAtBuilt();
    if (!old.problems)
        return;
    Problems problems;
    problems.add(*old.problems, bars);
    system.problems = std::make_shared<const Problems>(std::move(problems));
}

bool LayoutEngine::isSame(const ShownSystem &old, const ShownSystem &system) const
{
    if (_hasOtherHeads || !(old.width == system.width) || !(old.open == system.open)
        || old.end - old.first != system.end - system.first)
        return false;
    // Else what is drawn of a system depends on its bars, the one in front, and the one behind.
    const bool isFirst = system.first == 0;
    const bool isLast = system.end == _score.shown.size();
    if (isFirst != (old.first == 0) || isLast != (old.end == _former.shown.size()))
        return false;
    for (unsigned number = system.first, before = old.first; number < system.end;
         ++number, ++before)
        if (_score.columns[number].get() != _former.columns[before])
            return false;
    const auto isSameNeighbour = [&](unsigned number, unsigned before) {
        return lookAlikeFromOutside(*_score.columns[number], *_former.columns[before]);
    };
    return (isFirst || isSameNeighbour(system.first - 1, old.first - 1))
        && (isLast || isSameNeighbour(system.end, old.end));
}

void LayoutEngine::findBarProblems(const ScoreSource &source)
{
    if (!_hasOtherBarProblems)
        return;
    _barProblems = {};
    for (std::size_t i = 0; i < source.columns.size(); ++i)
        for (layout::DrawPlace place : source.columns[i]->longVoices) {
            place.bar += static_cast<std::int32_t>(source.firstBar + i);
            _barProblems.add(place, "The voice is longer than its bar.");
        }
    for (std::size_t i = 0; i < _score.shown.size(); ++i)
        _barProblems.add(_score.columns[i]->problems,
                         static_cast<std::int32_t>(_score.shown[i].bar));
    _hasOtherBarProblems = false;
}

Problems LayoutEngine::collectProblems(const ScoreSource &source, const Sheet &sheet)
{
    findBarProblems(source);
    Problems problems = _barProblems;
    for (const Row &row : source.rows)
        if (row.lacksStrings && row.isFirstOfStaff) {
            MarkPlace place;
            place.track = static_cast<std::int16_t>(row.track);
            place.staff = static_cast<std::int8_t>(row.staff);
            problems.add(place, "The staff has no tuning: its tablature is written in notes.");
        }
    if (sheet.isTooSmall)
        problems.add({}, "The page is too small for music between its margins.");
    if (source.view != ViewLayout::SingleLine && !_systems.empty())
        problems.add(_breaks.problems());
    // What has no bar, such as the names of tracks, is the same in all systems.
    std::set<std::pair<std::int32_t, std::string>> told;
    eachShown([&](const auto &shown) {
        if (!shown.problems)
            return;
        for (const Problems::Problem &problem : shown.problems->list())
            if (problem.place.bar >= 0 || told.insert({problem.place.track, problem.text}).second)
                problems.add(problem.place, problem.text);
    });
    addFontProblems(problems);
    return problems;
}

void LayoutEngine::addFontProblems(Problems &problems) const
{
    if (!_font->hasMetadata())
        problems.add({},
                     "The music font has no metadata; its signs are as large as their outlines.");
    if (!_font->hasBorrowedGlyphs())
        return;
    std::set<layout::GlyphId> told;
    eachShown([&](const auto &shown) {
        for (const layout::DrawMark &mark : shown.drawing->marks.marks())
            if (mark.shape == layout::MarkShape::Glyph && _font->isBorrowed(mark.glyph)
                && told.insert(mark.glyph).second)
                problems.add(mark.place,
                             "The music font has no glyph \"" + _font->name(mark.glyph)
                                 + "\"; the built-in font's is drawn.");
    });
}

} // namespace zarn::engraving
