// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnViews/widgets/ZarnScoreCanvas.h>

#include <QRectF>
#include <QSizeF>

#include <cstdint>

namespace zarn::views {

/// Where the sheets of a layout lie on the desk of a canvas, in pixels at a zoom.
class ScoreCanvas::Sheets {
public:
    /// Between sheets and around them.
    static constexpr double gap = 12;

    /// Sheets that are drawn as before keep their numbers.
    void setLayout(std::shared_ptr<const layout::Layout> layout);
    const std::shared_ptr<const layout::Layout> &layout() const noexcept { return _layout; }

    /// Pixels per millimetre.
    void setScale(double scale);
    double scale() const noexcept { return _scale; }
    double pixelsPerUnit() const noexcept;

    std::size_t count() const noexcept { return _rects.size(); }
    /// On the desk.
    const QRectF &rect(std::size_t sheet) const { return _rects.at(sheet); }
    /// Changes when what the sheet shows changes.
    std::uint64_t number(std::size_t sheet) const { return _numbers.at(sheet); }
    /// What the sheet showed before it changed last.
    struct Former {
        std::uint64_t number = 0; ///< 0 when it showed nothing that is worth keeping
        layout::Box change;       ///< outside of it, the sheet looked as it does now
    };
    const Former &former(std::size_t sheet) const { return _formers.at(sheet); }
    const QSizeF &deskSize() const noexcept { return _size; }

    /// In millimetres; empty without sheets.
    QSizeF largestSheet() const;

private:
    void place();

    std::shared_ptr<const layout::Layout> _layout;
    double _scale = 1;
    std::vector<QRectF> _rects;
    std::vector<std::uint64_t> _numbers;
    std::vector<Former> _formers;
    std::uint64_t _nextNumber = 1;
    QSizeF _size;
};

} // namespace zarn::views
