// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/UnheldCounter.h>

#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/io/musicxml/BarlineReader.h>
#include <ZarnCore/io/musicxml/JumpWords.h>
#include <ZarnCore/io/musicxml/Movements.h>
#include <ZarnCore/io/musicxml/TrackBuilder.h>
#include <ZarnCore/io/musicxml/writer/BarFermatas.h>
#include <ZarnCore/io/musicxml/writer/BarlineWriter.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/io/musicxml/writer/PartPlan.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/ZarnFormWords.h>

#include <algorithm>
#include <numeric>
#include <optional>
#include <set>

namespace zarn::io {

namespace {

void countBypassed(const AutomationContainer &automations, ExportContext &context)
{
    for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot)
        context.addUnheldIf(automations.isTypeBypassed(Automation::idType(slot)),
                            "automation that is bypassed");
}

void countFermatas(const MasterBar &bar, const ScoreModel &model, ExportContext &context)
{
    const BarFermatas shown = fermatasOf(model, bar.index());
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const FermataMark &mark = bar.fermatas()[i];
        const bool isAtEnd = mark.position == bar.length();
        if (!isAtEnd && !shown[i].span.hasBeats())
            context.addUnheld("fermata over no beat");
        else if (!isAtEnd && !shown[i].isTold)
            context.addUnheld("fermata over beats that end under another one");
        else
            context.addUnheldIf(!(mark == FermataMark::at(mark.position, mark.kind)),
                                "length of a fermata");
    }
}

void countBar(const MasterBar &bar, const ScoreModel &model, ExportContext &context)
{
    context.addUnheldIf(bar.layoutRatio() != 1, "width of a bar");
    context.addUnheldIf(bar.index() == 0 && bar.isMovementStart(),
                        "start of a movement at the first bar");
    context.addUnheldIf(bar.barLine() != BarLine() && (bar.hasDoubleBar() || bar.isRepeatEnd()),
                        "bar line under another one");
    context.addUnheldIf(bar.hasDoubleBar() && bar.isRepeatEnd(), "double bar under a repeat sign");
    countFermatas(bar, model, context);
}

/// Texts and brackets of endings, as the marks that are written of them show them.
void countEndings(const MasterTrack &master, ExportContext &context)
{
    const auto marks = endingMarks(master);
    bool isHidden = false;
    bool isOver = true;
    for (const auto &bar : master.masterBars()) {
        const auto &mark = marks[bar->index()];
        context.setPlace(-1, static_cast<int>(bar->index()));
        context.addUnheldIf(!bar->endingText().empty()
                                && (!mark.begins || isEndingNumbers(bar->endingText())),
                            "text of an ending that says a number, or begins none");
        if (mark.begins) {
            isHidden = mark.isHidden;
            isOver = false;
        }
        // Behind the end of a short bracket the others are taken without it.
        const bool isTakenHidden = bar->alternateEndings() != 0 && (isOver || isHidden);
        context.addUnheldIf(bar->isEndingHidden() != isTakenHidden,
                            "ending that is hidden in a part of its bars");
        isOver = isOver || mark.ends;
    }
}

/// Directions that readers take for the first of their kind, and words that they take otherwise.
void countDirections(const MasterTrack &master, ExportContext &context)
{
    for (const auto &bar : master.masterBars()) {
        const auto index = static_cast<int>(bar->index());
        context.setPlace(-1, index);
        for (int kind = 0; kind < DirectionMarkCount; ++kind) {
            const auto mark = static_cast<DirectionMark>(kind);
            const int first = master.directionIndex(mark);
            context.addUnheldIf((bar->furtherDirections() & directionBit(mark)) != 0
                                    && (first < 0 || first >= index),
                                "order of equal directions");
        }
        if (bar->jumpText().empty())
            continue;
        const auto directions = endDirections(master.directionsAtBarIndex(index), bar->jumpText());
        context.addUnheldIf(jumpTextOf(directions) != bar->jumpText(), "words of no jump");
        for (const auto &direction : directions) {
            const auto own = jumpOfWords(directionWords(direction.mark));
            const auto read = jumpOfWords(direction.words);
            context.addUnheldIf(own->until != (read ? read->until : WrittenJump::Until::End),
                                "where a jump with words of its own ends");
        }
    }
}

/// Whether the bar line of a bar may be one that closes a movement.
bool mayClose(const MasterBar &bar)
{
    const char *const own = barStyleOf(bar.barLine());
    return bar.isRepeatEnd() || (!bar.hasDoubleBar() && (!own || isFinalBarStyle(own)));
}

