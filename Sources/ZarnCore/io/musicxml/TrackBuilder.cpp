// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/TrackBuilder.h>

#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/NoteMaker.h>
#include <ZarnCore/io/musicxml/PartList.h>
#include <ZarnCore/io/musicxml/PercussionKeys.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

namespace {

WrittenClef withClefOfTablature(WrittenClef clef, const WrittenStaff &staff)
{
    const auto usual = clefOfTablature(
        staff.tuning.empty()
            ? std::nullopt
            : std::optional<int>(*std::min_element(staff.tuning.begin(), staff.tuning.end())));
    clef.clef = usual.clef;
    clef.ottavia = usual.ottavia;
    return clef;
}

/// Strings of a tablature that says nothing but how many they are, the lowest first: four and five
/// are a bass, others the highest of a guitar, with fourths below where they are more.
std::vector<unsigned> usualTuning(int strings)
{
    constexpr unsigned fourth = 5;
    if (strings == 4)
        return {28, 33, 38, 43};
    if (strings == 5)
        return {23, 28, 33, 38, 43};
    std::vector<unsigned> tuning = {64, 59, 55, 50, 45, 40};
    while (static_cast<int>(tuning.size()) < strings)
        tuning.push_back(tuning.back() - fourth);
    tuning.resize(static_cast<std::size_t>(std::max(strings, 1)));
    std::reverse(tuning.begin(), tuning.end());
    return tuning;
}

bool haveSamePitches(const GuitarTuning &left, const GuitarTuning &right)
{
    if (left.stringCount() != right.stringCount())
        return false;
    for (unsigned string = 0; string < left.stringCount(); ++string)
        if (left.tuning(string) != right.tuning(string))
            return false;
    return true;
}

void setTuning(const WrittenStaff &written, bool hasFrets, Staff &staff)
{
    staff.setCapoFret(static_cast<std::uint8_t>(written.capo));
    if (!written.tuning.empty()) {
        std::vector<unsigned> pitches;
        for (const int midi : written.tuning)
            pitches.push_back(static_cast<unsigned>(std::max(midi, 0)));
        // The usual one of the instrument has a name.
        const GuitarTuning tuning(pitches);
        if (!haveSamePitches(staff.tuning(), tuning))
            staff.setTuning(tuning);
        return;
    }
    const int strings = stringCount(written);
    const bool fitting =
        staff.isFretted() && staff.tuning().stringCount() == static_cast<unsigned>(strings);
    if ((written.tablature || hasFrets) && !fitting)
        staff.setTuning(GuitarTuning(usualTuning(strings)));
}

/// Calls `visit(Note &)` for every note until it answers true; whether it did.
template <typename Visit>
bool anyNote(const Staff::Bars &bars, Visit visit)
{
    for (const auto &bar : bars)
        for (const auto &voice : bar->voices())
            if (voice)
                for (const auto &beat : voice->beats())
                    for (const auto &note : beat->notes())
                        if (visit(*note))
                            return true;
    return false;
}

/// Marks the bars from where a repeat begins up to, not including, `end`.
void markSimiles(const WrittenMeasureRepeat &repeat, int end, const Staff::Bars &bars,
                 ImportContext &context)
{
    if (repeat.count == 0)
        return;
    int bar = repeat.bar;
    if (bar < repeat.count) {
        context.addProblemInBar(bar, repeat.node,
                                "a sign that repeats the bars in front was left out: there are "
                                "none");
        bar += repeat.count;
    }
    for (; bar + repeat.count <= end; bar += repeat.count) {
        const auto at = static_cast<std::size_t>(bar);
        if (repeat.count == 1) {
            bars[at]->setSimileMark(SimileMark::Simple);
        } else {
            bars[at]->setSimileMark(SimileMark::FirstOfDouble);
            bars[at + 1]->setSimileMark(SimileMark::SecondOfDouble);
        }
    }
    if (bar < end)
        context.addProblemInBar(bar, repeat.node,
                                "half of a sign that repeats two bars was left out");
}

bool hasFrets(const Staff::Bars &bars)
{
    return anyNote(bars, [](const Note &note) { return note.fret() != Note::Unset; });
}

/// Names the articulations of the notes that are written as the set has it: on its place, with
/// its key and its kind of head.
void setArticulations(const InstrumentSet &set, const Staff::Bars &bars)
{
    anyNote(bars, [&set](Note &note) {
        if (note.staffLine() == Note::NoStaffLine)
            return false;
        const int index = set.indexOfArticulationWithStaffLineAndKey(note.staffLine(), note.midi());
        const auto &articulations = set.articulations();
        if (index >= 0 && index <= Note::MaxArticulation
            && articulations[static_cast<std::size_t>(index)].notehead(0).noteHead()
                == note.noteHead())
            note.setPercussionArticulation(index);
        return false;
    });
}

} // namespace

ClefAndOttavia clefOfTablature(std::optional<int> lowestString)
{
    constexpr int lowestOfGuitar = 35;
    constexpr int lowestOfSmall = 48;
    const int lowest = lowestString.value_or(lowestOfGuitar);
    return {lowest < lowestOfGuitar ? ClefType::F4 : ClefType::G2,
            lowest < lowestOfSmall ? Ottavia::_8vb : Ottavia::None};
}

