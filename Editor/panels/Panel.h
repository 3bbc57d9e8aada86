// SPDX-License-Identifier: MIT
#pragma once

#include "actions/Action.h"

#include <QWidget>

#include <memory>

namespace zarn::editor {

/// A part of a window beside the pages that shows something of the document, and may change it by
/// `Document::edit`. It follows what the document, the cursor and the selection are while it is
/// seen.
class Panel : public QWidget {
    Q_OBJECT
public:
    explicit Panel(const ActionContext &context);
    ~Panel() override;

protected:
    /// Back to the pages, where keys write music.
    void leave();

    /// Shows what is there now. Called in the turn of the event loop behind a change, once however
    /// many there were, and when the panel comes into view.
    virtual void follow() = 0;

    Document &document() const noexcept { return _context.document; }
    const ActionContext &context() const noexcept { return _context; }

    void showEvent(QShowEvent *event) override;

private:
    void mark();
    void followIfSeen();

    ActionContext _context;
    bool _isStale = true;
    bool _isWaiting = false;
};

} // namespace zarn::editor
