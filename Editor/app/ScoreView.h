// SPDX-License-Identifier: MIT
#pragma once

#include "app/LayoutKeeper.h"

#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnViews/widgets/ZarnScoreCanvas.h>

namespace zarn::editor {

class Document;

/// How a view follows the size of its window.
enum class ZoomPolicy { Free, Width, Height, Page };

/// The pages of a document in a window: shows cursor and selection, and moves them by the mouse.
class ScoreView : public views::ScoreCanvas {
    Q_OBJECT
public:
    explicit ScoreView(Document &document, LaidOut laidOut, QWidget *parent = nullptr);
    ~ScoreView() override;

    LayoutKeeper &layouts() noexcept { return _layouts; }
    const LayoutKeeper &layouts() const noexcept { return _layouts; }

    ZoomPolicy zoomPolicy() const noexcept { return _zoomPolicy; }
    void setZoomPolicy(ZoomPolicy policy);

    /// From notation to tablature, or what else the track of the cursor shows.
    void goToOtherKind();

    /// Draws the line of what sounds, and scrolls when it comes to another system or leaves the
    /// window, unless the user scrolled away from it.
    void showPlayback(const std::optional<std::pair<std::int32_t, utils::rational>> &position);

Q_SIGNALS:
    void zoomPolicyChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void showLayout();
    void showPlace();
    void press(const views::PointedAt &at, Qt::KeyboardModifiers modifiers);
    void drag(const views::PointedAt &at);
    void selectBar(const views::PointedAt &at);
    std::optional<ScoreModelIndex> placeOf(const views::PointedAt &at) const;
    void go(const views::PointedAt &at, bool extends);
    void choose(layout::StaffKind kind);
    void applyZoomPolicy();

    Document &_document;
    LayoutKeeper _layouts;
    ZoomPolicy _zoomPolicy = ZoomPolicy::Width;
    bool _isRevealing = true;
    bool _isFitting = false;
    QRectF _playbackLine;   ///< on the sheets, in units of the layout
    QPoint _playbackScroll; ///< where the scroll bars were when it was shown last
    bool _isFollowingPlayback = true;
};

} // namespace zarn::editor