/// Movements that readers take for one: behind no final bar line, or as `FineBars` says.
void countMovements(const MasterTrack &master, ExportContext &context)
{
    FineBars bars;
    std::set<int> starts;
    for (const auto &bar : master.masterBars()) {
        if (bar->index() == 0 || !bar->isMovementStart())
            continue;
        if (mayClose(*master.masterBars()[bar->index() - 1])) {
            starts.insert(static_cast<int>(bar->index()));
        } else {
            context.setPlace(-1, static_cast<int>(bar->index()));
            context.addUnheld("start of a movement behind another bar line than a final one");
        }
    }
    for (int kind = 0; kind < DirectionMarkCount && !starts.empty(); ++kind) {
        const auto mark = static_cast<DirectionMark>(kind);
        const auto insert = [&](int bar) {
            if (mark == DirectionMark::Fine)
                bars.fines.insert(bar);
            else if (isJump(mark) && mark < DirectionMark::DaCoda)
                bars.jumps.insert(bar);
        };
        insert(master.directionIndex(mark));
        for (const auto &bar : master.masterBars())
            if ((bar->furtherDirections() & directionBit(mark)) != 0)
                insert(static_cast<int>(bar->index()));
    }
    for (const int start : bars.movementsAmong(starts, static_cast<int>(master.masterBarCount())))
        starts.erase(start);
    for (const int lost : starts) {
        context.setPlace(-1, lost);
        context.addUnheld("start of a movement between a jump and its fine");
    }
}

void countStaff(const Staff &staff, const PartPlan &part, ExportContext &context)
{
    context.addUnheldIf(staff.partialCapoFret() != 0, "partial capo");
    context.addUnheldIf(staff.fretCount() != Staff().fretCount(), "number of frets");
    context.addUnheldIf(!staff.chordCollection().empty() || !staff.chordWorkingSet().empty()
                            || !staff.diagramCollection().empty()
                            || !staff.diagramWorkingSet().empty(),
                        "collection of chords");
    for (const auto &bar : staff.bars()) {
        context.setPlace(context.track(), static_cast<int>(bar->index()));
        context.addUnheldIf(bar->layoutRatio() != 1, "width of a bar");
        for (const auto &voice : bar->voices()) {
            if (!voice || !part.contentOf(bar->index()).hasDetails)
                continue;
            for (const auto &beat : voice->beats()) {
                if (beat->isCommon() || !beat->hasDetails())
                    continue;
                const auto &details = beat->details();
                context.addUnheldIf(details.barre.fret != 0, "barre");
                context.addUnheldIf(details.strumLength != 0
                                        || details.strumAnchor != StrumAnchor::StartsOnBeat,
                                    "timing of a strum");
            }
        }
    }
}

/// What of a staff depends on what its instrument is written in.
void countNotation(const PartStaff &shown, const Track &plain, ExportContext &context)
{
    const auto &staff = *shown.staff;
    context.addUnheldIf(!staff.isFretted() && !plain.staves().empty()
                            && plain.staves().front()->isFretted(),
                        "stringed instrument without strings");
    context.addUnheldIf(!staff.isFretted() && staff.capoFret() != 0, "capo without strings");
    context.addUnheldIf(staff.isFretted() && !plain.staves().empty()
                            && !plain.staves().front()->isFretted()
                            && InstrumentSet::isUnpitched(plain.type()),
                        "strings of a percussion instrument");
    if (!shown.isTablature || shown.isAlternate)
        return;
    const auto &strings = staff.tuning();
    std::optional<int> lowest;
    for (unsigned string = 0; string < strings.stringCount(); ++string)
        lowest = std::min(lowest.value_or(127), static_cast<int>(strings.tuning(string)));
    const auto usual = clefOfTablature(lowest);
    for (const auto &bar : staff.bars())
        if (bar->clef() != usual.clef || bar->ottavia() != usual.ottavia
            || !bar->clefChanges().empty()) {
            context.setPlace(context.track(), static_cast<int>(bar->index()));
            context.addUnheld("clef of a staff without notation");
            break;
        }
    context.setPlace(context.track(), -1);
}

