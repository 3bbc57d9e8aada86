// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/PageTexts.h>

#include <ZarnLayout/page/Emitter.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <set>
#include <string>

namespace zarn::engraving {

namespace {

constexpr double titleLead = 1.25; ///< distance of base lines, by height of the letters
constexpr double gapBelowTitle = 3;
constexpr double gapBelowHeader = 2;
constexpr double gapAboveFooter = 2;

} // namespace

PageTexts::PageTexts(const ScoreModel &model, const Pen &pen, double width, double margin)
    : _model(model), _pen(pen), _width(width), _footerDrop(margin / 2)
{
    for (unsigned i = 0; i < HeaderAndFooterCount; ++i)
        _hasOwnTexts =
            _hasOwnTexts || !_model.headerAndFooter(static_cast<HeaderAndFooter>(i)).empty();
    makeTitle();
    const auto heightOf = [](const Inks &texts, double gap) {
        return texts.empty() ? 0 : boxOf(texts).height() + gap;
    };
    _headerHeight = heightOf(cornerTexts(2, 2, false), gapBelowHeader);
    const auto aboveMargin = [&](unsigned page) {
        return std::max(0.0, heightOf(cornerTexts(page, 2, true), gapAboveFooter) - _footerDrop);
    };
    _firstFooterHeight = aboveMargin(1);
    _footerHeight = aboveMargin(2);
    Problems all;
    for (const unsigned page : {1U, 2U})
        draw(page, 2, 0, 0, 0, all);
    std::set<std::string> told;
    for (const Problems::Problem &problem : all.list())
        if (told.insert(problem.text).second)
            _problems.add(problem.place, problem.text);
}

void PageTexts::makeTitle()
{
    double y = 0;
    Inks corners = cornerTexts(1, 1, false);
    if (!corners.empty()) {
        const Box box = boxOf(corners);
        move(corners, 0, -box.top);
        y = box.height() + gapBelowHeader;
        _title = std::move(corners);
    }
    // What is wider than the page is set smaller.
    const auto lineOf = [&](TextRole role, const std::string &text, double x, double y,
                            Pen::Align align) {
        Ink ink = _pen.text(MarkKind::Title, role, text, x, y, align);
        if (ink.box.width() > _width)
            ink = _pen.text(MarkKind::Title, role, text, x, y, align,
                            _width / ink.box.width() * 0.98);
        return ink;
    };
    const auto addCentred = [&](TextRole role, const std::string &text) {
        if (text.empty())
            return;
        for (const std::string &line : linesOf(text)) {
            Ink ink = lineOf(role, line, _width / 2, 0, Pen::Align::Centre);
            const double cap = _pen.fonts().capHeight(role) * ink.scale;
            y += cap * titleLead;
            ink.move(0, y);
            y += cap * 0.6;
            _title.push_back(std::move(ink));
        }
    };
    addCentred(TextRole::Title, _model.property(ScoreProperty::Title));
    addCentred(TextRole::Subtitle, _model.property(ScoreProperty::Subtitle));
    addCentred(TextRole::Credit, _model.property(ScoreProperty::Artist));
    addCentred(TextRole::Credit, _model.property(ScoreProperty::Album));

    std::vector<std::string> left;
    std::vector<std::string> right;
    const auto addTo = [](std::vector<std::string> &side, const std::string &text) {
        if (!text.empty())
            for (const std::string &line : linesOf(text))
                side.push_back(line);
    };
    addTo(left, _model.property(ScoreProperty::Words));
    addTo(right, _model.property(ScoreProperty::Music));
    addTo(right, _model.property(ScoreProperty::WordsAndMusic));
    const double lead = _pen.fonts().capHeight(TextRole::Credit) * 1.9;
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
        y += lead;
        double room = _width;
        if (i < left.size()) {
            _title.push_back(lineOf(TextRole::Credit, left[i], 0, y, Pen::Align::Begin));
            room -= _title.back().box.width() + 2;
        }
        if (i < right.size()) {
            Ink ink = lineOf(TextRole::Credit, right[i], _width, y, Pen::Align::End);
            if (ink.box.width() > room) {
                y += lead;
                ink.move(0, lead);
            }
            _title.push_back(std::move(ink));
        }
    }
    _titleHeight = _title.empty() ? 0 : std::max(y, boxOf(_title).bottom) + gapBelowTitle;
}

Inks PageTexts::cornerTexts(unsigned page, unsigned pageCount, bool isFooter) const
{
    using Corner = HeaderAndFooter;
    const bool isFirst = page == 1;
    const Corner start = isFooter ? (isFirst ? Corner::FirstPageFooterLeft : Corner::FooterLeft)
                                  : (isFirst ? Corner::FirstPageHeaderLeft : Corner::HeaderLeft);
    const MarkKind kind = isFooter ? MarkKind::Footer : MarkKind::Header;
    const double lead = _pen.fonts().capHeight(TextRole::PageText) * 1.9;
    Inks inks;
    for (int i = 0; i < 3; ++i) {
        const auto place = static_cast<Corner>(static_cast<int>(start) + i);
        const std::string text = textAt(place, page, pageCount);
        if (text.empty())
            continue;
        double y = 0;
        for (const std::string &line : linesOf(text)) {
            inks.push_back(_pen.text(kind, TextRole::PageText, line,
                                     i == 0       ? 0
                                         : i == 1 ? _width / 2
                                                  : _width,
                                     y,
                                     i == 0       ? Pen::Align::Begin
                                         : i == 1 ? Pen::Align::Centre
                                                  : Pen::Align::End));
            y += lead;
        }
    }
    return inks;
}

std::string PageTexts::textAt(HeaderAndFooter place, unsigned page, unsigned pageCount) const
{
    if (_hasOwnTexts)
        return _model.formatedHeaderAndFooter(place, page, pageCount);
    if (place == HeaderAndFooter::FirstPageFooterCenter)
        return _model.property(ScoreProperty::Copyright);
    return place == HeaderAndFooter::FooterCenter ? std::to_string(page) : std::string();
}

std::shared_ptr<const layout::DrawList>
PageTexts::draw(unsigned page, unsigned pageCount, double left, double top, double height) const
{
    Problems known;
    return draw(page, pageCount, left, top, height, known);
}

std::shared_ptr<const layout::DrawList> PageTexts::draw(unsigned page, unsigned pageCount,
                                                        double left, double top, double height,
                                                        Problems &problems) const
{
    layout::DrawListBuilder builder;
    const Emitter emitter(builder, _pen.fonts(), problems);
    if (page == 1) {
        emitter.emit(_title, left, top);
    } else {
        Inks header = cornerTexts(page, pageCount, false);
        if (!header.empty())
            move(header, 0, -boxOf(header).top);
        emitter.emit(header, left, top);
    }
    Inks footer = cornerTexts(page, pageCount, true);
    if (!footer.empty())
        move(footer, 0, height + _footerDrop - boxOf(footer).bottom);
    emitter.emit(footer, left, top);
    return std::make_shared<const layout::DrawList>(builder.build());
}

} // namespace zarn::engraving
