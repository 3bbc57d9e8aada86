// SPDX-License-Identifier: MIT
#include "app/LayoutKeeper.h"

#include "document/Document.h"
#include "document/DocumentFiles.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QFutureWatcher>
#include <QtConcurrent/QtConcurrentRun>

#include <algorithm>
#include <chrono>

namespace zarn::editor {
namespace {

/// What a turn of the event loop may read. What is read within it is laid out as fast.
constexpr std::chrono::milliseconds slice(10);

} // namespace

LaidOut::LaidOut(std::shared_ptr<const layout::Layout> layout) : layout(std::move(layout)) { }

LaidOut::LaidOut(std::shared_ptr<layout::FirstLayout> first)
    : layout(first->layout()), first(std::move(first))
{
}

LayoutKeeper::LayoutKeeper(Document &document, LaidOut laidOut)
    : _document(document), _options(usualOptions(document.model())),
      _session(laidOut.first
                   ? layout::LayoutSession(document.listenedScore(), std::move(*laidOut.first))
                   : layout::LayoutSession(document.listenedScore(), _options)),
      _layout(std::move(laidOut.layout))
{
    connect(&document, &Document::changed, this, &LayoutKeeper::followDocument);
    if (_layout == nullptr)
        bringUpToDate();
    else if (_session.isOutdated())
        wait(); // what another window shows is laid out here too, for the edits to come
}

LayoutKeeper::~LayoutKeeper() = default;

void LayoutKeeper::setOptions(const layout::LayoutOptions &options)
{
    _options = options;
    _session.setOptions(shownOptions());
    _isMuch = true;
    mark();
}

void LayoutKeeper::followDocument()
{
    const layout::LayoutOptions shown = shownOptions();
    if (shown.tracks != _session.options().tracks
        || shown.multiRest != _session.options().multiRest)
        _session.setOptions(shown);
    mark();
}

void LayoutKeeper::mark()
{
    _isStale = true;
    wait();
}

void LayoutKeeper::wait()
{
    if (_isWaiting || _isLayingOut)
        return;
    _isWaiting = true;
    QMetaObject::invokeMethod(this, &LayoutKeeper::goOn, Qt::QueuedConnection);
}

void LayoutKeeper::goOn()
{
    _isWaiting = false;
    if (_isLayingOut || !_session.isOutdated())
        return;
    bool isRead = false;
    const QString problem = reasonOf([&] { isRead = _session.read(slice); });
    if (!problem.isEmpty()) {
        Q_EMIT _document.refused(problem);
        return;
    }
    _isMuch = _isMuch || !isRead || _session.layout() == nullptr;
    if (!isRead)
        wait();
    else if (_isMuch)
        startJob();
    else
        bringUpToDate();
}

void LayoutKeeper::startJob()
{
    const auto job = _session.startJob();
    auto *const watcher = new QFutureWatcher<QString>(this);
    connect(watcher, &QFutureWatcher<QString>::finished, this, [this, watcher, job] {
        watcher->deleteLater();
        finishJob(*job, watcher->result());
    });
    _isMuch = false;
    _isLayingOut = true;
    watcher->setFuture(QtConcurrent::run([job] { return reasonOf([&] { job->run(); }); }));
}

void LayoutKeeper::finishJob(const layout::LayoutJob &job, const QString &error)
{
    _isLayingOut = false;
    if (!error.isEmpty()) {
        Q_EMIT _document.refused(error);
        return;
    }
    const auto update = _session.finishJob(job);
    if (_isStale)
        show(update.layout);
    if (_session.isOutdated())
        wait(); // what was edited meanwhile
}

void LayoutKeeper::bringUpToDate()
{
    if (_layout != nullptr && !_isStale)
        return;
    const QString problem = reasonOf([this] { show(_session.update().layout); });
    if (!problem.isEmpty())
        Q_EMIT _document.refused(problem);
}

void LayoutKeeper::show(std::shared_ptr<const layout::Layout> layout)
{
    _layout = std::move(layout);
    _isStale = _session.isOutdated();
    Q_EMIT layoutChanged();
}

/// When all of the tracks are gone, the full score.
layout::LayoutOptions LayoutKeeper::shownOptions() const
{
    layout::LayoutOptions options = _options;
    const unsigned count = _document.model().trackCount();
    options.tracks.erase(std::remove_if(options.tracks.begin(), options.tracks.end(),
                                        [count](unsigned track) { return track >= count; }),
                         options.tracks.end());
    options.multiRest = usualOptions(_document.model()).multiRest;
    return options;
}

} // namespace zarn::editor
