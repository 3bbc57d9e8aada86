// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <ZarnLayout/font/ZarnTextMeasure.h>
#include <ZarnLayout/page/PageFiller.h>
#include <ZarnLayout/page/SystemBuilder.h>
#include <ZarnLayout/session/PageTexts.h>
#include <ZarnLayout/session/ScoreEngraver.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cmath>

namespace zarn::layout {

using namespace engraving;

namespace {

/// The sheet in staff spaces.
struct Sheet {
    PageSetup setup;
    double space = 1750; ///< micrometres
    double width = 0;    ///< between the margins
    double height = 0;
    bool isTooSmall = false;

    explicit Sheet(const PageSetup &page) : setup(page)
    {
        if (setup.orientation == PageSetup::Orientation::Landscape)
            std::swap(setup.width, setup.height);
        setup.staffSpace = std::max(setup.staffSpace, 100);
        space = setup.staffSpace;
        width = (setup.width - setup.leftMargin - setup.rightMargin) / space;
        height = (setup.height - setup.topMargin - setup.bottomMargin) / space;
        constexpr double leastWidth = 30;
        constexpr double leastHeight = 20;
        isTooSmall = width < leastWidth || height < leastHeight;
        if (isTooSmall) {
            // Margins give way first, then the sheet grows: notes are never out of sight.
            setup.leftMargin = setup.rightMargin = setup.topMargin = setup.bottomMargin = 0;
            setup.width = std::max(setup.width, static_cast<int>(leastWidth * space));
            setup.height = std::max(setup.height, static_cast<int>(leastHeight * space));
            width = setup.width / space;
            height = setup.height / space;
        }
    }
};

class LayoutMaker {
public:
    LayoutMaker(const ScoreModel &model, const LayoutOptions &options,
                const std::shared_ptr<const MusicFont> &font, const TextMeasure &texts)
        : _model(model), _options(options), _font(font), _fonts(*font, texts), _pen(_fonts),
          _sheet(options.page.value_or(model.pageSetup()))
    {
    }

    std::shared_ptr<const Layout> make()
    {
        _score = engraveScore(_model, _options, _pen, _problems);
        if (_sheet.isTooSmall)
            _problems.add({}, "The page is too small for music between its margins.");
        if (!_score.rows.empty() && !_score.shown.empty())
            buildSystems();
        fill();
        Layout::Content content;
        content.font = _font;
        content.staffSpace = _sheet.setup.staffSpace;
        content.pages = std::move(_pages);
        content.title = _model.property(ScoreProperty::Title);
        for (const auto &problem : _problems.list())
            content.problems.push_back({problem.place, problem.text});
        return std::make_shared<const Layout>(std::move(content));
    }

private:
    void buildSystems()
    {
        const SystemBuilder builder(_score, _pen, _problems);
        if (_options.view == ViewLayout::SingleLine) {
            double width = builder.indent(true) + 100;
            for (const BarWidth &bar : barWidths())
                width += (bar.fixed + bar.spring) * 1.2 + 2;
            _systems.push_back(builder.build(0, count(), width, false));
            return;
        }
        unsigned first = 0;
        for (const unsigned bars : breaks(builder)) {
            _systems.push_back(builder.build(first, first + bars, _sheet.width, true));
            first += bars;
        }
    }

    unsigned count() const { return static_cast<unsigned>(_score.shown.size()); }

    std::vector<BarWidth> barWidths() const
    {
        std::vector<BarWidth> bars;
        for (unsigned i = 0; i < count(); ++i) {
            BarWidth bar = _score.spaced[i].width;
            const double middle = jointBefore(_score, i, JointPlace::Middle, _pen).width;
            const double head = jointBefore(_score, i, JointPlace::Head, _pen).width;
            bar.fixed += middle;
            bar.least += middle;
            bar.headOfLine = head - middle;
            bar.breaksBefore = i > 0 && _score.column(i).movementStart;
            bar.endsSection = _score.lastColumn(i).doubleBar
                || (i + 1 < count() && _score.column(i + 1).section.letter != "");
            bars.push_back(bar);
        }
        return bars;
    }

