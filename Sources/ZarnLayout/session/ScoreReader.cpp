// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ScoreReader.h>

#include <ZarnLayout/session/ScoreMarks.h>
#include <ZarnLayout/session/StringsText.h>
#include <ZarnLayout/source/CrossBeaming.h>
#include <ZarnLayout/source/SourceReader.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zarn::engraving {

namespace {

bool hasTimers(const BarColumn &column)
{
    return std::any_of(column.staves.begin(), column.staves.end(), [](const auto &staff) {
        return std::any_of(staff->voices.begin(), staff->voices.end(), [](const auto &voice) {
            return std::any_of(voice.beats.begin(), voice.beats.end(),
                               [](const BeatSource &beat) { return beat.marks.hasTimer(); });
        });
    });
}

/// A bar of a staff with the playing times of its beats; null where it has them already.
std::shared_ptr<const BarSource> withPlayingTimes(const BarSource &source, unsigned bar,
                                                  const playback::PlaybackPlan &plan)
{
    std::shared_ptr<BarSource> changed;
    for (std::size_t voice = 0; voice < source.voices.size(); ++voice)
        for (std::size_t i = 0; i < source.voices[voice].beats.size(); ++i) {
            const BeatSource &beat = source.voices[voice].beats[i];
            if (!beat.marks.hasTimer())
                continue;
            const auto time = plan.bars().timeOf(bar, beat.onset);
            const auto seconds = time
                ? static_cast<std::int32_t>(std::lround(plan.tempo().secondsAt(*time)))
                : BeatSource::neverPlayed;
            if (seconds == beat.playingTime)
                continue;
            if (!changed)
                changed = std::make_shared<BarSource>(source);
            changed->voices[voice].beats[i].playingTime = seconds;
        }
    return changed;
}

/// By staff: whether its notes stand right above those of the next staff of its track.
std::vector<bool> staffMeetings(const std::vector<Row> &rows)
{
    std::vector<bool> meetings;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i].isLastOfStaff)
            continue;
        const bool hasNext = i + 1 < rows.size() && rows[i + 1].track == rows[i].track;
        meetings.push_back(hasNext && rows[i].notation == Notation::Standard
                           && rows[i + 1].notation == Notation::Standard);
    }
    return meetings;
}

/// Gives a column its voices that are longer than the bar.
void findLongVoices(BarColumn &column, const std::vector<std::pair<unsigned, unsigned>> &staves)
{
    for (std::size_t i = 0; i < column.staves.size(); ++i)
        for (const VoiceSource &voice : column.staves[i]->voices) {
            if (voice.beats.empty())
                continue;
            const BeatSource &last = voice.beats.back();
            if (last.onset + last.length <= column.shared->length)
                continue;
            layout::DrawPlace place;
            place.bar = 0;
            place.track = static_cast<std::int16_t>(staves[i].first);
            place.staff = static_cast<std::int8_t>(staves[i].second);
            place.voice = static_cast<std::int8_t>(voice.number);
            column.longVoices.push_back(place);
        }
}

} // namespace

bool ScoreReader::read(const ScoreModel &model, const layout::LayoutOptions &options,
                       ScoreMarks &marks, const Deadline &deadline)
{
    readHeads(model, options);
    const unsigned barCount = model.masterTrack()->masterBarCount();
    const unsigned first = std::min(options.firstBar, barCount);
    const unsigned end = options.lastBar && *options.lastBar < barCount
        ? std::max(*options.lastBar + 1, first)
        : barCount;
    moveColumns(marks.takeOrigins(barCount), first, end);
    if (marks.texts() || !_source.texts)
        readTexts(model);
    marks.clearTexts();
    if (marks.columns())
        readShared(model, end);
    marks.clearColumns();
    for (unsigned bar = first; bar < end; ++bar) {
        const unsigned number = bar - first;
        if (_source.columns[number] && !marks.anyBar(bar))
            continue;
        readColumn(model, number, marks);
        marks.clearBar(bar);
        if (deadline && std::chrono::steady_clock::now() >= *deadline)
            return false;
    }
    marks.clear();
    readPlayingTimes(model);
    return true;
}

