// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/session/ZarnLayoutSession.h>

#include <QObject>

#include <memory>

namespace zarn::editor {

class Document;

/// Keeps the layout of a document that one window shows: what is changed is laid out anew in the
/// next turn of the event loop, so that many changes cost one.
class LayoutKeeper : public QObject {
    Q_OBJECT
public:
    /// With what is laid out already, if anything is. The document must outlive it.
    explicit LayoutKeeper(Document &document,
                          std::shared_ptr<const layout::Layout> layout = nullptr);
    ~LayoutKeeper() override;

    const layout::LayoutOptions &options() const noexcept { return _options; }
    void setOptions(const layout::LayoutOptions &options);

    /// As it was when it was brought up to date last.
    const std::shared_ptr<const layout::Layout> &layout() const noexcept { return _layout; }

    /// At once, for what must not wait for the next turn.
    void bringUpToDate();

Q_SIGNALS:
    void layoutChanged();

private:
    void mark();
    layout::LayoutOptions shownOptions() const;

    Document &_document;
    layout::LayoutOptions _options;
    layout::LayoutSession _session;
    std::shared_ptr<const layout::Layout> _layout;
    bool _isWaiting = false;
};

} // namespace zarn::editor
