// SPDX-License-Identifier: MIT
#include "panels/Panel.h"

#include "app/ScoreView.h"
#include "document/Document.h"

#include <QShortcut>

namespace zarn::editor {

Panel::Panel(const ActionContext &context) : _context(context)
{
    connect(&context.document, &Document::changed, this, &Panel::mark);
    connect(&context.document, &Document::placeChanged, this, &Panel::mark);
    auto *const leaving = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    leaving->setContext(Qt::WidgetWithChildrenShortcut);
    connect(leaving, &QShortcut::activated, this, &Panel::leave);
}

Panel::~Panel() = default;

void Panel::leave()
{
    context().view.setFocus();
}

void Panel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    followIfSeen();
}

void Panel::mark()
{
    _isStale = true;
    if (_isWaiting || !isVisible())
        return;
    _isWaiting = true;
    QMetaObject::invokeMethod(this, &Panel::followIfSeen, Qt::QueuedConnection);
}

void Panel::followIfSeen()
{
    _isWaiting = false;
    if (!_isStale || !isVisible())
        return;
    _isStale = false;
    follow();
}

} // namespace zarn::editor