std::shared_ptr<const ScoreSource> ScoreReader::source() const
{
    return std::make_shared<const ScoreSource>(_source);
}

void ScoreReader::readHeads(const ScoreModel &model, const layout::LayoutOptions &options)
{
    _source.rows = rowsOf(model, options.tracks, options.notations);
    _source.staffOfRow.clear();
    std::vector<std::pair<unsigned, unsigned>> staves;
    for (const Row &row : _source.rows) {
        const auto staff = std::make_pair(row.track, row.staff);
        if (staves.empty() || staves.back() != staff)
            staves.push_back(staff);
        _source.staffOfRow.push_back(static_cast<unsigned>(staves.size() - 1));
    }
    std::vector<bool> meetNext = staffMeetings(_source.rows);
    if (staves != _staves || meetNext != _meetNext) {
        _staves = std::move(staves);
        _meetNext = std::move(meetNext);
        _source.columns.assign(_source.columns.size(), nullptr);
    }
    _source.tracks.clear();
    for (const auto &track : model.tracks()) {
        TrackHead head;
        head.name = track->name();
        head.shortName = track->shortName();
        head.lyricsVisible = track->settings().lyricsVisible;
        if (const auto staff = track->staff(0))
            head.stringCount = staff->tuning().stringCount();
        const bool isShown =
            std::any_of(_source.rows.begin(), _source.rows.end(),
                        [&](const Row &row) { return row.track == track->index(); });
        if (isShown)
            head.strings = stringsText(*track);
        _source.tracks.push_back(std::move(head));
    }
    _source.groups = model.trackGroups();
    _source.page = options.page.value_or(model.pageSetup());
    _source.view = options.view;
    _source.multiRest = options.multiRest;
    _source.firstNumber = model.masterTrack()->hasAnacrusis() ? 0 : 1;
    const auto &rows = _source.rows;
    _source.isPart = !rows.empty() && model.trackCount() > 1
        && std::all_of(rows.begin(), rows.end(),
                       [&](const Row &row) { return row.track == rows.front().track; });
    readSystems(model, options.breaks);
}

void ScoreReader::readSystems(const ScoreModel &model, layout::SystemBreaks breaks)
{
    _source.systems.clear();
    _source.usualBars = 0;
    if (breaks == layout::SystemBreaks::ByThemselves)
        return;
    if (_source.isPart) {
        const Track &track = *model.tracks()[_source.rows.front().track];
        _source.systems = track.systemsLayout();
        _source.usualBars = track.defaultBarCountBySystem();
    } else {
        _source.systems = model.fullScoreSystemsLayout();
        _source.usualBars = model.fullScoreDefaultBarCountBySystem();
    }
    if (_source.systems.empty() && breaks != layout::SystemBreaks::AsDocument)
        _source.usualBars = 0;
}

void ScoreReader::readTexts(const ScoreModel &model)
{
    auto texts = std::make_shared<ScoreModel>();
    for (unsigned i = 0; i <= static_cast<unsigned>(ScoreProperty::Notice); ++i) {
        const auto property = static_cast<ScoreProperty>(i);
        texts->setScoreProperty(property, model.property(property));
    }
    for (unsigned i = 0; i < HeaderAndFooterCount; ++i) {
        const auto place = static_cast<HeaderAndFooter>(i);
        texts->setHeaderAndFooter(place, model.headerAndFooter(place));
    }
    _source.texts = std::move(texts);
}

void ScoreReader::moveColumns(const std::optional<std::vector<std::uint32_t>> &origins,
                              unsigned first, unsigned end)
{
    if (!origins && _source.firstBar == first && _source.columns.size() == end - first)
        return;
    std::vector<std::shared_ptr<const BarColumn>> columns(end - first);
    std::vector<std::shared_ptr<const ColumnSource>> shared(end - first);
    for (unsigned bar = first; bar < end; ++bar) {
        const std::uint32_t origin = origins ? (*origins)[bar] : bar;
        if (origin == ScoreMarks::isNew || origin < _source.firstBar
            || origin - _source.firstBar >= _source.columns.size())
            continue;
        columns[bar - first] = std::move(_source.columns[origin - _source.firstBar]);
        shared[bar - first] = std::move(_shared[origin - _source.firstBar]);
    }
    _source.firstBar = first;
    _source.columns = std::move(columns);
    _shared = std::move(shared);
}

