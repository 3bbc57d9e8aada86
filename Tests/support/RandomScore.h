// SPDX-License-Identifier: MIT
#pragma once

#include "RandomAttribute.h"

#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>
#include <ZarnCore/instruments/automations/ZarnPickupKnobAutomation.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/LinkFaults.h>
#include <ZarnCore/model/notes/SpanFaults.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace test {

/// Makes scores that use every attribute of every node: sound ones, in which all rules of the tree
/// hold. The same seed gives the same score everywhere: where several numbers are drawn for one
/// thing they stand in braces, which settle their order.
class RandomScore {
public:
    explicit RandomScore(std::uint32_t seed) : _engine(seed) { }

    std::shared_ptr<zarn::ScoreModel> make(unsigned trackCount = 3, unsigned barCount = 6)
    {
        _barCount = barCount;
        auto model = std::make_shared<zarn::ScoreModel>();
        fillSettings(*model, trackCount);
        fillMaster(*model->masterTrack());
        for (unsigned i = 0; i < trackCount; ++i)
            model->addTrack(track());
        for (unsigned i = below(3); i > 0; --i)
            model->addAudioTrack(audioTrack());
        model->masterTrack()->updatePlayList();
        return model;
    }

    std::shared_ptr<zarn::Bar> bar(unsigned stringCount)
    {
        auto bar = std::make_shared<zarn::Bar>();
        bar->setClef(pick<zarn::ClefType>(6));
        bar->setOttavia(pick<zarn::Ottavia>(5));
        if (maybe())
            bar->setClefChanges({{{1, 3}, zarn::ClefType::C4}, {{5, 2}, zarn::ClefType::F4}});
        if (oneIn(6))
            bar->setSimileMark(zarn::SimileMark::Simple);
        for (unsigned voice = 0; voice < zarn::Bar::MaxVoices; ++voice)
            if (maybe())
                for (unsigned i = 1 + below(4); i > 0; --i)
                    addBeat(*bar->ensureVoice(voice), beat(stringCount));
        if (oneIn(4))
            bar->setLayoutRatio(0.5F + level());
        return bar;
    }

    std::shared_ptr<zarn::Beat> beat(unsigned stringCount)
    {
        auto beat = std::make_shared<zarn::Beat>(rhythm());
        beat->setDynamic(pick<zarn::NoteDynamic::Value>(17));
        beat->setGraceType(oneIn(4) ? pick<zarn::GraceType>(3) : zarn::GraceType::None);
        beat->setSlashedGrace(oneIn(8));
        beat->setOttavia(oneIn(4) ? pick<zarn::Ottavia>(5) : zarn::Ottavia::None);
        if (oneIn(3))
            beat->setText(text());
        const unsigned kind = below(8);
        beat->setPlaceHolder(kind == 0);
        beat->setWholeBarRest(kind == 1);
        for (unsigned i = kind < 3 ? 0 : 1 + below(4); i > 0; --i)
            beat->addNote(note(stringCount));
        addMarks(*beat);
        return beat;
    }

    std::shared_ptr<zarn::Note> note(unsigned stringCount)
    {
        auto note = std::make_shared<zarn::Note>(static_cast<int>(below(128)));
        if (maybe())
            note->setSpelling({zarn::NoteName(pick<zarn::NoteName::Value>(7)),
                               zarn::NoteAccidental(pick<zarn::NoteAccidental::Value>(5))});
        if (stringCount > 0 && maybe()) {
            note->setString(static_cast<int>(below(stringCount)));
            note->setFret(static_cast<int>(below(25)));
        }
        if (oneIn(4))
            note->setPercussionArticulation(static_cast<int>(below(2048)));
        if (oneIn(4))
            note->setStaffLine(static_cast<int>(below(255)) - 127);
        note->setTied(oneIn(4));
        note->setTieOrigin(oneIn(4));
        if (oneIn(4))
            note->setNoteHead(noteHead());
        return note;
    }

