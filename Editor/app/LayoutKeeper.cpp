// SPDX-License-Identifier: MIT
#include "app/LayoutKeeper.h"

#include "document/Document.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::editor {

LayoutKeeper::LayoutKeeper(Document &document, std::shared_ptr<const layout::Layout> layout)
    : _document(document), _session(document.listenedScore()), _layout(std::move(layout))
{
    connect(&document, &Document::changed, this, [this] {
        if (shownOptions().tracks != _session.options().tracks)
            _session.setOptions(shownOptions());
        mark();
    });
    if (_layout == nullptr)
        bringUpToDate();
}

LayoutKeeper::~LayoutKeeper() = default;

void LayoutKeeper::setOptions(const layout::LayoutOptions &options)
{
    _options = options;
    _session.setOptions(shownOptions());
    mark();
}

void LayoutKeeper::mark()
{
    if (_isWaiting)
        return;
    _isWaiting = true;
    QMetaObject::invokeMethod(this, &LayoutKeeper::bringUpToDate, Qt::QueuedConnection);
}

void LayoutKeeper::bringUpToDate()
{
    _isWaiting = false;
    if (_layout != nullptr && !_session.isOutdated())
        return;
    try {
        _layout = _session.update().layout;
    } catch (const CoreException &problem) {
        Q_EMIT _document.refused(QString::fromStdString(problem.message()));
        return;
    }
    Q_EMIT layoutChanged();
}

/// Without tracks that are not there any more; when all are gone, the full score.
layout::LayoutOptions LayoutKeeper::shownOptions() const
{
    layout::LayoutOptions options = _options;
    const unsigned count = _document.model().trackCount();
    options.tracks.erase(std::remove_if(options.tracks.begin(), options.tracks.end(),
                                        [count](unsigned track) { return track >= count; }),
                         options.tracks.end());
    return options;
}

} // namespace zarn::editor