void ScoreReader::readShared(const ScoreModel &model, unsigned end)
{
    std::vector<ColumnSource> read = readColumns(model, _source.firstBar, end);
    for (std::size_t i = 0; i < read.size(); ++i) {
        if (_shared[i] && *_shared[i] == read[i])
            continue;
        _shared[i] = std::make_shared<const ColumnSource>(std::move(read[i]));
        if (!_source.columns[i])
            continue;
        auto column = std::make_shared<BarColumn>();
        column->shared = _shared[i];
        column->staves = _source.columns[i]->staves;
        column->hasTimers = _source.columns[i]->hasTimers;
        findLongVoices(*column, _staves);
        _source.columns[i] = std::move(column);
    }
}

void ScoreReader::readColumn(const ScoreModel &model, unsigned number, const ScoreMarks &marks)
{
    const auto &known = _source.columns[number];
    const unsigned bar = _source.firstBar + number;
    auto column = std::make_shared<BarColumn>();
    column->shared = _shared[number];
    column->staves.reserve(_staves.size());
    bool isOther = !known;
    while (column->staves.size() < _staves.size()) {
        const std::size_t first = column->staves.size();
        if (known && !marks.bar(bar, _staves[first].first)) {
            column->staves.push_back(known->staves[first]);
            continue;
        }
        for (BarSource &source : readTrack(model, first, bar)) {
            const std::size_t staff = column->staves.size();
            if (known && *known->staves[staff] == source) {
                column->staves.push_back(known->staves[staff]);
                continue;
            }
            column->staves.push_back(std::make_shared<const BarSource>(std::move(source)));
            isOther = true;
        }
    }
    if (!isOther)
        return;
    findLongVoices(*column, _staves);
    column->hasTimers = hasTimers(*column);
    _hasTimers = _hasTimers || column->hasTimers;
    _source.columns[number] = std::move(column);
}

std::vector<BarSource> ScoreReader::readTrack(const ScoreModel &model, std::size_t staff,
                                              unsigned bar) const
{
    const unsigned index = _staves[staff].first;
    const Track &track = *model.tracks()[index];
    std::vector<BarSource> sources;
    for (std::size_t i = staff; i < _staves.size() && _staves[i].first == index; ++i)
        sources.push_back(readBar(model, track, *track.staves()[_staves[i].second], bar));
    unsigned beams = 0;
    for (std::size_t i = 0; i + 1 < sources.size(); ++i)
        if (_meetNext[staff + i])
            beams = setBeamsAcross(sources[i], sources[i + 1], beams);
    return sources;
}

/// Whatever changed may have moved what comes behind it: the times of all beats that show one are
/// worked out again, by the plan of playing.
void ScoreReader::readPlayingTimes(const ScoreModel &model)
{
    if (!std::exchange(_hasTimers, false))
        return;
    std::optional<playback::PlaybackPlan> plan;
    for (std::size_t i = 0; i < _source.columns.size(); ++i) {
        if (!_source.columns[i]->hasTimers)
            continue;
        _hasTimers = true;
        if (!plan) {
            playback::PlanOptions options;
            options.tracks = {0}; // times are those of all tracks
            plan.emplace(model, options);
        }
        std::shared_ptr<BarColumn> changed;
        for (std::size_t staff = 0; staff < _staves.size(); ++staff) {
            auto source = withPlayingTimes(*_source.columns[i]->staves[staff],
                                           _source.firstBar + static_cast<unsigned>(i), *plan);
            if (!source)
                continue;
            if (!changed)
                changed = std::make_shared<BarColumn>(*_source.columns[i]);
            changed->staves[staff] = std::move(source);
        }
        if (changed)
            _source.columns[i] = std::move(changed);
    }
}

} // namespace zarn::engraving
