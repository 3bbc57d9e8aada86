// SPDX-License-Identifier: MIT
#include <ZarnViews/paint/ZarnTextFonts.h>

#include <ZarnLayout/font/ZarnFontOutlines.h>
#include <ZarnViews/paint/ViewFonts.h>

#include <QGlyphRun>
#include <QTextLayout>

#include <set>
#include <string>

namespace zarn::views {
namespace {

/// The characters of a text for which Qt finds no glyph, each once.
QString undrawableIn(const QString &characters, const QFont &font)
{
    QString missing;
    for (const uint character : characters.toUcs4()) {
        const QString one = QString::fromUcs4(&character, 1);
        if (one.trimmed().isEmpty() || missing.contains(one))
            continue;
        QTextLayout line(one, font);
        line.beginLayout();
        line.createLine();
        line.endLayout();
        const auto runs = line.glyphRuns();
        const bool isThere = !runs.isEmpty() && !runs.first().glyphIndexes().isEmpty()
            && runs.first().glyphIndexes().first() != 0;
        if (!isThere)
            missing += one;
    }
    return missing;
}

class Search {
public:
    void look(const layout::DrawList &list)
    {
        for (const layout::DrawMark &mark : list.marks()) {
            if (mark.shape != layout::MarkShape::Text)
                continue;
            const auto characters = list.characters(mark);
            const auto &style = list.textOf(mark).style;
            if (layout::FontOutlines::text(style.face).set(characters)
                || !_seen.insert(std::string(characters)).second)
                continue;
            const QString text =
                QString::fromUtf8(characters.data(), static_cast<int>(characters.size()));
            const QString missing = undrawableIn(text, ViewFonts::instance().text(style.face, 100));
            if (!missing.isEmpty())
                _problems.push_back({mark.place,
                                     "No font of this machine has " + missing.toStdString()
                                         + " of the text \"" + text.toStdString() + "\"."});
        }
    }

    std::vector<layout::LayoutProblem> result() && { return std::move(_problems); }

private:
    std::set<std::string> _seen;
    std::vector<layout::LayoutProblem> _problems;
};

} // namespace

std::vector<layout::LayoutProblem> undrawableTexts(const layout::Layout &layout)
{
    Search search;
    for (const layout::LayoutPage &page : layout.pages()) {
        if (page.marks != nullptr)
            search.look(*page.marks);
        for (const layout::PlacedSystem &system : page.systems)
            search.look(system.drawing->marks);
    }
    return std::move(search).result();
}

} // namespace zarn::views
