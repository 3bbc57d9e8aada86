// SPDX-License-Identifier: MIT
#include "ScoreView.h"

#include "BarText.h"

#include <ZarnCore/events/ZarnEvents.h>

#include <algorithm>
#include <ostream>
#include <tuple>
#include <utility>

namespace evt = zarn::evt;

namespace {

/// Marks the cells `first` to `last` stale, both included.
template <class Cells>
void spoil(Cells &cells, int first, int last)
{
    const int end = std::min(last + 1, static_cast<int>(cells.size()));
    for (int i = std::max(first, 0); i < end; ++i)
        cells[static_cast<std::size_t>(i)].reset();
}

/// Reads the stale cells by `textAt(index)`; answers how many.
template <class Cells, class TextAt>
std::size_t readStale(Cells &cells, TextAt textAt)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (!cells[i]) {
            cells[i] = textAt(static_cast<unsigned>(i));
            ++count;
        }
    return count;
}

} // namespace

ScoreView::ScoreView(zarn::Score &score) : _score(score)
{
    listen();
    reset();
}

template <class Event, class Callable>
void ScoreView::on(Callable &&callable)
{
    _connections.push_back(_score.connectScoped<Event>(this, std::forward<Callable>(callable)));
}

template <class... Events>
void ScoreView::onStaffBars()
{
    (on<Events>([this](const Events &event) {
         spoilBars(event.trackIndex(), event.staffIndex(), event.firstBar(), event.lastBar());
     }),
     ...);
}

template <class... Events>
void ScoreView::onColumns()
{
    (on<Events>([this](const Events &event) { spoilColumns(event.firstBar(), event.lastBar()); }),
     ...);
}

void ScoreView::listen()
{
    on<evt::ScoreChanged>([this](const auto &) { reset(); });
    on<evt::AddBars>([this](const auto &event) { insertBars(event.index(), event.count()); });
    on<evt::RemoveBars>([this](const auto &event) { removeBars(event.index(), event.count()); });
    on<evt::RequestAddTracks>(
        [this](const auto &event) { insertTracks(event.index(), event.count()); });
    on<evt::RemoveTrack>([this](const auto &event) { removeTrack(event.trackIndex()); });
    on<evt::TrackNameChanged>([this](const auto &event) { renameTrack(event.trackIndex()); });

    // Pitches that are written as string and fret hang on the tuning.
    on<evt::GuitarFullTuningChanged>([this](const auto &event) { spoilTrack(event.trackIndex()); });

    onStaffBars<evt::ModifyBarRange, evt::BarAttribute, evt::SimileMarkBarChanged>();
    onColumns<evt::MasterBarTimeSignature, evt::MasterBarFreeTime, evt::MasterBarDoubleBar,
              evt::MasterBarRepeat, evt::SetBarSection, evt::UnsetBarSection>();
    on<evt::ModifyBarRangeAllTracks>([this](const auto &event) {
        spoilColumns(event.firstBar(), event.lastBar());
        for (auto &track : _tracks)
            for (auto &cells : track.staves)
                spoil(cells, event.firstBar(), event.lastBar());
    });

    // Sent last of all, while the score is locked for other threads.
    on<evt::CommandExecuted>([this](const auto &) { refresh(); });
}

void ScoreView::reset()
{
    _columns.assign(_score.masterTrack()->masterBarCount(), std::nullopt);
    _tracks.clear();
    insertTracks(0, static_cast<int>(_score.trackCount()));
    refresh();
}

ScoreView::TrackLines ScoreView::linesOfTrack(unsigned index) const
{
    const auto track = _score.track(index);
    return {track->name(), std::vector<Cells>(track->staffCount(), Cells(_columns.size()))};
}

void ScoreView::insertBars(int index, int count)
{
    const auto insert = [&](Cells &cells) {
        cells.insert(cells.begin() + index, static_cast<std::size_t>(count), std::nullopt);
    };
    insert(_columns);
    for (auto &track : _tracks)
        std::for_each(track.staves.begin(), track.staves.end(), insert);
}

void ScoreView::removeBars(int index, int count)
{
    const auto remove = [&](Cells &cells) {
        cells.erase(cells.begin() + index, cells.begin() + index + count);
    };
    remove(_columns);
    for (auto &track : _tracks)
        std::for_each(track.staves.begin(), track.staves.end(), remove);
}

void ScoreView::insertTracks(int index, int count)
{
    for (int i = index; i < index + count; ++i)
        _tracks.insert(_tracks.begin() + i, linesOfTrack(static_cast<unsigned>(i)));
}

void ScoreView::removeTrack(int track)
{
    _tracks.erase(_tracks.begin() + track);
}

void ScoreView::renameTrack(int track)
{
    const auto index = static_cast<unsigned>(track);
    _tracks[index].name = _score.track(index)->name();
}

void ScoreView::spoilTrack(int track)
{
    for (auto &cells : _tracks[static_cast<std::size_t>(track)].staves)
        spoil(cells, 0, static_cast<int>(cells.size()) - 1);
}

void ScoreView::spoilColumns(int first, int last)
{
    spoil(_columns, first, last);
}

void ScoreView::spoilBars(int track, int staff, int first, int last)
{
    auto &staves = _tracks[static_cast<std::size_t>(track)].staves;
    spoil(staves[static_cast<std::size_t>(staff)], first, last);
}

void ScoreView::refresh()
{
    const auto master = _score.masterTrack();
    _readCount +=
        readStale(_columns, [&](unsigned bar) { return textOf(*master->masterBar(bar)); });
    for (unsigned track = 0; track < _tracks.size(); ++track) {
        const auto source = _score.track(track);
        for (unsigned staff = 0; staff < _tracks[track].staves.size(); ++staff)
            _readCount += readStale(_tracks[track].staves[staff],
                                    [&](unsigned bar) { return textOf(*source->bar(bar, staff)); });
    }
}

void ScoreView::print(std::ostream &out, std::size_t barCount) const
{
    for (std::size_t bar = 0; bar < std::min(barCount, _columns.size()); ++bar) {
        out << "Bar " << bar + 1 << ": " << _columns[bar].value() << '\n';
        for (const auto &track : _tracks)
            for (const auto &cells : track.staves)
                out << "  " << track.name << ": " << cells[bar].value() << '\n';
    }
}

std::size_t ScoreView::takeReadCount() noexcept
{
    return std::exchange(_readCount, 0);
}

bool operator==(const ScoreView &left, const ScoreView &right)
{
    return left._columns == right._columns
        && std::equal(left._tracks.begin(), left._tracks.end(), right._tracks.begin(),
                      right._tracks.end(), [](const auto &a, const auto &b) {
                          return std::tie(a.name, a.staves) == std::tie(b.name, b.staves);
                      });
}