    zarn::RhythmValue rhythm()
    {
        zarn::RhythmValue rhythm{pick<zarn::RhythmValue::NoteValue>(11), below(4)};
        if (oneIn(3))
            rhythm.setPrimaryTupletRatio(
                {static_cast<std::uint8_t>(below(256)), static_cast<std::uint8_t>(below(256))});
        if (oneIn(4))
            rhythm.setSecondaryTupletRatio(
                {static_cast<std::uint8_t>(2 + below(9)), static_cast<std::uint8_t>(2 + below(9))});
        return rhythm;
    }

    // Numbers from 0 to count - 1, and what is made of them.

    unsigned below(unsigned count) { return static_cast<unsigned>(_engine() % count); }
    bool maybe() { return below(2) == 0; }
    bool oneIn(unsigned count) { return below(count) == 0; }

    template <typename E>
    E pick(unsigned count)
    {
        return static_cast<E>(below(count));
    }

    /// A float of any size, with all digits that it can have.
    float real()
    {
        const auto digits = static_cast<float>(_engine() % 0xFFFFFF);
        return std::ldexp(digits, int(below(60)) - 50);
    }

    /// A float from 0 to 1.
    float level() { return static_cast<float>(_engine() % 1000001) / 1000000.0f; }

    std::string text()
    {
        static const std::vector<std::string> pieces = {
            "a",    "Song ", "\"",     "\\",     "/",          "\n", "\t", std::string(1, '\0'),
            "\x1f", "\x7f",  "\u00e9", "\u266d", "\U0001F3B8", "{}", ",",  "%Title%"};
        std::string text;
        for (unsigned i = below(6); i > 0; --i)
            text += pieces[below(static_cast<unsigned>(pieces.size()))];
        return text;
    }

private:
    /// Attributes that have no place in the functions above, few of them on each node.
    void addMarks(zarn::Beat &beat)
    {
        if (maybe())
            return;
        for (const zarn::BeatAttributeRow &row : zarn::beatAttributes())
            if (row.id >= zarn::BeatAttribute::Chord && !isSlur(row.id) && oneIn(12))
                zarn::setAttribute(beat, row.id, _attributes.value(row.range));
        for (const auto &note : beat.notes())
            for (const zarn::NoteAttributeRow &row : zarn::noteAttributes())
                if (row.id > zarn::NoteAttribute::TieOrigin && oneIn(12))
                    zarn::setAttribute(beat, *note, row.id, _attributes.value(row.range));
        zarn::mendExclusions(beat);
    }

    /// Both ends of a joint agree about the slur over it.
    static bool isSlur(zarn::BeatAttribute id)
    {
        return id == zarn::BeatAttribute::SlurredToNext
            || id == zarn::BeatAttribute::SlurredToPrevious;
    }

    void addBeat(zarn::Voice &voice, const std::shared_ptr<zarn::Beat> &beat)
    {
        if (!voice.isEmpty() && oneIn(4)) {
            voice.beats().back()->setSlurredToNext(true);
            beat->setSlurredToPrevious(true);
        }
        voice.addBeat(beat);
    }

    void fillSettings(zarn::ScoreModel &model, unsigned trackCount)
    {
        for (unsigned i = 0; i < 11; ++i)
            model.setScoreProperty(static_cast<zarn::ScoreProperty>(i), text());
        for (unsigned i = 0; i < zarn::HeaderAndFooterCount; ++i)
            model.setHeaderAndFooter(static_cast<zarn::HeaderAndFooter>(i), text());
        zarn::PageSetup page;
        for (int *length : {&page.width, &page.height, &page.leftMargin, &page.topMargin,
                            &page.rightMargin, &page.bottomMargin, &page.staffSpace})
            *length = static_cast<int>(below(400000));
        page.orientation = pick<zarn::PageSetup::Orientation>(2);
        model.setPageSetup(page);
        model.setConcertTone(220 + static_cast<double>(level()) * 440 + 1.0 / 3.0);
        model.setIgnoreCapo(maybe());
        model.setPrintable(maybe());
        model.setProtected(maybe());
        for (unsigned i = below(4); i > 0; --i)
            model.pushInFullScoreSystemsLayout(static_cast<int>(1 + below(6)));
        model.setFullScoreDefaultBarCountBySystem(1 + below(8));
        std::vector<zarn::ScoreView> views;
        for (unsigned i = 1 + below(3); i > 0; --i)
            views.push_back({pick<zarn::ViewLayout>(3), maybe()});
        model.setViews(views);
        std::vector<zarn::TrackGroup> groups;
        for (unsigned i = trackCount > 0 ? below(3) : 0; i > 0; --i) {
            const unsigned first = below(trackCount);
            groups.push_back({first, first + below(trackCount - first), text(),
                              pick<zarn::GroupSymbol>(4), maybe()});
        }
        model.setTrackGroups(groups);
    }