void setClefs(const PartFacts &facts, StaffBars &staves, ImportContext &context)
{
    std::vector<std::vector<WrittenClef>> changes(staves.size());
    for (const auto &clef : facts.clefs) {
        const auto staff = static_cast<std::size_t>(clef.staff);
        if (staff < changes.size())
            changes[staff].push_back(clef.tablature ? withClefOfTablature(clef, facts.staves[staff])
                                                    : clef);
    }
    for (std::size_t staff = 0; staff < staves.size(); ++staff) {
        ClefAndOttavia current;
        auto next = changes[staff].begin();
        const auto end = changes[staff].end();
        for (std::size_t index = 0; index < staves[staff].size(); ++index) {
            auto &bar = *staves[staff][index];
            std::vector<ClefChange> inside;
            auto after = current;
            for (; next != end && next->bar <= static_cast<int>(index); ++next) {
                const bool atStart =
                    next->bar < static_cast<int>(index) || next->position == utils::rational(0);
                const bool atEnd =
                    index < facts.bars.size() && !(next->position < facts.bars[index].length);
                after = {next->clef, next->ottavia};
                if (atStart)
                    current = after;
                else if (!atEnd)
                    inside.push_back({next->position, next->clef});
                if (!atStart && !atEnd && next->ottavia != current.ottavia)
                    context.addProblemInBar(next->bar, {},
                                            "an octave clef inside of the bar "
                                            "counts from the next bar on");
            }
            bar.setClef(current.clef);
            bar.setOttavia(current.ottavia);
            if (!inside.empty())
                bar.setClefChanges(std::move(inside));
            current = after;
        }
    }
}

void setSimileMarks(const PartFacts &facts, StaffBars &staves, ImportContext &context)
{
    for (std::size_t i = 0; i < staves.size(); ++i) {
        std::vector<WrittenMeasureRepeat> repeats;
        for (const auto &repeat : facts.measureRepeats)
            if (repeat.staff == -1 || repeat.staff == static_cast<int>(i))
                repeats.push_back(repeat);
        repeats.push_back({static_cast<int>(staves[i].size()), -1, 0, {}});
        for (std::size_t r = 0; r + 1 < repeats.size(); ++r)
            markSimiles(repeats[r], repeats[r + 1].bar, staves[i], context);
    }
}

std::shared_ptr<Track> makeTrack(InstrumentSet::Type type, const ListedPart &part,
                                 const PartFacts &facts, const PartTally &tally, StaffBars staves,
                                 ImportContext &context)
{
    auto track = ScoreModel::createTrack(type);
    track->setName(part.name);
    track->setShortName(part.abbreviation);
    track->setTranspositionOffset(facts.chromatic);
    track->setStaffCount(static_cast<unsigned>(staves.size()));
    const bool areAnyFretted = tally.notes.withFret != 0 || tally.merged.withFret != 0;
    for (std::size_t i = 0; i < staves.size(); ++i) {
        auto &staff = *track->staves()[i];
        const auto written = i < facts.staves.size() ? facts.staves[i] : WrittenStaff();
        setTuning(written, areAnyFretted && hasFrets(staves[i]), staff);
        if (const auto set = track->instrumentSet(); set && set->isUnpitched()) {
            setUsualKeys(*set, staves[i], context);
            setArticulations(*set, staves[i]);
        }
        staff.insertBars(0, std::move(staves[i]));
    }
    // What the instrument is read from anyway need not be chosen; a tablature beside other music
    // decides nothing, unless a document of ours has it.
    const auto isTablature = [](const WrittenStaff &staff) { return staff.tablature; };
    const auto hasTwin = [](const WrittenStaff &staff) { return staff.hasTwin; };
    const auto &written = facts.staves;
    if (context.isOwnDocument() ? std::any_of(written.begin(), written.end(), isTablature)
                                : std::all_of(written.begin(), written.end(), isTablature)) {
        const TrackNotations notations = {std::any_of(written.begin(), written.end(), hasTwin),
                                          true, false};
        if (!(track->notations() == notations))
            track->setChosenNotations(notations);
    }
    // Others leave the tablature to who reads the strings and frets.
    const bool isWithoutTablature = context.isOwnDocument()
        && std::none_of(facts.staves.begin(), facts.staves.end(), isTablature)
        && std::any_of(facts.staves.begin(), facts.staves.end(),
                       [](const WrittenStaff &staff) { return !staff.tuning.empty(); });
    // Frets that nobody wrote are not shown.
    const auto hasAny = [&track](auto isWanted) {
        return std::any_of(
            track->staves().begin(), track->staves().end(),
            [&isWanted](const auto &staff) { return anyNote(staff->bars(), isWanted); });
    };
    if (track->notations().tablature
        && (isWithoutTablature
            || (std::none_of(facts.staves.begin(), facts.staves.end(), isTablature)
                && hasAny([](const Note &) { return true; })
                && !hasAny([](const Note &note) { return note.string() >= 0; }))))
        track->setChosenNotations(TrackNotations());
    track->setVolumePan({part.volume.value_or(1.0F), part.pan.value_or(0.0F)});
    if (part.program != ListedPart::NoProgram)
        track->addSound(std::make_shared<Sound>(
            part.instruments.empty() ? part.name : part.instruments.front().name,
            MIDISound(part.program, part.bank / 128, part.bank % 128)));
    return track;
}

} // namespace zarn::io
