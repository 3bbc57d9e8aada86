// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/BarArrangement.h>

#include <ZarnCore/commands/Bar/ContentSwap.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/StringLinks.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/model/places/BarSelection.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

namespace zarn {

namespace {

using utils::rational;

/// The voice that is heard when a bar is played; null for none.
const Voice *soundingVoice(const Staff &staff, unsigned bar, unsigned voice)
{
    const int sounding = soundingBar(staff, static_cast<int>(bar));
    return staff.bars()[static_cast<unsigned>(sounding)]->voices()[voice].get();
}

/// What a voice holds besides rests that are as long as their bar.
std::optional<rational> ownLengthOf(const Voice &voice)
{
    std::optional<rational> length;
    for (const auto &beat : voice.beats())
        if (!beat->isWholeBarRest())
            length = length.value_or(rational()) + beat->length();
    return length;
}

/// Whether something would be missed if the beat were not there.
bool isWritten(const Beat &beat)
{
    BeatMarks marks = beat.marks();
    marks.setPlaceHolder(false);
    marks.setWholeBarRest(false);
    return beat.hasNotes() || !marks.isPlain() || beat.hasDetails();
}

/// Bars up to the last one with something written.
unsigned writtenBarCount(const std::vector<Voice::Beats> &bars)
{
    auto count = static_cast<unsigned>(bars.size());
    const auto isSilent = [](const Voice::Beats &beats) {
        return std::none_of(beats.begin(), beats.end(),
                            [](const auto &beat) { return isWritten(*beat); });
    };
    while (count > 0 && isSilent(bars[count - 1]))
        --count;
    return count;
}

/// Whether a hammer-on or a slide starts there: its aim has to be in the next bar at the latest.
bool leadsOverStrings(const Beat &beat)
{
    const auto &notes = beat.notes();
    return std::any_of(notes.begin(), notes.end(),
                       [](const auto &note) { return isLinkedToNext(*note); });
}

/// A voice on its way into other bars.
class PouredLine {
public:
    PouredLine(BeatPour::Lengths lengths, const rational &further)
        : _poured(std::move(lengths), further)
    {
    }

    /// The next bar, which is as long as its column. What a simile mark stands for is in its own
    /// bar as well: it comes as copies.
    void addBar(const Voice *voice, const rational &column, bool isCopied)
    {
        if (voice == nullptr || voice->isEmpty()) {
            _gap += column;
            return;
        }
        _poured.addGap(_gap, BeatPour::Filler::PlaceHolders);
        _hasBeats = true;
        if (isCopied)
            _poured.part();
        rational used;
        for (const auto &beat : voice->beats()) {
            const rational length = beat->isWholeBarRest() ? column : beat->length();
            add(isCopied ? beat->clone() : beat, length);
            used += length;
        }
        if (isCopied)
            _poured.part();
        _endsAsCopy = isCopied;
        _gap = used < column ? column - used : rational();
    }

    /// A voice may end before its last bar does: what follows it is farther away or nearer then.
    void end()
    {
        _poured.part();
        _poured.end();
        if (_isWaiting)
            setLeading(_poured.bar());
    }

    bool hasBeats() const noexcept { return _hasBeats; }
    bool endsAsCopy() const noexcept { return _endsAsCopy; }
    BeatPour &poured() noexcept { return _poured; }
    std::vector<bool> &leading() noexcept { return _leading; }

private:
    void add(const std::shared_ptr<Beat> &beat, const rational &length)
    {
        const unsigned first = _poured.bar();
        _poured.add(beat, length);
        const bool isLeading = _isWaiting || leadsOverStrings(*beat);
        if (isLeading)
            setLeading(first);
        _isWaiting = isLeading && (beat->isGrace() || length.sign() == 0);
    }

    void setLeading(unsigned first)
    {
        _leading.resize(std::max<std::size_t>(_leading.size(), _poured.bar() + 1));
        std::fill(_leading.begin() + first, _leading.begin() + _poured.bar() + 1, true);
    }

    BeatPour _poured;
    rational _gap;
    bool _hasBeats = false;
    bool _endsAsCopy = false;   ///< the last beats stand for what a simile mark repeats
    std::vector<bool> _leading; ///< per new bar, whether a link over the strings may start there

