// SPDX-License-Identifier: MIT
#include "panels/Panel.h"

#include "document/Document.h"

namespace zarn::editor {

Panel::Panel(const ActionContext &context) : _context(context)
{
    connect(&context.document, &Document::changed, this, &Panel::mark);
    connect(&context.document, &Document::placeChanged, this, &Panel::mark);
}

Panel::~Panel() = default;

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
