// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnDrawList.h>
#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/engrave/Problems.h>

#include <ZarnCore/model/layout/ZarnHeaderAndFooter.h>

#include <memory>
#include <string>

namespace zarn {
class ScoreModel;
}

namespace zarn::engraving {

/// The title block of a score, and the texts at the top and bottom of its pages. A score that names
/// none of the latter has its copyright below the first page, and a number below each other one.
class PageTexts {
public:
    /// `width` is that between the margins, `margin` the height of the one below, in staff spaces.
    /// Footers end in the middle of it, as far from the music as the sheet allows.
    PageTexts(const ScoreModel &model, const Pen &pen, double width, double margin);

    /// Heights that are kept free between the margins: of the title on the first page, of headers
    /// on the others, of footers on the first one and on the others.
    double titleHeight() const noexcept { return _titleHeight; }
    double headerHeight() const noexcept { return _headerHeight; }
    double firstFooterHeight() const noexcept { return _firstFooterHeight; }
    double footerHeight() const noexcept { return _footerHeight; }

    /// The texts of a page, counted from 1. `left` and `top` are the margins, `height` is between
    /// them.
    std::shared_ptr<const layout::DrawList> draw(unsigned page, unsigned pageCount, double left,
                                                 double top, double height) const;

    /// What of the texts cannot be drawn as it should, each once.
    const Problems &problems() const noexcept { return _problems; }

private:
    void makeTitle();
    std::shared_ptr<const layout::DrawList> draw(unsigned page, unsigned pageCount, double left,
                                                 double top, double height,
                                                 Problems &problems) const;
    Inks cornerTexts(unsigned page, unsigned pageCount, bool isFooter) const;
    std::string textAt(HeaderAndFooter place, unsigned page, unsigned pageCount) const;

    const ScoreModel &_model;
    const Pen &_pen;
    double _width;
    double _footerDrop; ///< from the music's part of the sheet into the margin
    Inks _title;
    double _titleHeight = 0;
    double _headerHeight = 0;
    double _firstFooterHeight = 0;
    double _footerHeight = 0;
    bool _hasOwnTexts = false; ///< the score says what stands at the top and bottom of pages
    Problems _problems;
};

} // namespace zarn::engraving