void countTrack(const Track &track, const PartPlan &part, ExportContext &context)
{
    const TrackSettings usual;
    const auto &settings = track.settings();
    const auto plain = ScoreModel::createTrack(track.type());
    for (const auto &staff : part.staves())
        countNotation(staff, *plain, context);
    context.addUnheldIf(track.color() != plain->color(), "colour of a track");
    context.addUnheldIf(!(track.iconID() == plain->iconID()), "icon of a track");
    context.addUnheldIf(track.notations().slash, "notation in slashes");
    const auto &shown = part.staves();
    context.addUnheldIf(
        track.notations().tablature
            && std::none_of(shown.begin(), shown.end(),
                            [](const PartStaff &staff) { return staff.isTablature; }),
        "tablature without strings");
    context.addUnheldIf(track.chosenMidiConnection().has_value(), "MIDI port and channels");
    countBypassed(track.automations(), context);
    if (track.sounds().size() > 1)
        for (std::size_t i = 1; i < track.sounds().size(); ++i)
            context.addUnheld("further sound of a track");
    if (!track.sounds().empty())
        context.addUnheldIf(
            !(Sound(track.sounds().front()->name(), track.sounds().front()->midiSound())
              == *track.sounds().front()),
            "sampled sound");
    for (std::size_t i = 0; i < track.automations().automationCount(); ++i)
        context.addUnheld("automation of a track");
    context.addUnheldIf(settings.playingStyle != usual.playingStyle, "playing style");
    context.addUnheldIf(settings.palmMuteStrength != usual.palmMuteStrength,
                        "strength of palm mutes");
    context.addUnheldIf(settings.letRingThroughout, "let ring throughout");
    context.addUnheldIf(settings.autoAccentuation || settings.autoBrush
                            || settings.oneChannelPerString,
                        "setting of playback");
    context.addUnheldIf(settings.playback != usual.playback, "mute or solo");
    context.addUnheldIf(settings.forcedSoundIndex != usual.forcedSoundIndex, "forced sound");
    context.addUnheldIf(!settings.systemsLayout.empty() || settings.defaultBarCountBySystem != 0,
                        "layout of a track alone");
    context.addUnheldIf(settings.lyricsVisible != usual.lyricsVisible, "hidden line of lyrics");
    for (const auto &text : settings.lyricsLeftOver)
        context.addUnheldIf(!text.empty(), "lyrics without notes");
    for (const auto &staff : track.staves())
        countStaff(*staff, part, context);
}

} // namespace

void countUnheld(const ScoreModel &model, const std::deque<PartPlan> &parts, ExportContext &context)
{
    const auto &master = *model.masterTrack();
    const ScoreModel plain;
    for (int place = 0; place < static_cast<int>(HeaderAndFooterCount); ++place)
        context.addUnheldIf(model.headerAndFooter(static_cast<HeaderAndFooter>(place))
                                != plain.headerAndFooter(static_cast<HeaderAndFooter>(place)),
                            "header or footer");
    context.addUnheldIf(model.concertTone() != plain.concertTone(), "concert tone");
    context.addUnheldIf(model.ignoreCapo(), "frets counted from the nut");
    context.addUnheldIf(!model.isPrintable() || model.isProtected(), "protection");
    context.addUnheldIf(!(model.views() == plain.views())
                            || model.fullScoreDefaultBarCountBySystem()
                                != plain.fullScoreDefaultBarCountBySystem(),
                        "view");
    for (std::size_t i = 0; i < model.audioTracks().size(); ++i)
        context.addUnheld("audio track");
    const auto &systems = model.fullScoreSystemsLayout();
    context.addUnheldIf(std::accumulate(systems.begin(), systems.end(), 0LL)
                            > static_cast<long long>(master.masterBarCount()),
                        "systems past the last bar");
    countBypassed(master, context);
    context.addUnheldIf(!(master.mastering() == plain.masterTrack()->mastering()), "mastering");
    const auto automations = master.automationCount() - master.automationCount(Automation::Tempo);
    for (std::size_t i = 0; i < automations; ++i)
        context.addUnheld("automation of the master");
    std::optional<KeySignature> before;
    for (const auto &bar : master.masterBars()) {
        context.setPlace(-1, static_cast<int>(bar->index()));
        const auto &key = bar->concertKeySignature();
        context.addUnheldIf((!before || !(*before == key))
                                && key.transposeAsSharps() != (key.accidentalCount() >= 0),
                            "transposing a key to sharps or flats");
        before = key;
        countBar(*bar, model, context);
    }
    countMovements(master, context);
    countEndings(master, context);
    countDirections(master, context);
    for (std::size_t track = 0; track < model.tracks().size(); ++track) {
        context.setPlace(static_cast<int>(track), -1);
        countTrack(*model.tracks()[track], parts[track], context);
    }
    context.setPlace(-1, -1);
}

} // namespace zarn::io
