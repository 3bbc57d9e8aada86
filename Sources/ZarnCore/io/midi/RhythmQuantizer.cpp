// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/RhythmQuantizer.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::io {

namespace {

/// What changing the family of divisions from one beat to the next costs.
constexpr double priceOfChange = 0.8;

/// The cost of what cannot be.
constexpr double never = 1e18;

/// The median of a normal distribution's distances is this part of its deviation.
constexpr double medianOfNormal = 0.6745;

/// Deviation of times that were written, in ticks: they are rounded.
constexpr double deviationOfTicks = 0.7;

/// Ends that are cut a little short are usual, also in files that are written: so many ticks.
constexpr double cutShort = 2;

/// What a gap behind a note costs at most that is short against the note.
constexpr double mostForGap = 4.9;

double median(std::vector<double> &values)
{
    if (values.empty())
        return 0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void sortByStart(PlayedNotes &notes)
{
    const auto isEarlier = [](const PlayedNote &left, const PlayedNote &right) {
        return left.start < right.start;
    };
    if (!std::is_sorted(notes.begin(), notes.end(), isEarlier))
        std::stable_sort(notes.begin(), notes.end(), isEarlier);
}

/// Distance of a time to the nearest 16th or triplet.
double distanceToGrid(MidiTime time)
{
    MidiTime nearest = midiQuarter;
    for (const MidiTime step : {midiQuarter / 4, midiQuarter / 3, midiQuarter / 6}) {
        const MidiTime rest = time % step;
        nearest = std::min({nearest, rest, step - rest});
    }
    return static_cast<double>(nearest);
}

} // namespace

PlayingAccuracy measureAccuracy(const std::vector<PlayedNotes *> &parts,
                                const std::vector<TempoChange> &tempos, double tick)
{
    constexpr std::size_t enough = 20000;
    constexpr double leastDeviation = 0.004;
    constexpr double mostDeviation = 0.04;
    std::size_t total = 0;
    for (const PlayedNotes *notes : parts)
        total += notes->size();
    const std::size_t each = total / enough + 1;
    std::vector<double> distances;
    std::vector<double> seconds;
    for (const PlayedNotes *notes : parts) {
        TempoLine tempo(tempos);
        for (std::size_t i = 0; i < notes->size(); i += each) {
            const MidiTime time = (*notes)[i].playedStart;
            distances.push_back(distanceToGrid(time));
            seconds.push_back(distances.back() / midiQuarter * tempo.quarterSecondsAt(time));
        }
    }
    PlayingAccuracy accuracy;
    accuracy.tick = tick;
    accuracy.isPlayed = median(distances) > tick;
    accuracy.deviationSeconds =
        std::clamp(median(seconds) / medianOfNormal * 1.1, leastDeviation, mostDeviation);
    return accuracy;
}

RhythmQuantizer::RhythmQuantizer(const MeterLine &bars, const std::vector<TempoChange> &tempos,
                                 const PlayingAccuracy &accuracy, const GridChoice &choice)
    : _accuracy(accuracy), _shortest(choice.shortest > 0 ? choice.shortest : midiQuarter / 4),
      _cutShort(static_cast<MidiTime>(cutShort * accuracy.tick))
{
    TempoLine tempo(tempos);
    for (const MeterBar &bar : bars.bars()) {
        MidiTime at = bar.start;
        for (const MidiTime length : beatsOf(bar)) {
            auto &grids = _grids[length];
            if (grids.empty())
                grids = beatGrids(length, choice);
            const double still = deviationOfTicks * std::max(accuracy.tick, 1.0);
            const double played =
                accuracy.deviationSeconds / tempo.quarterSecondsAt(at) * midiQuarter;
            _beats.push_back({at, length, &grids, accuracy.isPlayed ? played : still});
            at += length;
        }
    }
    _chosen.assign(_beats.size(), nullptr);
}

std::size_t RhythmQuantizer::beatAt(MidiTime time) const noexcept
{
    // Times come nearly in order: the beat asked for last, or the one behind it.
    for (std::size_t beat = _lastBeat; beat < _lastBeat + 2 && beat < _beats.size(); ++beat)
        if (_beats[beat].start <= time && time < _beats[beat].start + _beats[beat].length)
            return _lastBeat = beat;
    const auto next =
        std::upper_bound(_beats.begin(), _beats.end(), time,
                         [](MidiTime at, const BeatPlace &beat) { return at < beat.start; });
    _lastBeat = next == _beats.begin() ? 0 : static_cast<std::size_t>(next - _beats.begin()) - 1;
    return _lastBeat;
}

/// What hands strike together gets one onset.
void RhythmQuantizer::joinChords(PlayedNotes &notes) const
{
    constexpr double widestGap = 1.5;
    constexpr double widestChord = 4.5;
    if (!_accuracy.isPlayed) {
        for (PlayedNote &note : notes)
            note.start = note.playedStart;
        return;
    }
    for (std::size_t first = 0; first < notes.size();) {
        const double deviation = _beats[beatAt(notes[first].playedStart)].deviation;
        std::array<bool, 128> keys = {};
        keys[notes[first].key] = true;
        MidiTime sum = notes[first].playedStart;
        std::size_t last = first + 1;
        for (; last < notes.size(); ++last) {
            const MidiTime time = notes[last].playedStart;
            const auto gap = static_cast<double>(time - notes[last - 1].playedStart);
            const auto width = static_cast<double>(time - notes[first].playedStart);
            if (gap > widestGap * deviation || width > widestChord * deviation
                || keys[notes[last].key])
                break;
            keys[notes[last].key] = true;
            sum += time;
        }
        const MidiTime mean = sum / static_cast<MidiTime>(last - first);
        for (; first < last; ++first)
            notes[first].start = mean;
    }
}

/// The costs of a beat's onsets in all families.
RhythmQuantizer::BeatFit RhythmQuantizer::fitAnew(const BeatPlace &place, const PlayedNotes &notes,
                                                  std::size_t first, std::size_t last)
{
    BeatFit fit = {};
    fit.costs.fill(never);
    fit.starts.fill(notYet);
    double best = never;
    for (const BeatGrid &grid : *place.grids) {
        if (grid.price > best + priceOfChange)
            break;
        double cost = grid.price;
        for (std::size_t i = first; i < last; ++i)
            cost += grid.fit(notes[i].start - place.start, place.deviation).cost;
        best = std::min(best, cost);
        if (cost < fit.costs[grid.family]) {
            fit.costs[grid.family] = cost;
            fit.grids[grid.family] = &grid;
        }
    }
    return fit;
}

std::size_t RhythmQuantizer::fitOf(const BeatPlace &place, const PlayedNotes &notes,
                                   std::size_t first, std::size_t last)
{
    // No two beats that were played are alike.
    PatternTable::Found found = {PatternTable::NotKept, true};
    if (!_accuracy.isPlayed) {
        _pattern.clear();
        _pattern.push_back(static_cast<std::uint64_t>(place.length));
        for (std::size_t i = first; i < last; ++i)
            _pattern.push_back(static_cast<std::uint64_t>(notes[i].start - place.start));
        found = _known.find(_pattern);
        if (!found.isNew)
            return _knownFits[found.number];
    }
    _fits.push_back(fitAnew(place, notes, first, last));
    if (found.number != PatternTable::NotKept)
        _knownFits.push_back(_fits.size() - 1);
    return _fits.size() - 1;
}

/// Where the music pauses, little is left of the division before.
void RhythmQuantizer::addPause(Costs &costs)
{
    const auto best =
        static_cast<std::size_t>(std::min_element(costs.begin(), costs.end()) - costs.begin());
    Step pause = {noBeat, 0, 0, 0, {}};
    for (std::size_t family = 0; family < BeatGrid::familyCount; ++family) {
        const bool isNew = costs[best] + priceOfChange < costs[family];
        pause.before[family] = static_cast<std::uint8_t>(isNew ? best : family);
        if (isNew)
            costs[family] = costs[best] + priceOfChange;
    }
    _steps.push_back(pause);
}

void RhythmQuantizer::addStep(Step step, Costs &costs)
{
    const Costs &fits = _fits[step.fit].costs;
    Costs next;
    for (std::size_t family = 0; family < BeatGrid::familyCount; ++family) {
        next[family] = never;
        if (fits[family] == never)
            continue;
        for (std::size_t before = 0; before < BeatGrid::familyCount; ++before) {
            const double change = before == family || family == BeatGrid::Plain ? 0 : priceOfChange;
            const double cost = costs[before] + fits[family] + change;
            if (cost < next[family]) {
                next[family] = cost;
                step.before[family] = static_cast<std::uint8_t>(before);
            }
        }
    }
    costs = next;
    _steps.push_back(step);
}

/// Where the notes of a step begin in its beat, by the grid of a family.
const MidiTime *RhythmQuantizer::startsOf(const Step &step, std::size_t family,
                                          const PlayedNotes &notes)
{
    BeatFit &fit = _fits[step.fit];
    if (fit.starts[family] == notYet) {
        fit.starts[family] = _starts.size();
        const BeatPlace &place = _beats[step.beat];
        for (std::size_t i = step.first; i < step.last; ++i)
            _starts.push_back(
                fit.grids[family]->fit(notes[i].start - place.start, place.deviation).at);
    }
    return _starts.data() + fit.starts[family];
}

void RhythmQuantizer::setStarts(PlayedNotes &notes)
{
    _steps.clear();
    if (_accuracy.isPlayed || _fits.size() > 2 * PatternTable::mostPatterns) {
        _known = {};
        _knownFits.clear();
        _fits.clear();
        _starts.clear();
    }
    Costs costs;
    costs.fill(never);
    costs[BeatGrid::Plain] = 0;
    std::size_t beat = 0;
    for (std::size_t first = 0; first < notes.size();) {
        while (beat + 1 < _beats.size() && _beats[beat + 1].start <= notes[first].start)
            ++beat;
        const BeatPlace &place = _beats[beat];
        std::size_t last = first;
        while (last < notes.size()
               && (notes[last].start < place.start + place.length || beat + 1 == _beats.size()))
            ++last;
        if (!_steps.empty() && _steps.back().beat + 1 < beat)
            addPause(costs);
        addStep({beat, first, last, fitOf(place, notes, first, last), {}}, costs);
        first = last;
    }

    auto family =
        static_cast<std::size_t>(std::min_element(costs.begin(), costs.end()) - costs.begin());
    std::fill(_chosen.begin(), _chosen.end(), nullptr);
    for (auto step = _steps.rbegin(); step != _steps.rend(); ++step) {
        if (step->beat != noBeat) {
            _chosen[step->beat] = _fits[step->fit].grids[family];
            const MidiTime *start = startsOf(*step, family, notes);
            for (std::size_t i = step->first; i < step->last; ++i)
                notes[i].start = _beats[step->beat].start + *start++;
        }
        family = step->before[family];
    }
}

/// How far ends usually are from the next onset and from the simple places.
double RhythmQuantizer::looseness(const PlayedNotes &notes) const
{
    constexpr std::size_t enough = 5000;
    const std::size_t each = notes.size() / enough + 1;
    std::vector<double> distances;
    for (std::size_t i = 0; i < notes.size(); i += each) {
        const MidiTime end = notes[i].playedEnd;
        double nearest = distanceToGrid(end);
        const auto next = std::lower_bound(_heard.begin(), _heard.end(), end);
        if (next != _heard.end())
            nearest = std::min(nearest, static_cast<double>(*next - end));
        if (next != _heard.begin())
            nearest = std::min(nearest, static_cast<double>(end - next[-1]));
        distances.push_back(nearest);
    }
    return median(distances);
}

/// The first onset that is not in front of an end, looked for from that of its note on: it is near.
std::size_t RhythmQuantizer::onsetFrom(MidiTime end, std::size_t note) const noexcept
{
    std::size_t before = _heard[note] < end ? note : 0;
    std::size_t step = _heard[note] < end ? 1 : _heard.size();
    for (; before + step < _heard.size() && _heard[before + step] < end; step *= 2)
        before += step;
    const auto from = _heard.begin() + static_cast<std::ptrdiff_t>(before);
    const auto to =
        _heard.begin() + static_cast<std::ptrdiff_t>(std::min(before + step, _heard.size()));
    return static_cast<std::size_t>(std::lower_bound(from, to, end) - _heard.begin());
}

MidiTime RhythmQuantizer::endFor(std::size_t note, MidiTime playedEnd, const PlayedNotes &notes,
                                 double looseness) const
{
    const MidiTime start = notes[note].start;
    const std::size_t next = onsetFrom(playedEnd, note);
    // Most ends of files that are written lead to the next onset, cut a little short at most.
    if (!_accuracy.isPlayed && next < notes.size() && notes[next].start > start
        && (next == 0 || notes[next - 1].start <= start)
        && std::abs(notes[next].start - playedEnd) <= _cutShort)
        return notes[next].start;
    const std::size_t beat = beatAt(playedEnd);
    const BeatPlace &place = _beats[beat];
    const double deviation =
        std::max(place.deviation, _accuracy.isPlayed ? looseness : cutShort * _accuracy.tick);
    MidiTime best = 0;
    double bestCost = 1e18;
    const auto take = [&](MidiTime end, double cost) {
        if (end > start && cost < bestCost) {
            best = end;
            bestCost = cost;
        }
    };
    const auto costOf = [&](MidiTime end) {
        const auto gap = static_cast<double>(end - playedEnd);
        const double off = gap / deviation;
        // A note that stops a little before the next one, or before the beat, is held up to it
        // sooner than that a tuplet or a 32nd would tell how much.
        const double share = 3 * gap / static_cast<double>(std::max<MidiTime>(end - start, 1));
        const bool isLittle = gap > 0 && share < 1;
        return std::min(off * off / 2,
                        isLittle ? mostForGap * (1 + share) / 2 : BeatGrid::mostForTime);
    };

    constexpr double priceOfBeat = 0.2;

    // The onsets around it, by when they were played.
    if (next < notes.size())
        take(notes[next].start, costOf(notes[next].start));
    if (next > 0)
        take(notes[next - 1].start, costOf(notes[next - 1].start));
    if (bestCost < 1)
        return best;
    take(place.start + place.length, costOf(place.start + place.length) + priceOfBeat);

    constexpr double priceOfOtherFamily = 3;
    const BeatGrid *const chosen = _chosen[beat];
    // Where the onsets show none, hands that let go a little early make no tuplets.
    const bool isShown = chosen != nullptr && chosen->places.size() > 2;
    const auto family = isShown ? chosen->family : BeatGrid::Plain;
    const bool isExpected = family != BeatGrid::Mixed && (isShown || _accuracy.isPlayed);
    for (const BeatGrid &grid : *place.grids) {
        const double price =
            0.5 + grid.price / 2 + (isExpected && grid.family != family ? priceOfOtherFamily : 0);
        if (price > bestCost)
            continue;
        const auto fit = grid.fit(playedEnd - place.start, deviation);
        take(place.start + fit.at, fit.cost + price);
        const auto &behind = grid.placeFrom(playedEnd - place.start);
        take(place.start + behind.at, costOf(place.start + behind.at) + behind.price + price);
    }
    if (best > start)
        return best;
    // Too short to be seen on any grid: up to the next place in the beat where it begins.
    const BeatPlace &own = _beats[beatAt(start)];
    const BeatGrid *const grid = _chosen[beatAt(start)];
    if (grid != nullptr)
        for (const auto &candidate : grid->places)
            if (own.start + candidate.at > start)
                return std::min(own.start + candidate.at, start + _shortest);
    return start + _shortest;
}

/// Notes of a chord that end together, but for how exactly it was played, get one end.
void RhythmQuantizer::setEnds(PlayedNotes &notes) const
{
    const double loose = _accuracy.isPlayed ? looseness(notes) : 0;
    constexpr double sameEnd = 2;
    for (std::size_t first = 0; first < notes.size();) {
        std::size_t last = first + 1;
        while (last < notes.size() && notes[last].start == notes[first].start)
            ++last;
        std::sort(notes.begin() + static_cast<std::ptrdiff_t>(first),
                  notes.begin() + static_cast<std::ptrdiff_t>(last),
                  [](const PlayedNote &left, const PlayedNote &right) {
                      return left.playedEnd != right.playedEnd ? left.playedEnd < right.playedEnd
                                                               : left.key < right.key;
                  });
        while (first < last) {
            const double together = _accuracy.isPlayed
                ? sameEnd * std::max(_beats[beatAt(notes[first].playedEnd)].deviation, loose)
                : 0.5;
            MidiTime sum = notes[first].playedEnd;
            std::size_t next = first + 1;
            for (; next < last
                 && static_cast<double>(notes[next].playedEnd - notes[next - 1].playedEnd)
                     < together;
                 ++next)
                sum += notes[next].playedEnd;
            const MidiTime end =
                endFor(first, sum / static_cast<MidiTime>(next - first), notes, loose);
            for (; first < next; ++first)
                notes[first].end = end;
        }
    }
}

void RhythmQuantizer::quantize(PlayedNotes &notes)
{
    if (notes.empty())
        return;
    joinChords(notes);
    _heard.clear();
    for (const PlayedNote &note : notes)
        _heard.push_back(note.start);
    setStarts(notes);
    setEnds(notes);
    sortByStart(notes);
}

void RhythmQuantizer::quantizeDrums(PlayedNotes &notes)
{
    if (notes.empty())
        return;
    joinChords(notes);
    setStarts(notes);
    sortByStart(notes);
    MidiTime next = 0;
    for (std::size_t i = notes.size(); i-- > 0;) {
        if (i + 1 < notes.size() && notes[i + 1].start > notes[i].start)
            next = notes[i + 1].start;
        const BeatPlace &beat = _beats[beatAt(notes[i].start)];
        const MidiTime endOfBeat = beat.start + beat.length;
        notes[i].end = next > notes[i].start ? std::min(next, endOfBeat) : endOfBeat;
        if (notes[i].end <= notes[i].start)
            notes[i].end = notes[i].start + midiQuarter;
    }
}

} // namespace zarn::io
