// SPDX-License-Identifier: MIT
#include "chord/DiagramPicture.h"

#include "common/CharacterRow.h"
#include "common/Terminal.h"

#include <algorithm>

namespace zarn::tool {

namespace {

constexpr int fewestRows = 4;
constexpr int mostRows = 12;
constexpr int gap = 4;

/// Lines above the first fret: name, what is open and what is not played, nut.
constexpr int linesAbove = 3;

/// What a line between two frets is made of.
struct Joints {
    const char *left;
    const char *middle;
    const char *right;
    const char *between;
};

struct DiagramGlyphs {
    Joints nut;
    Joints top; ///< where the drawing begins further up the neck
    Joints fret;
    Joints bottom;
    const char *string;
    const char *finger; ///< one that has no number
    const char *barre;
    const char *open;
    const char *muted;
};

constexpr DiagramGlyphs utf8Glyphs{{"╒", "╤", "╕", "═"},
                                   {"┌", "┬", "┐", "─"},
                                   {"├", "┼", "┤", "─"},
                                   {"└", "┴", "┘", "─"},
                                   "│",
                                   "●",
                                   "━",
                                   "○",
                                   "×"};
constexpr DiagramGlyphs asciiGlyphs{{"=", "=", "=", "="},
                                    {"+", "+", "+", "-"},
                                    {"+", "+", "+", "-"},
                                    {"+", "+", "+", "-"},
                                    "|",
                                    "*",
                                    "=",
                                    "o",
                                    "x"};

QString glyph(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

/// One diagram at its place in the lines of a picture.
class DiagramDrawing {
public:
    DiagramDrawing(ChordDiagram diagram, const DiagramGlyphs &glyphs)
        : _diagram(std::move(diagram)), _glyphs(glyphs)
    {
        const auto isAbove = [this](int fret) { return fret > 0 && fret < _diagram.firstFret; };
        if (_diagram.firstFret == 0
            || std::any_of(_diagram.frets.begin(), _diagram.frets.end(), isAbove))
            setFirstFret(_diagram);
        for (const int fret : _diagram.frets)
            _rowCount = std::max(_rowCount, fret - _diagram.firstFret + 1);
        _rowCount = std::min(_rowCount, mostRows);
        if (_diagram.firstFret > 1)
            _position = QStringLiteral(" %1fr").arg(_diagram.firstFret);
        _name = QString::fromStdString(printable(_diagram.name));
    }

    int width() const
    {
        return std::max(column(stringCount() - 1) + 1 + displayWidth(_position),
                        displayWidth(_name));
    }
    int height() const { return linesAbove + 2 * _rowCount; }

    /// There are `height` lines at least.
    void draw(std::vector<CharacterRow> &lines, int left,
              const std::vector<unsigned> &courseSizes) const
    {
        lines[0].write(left, _name, Ink::Chord);
        drawGrid(lines, left);
        drawBarres(lines, left, courseSizes);
        drawPlaces(lines, left);
    }

private:
    int stringCount() const { return static_cast<int>(_diagram.frets.size()); }
    static int column(int string) { return 2 * string; }

    /// The line of a fret, -1 when it is not drawn.
    int lineOf(int fret) const
    {
        const int row = fret - _diagram.firstFret;
        return row >= 0 && row < _rowCount ? linesAbove + 2 * row : -1;
    }

    void drawJoints(CharacterRow &line, int left, const Joints &joints) const
    {
        const int last = stringCount() - 1;
        line.fill(left, left + column(last) + 1, glyph(joints.between), Ink::Line);
        for (int string = 0; string <= last; ++string) {
            const bool isEnd = last > 0 && (string == 0 || string == last);
            const char *const joint = !isEnd ? joints.middle
                : string == 0                ? joints.left
                                             : joints.right;
            line.write(left + column(string), glyph(joint), Ink::Line);
        }
    }

    void drawGrid(std::vector<CharacterRow> &lines, int left) const
    {
        auto line = lines.begin() + linesAbove - 1;
        drawJoints(*line, left, _diagram.firstFret > 1 ? _glyphs.top : _glyphs.nut);
        for (int row = 0; row < _rowCount; ++row) {
            ++line;
            for (int string = 0; string < stringCount(); ++string)
                line->write(left + column(string), glyph(_glyphs.string), Ink::Line);
            if (row == 0)
                line->write(left + column(stringCount() - 1) + 1, _position, Ink::Heading);
            ++line;
            drawJoints(*line, left, row + 1 < _rowCount ? _glyphs.fret : _glyphs.bottom);
        }
    }

    void drawBarres(std::vector<CharacterRow> &lines, int left,
                    const std::vector<unsigned> &courseSizes) const
    {
        for (const DiagramBarre &barre : barresOf(_diagram, courseSizes)) {
            const int line = lineOf(barre.fret);
            if (line >= 0)
                lines[static_cast<std::size_t>(line)].fill(left + column(barre.firstString),
                                                           left + column(barre.lastString),
                                                           glyph(_glyphs.barre), Ink::Note);
        }
    }

    void drawPlaces(std::vector<CharacterRow> &lines, int left) const
    {
        for (int string = 0; string < stringCount(); ++string) {
            const auto at = static_cast<std::size_t>(string);
            const int fret = _diagram.frets[at];
            const int line = fret > 0 ? lineOf(fret) : 1;
            QString sign = glyph(fret < 0        ? _glyphs.muted
                                     : fret == 0 ? _glyphs.open
                                                 : _glyphs.finger);
            if (fret > 0 && at < _diagram.fingers.size() && _diagram.fingers[at] > 0)
                sign = fingerText(_diagram.fingers[at]);
            if (line >= 0)
                lines[static_cast<std::size_t>(line)].write(left + column(string), sign, Ink::Note);
        }
    }

    static QString fingerText(int finger)
    {
        constexpr int thumb = 5;
        return finger == thumb ? QStringLiteral("T") : QString::number(finger);
    }

    ChordDiagram _diagram;
    const DiagramGlyphs &_glyphs;
    QString _name;
    QString _position; ///< "5fr"; empty at the nut
    int _rowCount = fewestRows;
};

/// Draws the diagrams that fit into one line from `first` on, and moves it behind them.
std::string drawLine(std::vector<DiagramDrawing>::const_iterator &first,
                     std::vector<DiagramDrawing>::const_iterator end,
                     const std::vector<unsigned> &courseSizes, const Terminal &terminal)
{
    auto last = first;
    int height = 0;
    for (int right = 0; last != end; ++last) {
        right += last->width();
        if (last != first && right > terminal.width())
            break;
        right += gap;
        height = std::max(height, last->height());
    }
    std::vector<CharacterRow> lines(static_cast<std::size_t>(height));
    for (int left = 0; first != last; ++first) {
        first->draw(lines, left, courseSizes);
        left += first->width() + gap;
    }
    std::string text;
    for (const CharacterRow &line : lines)
        text += line.toText(terminal.showsColour()) + '\n';
    return text;
}

} // namespace

std::string diagramPicture(const std::vector<ChordDiagram> &diagrams,
                           const std::vector<unsigned> &courseSizes, const Terminal &terminal)
{
    const DiagramGlyphs &glyphs = terminal.showsUtf8() ? utf8Glyphs : asciiGlyphs;
    std::vector<DiagramDrawing> drawings;
    for (const ChordDiagram &diagram : diagrams)
        if (!diagram.frets.empty())
            drawings.emplace_back(diagram, glyphs);
    std::string text;
    for (auto next = drawings.cbegin(); next != drawings.cend();) {
        if (!text.empty())
            text += '\n';
        text += drawLine(next, drawings.cend(), courseSizes, terminal);
    }
    return text;
}

} // namespace zarn::tool