    std::vector<unsigned> breaks(const SystemBuilder &builder)
    {
        const std::vector<BarWidth> bars = barWidths();
        const double firstWidth = _sheet.width - builder.indent(true) - 0.2;
        const double width = _sheet.width - builder.indent(false) - 0.2;
        const auto [list, usual] = systemsOfDocument();
        const bool hasOwn =
            list.empty() && (usual == 0 || _options.breaks != SystemBreaks::AsDocument);
        if (_options.breaks == SystemBreaks::ByThemselves || hasOwn)
            return breakLines(bars, firstWidth, width);
        return fixedLines(bars, list, usual, firstWidth, width);
    }

    std::pair<std::vector<int>, unsigned> systemsOfDocument() const
    {
        const unsigned track = _score.rows.front().track;
        const bool isPart = _model.trackCount() > 1
            && std::all_of(_score.rows.begin(), _score.rows.end(),
                           [&](const Row &row) { return row.track == track; });
        if (isPart)
            return {_model.tracks()[track]->systemsLayout(),
                    _model.tracks()[track]->defaultBarCountBySystem()};
        return {_model.fullScoreSystemsLayout(), _model.fullScoreDefaultBarCountBySystem()};
    }

    /// As listed; a listed system that finds no room is broken, which is said.
    std::vector<unsigned> fixedLines(const std::vector<BarWidth> &bars,
                                     const std::vector<int> &list, unsigned usual,
                                     double firstWidth, double width)
    {
        std::vector<unsigned> lines;
        unsigned bar = 0; // shown
        unsigned listed = 0;
        unsigned listedEnd = 0; // in bars of the score
        const unsigned end = _score.shown.back().bar + _score.shown.back().count;
        while (bar < count()) {
            while (listedEnd <= _score.shown[bar].bar && listed < list.size())
                listedEnd += static_cast<unsigned>(std::max(list[listed++], 1));
            if (listedEnd <= _score.shown[bar].bar) {
                if (usual == 0) {
                    const std::vector<BarWidth> rest(bars.begin() + bar, bars.end());
                    for (const unsigned size :
                         breakLines(rest, bar == 0 ? firstWidth : width, width))
                        lines.push_back(size);
                    break;
                }
                listedEnd = _score.shown[bar].bar + usual;
            }
            listedEnd = std::min(listedEnd, end);
            unsigned lineEnd = bar;
            while (lineEnd < count() && _score.shown[lineEnd].bar < listedEnd)
                ++lineEnd;
            const std::vector<BarWidth> line(bars.begin() + bar, bars.begin() + lineEnd);
            double least = 0;
            for (std::size_t i = 0; i < line.size(); ++i)
                least += line[i].least + (i == 0 ? line[i].headOfLine : 0);
            const double room = bar == 0 ? firstWidth : width;
            if (least <= room || line.size() == 1) {
                lines.push_back(lineEnd - bar);
            } else {
                MarkPlace place;
                place.bar = static_cast<std::int32_t>(_score.shown[bar].bar);
                _problems.add(place, "The bars that the system should hold find no room in it.");
                for (const unsigned size : breakLines(line, room, width))
                    lines.push_back(size);
            }
            bar = lineEnd;
        }
        return lines;
    }

    LayoutPage emptyPage() const
    {
        LayoutPage page;
        page.width = _sheet.setup.width;
        page.height = _sheet.setup.height;
        page.leftMargin = _sheet.setup.leftMargin;
        page.topMargin = _sheet.setup.topMargin;
        page.rightMargin = _sheet.setup.rightMargin;
        page.bottomMargin = _sheet.setup.bottomMargin;
        return page;
    }

    double spaces(int micrometres) const { return micrometres / _sheet.space; }

