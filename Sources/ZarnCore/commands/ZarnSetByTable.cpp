// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnSetByTable.h>

#include <ZarnCore/commands/Beat/ZarnSetBeatRhythm.h>
#include <ZarnCore/commands/NotePlaces.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/model/notes/Spans.h>
#include <ZarnCore/model/notes/Ties.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>

namespace zarn {

namespace {

/// Number of the published event.
constexpr unsigned timerChanged = 64;

bool reachesOthers(const BeatAttributeRow &row)
{
    return !row.excludesOnNotes.isEmpty();
}
bool reachesOthers(const NoteAttributeRow &row)
{
    return !row.excludesOnBeat.isEmpty();
}

bool hasEnoughNotes(const BeatAttributeRow &row, const Beat &beat)
{
    return beat.noteCount() >= row.leastNotes;
}
bool hasEnoughNotes(const NoteAttributeRow &, const Beat &)
{
    return true;
}

bool accepts(const BeatAttributeRow &row, const MarkedPlace &place, const Beat &beat, const Beat &,
             const AttributeValue &value)
{
    return row.accepts == nullptr || row.accepts(place.staff, beat, value);
}
bool accepts(const NoteAttributeRow &row, const MarkedPlace &place, const Beat &beat,
             const Note &note, const AttributeValue &value)
{
    return row.accepts == nullptr || row.accepts(place.staff, beat, note, value);
}

void give(Beat &beat, Beat &, BeatAttribute id, const AttributeValue &value)
{
    if (id == BeatAttribute::Rhythm)
        setBeatRhythm(beat, {value.to<RhythmValue>(), false});
    else
        setAttribute(beat, id, value);
    if (rowOf(id).isLink)
        tellNeighbour(beat, id);
}
void give(Beat &beat, Note &note, NoteAttribute id, const AttributeValue &value)
{
    setAttribute(beat, note, id, value);
    if (id == NoteAttribute::Tied && !note.isTied())
        strikeAnew(note);
    if (rowOf(id).isLink)
        tellNeighbour(beat, note, id);
}

bool isWritable(const AttributeValue &value)
{
    const auto *const rhythm = std::get_if<RhythmValue>(&value.held());
    return rhythm == nullptr || cmd::SetBeatRhythm::isWritable(*rhythm);
}

/// Calls `tell` with the numbers of every track and staff that the range reaches.
template <class Tell>
void forEachStaff(const ScoreModel &model, const ScoreModelRange &range, Tell tell)
{
    if (!range.isMultiTrack()) {
        const auto staves = stavesOf(range);
        for (unsigned staff = staves.first; staff <= staves.second; ++staff)
            tell(range.first().trackIndex(), static_cast<int>(staff));
        return;
    }
    for (const auto &track : model.tracks())
        for (unsigned staff = 0; staff < track->staffCount(); ++staff)
            tell(static_cast<int>(track->index()), static_cast<int>(staff));
}

bool isChord(const BeatAttributeRow &row)
{
    return row.id == BeatAttribute::Chord;
}
bool isChord(const NoteAttributeRow &)
{
    return false;
}

/// What an attribute marks at its ends alone.
std::optional<SpanKind> spanOf(BeatAttribute id)
{
    for (const SpanKind kind :
         {SpanKind::Pedal, SpanKind::TextSpan, SpanKind::Slur, SpanKind::Word})
        if (attributeOf(kind) == id)
            return kind;
    return std::nullopt;
}
std::optional<SpanKind> spanOf(NoteAttribute)
{
    return std::nullopt;
}

bool beginsSpan(SpanKind kind, const AttributeValue &value)
{
    switch (kind) {
    case SpanKind::Pedal:
        return value.to<PedalChange>() == PedalChange::Start;
    case SpanKind::TextSpan:
        return begins(value.to<TextSpan>());
    case SpanKind::Slur: {
        const auto ends = value.to<SlurEnds>();
        return std::any_of(ends.begin(), ends.end(),
                           [](const SlurEnd &end) { return end.isBegin; });
    }
    case SpanKind::Word:
        break;
    }
    const auto syllables = value.to<Syllables>();
    return std::any_of(syllables.begin(), syllables.end(), [](const Syllable &syllable) {
        return syllable.syllabic == Syllabic::Begin || syllable.syllabic == Syllabic::Middle;
    });
}

/// Whether an attribute decides about the time that beats take.
bool isOfTime(BeatAttribute id)
{
    return id == BeatAttribute::Rhythm || id == BeatAttribute::GraceType;
}
bool isOfTime(NoteAttribute)
{
    return false;
}

/// The key under which the value of a kind is recorded.
QString keyOf(const AttributeRange &range, const AttributeValue &value)
{
    if (std::holds_alternative<bool>(value.held()))
        return QStringLiteral("Checked");
    return range.texts != nullptr ? QStringLiteral("Type") : QStringLiteral("Value");
}

} // namespace

template <class Node>
bool SetByTable<Node>::prepare(Score *score, const ScoreModelRange &range, Values values,
                               Recorded recorded)
{
    std::sort(values.begin(), values.end(),
              [](const auto &left, const auto &right) { return left.first < right.first; });
    this->addArg(QStringLiteral("Range"), range.toQString());
    bool areValid = !values.empty();
    AlsoKept also;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!isAttribute(values[i].first))
            return false;
        const Row &row = rowOf(values[i].first);
        const AttributeValue &value = values[i].second;
        const bool isFit = row.range.contains(value) && isWritable(value);
        const bool isNamed = recorded == Recorded::NamesAndValues;
        if (isNamed)
            this->addArg(QStringLiteral("Type"), QString::fromStdString(std::string(row.name)));
        this->addArg(isNamed ? QStringLiteral("Value") : keyOf(row.range, value),
                     isFit ? QString::fromStdString(row.range.toText(value)) : QStringLiteral("?"));
        areValid = areValid && isFit && (i == 0 || values[i - 1].first != row.id);
        for (const auto &other : values)
            areValid = areValid && !row.excludes.has(other.first);
        also.otherMarks = also.otherMarks || reachesOthers(row);
        also.links = also.links || row.isLink;
        also.spans = also.spans || isOfTime(row.id) || spanOf(row.id).has_value();
        also.rhythms = also.rhythms || std::holds_alternative<RhythmValue>(value.held());
        _given.push_back({&row, value, value == defaultOf(row)});
    }
    return areValid && ChangeMarks<Node>::prepare(score, range, also);
}