    // Beats without length wait for the next one, and a beat may be cut into several bars.
    bool _isWaiting = false;
};

double toDouble(const rational &value)
{
    return static_cast<double>(value.numerator()) / static_cast<double>(value.denominator());
}

/// Puts into a simile bar what it stands for.
void writeOut(ContentSwap &swap, unsigned track, const Staff &staff, unsigned bar, unsigned shift)
{
    swap.setSimileMark(track, staff.index(), bar + shift, SimileMark::None);
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
        const Voice *const voice = soundingVoice(staff, bar, slot);
        const VoicePlace place{track, staff.index(), bar + shift, slot};
        if (voice == nullptr) {
            if (staff.bars()[bar]->voices()[slot] != nullptr)
                swap.dropVoice(place);
            continue;
        }
        Voice::Beats copies;
        for (const auto &beat : voice->beats())
            copies.push_back(beat->clone());
        swap.setBeats(place, std::move(copies));
    }
    swap.addBarLine(track, staff.index(), bar + shift);
    swap.addBarLine(track, staff.index(), bar + shift + 1);
}

} // namespace

BarArrangement::BarArrangement(const ScoreModel &model, unsigned first, unsigned last,
                               unsigned shift)
    : _model(model), _first(first), _last(last), _shift(shift)
{
    const auto &masterBars = model.masterTrack()->masterBars();
    for (unsigned bar = first; bar <= last; ++bar)
        _lengths.push_back(masterBars[bar]->length());
    _further = masterBars[last]->timeSignature().barLength();
    pour();
    const unsigned present = last - first + 1;
    for (PouredVoice &voice : _voices) {
        const unsigned needed = writtenBarCount(voice.poured.bars());
        _newBarCount = std::max(_newBarCount, needed - std::min(needed, present));
    }
    Length start;
    for (unsigned bar = 0; bar < barCount(); ++bar) {
        _barStarts.push_back(start);
        start += lengthOf(bar);
    }
}

/// What the longest voice of a column holds; nothing where it is rests of whole bars alone.
std::optional<BarArrangement::Length> BarArrangement::musicIn(unsigned bar) const
{
    std::optional<Length> longest;
    for (const auto &track : _model.tracks())
        for (const auto &staff : track->staves())
            for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
                const Voice *const voice = soundingVoice(*staff, bar, slot);
                const auto length = voice != nullptr ? ownLengthOf(*voice) : std::nullopt;
                if (length && length->sign() > 0 && (!longest || *longest < *length))
                    longest = length;
            }
    return longest;
}

/// A bar without music of its own is like its neighbours, whose meter may have been another one: as
/// long as the last bar in front of it or, at the start, the first one behind.
void BarArrangement::measureColumn(unsigned bar, UsualLength &usual)
{
    const auto &masterBars = _model.masterTrack()->masterBars();
    const auto found = musicIn(bar);
    const bool isUsual = !masterBars[bar]->ownLength();
    if (isUsual && found)
        usual.length = found;
    if (isUsual && !usual.length && !usual.isSought) {
        for (unsigned next = bar + 1; next <= _last && !usual.length; ++next)
            if (!masterBars[next]->ownLength())
                usual.length = musicIn(next);
        usual.isSought = true;
    }
    const Length like = isUsual && usual.length ? *usual.length : _lengths[bar - _first];
    const Length start = _columns.empty() ? Length() : _columnStarts.back() + _columns.back();
    _columnStarts.push_back(start);
    _columns.push_back(found.value_or(like));
}

/// All voices together, bar by bar: what has been measured is still at hand when it is poured.
void BarArrangement::pour()
{
    struct Line {
        unsigned track;
        const Staff &staff;
        unsigned slot;
        PouredLine line;
    };
    std::vector<Line> lines;
    const auto lengths = std::make_shared<const std::vector<Length>>(_lengths);
    for (const auto &track : _model.tracks())
        for (const auto &staff : track->staves())
            for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot)
                lines.push_back({track->index(), *staff, slot, PouredLine(lengths, _further)});
    UsualLength usual;
    for (unsigned bar = _first; bar <= _last; ++bar) {
        measureColumn(bar, usual);
        for (Line &line : lines)
            line.line.addBar(soundingVoice(line.staff, bar, line.slot), _columns.back(),
                             line.staff.bars()[bar]->isSimile());
    }
    for (Line &line : lines) {
        line.line.end();
        if (line.line.hasBeats())
            _voices.push_back({line.track, line.staff.index(), line.slot,
                               std::move(line.line.poured()), std::move(line.line.leading()),
                               line.line.endsAsCopy()});
    }
}

