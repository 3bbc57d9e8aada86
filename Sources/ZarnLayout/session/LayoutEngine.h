// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/page/SystemBuilder.h>
#include <ZarnLayout/session/FormerBars.h>
#include <ZarnLayout/session/LineMaker.h>
#include <ZarnLayout/session/PageMaker.h>
#include <ZarnLayout/session/SystemBreaks.h>

#include <memory>
#include <vector>

namespace zarn::layout {
class TextMeasure;
}

namespace zarn::engraving {

/// Lays scores out, one behind the other: what a score shares with the one before is not made
/// again. What comes out depends on the last score alone. Knows no score but what it is given, so
/// that it may run on any thread; on one at a time.
class ZARNLAYOUT_EXPORT LayoutEngine {
public:
    /// `texts` must outlive the engine.
    LayoutEngine(std::shared_ptr<const layout::MusicFont> font, const layout::TextMeasure &texts);
    LayoutEngine(const LayoutEngine &) = delete;
    LayoutEngine &operator=(const LayoutEngine &) = delete;

    std::shared_ptr<const layout::Layout> layOut(std::shared_ptr<const ScoreSource> source);

    /// Of the last layout, for whoever measures how good they are.
    const SystemBreaks &breaks() const noexcept { return _breaks; }

private:
    /// Of each shown bar the one that it was before, or `SystemBreaks::isNew`.
    using Origins = std::vector<std::uint32_t>;

    Origins engrave(const ScoreSource &source, const ScoreSource *old);
    Origins originsOf(const ScoreSource &source, const ScoreSource &old) const;
    void takeBarsOver(const Origins &origins);
    void engraveBar(const ScoreSource &source, std::size_t shownBar);
    void spaceAgain(const ScoreSource &source, std::size_t shownBar);
    void buildSystems(const ScoreSource &source, const Sheet &sheet, const Origins &origins);
    void buildLine(const ScoreSource &source, const Origins &origins);
    void addSystem(const ScoreSource &source, ShownSystem system, const Origins &origins);
    template <class Visit>
    void eachShown(const Visit &visit) const;
    void forgetEngraved();
    void takeOver(ShownSystem &old, ShownSystem &system) const;
    bool isSame(const ShownSystem &old, const ShownSystem &system) const;
    Problems collectProblems(const ScoreSource &source, const Sheet &sheet);
    void findBarProblems(const ScoreSource &source);
    void addFontProblems(Problems &problems) const;

    std::shared_ptr<const layout::MusicFont> _font;
    Fonts _fonts;
    Pen _pen;
    SystemBreaks _breaks;
    PageMaker _pages;
    LineMaker _line;

    std::shared_ptr<const ScoreSource> _source;
    EngravedScore _score;
    bool _hasOtherHeads = true;        ///< whatever all systems show is different
    std::vector<ShownSystem> _systems; ///< none of a line
    Problems _barProblems;
    bool _hasOtherBarProblems = true; ///< than those were found

    // Of the score before, while the next one is laid out.
    FormerBars _former;
    std::vector<std::shared_ptr<const ShownColumn>> _gone; ///< columns of it
    std::vector<ShownSystem> _oldSystems;
    std::vector<std::uint32_t> _oldSystemAt; ///< by shown bar, where one begins
};

} // namespace zarn::engraving
