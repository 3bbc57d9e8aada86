// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnLayout/font/ZarnMusicFont.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace test {

/// A layout as a list of marks, in staff spaces from the top line of the first row of their system.
class LaidOut {
public:
    struct Mark {
        zarn::layout::MarkKind kind;
        zarn::layout::DrawPlace place;
        std::string glyph; ///< its SMuFL name
        std::string text;
        unsigned page;
        unsigned system; ///< of the layout
        double x, y;     ///< its origin
        double left, top, right, bottom;
    };

    explicit LaidOut(const zarn::ScoreModel &model, const zarn::layout::LayoutOptions &options = {})
        : layout(zarn::layout::layOut(model, options))
    {
        using zarn::layout::toSpaces;
        unsigned number = 0;
        for (unsigned page = 0; page < layout->pages().size(); ++page)
            for (const auto &system : layout->pages()[page].systems) {
                const auto &list = system.drawing->marks;
                for (const auto &mark : list.marks()) {
                    const auto box = list.box(mark, layout->font());
                    const bool isGlyph = mark.shape == zarn::layout::MarkShape::Glyph;
                    const bool isText = mark.shape == zarn::layout::MarkShape::Text;
                    marks.push_back({mark.kind, mark.place,
                                     isGlyph ? layout->font().name(mark.glyph) : std::string(),
                                     isText ? std::string(list.characters(mark)) : std::string(),
                                     page, number, toSpaces(mark.at.x), toSpaces(mark.at.y),
                                     toSpaces(box.left), toSpaces(box.top), toSpaces(box.right),
                                     toSpaces(box.bottom)});
                }
                ++number;
            }
        systemCount = number;
    }

    std::vector<Mark> of(zarn::layout::MarkKind kind) const
    {
        std::vector<Mark> found;
        for (const Mark &mark : marks)
            if (mark.kind == kind)
                found.push_back(mark);
        return found;
    }

    std::shared_ptr<const zarn::layout::Layout> layout;
    std::vector<Mark> marks;
    unsigned systemCount = 0;
};

} // namespace test