BarArrangement::Length BarArrangement::lengthOf(unsigned bar) const
{
    return bar < _lengths.size() ? _lengths[bar] : _further;
}

void BarArrangement::addTo(ContentSwap &swap)
{
    for (const auto &track : _model.tracks()) {
        for (const auto &staff : track->staves()) {
            addVoices(swap, track->index(), *staff);
            addSimiles(swap, track->index(), *staff);
            addClefs(swap, track->index(), *staff);
            addHeldOver(swap, track->index(), *staff);
            swap.addBarLine(track->index(), staff->index(), _first + _shift);
            swap.addBarLine(track->index(), staff->index(), _first + _shift + barCount());
        }
    }
    for (const PouredVoice &voice : _voices) {
        for (const auto &[bar, beat] : voice.poured.partedJoints())
            if (bar < barCount())
                swap.addJoint({voice.track, voice.staff, _first + _shift + bar, voice.voice}, beat);
        // Copies lead nowhere at the end of the staff either, where no bar line is.
        if (voice.endsAsCopy)
            swap.addJoint({voice.track, voice.staff, _first + _shift + barCount(), voice.voice}, 0);
    }
    addFermatas(swap);
}

/// Bar by bar, in the order in which the swap holds them.
void BarArrangement::addVoices(ContentSwap &swap, unsigned track, const Staff &staff)
{
    std::array<PouredVoice *, Bar::MaxVoices> poured{};
    for (PouredVoice &voice : _voices)
        if (voice.track == track && voice.staff == staff.index())
            poured[voice.voice] = &voice;
    for (unsigned bar = 0; bar < barCount(); ++bar) {
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            const VoicePlace place{track, staff.index(), _first + _shift + bar, slot};
            PouredVoice *const voice = poured[slot];
            if (voice != nullptr && bar < voice->poured.bars().size()
                && !voice->poured.bars()[bar].empty()) {
                const auto &leading = voice->leadsOverStrings;
                const bool mayBeTooFar = bar < leading.size() && leading[bar];
                swap.setBeats(place, std::move(voice->poured.bars()[bar]),
                              mayBeTooFar ? ContentSwap::Joints::Found
                                          : ContentSwap::Joints::Named);
            } else if (_first + bar <= _last
                       && staff.bars()[_first + bar]->voices()[slot] != nullptr) {
                swap.dropVoice(place);
            }
        }
    }
}

/// Marks in the bars go, and so do those behind that repeat something in them: what they stand for
/// is written out.
void BarArrangement::addSimiles(ContentSwap &swap, unsigned track, const Staff &staff) const
{
    for (unsigned bar = _first; bar <= _last; ++bar)
        if (staff.bars()[bar]->isSimile())
            swap.setSimileMark(track, staff.index(), bar + _shift, SimileMark::None);
    if (_first > 0 && staff.bars()[_first - 1]->simileMark() == SimileMark::FirstOfDouble)
        writeOut(swap, track, staff, _first - 1, _shift);
    for (unsigned bar = _last + 1; bar < staff.barCount(); ++bar) {
        // What repeats something in the bars, and the other half of a pair that does.
        const int step = simileStep(staff, static_cast<int>(bar));
        const bool isOtherHalf =
            bar > _last + 1 && staff.bars()[bar]->simileMark() == SimileMark::SecondOfDouble;
        if (step == 0 || (bar - static_cast<unsigned>(step) > _last && !isOtherHalf))
            break;
        writeOut(swap, track, staff, bar, _shift + _newBarCount);
    }
}