    void fill()
    {
        const PageTexts texts(_model, _pen, _sheet.width);
        const double title = texts.titleHeight();
        if (_options.view != ViewLayout::Pages) {
            fillSheet(texts, title);
            return;
        }
        std::vector<SystemHeight> heights;
        for (std::size_t i = 0; i < _systems.size(); ++i) {
            const BuiltSystem &system = _systems[i];
            double nesting = 0;
            if (i > 0) {
                const BuiltSystem &before = _systems[i - 1];
                const double least = before.lastRow + before.below.distance(system.above);
                nesting = std::max(0.0, before.bottom + system.top - least);
            }
            heights.push_back({system.top, system.bottom, nesting, false});
        }
        const double footer = texts.footerHeight();
        const double header = texts.headerHeight();
        const PageRoom room = {std::max(_sheet.height - title - footer, 1.0),
                               std::max(_sheet.height - header - footer, 1.0)};
        const std::vector<FilledPage> filled = fillPages(heights, room);
        const auto pageCount = std::max<unsigned>(1, static_cast<unsigned>(filled.size()));
        const double left = spaces(_sheet.setup.leftMargin);
        const double top = spaces(_sheet.setup.topMargin);
        for (unsigned i = 0; i < pageCount; ++i) {
            LayoutPage page = emptyPage();
            page.marks = texts.draw(i + 1, pageCount, left, top, _sheet.height);
            if (i < filled.size()) {
                for (unsigned s = filled[i].first; s < filled[i].end; ++s)
                    page.systems.push_back({_systems[s].drawing,
                                            {fromSpaces(left),
                                             fromSpaces(top + (i == 0 ? title : header)
                                                        + filled[i].places[s - filled[i].first])}});
                if (filled[i].isTooTall)
                    reportTall(page, _systems[filled[i].first], i == 0 ? title : header);
            }
            _pages.push_back(std::move(page));
        }
    }

    void reportTall(LayoutPage &page, const BuiltSystem &system, double above)
    {
        MarkPlace place;
        place.bar = static_cast<std::int32_t>(_score.shown[system.first].bar);
        _problems.add(place, "The system is taller than the page.");
        // The sheet grows, so that nothing is lost beyond its edge.
        const double needed = (above + system.top + system.bottom) * _sheet.space;
        page.height = std::max(page.height,
                               boundedLength(std::ceil(needed)) + page.topMargin + page.bottomMargin
                                   + boundedLength(4 * _sheet.space));
    }

    /// One sheet for all systems, below one another.
    void fillSheet(const PageTexts &texts, double title)
    {
        LayoutPage page = emptyPage();
        const double left = spaces(page.leftMargin);
        double y = spaces(page.topMargin) + title;
        double width = 0;
        for (const BuiltSystem &system : _systems) {
            page.systems.push_back(
                {system.drawing, {fromSpaces(left), fromSpaces(y + system.top)}});
            y += system.top + system.bottom + systemGap + 2;
            width = std::max(width, toSpaces(system.drawing->marks.box(*_font).right));
        }
        if (_options.view == ViewLayout::SingleLine)
            page.width = std::max(page.width,
                                  boundedLength((left + width) * _sheet.space) + page.rightMargin);
        page.height = boundedLength(y * _sheet.space) + page.bottomMargin;
        page.marks = texts.draw(1, 1, left, spaces(page.topMargin), y - spaces(page.topMargin));
        _pages.push_back(std::move(page));
    }

    const ScoreModel &_model;
    const LayoutOptions &_options;
    std::shared_ptr<const MusicFont> _font;
    Fonts _fonts;
    Pen _pen;
    Sheet _sheet;
    Problems _problems;
    EngravedScore _score;
    std::vector<BuiltSystem> _systems;
    std::vector<LayoutPage> _pages;
};

} // namespace

std::shared_ptr<const Layout> layOut(const ScoreModel &model, const LayoutOptions &options,
                                     const std::shared_ptr<const MusicFont> &font,
                                     const TextMeasure &texts)
{
    return LayoutMaker(model, options, font, texts).make();
}

std::shared_ptr<const Layout> layOut(const ScoreModel &model, const LayoutOptions &options)
{
    return layOut(model, options, MusicFont::builtIn(), builtInTextMeasure());
}

} // namespace zarn::layout
