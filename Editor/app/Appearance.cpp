// SPDX-License-Identifier: MIT
#include "app/Appearance.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace zarn::editor {
namespace {

QString settingKey()
{
    return QStringLiteral("appearance");
}

QPalette darkPalette()
{
    const QColor window(0x2b, 0x2b, 0x2b);
    const QColor base(0x1e, 0x1e, 0x1e);
    const QColor text(0xe6, 0xe6, 0xe6);
    const QColor faint(0x80, 0x80, 0x80);
    const QColor highlight(0x3d, 0x8e, 0xc9);
    QPalette palette(window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(0x35, 0x35, 0x35));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::ToolTipText, QPalette::BrightText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::Dark, QColor(0x14, 0x14, 0x14));
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, highlight);
    return palette;
}

/// Draws by the palette alone. On a dark one the frames of boxes and radio buttons, which are
/// derived from the colour of windows, could not be seen.
class DarkStyle : public QProxyStyle {
public:
    DarkStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) { }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool isRound = element == PE_IndicatorRadioButton;
        if (!isRound && element != PE_IndicatorCheckBox)
            return;
        const bool isEnabled = (option->state & State_Enabled) != 0;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing, isRound);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(isEnabled ? QColor(0x9a, 0x9a, 0x9a) : QColor(0x5a, 0x5a, 0x5a));
        if (isRound)
            painter->drawEllipse(QRectF(option->rect).adjusted(1, 1, -1, -1));
        else
            painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
        painter->restore();
    }
};

/// What the system had, before this program changed anything.
struct SystemLook {
    QString style = QApplication::style()->objectName();
    QPalette palette = QApplication::palette();
};

const SystemLook &systemLook()
{
    static const SystemLook look;
    return look;
}

} // namespace

Appearance appearance()
{
    const int kept = QSettings().value(settingKey(), 0).toInt();
    return kept >= 0 && kept <= static_cast<int>(Appearance::Dark) ? static_cast<Appearance>(kept)
                                                                   : Appearance::System;
}

void setAppearance(Appearance chosen)
{
    QSettings().setValue(settingKey(), static_cast<int>(chosen));
    applyAppearance();
}

void applyAppearance()
{
    const SystemLook &system = systemLook();
    const Appearance chosen = appearance();
    if (chosen == Appearance::System) {
        QApplication::setStyle(system.style);
        QApplication::setPalette(system.palette);
        return;
    }
    const bool isDark = chosen == Appearance::Dark;
    QApplication::setStyle(isDark ? new DarkStyle
                                  : QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(isDark ? darkPalette() : QPalette(QColor(0xef, 0xef, 0xef)));
}

} // namespace zarn::editor