/// Clefs hold from a time on, wherever the bar lines are.
void BarArrangement::addClefs(ContentSwap &swap, unsigned track, const Staff &staff) const
{
    std::vector<ClefChange> changes;
    const auto add = [&changes](const Length &time, ClefType clef) {
        if (!changes.empty() && changes.back().position == time)
            changes.pop_back();
        if (changes.empty() || changes.back().clef != clef)
            changes.push_back({time, clef});
    };
    Length start;
    for (unsigned bar = _first; bar <= _last; ++bar) {
        add(start, staff.bars()[bar]->clef());
        for (const ClefChange &change : staff.bars()[bar]->clefChanges())
            add(start + std::min(change.position, _columns[bar - _first]), change.clef);
        start += _columns[bar - _first];
    }
    if (changes.size() < 2)
        return;
    std::size_t next = 0;
    ClefType clef = changes.front().clef;
    start = Length();
    for (unsigned bar = 0; bar < barCount(); ++bar) {
        const Length end = start + lengthOf(bar);
        const bool isLast = bar + 1 == barCount();
        while (next < changes.size() && changes[next].position <= start)
            clef = changes[next++].clef;
        const ClefType first = clef;
        std::vector<ClefChange> inside;
        while (next < changes.size() && (changes[next].position < end || isLast)) {
            inside.push_back({changes[next].position - start, changes[next].clef});
            clef = changes[next++].clef;
        }
        swap.setClefs(track, staff.index(), _first + _shift + bar, first, std::move(inside));
        start = end;
    }
}

std::optional<BarArrangement::NewPlace> BarArrangement::newPlaceOf(unsigned bar,
                                                                   float position) const
{
    const unsigned first = _first + _shift;
    if (bar < first || bar - first >= _columns.size())
        return std::nullopt;
    // Positions are no fractions: what is nearly at a bar line is there.
    constexpr double nearly = 1e-4;
    double time = toDouble(_columnStarts[bar - first]) + static_cast<double>(position);
    const unsigned place =
        lastBarFrom([&](const Length &start) { return toDouble(start) - nearly < time; });
    time = std::max(time - toDouble(_barStarts[place]), 0.0);
    if (first + place == bar && std::abs(time - static_cast<double>(position)) < nearly)
        return std::nullopt;
    return NewPlace{first + place, static_cast<float>(time)};
}

/// New columns part the last bar from the one behind it; notes that are held over stay so.
void BarArrangement::addHeldOver(ContentSwap &swap, unsigned track, const Staff &staff) const
{
    if (_newBarCount == 0 || _last + 1 >= staff.barCount() || staff.bars()[_last + 1]->isSimile())
        return;
    for (const auto &voice : staff.bars()[_last + 1]->voices()) {
        const auto front =
            voice != nullptr && !voice->isEmpty() ? beatInFrontOfJoint(*voice, 0) : nullptr;
        if (front == nullptr)
            continue;
        const auto isHeld = [&front](const Note &note) {
            const auto &notes = front->notes();
            return note.isTied()
                && std::any_of(notes.begin(), notes.end(), [&note](const auto &other) {
                       return other->isTieOrigin() && sameLocation(*other, note);
                   });
        };
        std::vector<unsigned> held;
        const auto &notes = voice->beats().front()->notes();
        for (unsigned i = 0; i < notes.size(); ++i)
            if (isHeld(*notes[i]))
                held.push_back(i);
        if (!held.empty())
            swap.holdOver({track, staff.index(), _first + _shift + barCount(), voice->index()},
                          std::move(held));
    }
}

void BarArrangement::addFermatas(ContentSwap &swap) const
{
    const auto &masterBars = _model.masterTrack()->masterBars();
    std::vector<FermataMarks> found(barCount());
    bool hasAny = false;
    Length start;
    for (unsigned bar = _first; bar <= _last; ++bar) {
        const Length column = _columns[bar - _first];
        for (FermataMark mark : masterBars[bar]->fermatas()) {
            hasAny = true;
            // One over the end of its bar stays over an end.
            const bool isAtEnd = !(mark.position < column);
            const Length time = start + std::min(mark.position, column);
            const unsigned place = lastBarFrom([&](const Length &barStart) {
                return barStart < time || (!isAtEnd && barStart == time);
            });
            mark.position = time - _barStarts[place];
            FermataMarks &marks = found[place];
            if (marks.empty() || marks.back().position < mark.position)
                marks.push_back(mark);
        }
        start += column;
    }
    for (unsigned bar = 0; hasAny && bar < barCount(); ++bar)
        swap.setFermatas(_first + _shift + bar, std::move(found[bar]));
}

} // namespace zarn
