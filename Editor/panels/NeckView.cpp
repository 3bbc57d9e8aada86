// SPDX-License-Identifier: MIT
#include "panels/NeckView.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zarn::editor {
namespace {

constexpr double margin = 6;

/// Frets that necks have an inlay at, within an octave; the twelfth has two.
constexpr int inlays[] = {3, 5, 7, 9, 12};

} // namespace

NeckView::NeckView(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

NeckView::~NeckView() = default;

void NeckView::setNeck(const Neck &neck)
{
    if (neck == _neck)
        return;
    _neck = neck;
    _string = std::clamp(_string, 0, std::max(stringCount() - 1, 0));
    _fret = std::clamp(_fret, 0, _neck.lastFret);
    update();
}

void NeckView::setMarks(std::vector<NeckMark> marks)
{
    _marks = std::move(marks);
    describePlace();
    update();
}

void NeckView::setCurrentString(int string)
{
    if (string >= 0 && string < stringCount() && string != _string)
        moveTo(string, _fret);
}

bool NeckView::has(int string, int fret) const
{
    return string >= 0 && string < stringCount() && fret >= 0 && fret <= _neck.lastFret
        && (fret == 0 || fret >= _neck.firstFrets[static_cast<std::size_t>(string)]);
}

/// Open strings have a column in front of the nut.
double NeckView::fretX(int fret) const
{
    const double column = (width() - 2 * margin) / (_neck.lastFret + 1);
    return margin + column * (fret + 1);
}

double NeckView::stringY(int string) const
{
    const double foot = fontMetrics().height();
    const double row = (height() - 2 * margin - foot) / std::max(stringCount(), 1);
    return margin + row * (stringCount() - 1 - string) + row / 2;
}

QRectF NeckView::cellOf(int string, int fret) const
{
    const double half =
        (height() - 2 * margin - fontMetrics().height()) / std::max(stringCount(), 1) / 2;
    return QRectF(QPointF(fretX(fret - 1), stringY(string) - half),
                  QPointF(fretX(fret), stringY(string) + half));
}

void NeckView::moveTo(int string, int fret)
{
    _string = string;
    _fret = fret;
    describePlace();
    update();
}

/// Tells screen readers what the keys are on.
void NeckView::describePlace()
{
    if (stringCount() == 0)
        return;
    QStringList parts = {
        tr("String %1, %2").arg(stringCount() - _string).arg(_neck.openStrings.at(_string)),
        _fret == 0 ? tr("open") : tr("fret %1").arg(_fret)};
    for (const NeckMark &mark : _marks)
        if (mark.string == _string && mark.fret == _fret)
            parts << mark.text;
    const QString text = parts.join(QStringLiteral(", "));
    if (text == accessibleDescription())
        return;
    setAccessibleDescription(text);
    if (!hasFocus())
        return;
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

QSize NeckView::sizeHint() const
{
    const int line = fontMetrics().height();
    return {line * 36, line * (std::max(stringCount(), 6) * 3 / 2 + 2)};
}

QSize NeckView::minimumSizeHint() const
{
    const int line = fontMetrics().height();
    return {line * 16, line * (std::max(stringCount(), 4) + 2)};
}

void NeckView::drawBoard(QPainter &painter) const
{
    const QColor ink = palette().color(QPalette::Text);
    const QColor pale = palette().color(QPalette::Mid);
    const double top = stringY(stringCount() - 1);
    const double bottom = stringY(0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Midlight));
    for (int fret = 1; fret <= _neck.lastFret; ++fret) {
        // Inlays are where the wood has them, not where a capo counts from.
        const int place = (fret + _neck.capo - 1) % 12 + 1;
        if (std::find(std::begin(inlays), std::end(inlays), place) == std::end(inlays))
            continue;
        const double x = (fretX(fret - 1) + fretX(fret)) / 2;
        const double middle = (top + bottom) / 2;
        const double apart = place == 12 ? (bottom - top) / 5 : 0;
        painter.drawEllipse(QPointF(x, middle - apart), 4, 4);
        if (apart > 0)
            painter.drawEllipse(QPointF(x, middle + apart), 4, 4);
    }
    for (int fret = 0; fret <= _neck.lastFret; ++fret) {
        painter.setPen(fret == 0 ? QPen(ink, _neck.capo > 0 ? 6 : 3) : QPen(pale, 1));
        painter.drawLine(QPointF(fretX(fret), top), QPointF(fretX(fret), bottom));
    }
    for (int string = 0; string < stringCount(); ++string) {
        const int first = _neck.firstFrets[static_cast<std::size_t>(string)];
        painter.setPen(QPen(ink, 1));
        painter.drawLine(QPointF(fretX(first - 1), stringY(string)),
                         QPointF(fretX(_neck.lastFret), stringY(string)));
        painter.setPen(pale);
        painter.drawText(cellOf(string, 0), Qt::AlignCenter, _neck.openStrings.at(string));
    }
    painter.setPen(ink);
    // On a narrow neck as many numbers as can be read.
    const int widest = fontMetrics().horizontalAdvance(QStringLiteral("00 "));
    double free = 0; // from here on
    for (int fret = 1; fret <= _neck.lastFret; ++fret) {
        const double middle = (fretX(fret - 1) + fretX(fret)) / 2;
        if (middle - widest / 2.0 < free)
            continue;
        free = middle + widest / 2.0;
        painter.drawText(QRectF(fretX(fret - 1), height() - margin - fontMetrics().height(),
                                fretX(fret) - fretX(fret - 1), fontMetrics().height()),
                         Qt::AlignCenter | Qt::TextDontClip, QString::number(fret));
    }
    if (_neck.capo > 0)
        painter.drawText(QRectF(0, height() - margin - fontMetrics().height(), fretX(0) + margin,
                                fontMetrics().height()),
                         Qt::AlignCenter, tr("Capo %1").arg(_neck.capo));
}

void NeckView::drawMarks(QPainter &painter) const
{
    for (const NeckMark &mark : _marks) {
        if (!has(mark.string, mark.fret))
            continue;
        const QRectF cell = cellOf(mark.string, mark.fret);
        const bool isNote = mark.kind == NeckMark::Kind::Note;
        const double side = std::min(cell.width(), cell.height()) * (isNote ? .95 : .85);
        QRectF dot(0, 0, std::max(side, fontMetrics().horizontalAdvance(mark.text) + 4.), side);
        dot.moveCenter(cell.center());
        painter.setPen(QPen(palette().color(QPalette::Text), 1));
        painter.setBrush(isNote ? palette().color(QPalette::Highlight)
                             : mark.kind == NeckMark::Kind::Tonic
                             ? palette().color(QPalette::Text)
                             : palette().color(QPalette::Base));
        painter.drawRoundedRect(dot, side / 2, side / 2);
        painter.setPen(isNote ? palette().color(QPalette::HighlightedText)
                           : mark.kind == NeckMark::Kind::Tonic ? palette().color(QPalette::Base)
                                                                : palette().color(QPalette::Text));
        painter.drawText(dot, Qt::AlignCenter, mark.text);
    }
}

void NeckView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    if (stringCount() == 0) {
        painter.drawText(rect(), Qt::AlignCenter, tr("This staff has no strings."));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    drawBoard(painter);
    drawMarks(painter);
    if (!hasFocus())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(cellOf(_string, _fret));
}

void NeckView::mousePressEvent(QMouseEvent *event)
{
    for (int string = 0; string < stringCount(); ++string)
        for (int fret = 0; fret <= _neck.lastFret; ++fret) {
            if (!has(string, fret) || !cellOf(string, fret).contains(event->localPos()))
                continue;
            moveTo(string, fret);
            if (event->button() == Qt::LeftButton)
                Q_EMIT chosen(string, fret);
            return;
        }
}

void NeckView::keyPressEvent(QKeyEvent *event)
{
    int string = _string;
    int fret = _fret;
    switch (event->key()) {
    case Qt::Key_Up:
        ++string;
        break;
    case Qt::Key_Down:
        --string;
        break;
    case Qt::Key_Left:
        --fret;
        break;
    case Qt::Key_Right:
        ++fret;
        break;
    case Qt::Key_Home:
        fret = 0;
        break;
    case Qt::Key_End:
        fret = _neck.lastFret;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (has(_string, _fret))
            Q_EMIT chosen(_string, _fret);
        return;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    string = std::clamp(string, 0, std::max(stringCount() - 1, 0));
    fret = std::clamp(fret, 0, _neck.lastFret);
    // A short string begins farther up: the keys step over what it has not.
    while (fret > 0 && stringCount() > 0 && !has(string, fret))
        fret = fret > _fret ? fret + 1 : fret - 1;
    moveTo(string, fret);
}

void NeckView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    update();
}

void NeckView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    update();
}

} // namespace zarn::editor
