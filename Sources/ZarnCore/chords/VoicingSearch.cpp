// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/VoicingSearch.h>

#include <algorithm>
#include <limits>

namespace zarn::chord {

namespace {

/// Chords with open strings stay below this fret and with it.
constexpr int lastFretOfOpenChords = 3;

/// Strings that make a chord: a hand that plays fewer leaves the chord's sound out.
constexpr int fewestStrings = 3;

constexpr int fifth = 7; // semitones

/// With more strings there is enough to choose from without skipping any.
constexpr int usualStrings = 6;

} // namespace

int lowestStop(const FretRow &frets) noexcept
{
    int lowest = 0;
    for (std::size_t string = 0; string < frets.size(); ++string)
        if (frets[string] > 0 && (lowest == 0 || frets[string] < lowest))
            lowest = frets[string];
    return lowest;
}

VoicingSearch::VoicingSearch(const Fretboard &fretboard, const HandModel &hand,
                             const VoicingWeights &weights, const VoicingLimits &limits)
    : _fretboard(fretboard), _hand(hand), _weights(weights), _limits(limits)
{
}

std::vector<Voicing> VoicingSearch::find(const ChordTones &chord, ToneSet requiredTones,
                                         int fewestTones)
{
    _chord = chord;
    _required = requiredTones;
    _fewestTones = fewestTones;
    const int strings = static_cast<int>(_fretboard.courses().size());
    _fewestSounding = std::max(1, std::min({fewestStrings, chord.tones.size(), strings}));
    const int further = std::max(0, strings - usualStrings);
    _mostInnerMutes = _hand.profile().isBowed
        ? 0
        : std::max(0, static_cast<int>(_limits.mostInnerMutes) - further);
    _found.clear();
    const int capo = _fretboard.capo();
    const int last = static_cast<int>(
        std::min<long>(_fretboard.lastFret(), capo + static_cast<long>(_limits.lastFret)));
    searchPlace(0, 0);
    for (int lowest = capo + 1; lowest <= last; ++lowest) {
        int highest = lowest;
        while (highest < last && _hand.reaches(lowest, highest + 1))
            ++highest;
        searchPlace(lowest, highest);
    }
    return std::move(_found);
}

void VoicingSearch::searchPlace(int lowest, int highest)
{
    _lowest = lowest;
    collectChoices(lowest, highest);
    _row = FretRow(_fretboard.courses().size());
    walk(0, State());
}

void VoicingSearch::collectChoices(int lowest, int highest)
{
    const auto &courses = _fretboard.courses();
    _tonesToCome[courses.size()] = ToneSet();
    _isLowestToCome[courses.size()] = false;
    for (std::size_t index = courses.size(); index-- > 0;) {
        const Course &course = courses[index];
        auto &choices = _choices[index];
        choices.clear();
        const auto add = [&](int fret, int pitch) {
            if (_chord.tones.contains(Tone(pitch)))
                choices.push_back({static_cast<std::int8_t>(fret), Tone(pitch)});
        };
        add(FretRow::open, course.openPitch);
        const int from = std::max<int>(lowest, course.firstStop);
        const int to = std::min<int>(highest, course.lastStop);
        for (int fret = from; lowest > 0 && !course.isDrone && fret <= to; ++fret)
            add(fret, course.pitchAt(fret));
        _tonesToCome[index] = _tonesToCome[index + 1];
        _isLowestToCome[index] = _isLowestToCome[index + 1];
        for (const Choice &choice : choices) {
            _tonesToCome[index].insert(choice.tone);
            _isLowestToCome[index] = _isLowestToCome[index] || choice.fret == lowest;
        }
    }
}

void VoicingSearch::walk(std::size_t course, const State &state)
{
    if (!(state.tones | _tonesToCome[course]).contains(_required)
        || (_lowest > 0 && !state.holdsLowest && !_isLowestToCome[course]))
        return;
    const auto &courses = _fretboard.courses();
    if (state.tones.size() + static_cast<int>(courses.size() - course) < _fewestTones)
        return;
    if (course == courses.size()) {
        if (state.sounding >= _fewestSounding)
            keep(state);
        return;
    }
    for (const Choice &choice : _choices[course])
        play(course, choice, state);
    if (courses[course].isDrone && !_choices[course].empty())
        return; // it rings whenever it may
    _row.set(course, FretRow::notPlayed);
    State muted = state;
    if (state.sounding > 0)
        ++muted.mutesInRow;
    walk(course + 1, muted);
}

void VoicingSearch::play(std::size_t course, const Choice &choice, const State &state)
{
    State played = state;
    // A drone stands apart from the strings that a hand strikes through.
    if (!_fretboard.courses()[course].isDrone)
        ++played.sounding;
    played.tones.insert(choice.tone);
    played.innerMutes += state.mutesInRow;
    played.mutesInRow = 0;
    if (played.innerMutes > _mostInnerMutes)
        return;
    played.holdsLowest = state.holdsLowest || (choice.fret == _lowest && _lowest > 0);
    if (!press(course, choice.fret, played))
        return;
    _row.set(course, choice.fret);
    walk(course + 1, played);
}

/// Counts the fingers that a string takes; false when that makes more than a hand has. Whether the
/// hand gets them all where they must be is for the hand's model to say.
bool VoicingSearch::press(std::size_t course, int fret, State &state) const
{
    const int offset = fret == FretRow::open ? -1 : fret - _lowest;
    for (int above = offset + 1; above <= mostSpan; ++above)
        state.presses[static_cast<std::size_t>(above)] = -1; // what sounds lower lets no barre pass
    if (offset < 0 || offset > mostSpan)
        return true;
    auto &first = state.presses[static_cast<std::size_t>(offset)];
    const auto string = static_cast<int>(course);
    const int most = offset == 0 ? _hand.profile().barredStrings : HandModel::stringsOfOtherBarre;
    if (first >= 0 && string - first < std::max(most, HandModel::stringsOfOtherBarre))
        return true;
    first = static_cast<std::int8_t>(course);
    return ++state.fingers <= HandModel::fingerCount;
}

void VoicingSearch::keep(const State &state)
{
    const auto shape = _hand.bestShape(_row, _fretboard.capo());
    if (!shape)
        return;
    Voicing voicing{_row, *shape, 0, {}, _chord.tones - state.tones};
    addCosts(voicing, state.innerMutes);
    _found.push_back(voicing);
}

int VoicingSearch::mutesAtEnds() const
{
    const auto size = static_cast<int>(_row.size());
    int first = 0;
    while (first < size && _row[static_cast<std::size_t>(first)] == FretRow::notPlayed)
        ++first;
    int last = size - 1;
    while (last > first && _row[static_cast<std::size_t>(last)] == FretRow::notPlayed)
        --last;
    return first + size - 1 - last;
}

void VoicingSearch::addCosts(Voicing &voicing, int innerMutes) const
{
    const auto set = [&](VoicingReason reason, float amount) {
        voicing.amounts[static_cast<std::size_t>(reason)] = amount;
        voicing.cost += amount * _weights[static_cast<std::size_t>(reason)];
    };
    const auto &courses = _fretboard.courses();
    std::array<int, FretRow::mostStrings> pitches{};
    std::size_t pitchCount = 0;
    int highest = 0;
    int open = 0;
    for (std::size_t index = 0; index < courses.size(); ++index) {
        const int fret = voicing.frets[index];
        if (fret == FretRow::notPlayed)
            continue;
        highest = std::max(highest, fret);
        open += fret == FretRow::open && !courses[index].isDrone ? 1 : 0;
        pitches[pitchCount++] =
            fret == FretRow::open ? courses[index].openPitch : courses[index].pitchAt(fret);
    }
    int lowestPitch = std::numeric_limits<int>::max();
    int doubled = 0;
    for (std::size_t i = 0; i < pitchCount; ++i) {
        lowestPitch = std::min(lowestPitch, pitches[i]);
        doubled += std::count(pitches.begin(), pitches.begin() + i, pitches[i]) > 0 ? 1 : 0;
    }
    const int position = _lowest == 0 ? 0 : _lowest - _fretboard.capo();
    const int above = std::clamp(highest - _fretboard.capo() - lastFretOfOpenChords, 0, 4);
    set(VoicingReason::Hand, voicing.hand.cost);
    set(VoicingReason::Span, static_cast<float>(_lowest == 0 ? 0 : highest - _lowest));
    set(VoicingReason::Position, static_cast<float>(position));
    const Tone lowest(lowestPitch);
    const bool isFifth = _chord.bass == _chord.root && lowest == _chord.root + fifth;
    set(VoicingReason::WrongBass, lowest == _chord.bass || isFifth ? 0.F : 1.F);
    set(VoicingReason::FifthBass, isFifth ? 1.F : 0.F);
    set(VoicingReason::InnerMute, static_cast<float>(innerMutes));
    set(VoicingReason::OuterMute, static_cast<float>(mutesAtEnds()));
    set(VoicingReason::Doubled, static_cast<float>(doubled));
    set(VoicingReason::OpenAbove, static_cast<float>(open * above));
    const bool noRoot = voicing.omitted.contains(_chord.root);
    const bool noFifth = voicing.omitted.contains(_chord.root + fifth);
    set(VoicingReason::NoRoot, noRoot ? 1.F : 0.F);
    set(VoicingReason::NoFifth, noFifth ? 1.F : 0.F);
    set(VoicingReason::NoColour,
        static_cast<float>(voicing.omitted.size() - (noRoot ? 1 : 0) - (noFifth ? 1 : 0)));
}

} // namespace zarn::chord