    void fillMaster(zarn::MasterTrack &master)
    {
        master.addEmptyMasterBars(_barCount);
        for (const auto &bar : master.masterBars())
            fillMasterBar(*bar);
        for (int kind = 0; kind < zarn::DirectionMarkCount && _barCount > 0; ++kind)
            if (oneIn(4))
                master.setDirection(kind, static_cast<int>(below(_barCount)));
        zarn::TempoSettings tempo;
        tempo.value = 30 + static_cast<double>(level()) * 200;
        tempo.unit = pick<zarn::TempoUnit>(6);
        tempo.label = text();
        tempo.visible = maybe();
        master.setTempoSettings(tempo);
        master.setAnacrusis(maybe());
        if (maybe())
            master.setMastering(mastering());
        fillAutomations(master);
    }

    void fillMasterBar(zarn::MasterBar &bar)
    {
        bar.setTimeSignature({1 + below(300), 1u << below(9)});
        bar.setConcertKeySignature(
            zarn::KeySignature{static_cast<int>(below(15)) - 7, maybe(), maybe()});
        if (oneIn(4))
            bar.setOwnLength(utils::rational{1 + below(20), 1 + below(30)});
        bar.setTripletFeel(pick<zarn::TripletFeel>(7));
        bar.setFreeTime(oneIn(4));
        bar.setDoubleBar(oneIn(4));
        bar.setRepeatStart(oneIn(4));
        bar.setMovementStart(oneIn(6));
        if (oneIn(4))
            bar.setRepeatCount(2 + below(254));
        if (oneIn(4))
            bar.setAlternateEndings(static_cast<std::uint32_t>(_engine()));
        if (oneIn(4))
            bar.setSection({text(), text()});
        for (const zarn::MasterBarAttributeRow &row : zarn::masterBarAttributes())
            if (row.id >= zarn::MasterBarAttribute::Fermatas && oneIn(4))
                row.set(bar, _attributes.value(row.range));
        if (bar.timeSignature().getNumerator() <= 255 && oneIn(4))
            bar.setBeamGroups(
                zarn::BeamGroups(std::vector<std::uint8_t>(bar.timeSignature().getNumerator(), 1)));
    }

    zarn::OrkaSound orkaSound()
    {
        zarn::OrkaSound sound(text());
        if (maybe())
            sound.setSoundReproduction(zarn::OrkaSound::SoundReproduction::MIDI);
        sound.setPickupTones({level(), level()});
        sound.setKnobVolumes({level()});
        sound.setSwitchPosition(static_cast<int>(below(5)));
        sound.setOverloudPosition(static_cast<int>(below(5)) - 1);
        sound.setOverloudPickupIds({text(), text()});
        sound.setEffectChain(effectChain());
        return sound;
    }

    zarn::EffectChain effectChain()
    {
        zarn::EffectChain chain;
        for (unsigned i = below(4); i > 0; --i) {
            zarn::Effect effect{"effect" + text(), text(), {level(), level(), level()}};
            effect.setBypassed(maybe());
            chain.setEffect(below(zarn::EffectChain::maximumSlotCount), effect);
        }
        return chain;
    }

    zarn::Mastering mastering()
    {
        zarn::Mastering mastering;
        mastering.setEffectChain(effectChain());
        mastering.setVolumePan({level(), level() * 2 - 1});
        return mastering;
    }

