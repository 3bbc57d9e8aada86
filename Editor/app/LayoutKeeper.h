// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/session/ZarnLayoutSession.h>

#include <QObject>

#include <memory>

namespace zarn::editor {

class Document;

/// What is laid out of a document before a window shows it; nothing by itself.
struct LaidOut {
    LaidOut() = default;
    /// What another window shows.
    LaidOut(std::shared_ptr<const layout::Layout> layout);
    /// What edits go on from.
    LaidOut(std::shared_ptr<layout::FirstLayout> first);

    std::shared_ptr<const layout::Layout> layout; ///< null for none
    std::shared_ptr<layout::FirstLayout> first;   ///< whose layout it is; null for another window's
};

/// Keeps the layout of a document that one window shows. What a few edits change is laid out in the
/// next turn of the event loop, so that many changes cost one. Where much is to do, as when a large
/// score is laid out first or in another view, the score is read in slices between which the user
/// goes on, and laid out on another thread.
class LayoutKeeper : public QObject {
    Q_OBJECT
public:
    /// With what is laid out already, if anything is. The document must outlive it.
    explicit LayoutKeeper(Document &document, LaidOut laidOut = {});
    ~LayoutKeeper() override;

    /// What the user chose.
    const layout::LayoutOptions &options() const noexcept { return _options; }
    void setOptions(const layout::LayoutOptions &options);

    /// The same without tracks that are not there any more, and with what the document decides.
    layout::LayoutOptions shownOptions() const;

    /// What is shown. While `isBusy`, it may be older than the score.
    const std::shared_ptr<const layout::Layout> &layout() const noexcept { return _layout; }

    /// Whether work is under way, that of the first reading too.
    bool isBusy() const noexcept { return _isWaiting || _isLayingOut; }

    /// At once, for what must not wait for the next turn.
    void bringUpToDate();

Q_SIGNALS:
    void layoutChanged();

private:
    void mark();
    void wait();
    void goOn();
    void startJob();
    void finishJob(const layout::LayoutJob &job, const QString &error);
    void show(std::shared_ptr<const layout::Layout> layout);
    void followDocument();

    Document &_document;
    layout::LayoutOptions _options;
    layout::LayoutSession _session;
    std::shared_ptr<const layout::Layout> _layout;
    bool _isWaiting = false;
    bool _isLayingOut = false;
    bool _isMuch = false; ///< too much to lay out in one turn
    bool _isStale = false;
};

} // namespace zarn::editor
