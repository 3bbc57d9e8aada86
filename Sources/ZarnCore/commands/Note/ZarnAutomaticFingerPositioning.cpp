// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnAutomaticFingerPositioning.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace zarn::cmd {

namespace {

const Staff &staffOf(const ScoreModel &model, const BeatSpan &span)
{
    return *model.tracks()[span.track]->staves()[span.staff];
}

bool isAllowed(const fingering::FingeringOptions &options)
{
    return options.lowestFret >= 0
        && (options.highestFret == -1 || options.highestFret >= options.lowestFret)
        && options.widestSpan >= -1;
}

bool isOfOneStaff(const BeatSpan &left, const BeatSpan &right)
{
    return left.track == right.track && left.staff == right.staff;
}

} // namespace

AutomaticFingerPositioning::AutomaticFingerPositioning()
    : ScoreCommand(QStringLiteral("AutomaticFingerPositioning"))
{
}
AutomaticFingerPositioning::~AutomaticFingerPositioning() = default;

bool AutomaticFingerPositioning::init(Score *score, const ScoreModelRange &range,
                                      const fingering::FingeringOptions &options,
                                      std::shared_ptr<fingering::FingeringReport> report)
{
    using fingering::GivenStrings;
    ZARN_ASSERT_IN("zarn::cmd::AutomaticFingerPositioning::init", score != NULL);
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Type"),
           options.given == GivenStrings::Kept           ? QStringLiteral("Kept")
               : options.given == GivenStrings::KeptOpen ? QStringLiteral("KeptOpen")
                                                         : QStringLiteral("Ignored"));
    addArg(QStringLiteral("OpenStrings"),
           options.openStrings == fingering::OpenStrings::Avoided ? QStringLiteral("Avoided")
                                                                  : QStringLiteral("AsTheyFit"));
    addArg(QStringLiteral("Fingers"),
           options.fingers == fingering::LeftFingers::Written ? QStringLiteral("Written")
                                                              : QStringLiteral("Untouched"));
    addArg(QStringLiteral("LowestFret"), QString::number(options.lowestFret));
    addArg(QStringLiteral("HighestFret"), QString::number(options.highestFret));
    addArg(QStringLiteral("WidestSpan"), QString::number(options.widestSpan));
    setScore(score);
    _range = range;
    _options = options;
    _report = std::move(report);
    return isAllowed(options) && canExist(range)
        && expectPlace([this] { return !findSpans().empty(); });
}

/// The selected beats of staves that can be fingered; none when they hold no note.
std::vector<BeatSpan> AutomaticFingerPositioning::findSpans() const
{
    std::vector<BeatSpan> spans = beatSpans(model(), _range);
    spans.erase(std::remove_if(spans.begin(), spans.end(),
                               [this](const BeatSpan &span) {
                                   return !fingering::canBeFingered(staffOf(model(), span));
                               }),
                spans.end());
    const bool hasNotes = std::any_of(spans.begin(), spans.end(), [this](const BeatSpan &span) {
        const auto &beats = voiceOf(model(), span)->beats();
        return std::any_of(beats.begin() + span.firstBeat, beats.begin() + span.lastBeat + 1,
                           [](const auto &beat) { return beat->hasNotes(); });
    });
    return hasNotes ? spans : std::vector<BeatSpan>();
}

Note &AutomaticFingerPositioning::noteAt(const Move &move) const
{
    const auto &bar = model().tracks()[move.track]->staves()[move.staff]->bars()[move.place.bar];
    return *bar->voices()[move.place.voice]->beats()[move.place.beat]->notes()[move.place.note];
}

void AutomaticFingerPositioning::apply()
{
    const auto spans = findSpans();
    requirePlace(!spans.empty());
    _moves.clear();
    _touched.clear();
    if (_report != nullptr)
        *_report = {};
    for (auto first = spans.begin(); first != spans.end();) {
        const auto next = std::find_if(first, spans.end(), [first](const BeatSpan &span) {
            return !isOfOneStaff(*first, span);
        });
        finger(std::vector<BeatSpan>(first, next));
        first = next;
    }
    moveNotes();
}