    zarn::Sound sound()
    {
        zarn::Sound sound{text(),
                          zarn::MIDISound{static_cast<int>(below(128)),
                                          static_cast<int>(below(128)),
                                          static_cast<int>(below(128))}};
        sound.setPath(text());
        sound.setLabel(text());
        if (maybe())
            sound.setOrkaSound(orkaSound());
        sound.setRole(pick<zarn::Sound::Role>(2));
        sound.setGuiExpanded(maybe());
        return sound;
    }

    void fillAutomations(zarn::AutomationContainer &container)
    {
        for (unsigned i = _barCount > 0 ? below(12) : 0; i > 0; --i) {
            auto automation = makeAutomation();
            automation->setIndex(below(_barCount));
            automation->setPosition(level() * 4);
            automation->setValue(automation->type() == zarn::Automation::Tempo ? 30 + level() * 200
                                                                               : real());
            automation->setLinear(maybe());
            automation->setText(text());
            automation->setVisible(maybe());
            container.insertAutomation(std::move(automation));
        }
        for (unsigned slot = 0; slot < zarn::Automation::automationTypeCount; ++slot)
            container.bypassType(zarn::Automation::idType(slot), oneIn(6));
    }

    std::unique_ptr<zarn::Automation> makeAutomation()
    {
        switch (below(5)) {
        case 0: {
            auto tempo = std::make_unique<zarn::TempoAutomation>();
            tempo->setUnit(static_cast<std::int32_t>(1 + below(5)));
            return tempo;
        }
        case 1:
            return std::make_unique<zarn::SoundAutomation>(
                maybe() ? std::make_shared<const zarn::Sound>(sound()) : nullptr);
        case 2: {
            auto knob = std::make_unique<zarn::PickupKnobAutomation>();
            knob->setPickup(static_cast<std::int32_t>(below(4)) - 1);
            return knob;
        }
        case 3:
            return zarn::Automation::create(static_cast<zarn::Automation::Type>(below(200)));
        default:
            return std::make_unique<zarn::DSPParamAutomation>(
                static_cast<zarn::Automation::Type>(zarn::Automation::DSPParam_00 + below(32)));
        }
    }

    std::shared_ptr<zarn::Track> track()
    {
        static const std::vector<zarn::InstrumentSet::Type> types = {
            zarn::InstrumentSet::steelGuitar, zarn::InstrumentSet::electricBass,
            zarn::InstrumentSet::banjo,       zarn::InstrumentSet::acousticPiano,
            zarn::InstrumentSet::drumKit,     zarn::InstrumentSet::unknown,
            zarn::InstrumentSet::bowed,       zarn::InstrumentSet::clarinet};
        auto track =
            std::make_shared<zarn::Track>(types[below(static_cast<unsigned>(types.size()))]);
        if (maybe())
            track->setStaffCount(1 + below(3));
        track->setName(text());
        track->setShortName(text());
        track->setIconID(static_cast<zarn::ZarnIconID>(1 + below(26)));
        track->setColor(static_cast<std::uint32_t>(_engine() & 0xFFFFFF));
        track->setTranspositionOffset(static_cast<int>(below(49)) - 24);
        if (zarn::TrackNotations notations{maybe(), maybe(), maybe()}; notations.any())
            track->setChosenNotations(notations);
        if (maybe())
            track->setSettings(settings());
        for (unsigned i = below(3); i > 0; --i)
            track->addSound(std::make_shared<const zarn::Sound>(sound()));
        if (track->forcedSoundIndex() >= static_cast<int>(track->sounds().size()))
            track->setForcedSoundIndex(zarn::TrackSettings::NoForcedSound);
        fillAutomations(track->mutableAutomations());
        for (const auto &staff : track->staves())
            fillStaff(*staff);
        zarn::mendBrokenSpans(*track);
        return track;
    }