template <class Node>
std::vector<SpanKind> SetByTable<Node>::givenSpans() const
{
    std::vector<SpanKind> kinds;
    for (const Given &given : _given)
        if (const auto kind = spanOf(given.row->id); kind && beginsSpan(*kind, given.value))
            kinds.push_back(*kind);
    return kinds;
}

template <class Node>
void SetByTable<Node>::setGiven(std::size_t number, const AttributeValue &value)
{
    Given &given = _given[number];
    given.value = value;
    given.isDefault = value == defaultOf(*given.row);
}

template <class Node>
bool SetByTable<Node>::takes(const Given &given, const MarkedPlace &place, const Beat &beat,
                             const Node &node)
{
    return place.isOn(given.row->staves) && hasEnoughNotes(*given.row, beat)
        && (given.isDefault || accepts(*given.row, place, beat, node, given.value));
}

template <class Node>
bool SetByTable<Node>::takes(const MarkedPlace &place, const Beat &beat, const Node &node) const
{
    return std::any_of(_given.begin(), _given.end(),
                       [&](const Given &given) { return takes(given, place, beat, node); });
}

template <class Node>
void SetByTable<Node>::change(const MarkedPlace &place, Beat &beat, Node &node)
{
    for (const Given &given : _given)
        if (takes(given, place, beat, node))
            give(beat, node, given.row->id, given.value);
}

template <class Node>
void SetByTable<Node>::followChange(ScoreModel &model)
{
    _chordSets.clear();
    for (const Given &given : _given) {
        if (!isChord(*given.row) || given.isDefault)
            continue;
        const auto chord = given.value.template to<ChordMark>();
        const Staff *last = nullptr;
        visitBeats(model, this->range(), [&](const MarkedPlace &place, const Beat &beat) {
            if (&place.staff != last && beat.chord() == chord) {
                last = &place.staff;
                const unsigned track = last->track()->index();
                _chordSets.add(*model.tracks()[track]->staves()[last->index()], chord);
            }
            return true;
        });
    }
}

template <class Node>
void SetByTable<Node>::followReturn(ScoreModel &model)
{
    _chordSets.takeBack(model);
}

/// The content first, the sets of chords and the labels of playing times behind it.
template <class Node>
void SetByTable<Node>::announce()
{
    const auto isTimer = [](const Given &given) { return given.row->event == timerChanged; };
    if (!std::all_of(_given.begin(), _given.end(), isTimer))
        ChangeMarks<Node>::announce();
    const ScoreModel &model = *this->score().scoreModel();
    if (std::any_of(_given.begin(), _given.end(),
                    [](const Given &given) { return isChord(*given.row); }))
        forEachStaff(model, this->range(), [this](int track, int staff) {
            this->score().notify(this, evt::ChordsChanged(track, staff));
        });
    if (!std::any_of(_given.begin(), _given.end(), isTimer))
        return;
    const auto bars =
        std::minmax({this->range().first().barIndex(), this->range().second().barIndex()});
    forEachStaff(model, this->range(), [&](int track, int staff) {
        this->score().notify(this, evt::RequestTimerChanged(track, staff, bars.first, bars.second));
    });
}

template class SetByTable<Beat>;
template class SetByTable<Note>;

} // namespace zarn