void AutomaticFingerPositioning::moveNotes()
{
    const auto forEachStaff = [this](auto act) {
        for (auto first = _moves.begin(); first != _moves.end();) {
            unsigned firstBar = first->place.bar;
            unsigned lastBar = firstBar;
            auto next = first;
            for (;
                 next != _moves.end() && next->track == first->track && next->staff == first->staff;
                 ++next) {
                firstBar = std::min(firstBar, next->place.bar);
                lastBar = std::max(lastBar, next->place.bar);
            }
            const BeatSpan span = {first->track, first->staff};
            act(staffOf(model(), span), firstBar, lastBar, first->track);
            first = next;
        }
    };
    _links = {};
    forEachStaff([this](const Staff &staff, unsigned first, unsigned last, unsigned track) {
        keepStringLinks(staff, first, last, track, _links);
    });
    for (const Move &move : _moves) {
        Note &note = noteAt(move);
        note.setString(move.string);
        note.setFret(move.fret);
        note.setLeftFingering(move.finger);
    }
    forEachStaff([](const Staff &staff, unsigned first, unsigned last, unsigned) {
        mendStringLinks(staff, first, last);
    });
    _links.settle();
    for (const KeptBeats::Place &changed : _links.changed())
        _touched.add(changed.track, changed.staff, changed.bar, changed.bar);
}

/// Works out where the notes of one staff go; changes nothing.
void AutomaticFingerPositioning::finger(const std::vector<BeatSpan> &spans)
{
    const BeatSpan &staff = spans.front();
    const auto read = fingering::readPassage(staffOf(model(), staff), spans, _options);
    const auto found = fingering::FingeringSolver(read.passage).solve();
    addMoves(staff, read, found);
    if (_report != nullptr)
        addProblems(staff, read, found);
}

/// The finger that is written for a note; where none is asked for, the one that it has.
Fingering AutomaticFingerPositioning::fingerOf(const Note &note,
                                               const fingering::Placement &place) const
{
    const bool isKept =
        _options.given == fingering::GivenStrings::Kept && note.leftFingering() != Fingering::None;
    if (_options.fingers == fingering::LeftFingers::Untouched || isKept)
        return note.leftFingering();
    if (place.string == fingering::Placement::None)
        return Fingering::None;
    if (place.finger != 0)
        return static_cast<Fingering>(static_cast<int>(Fingering::Index) + place.finger - 1);
    return place.fret == 0 ? Fingering::Open : Fingering::None;
}

void AutomaticFingerPositioning::addMoves(const BeatSpan &staff, const fingering::ReadPassage &read,
                                          const fingering::FingeringSolution &fingering)
{
    for (const fingering::PassageSource &source : read.sources) {
        Move move = {staff.track, staff.staff, source, 0, 0, {}, 0, 0, {}};
        const Note &note = noteAt(move);
        const fingering::Placement &place = fingering.notes[source.passageNote];
        const bool isFixed = read.passage.notes[source.passageNote].string == note.string()
            && note.string() != Note::Unset && note.fret() != Note::Unset;
        const Fingering finger = fingerOf(note, place);
        const bool isThere =
            isFixed || (note.string() == place.string && note.fret() == place.fret);
        if (isThere && finger == note.leftFingering())
            continue;
        move.stringBefore = static_cast<std::int8_t>(note.string());
        move.fretBefore = static_cast<std::int8_t>(note.fret());
        move.fingerBefore = note.leftFingering();
        move.string = isFixed ? move.stringBefore : static_cast<std::int8_t>(place.string);
        move.fret = isFixed ? move.fretBefore : static_cast<std::int8_t>(place.fret);
        move.finger = finger;
        _moves.push_back(move);
        _touched.add(staff.track, staff.staff, source.bar, source.bar);
    }
}

void AutomaticFingerPositioning::addProblems(const BeatSpan &staff,
                                             const fingering::ReadPassage &read,
                                             const fingering::FingeringSolution &fingering)
{
    _report->noteCount += read.sources.size();
    _report->movedCount = _moves.size();
    if (fingering.problems.empty())
        return;
    std::vector<const fingering::PassageSource *> sourceOf(read.passage.notes.size());
    for (const fingering::PassageSource &source : read.sources)
        sourceOf[source.passageNote] = &source;
    for (const fingering::FingeringProblem &problem : fingering.problems)
        if (const auto *const source = sourceOf[problem.note])
            _report->unplayable.push_back({problem.kind, staff.track, staff.staff, source->bar,
                                           source->voice, source->beat,
                                           read.passage.notes[problem.note].pitch});
}

void AutomaticFingerPositioning::revert()
{
    for (const Move &move : _moves) {
        Note &note = noteAt(move);
        note.setString(move.stringBefore);
        note.setFret(move.fretBefore);
        note.setLeftFingering(move.fingerBefore);
    }
    _links.putBack([this](const KeptBeats::Place &at) {
        const auto &bar = model().tracks()[at.track]->staves()[at.staff]->bars()[at.bar];
        return bar->voices()[at.voice]->beats()[at.beat].get();
    });
}

void AutomaticFingerPositioning::announceApplied()
{
    _touched.announce(score(), this);
}

void AutomaticFingerPositioning::announceReverted()
{
    announceApplied();
}

} // namespace zarn::cmd
