// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MasterBarWriter.h>

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zarn::io {

namespace {

/// The slowest and fastest tempo that a score has, in quarters a minute.
constexpr double slowest = 1;
constexpr double fastest = 10000;

/// A change that is seen: of the tempo before it, and of a gradual change its last step alone.
constexpr double visibleChange = 0.04;

/// Files count microseconds; what comes near to a whole number was one.
double perMinute(double quarterSeconds)
{
    const double tempo = std::clamp(60 / quarterSeconds, slowest, fastest);
    const double whole = std::round(tempo);
    return std::abs(tempo - whole) < 0.005 ? whole : std::round(tempo * 1000) / 1000;
}

bool isDotted(const TimeSignature &meter)
{
    return meter.getDenominator() == 8 && meter.getNumerator() % 3 == 0 && meter.getNumerator() > 3;
}

void writeTempos(const MidiMusic &music, const MeterLine &bars, MasterTrack &master)
{
    double shown = 0;
    const auto &tempos = music.tempos;
    for (std::size_t i = 0; i < tempos.size(); ++i) {
        // Of several at one time the last one holds.
        if (i + 1 < tempos.size() && tempos[i + 1].time == tempos[i].time)
            continue;
        const std::size_t number = bars.barAt(tempos[i].time);
        const MeterBar &bar = bars.bars()[number];
        if (tempos[i].time >= bar.end())
            continue;
        const double quarters = perMinute(tempos[i].quarterSeconds);
        const double before = i == 0 ? 0 : perMinute(tempos[i - 1].quarterSeconds);
        if (quarters == before)
            continue;
        const bool lasts = i + 1 == tempos.size() || tempos[i + 1].time >= bar.end();
        const bool isVisible = lasts && std::abs(quarters - shown) > visibleChange * shown;
        if (isVisible)
            shown = quarters;
        const auto isWhole = [](double tempo) { return tempo == std::round(tempo); };
        const bool dotted =
            isDotted(bar.meter) && (isWhole(perMinute(90 / quarters)) || !isWhole(quarters));
        const double value = dotted ? perMinute(90 / quarters) : quarters;
        const auto unit = dotted ? TempoUnit::QuarterDotted : TempoUnit::Quarter;
        TempoSettings settings;
        settings.value = value;
        settings.unit = unit;
        settings.visible = isVisible;
        // That which holds where nothing is said is an automation, so that it is seen to be said.
        if (tempos[i].time == 0 && settings != TempoSettings()) {
            master.setTempoSettings(settings);
            continue;
        }
        auto automation = std::make_unique<TempoAutomation>();
        automation->setIndex(static_cast<std::uint32_t>(number));
        automation->setPosition(
            static_cast<float>(inQuarterNotes(tempos[i].time - bar.start).toDouble()));
        automation->setValue(static_cast<float>(value));
        automation->setUnit(static_cast<std::int32_t>(unit));
        automation->setVisible(isVisible);
        master.insertAutomation(std::move(automation));
    }
}

void writeSections(const MidiMusic &music, const MeterLine &bars, MasterTrack &master)
{
    for (const MidiText &marker : music.sections) {
        if (marker.text.empty())
            continue;
        // A little early is the bar that follows.
        const std::size_t number = bars.barAt(marker.time + midiQuarter / 8);
        MasterBar &bar = *master.masterBars()[number];
        Section section = bar.section();
        constexpr std::size_t mostText = 200;
        if (section.text.size() + marker.text.size() > mostText || section.text == marker.text)
            continue;
        section.text += (section.text.empty() ? "" : ", ") + marker.text;
        bar.setSection(section);
    }
}

} // namespace

void writeMasterBars(const MidiMusic &music, const MeterLine &bars, ScoreModel &model)
{
    MasterTrack &master = *model.masterTrack();
    master.addEmptyMasterBars(static_cast<unsigned>(bars.bars().size()));
    auto key = music.keys.begin();
    KeySignature signature(0, true, true);
    for (std::size_t number = 0; number < bars.bars().size(); ++number) {
        const MeterBar &place = bars.bars()[number];
        MasterBar &bar = *master.masterBars()[number];
        bar.setTimeSignature(place.meter);
        if (place.length != lengthOf(place.meter))
            bar.setOwnLength(inQuarterNotes(place.length));
        // A key comes with the bar that it stands in the first half of.
        for (; key != music.keys.end() && key->time < place.start + place.length / 2; ++key)
            signature = KeySignature(key->fifths, !key->isMinor, key->fifths >= 0);
        bar.setConcertKeySignature(signature);
    }
    master.setAnacrusis(bars.hasPickup());
    writeTempos(music, bars, master);
    writeSections(music, bars, master);
    if (!music.title.empty())
        model.setScoreProperty(ScoreProperty::Title, music.title);
    if (!music.artist.empty())
        model.setScoreProperty(ScoreProperty::Artist, music.artist);
    if (!music.copyright.empty())
        model.setScoreProperty(ScoreProperty::Copyright, music.copyright);
}

} // namespace zarn::io
