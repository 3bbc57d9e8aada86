// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnModelCheck.h>

#include <ZarnCore/instruments/automations/AutomationRange.h>
#include <ZarnCore/instruments/sounds/SoundRange.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/LinkFaults.h>
#include <ZarnCore/model/notes/SpanFaults.h>

namespace zarn {
namespace {

/// How far down the tree is looked at.
enum class Depth { Bars, Notes };

class ModelCheck {
public:
    explicit ModelCheck(Depth depth) : _depth(depth) { }

    std::vector<std::string> run(const ScoreModel &model)
    {
        const auto &master = model.masterTrack();
        _barCount = master->masterBarCount();
        expect(master->parentScoreModel().get() == &model, "master track", "wrong parent");
        checkMasterTrack(*master);
        for (const TrackGroup &group : model.trackGroups())
            expect(group.last < model.trackCount(), "group " + group.name, "of no track");
        for (unsigned t = 0; t < model.trackCount(); ++t) {
            const auto &track = model.tracks()[t];
            const std::string place = "track " + std::to_string(t);
            expect(track->index() == t, place, "wrong index");
            expect(track->parentScoreModel().get() == &model, place, "wrong parent");
            expect(track->forcedSoundIndex() < static_cast<int>(track->sounds().size()), place,
                   "plays with a sound that it does not have");
            for (const auto &sound : track->sounds())
                expect(isInRange(*sound), place, "sound with numbers that MIDI does not have");
            checkAutomations(track->automations(), place);
            for (unsigned s = 0; s < track->staffCount(); ++s)
                checkStaff(*track, s, place + " staff " + std::to_string(s));
            if (_depth == Depth::Notes)
                checkSpans(*track, place);
        }
        return std::move(_problems);
    }

private:
    void expect(bool holds, const std::string &place, const char *problem)
    {
        if (!holds)
            _problems.push_back(place + ": " + problem);
    }

    void checkMasterTrack(const MasterTrack &master)
    {
        for (unsigned i = 0; i < _barCount; ++i) {
            const MasterBar &bar = *master.masterBars()[i];
            const std::string place = "master bar " + std::to_string(i);
            expect(bar.index() == i, place, "wrong index");
            expect(bar.parentMasterTrack().get() == &master, place, "wrong parent");
        }
        for (int kind = 0; kind < DirectionMarkCount; ++kind) {
            const int bar = master.directionSlots()[static_cast<std::size_t>(kind)];
            if (bar < -1 || bar >= static_cast<int>(_barCount))
                expect(false,
                       "direction "
                           + directionMarkToQString(static_cast<DirectionMark>(kind)).toStdString(),
                       "on no bar");
        }
        checkAutomations(master, "master track");
    }

    void checkAutomations(const AutomationContainer &container, const std::string &place)
    {
        for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot) {
            const auto automations = container.automations(Automation::idType(slot));
            const Automation *before = nullptr;
            for (const Automation *automation : automations) {
                expect(!before || *before < *automation, place, "automations out of order");
                expect(automation->parent() == &container, place, "automation with wrong parent");
                expect(automation->index() < _barCount || automation->index() == 0, place,
                       "automation on no bar");
                expect(isInRange(*automation), place, "automation that cannot be played");
                before = automation;
            }
        }
    }

    void checkStaff(const Track &track, unsigned number, const std::string &place)
    {
        const Staff &staff = *track.staves()[number];
        expect(staff.index() == number, place, "wrong index");
        expect(staff.track().get() == &track, place, "wrong parent");
        expect(staff.barCount() == _barCount, place, "not one bar per master bar");
        for (unsigned i = 0; i < staff.barCount(); ++i)
            checkBar(staff, i, place);
        if (_depth == Depth::Bars)
            return;
        for (const BrokenLink &link : brokenLinks(staff))
            expect(false,
                   place + " bar " + std::to_string(link.bar) + " voice "
                       + std::to_string(link.voice) + " beat " + std::to_string(link.beat),
                   textOf(link.kind));
    }

    void checkSpans(const Track &track, const std::string &trackPlace)
    {
        for (const BrokenSpan &span : brokenSpans(track))
            expect(false,
                   trackPlace + " staff " + std::to_string(span.place.staff) + " bar "
                       + std::to_string(span.place.bar) + " voice "
                       + std::to_string(span.place.voice) + " beat "
                       + std::to_string(span.place.beat),
                   span.text);
    }

    void checkBar(const Staff &staff, unsigned number, const std::string &staffPlace)
    {
        const Bar &bar = *staff.bars()[number];
        const auto place = [&] { return staffPlace + " bar " + std::to_string(number); };
        if (bar.index() != number)
            expect(false, place(), "wrong index");
        if (bar.parentStaff().get() != &staff)
            expect(false, place(), "wrong parent");
        const auto markAt = [&](unsigned index) {
            return index < staff.barCount() ? staff.bars()[index]->simileMark() : SimileMark::None;
        };
        if (bar.simileMark() == SimileMark::Simple && number == 0)
            expect(false, place(), "simile mark without a bar to repeat");
        if (bar.simileMark() == SimileMark::FirstOfDouble
            && markAt(number + 1) != SimileMark::SecondOfDouble)
            expect(false, place(), "first half of a double simile alone");
        if (bar.simileMark() == SimileMark::SecondOfDouble
            && (number == 0 || markAt(number - 1) != SimileMark::FirstOfDouble))
            expect(false, place(), "second half of a double simile alone");
        if (_depth == Depth::Bars)
            return;
        for (unsigned v = 0; v < Bar::MaxVoices; ++v)
            if (const Voice *voice = bar.voices()[v].get()) {
                if (voice->index() != v || voice->parentBar().get() != &bar)
                    expect(false, place() + " voice " + std::to_string(v), "wrong index or parent");
                checkVoice(staff, *voice, place);
            }
    }

    template <class Place>
    void checkVoice(const Staff &staff, const Voice &voice, const Place &barPlace)
    {
        for (unsigned b = 0; b < voice.beatCount(); ++b) {
            const Beat &beat = *voice.beats()[b];
            const auto place = [&] {
                return barPlace() + " voice " + std::to_string(voice.index()) + " beat "
                    + std::to_string(b);
            };
            if (beat.index() != b || beat.parentVoice().get() != &voice)
                expect(false, place(), "wrong index or parent");
            if (beat.hasSpanMarks() && !voice.mayHoldSpans())
                expect(false, place(), "a mark of which its voice does not know");
            for (const auto &note : beat.notes()) {
                if (note->parentBeat().get() != &beat)
                    expect(false, place(), "note with wrong parent");
                if (staff.isFretted()
                    && note->string() >= static_cast<int>(staff.tuning().stringCount()))
                    expect(false, place(), "note on a string that the staff does not have");
            }
        }
    }

    std::vector<std::string> _problems;
    unsigned _barCount = 0;
    Depth _depth;
};

} // namespace

std::vector<std::string> checkModel(const ScoreModel &model)
{
    return ModelCheck(Depth::Notes).run(model);
}

std::vector<std::string> checkModelDownToBars(const ScoreModel &model)
{
    return ModelCheck(Depth::Bars).run(model);
}

} // namespace zarn