    zarn::TrackSettings settings()
    {
        zarn::TrackSettings settings;
        settings.playingStyle = pick<zarn::PlayingStyle>(8);
        settings.palmMuteStrength = level();
        settings.letRingThroughout = maybe();
        settings.autoAccentuation = maybe();
        settings.autoBrush = maybe();
        settings.oneChannelPerString = maybe();
        settings.volumePan = {level(), level() * 2 - 1};
        settings.playback = pick<zarn::TrackPlayback>(3);
        settings.forcedSoundIndex = static_cast<int>(below(4)) - 1;
        if (maybe())
            settings.midiConnection = {static_cast<std::uint8_t>(below(16)),
                                       static_cast<std::uint8_t>(below(16)),
                                       static_cast<std::uint8_t>(below(16))};
        for (unsigned i = below(4); i > 0; --i)
            settings.systemsLayout.push_back(static_cast<int>(1 + below(6)));
        settings.defaultBarCountBySystem = below(5);
        settings.lyricsVisible = static_cast<std::uint8_t>(below(32));
        for (std::string &words : settings.lyricsLeftOver)
            if (oneIn(3))
                words = text();
        return settings;
    }

    void fillStaff(zarn::Staff &staff)
    {
        if (maybe())
            staff.setTuning(tuning());
        const unsigned strings = staff.tuning().stringCount();
        staff.setCapoFret(static_cast<std::uint8_t>(below(13)));
        staff.setPartialCapoFret(static_cast<std::uint8_t>(below(13)));
        std::vector<bool> flags;
        for (unsigned i = 0; i < strings; ++i)
            flags.push_back(maybe());
        staff.setPartialCapoStringFlags(flags);
        staff.setFretCount(below(40));
        staff.setChordCollection({text(), text()});
        staff.setChordWorkingSet({text()});
        staff.setDiagramCollection({diagram(strings), diagram(strings)});
        staff.setDiagramWorkingSet({diagram(strings)});
        zarn::Staff::Bars bars;
        for (unsigned i = 0; i < _barCount; ++i)
            bars.push_back(bar(strings));
        if (!bars.empty())
            bars[0]->setSimileMark(zarn::SimileMark::None);
        if (_barCount > 3 && maybe()) {
            bars[2]->setSimileMark(zarn::SimileMark::FirstOfDouble);
            bars[3]->setSimileMark(zarn::SimileMark::SecondOfDouble);
        }
        staff.insertBars(0, bars);
        zarn::takeBrokenLinksOff(staff);
    }

    zarn::GuitarTuning tuning()
    {
        zarn::GuitarTuning tuning(3 + below(10));
        for (unsigned i = 0; i < tuning.stringCount(); ++i)
            tuning.setTuning(i, static_cast<int>(12 + below(108)));
        tuning.setInstrument(pick<zarn::GuitarTuning::Instrument>(11));
        tuning.setName(text());
        tuning.setLabel(text());
        tuning.setLabelVisible(maybe());
        tuning.setFlat(maybe());
        tuning.setMidiOffset(static_cast<int>(below(25)) - 12);
        tuning.setRole(static_cast<zarn::GuitarTuning::Role>(1u << below(3)));
        tuning.setShortDroneString(maybe());
        return tuning;
    }

    zarn::ChordDiagram diagram(unsigned strings)
    {
        zarn::ChordDiagram diagram;
        diagram.name = text();
        diagram.firstFret = static_cast<std::uint8_t>(1 + below(15));
        for (unsigned i = 0; i < strings; ++i) {
            diagram.frets.push_back(static_cast<std::int8_t>(static_cast<int>(below(20)) - 1));
            diagram.fingers.push_back(static_cast<std::uint8_t>(below(6)));
        }
        return diagram;
    }

    std::shared_ptr<zarn::AudioTrack> audioTrack()
    {
        auto track = std::make_shared<zarn::AudioTrack>(text());
        track->setFilePath(text());
        const std::int64_t factor = maybe() ? -1000003 : 7;
        track->setStartOffset(static_cast<std::int64_t>(_engine()) * factor);
        track->setVolume(level());
        track->setPan(level() * 2 - 1);
        track->setMuted(maybe());
        return track;
    }

    zarn::NoteHead noteHead()
    {
        const unsigned head = below(22);
        return static_cast<zarn::NoteHead>(head == 5 ? 6 : head);
    }

    std::mt19937 _engine;
    RandomAttribute _attributes{[this](unsigned count) { return below(count); }};
    unsigned _barCount = 0;
};

} // namespace test
