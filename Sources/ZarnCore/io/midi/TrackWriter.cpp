// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/TrackWriter.h>

#include <ZarnCore/fingering/ZarnFingeringSolver.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/io/midi/DrumStaff.h>
#include <ZarnCore/io/midi/DynamicPlacer.h>
#include <ZarnCore/io/midi/LyricPlacer.h>
#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/PitchSpeller.h>
#include <ZarnCore/io/midi/StaffBuilder.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnTrackDefaults.h>
#include <ZarnCore/model/notes/SpanFaults.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>
#include <array>

namespace zarn::io {

namespace {

constexpr int keyCount = 128;

/// Sounds of a track that are looked for when they come again.
constexpr std::size_t mostSounds = 128;

/// Keeps the transposition only when every note can be written with it.
void checkTransposition(const MidiPart &part, Track &track)
{
    const int offset = track.transpositionOffset();
    if (offset == 0)
        return;
    for (const PlayedNotes &notes : part.staves)
        for (const PlayedNote &note : notes)
            if (note.key - offset < 0 || note.key - offset >= keyCount) {
                track.setTranspositionOffset(0);
                return;
            }
}

/// The clef in which notes of a track without a clef of its own need the fewest ledger lines.
ClefType clefFor(const PlayedNotes &notes, ClefType usual, int offset)
{
    if (notes.empty() || (usual != ClefType::G2 && usual != ClefType::F4))
        return usual;
    std::array<std::size_t, keyCount> counts = {};
    for (const PlayedNote &note : notes)
        ++counts[note.key];
    std::size_t middle = 0;
    for (std::size_t below = counts[0]; below <= notes.size() / 2; below += counts[middle])
        ++middle;
    const int written = static_cast<int>(middle) - offset;
    constexpr int lowForTreble = 57;
    constexpr int highForBass = 64;
    if (usual == ClefType::G2 && written < lowForTreble)
        return ClefType::F4;
    return usual == ClefType::F4 && written > highForBass ? ClefType::G2 : usual;
}

/// Strings and frets for what has none yet.
void findStrings(Track &track, MidiOddities &oddities, int midiTrack)
{
    using namespace fingering;
    Staff &staff = *track.staves().front();
    if (!canBeFingered(staff))
        return;
    std::vector<BeatSpan> spans;
    for (unsigned bar = 0; bar < staff.barCount(); ++bar)
        for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice) {
            const auto &found = staff.bars()[bar]->voices()[voice];
            if (found == nullptr || found->isEmpty())
                continue;
            spans.push_back({track.index(), 0, bar, voice, 0, found->beatCount() - 1});
        }
    const ReadPassage read = readPassage(staff, spans, {});
    if (read.passage.notes.empty())
        return;
    const FingeringSolution solution = FingeringSolver(read.passage).solve();
    for (const PassageSource &source : read.sources) {
        const Placement &placement = solution.notes[source.passageNote];
        if (placement.string == Placement::None)
            continue;
        Note &note = *staff.bars()[source.bar]
                          ->voices()[source.voice]
                          ->beats()[source.beat]
                          ->notes()[source.note];
        note.setString(placement.string);
        note.setFret(placement.fret);
    }
    for (std::size_t i = 0; i < solution.problems.size(); ++i)
        oddities.add("a note that no hand can play with the others on " + track.name(), midiTrack);
}

std::shared_ptr<Sound> soundOf(const SoundChange &change, std::string name)
{
    return std::make_shared<Sound>(std::move(name),
                                   MIDISound(std::max(change.program, 0), std::max(change.bank, 0),
                                             std::max(change.fineBank, 0)));
}

/// When the notes were played and where they are written, in the order of playing.
std::vector<std::pair<MidiTime, MidiTime>> onsetsOf(const MidiPart &part)
{
    std::vector<std::pair<MidiTime, MidiTime>> onsets;
    for (const PlayedNotes &notes : part.staves)
        for (const PlayedNote &note : notes)
            onsets.emplace_back(note.playedStart, note.start);
    std::sort(onsets.begin(), onsets.end());
    return onsets;
}

/// The sounds of the track: each later one comes with the first note that has it.
void writeSounds(const MidiPart &part, const MeterLine &bars, Track &track)
{
    if (part.sound.program != MidiPart::Unset || part.sound.bank != MidiPart::Unset)
        track.addSound(soundOf(part.sound, track.name()));
    if (part.soundChanges.empty())
        return;
    const auto onsets = onsetsOf(part);
    std::vector<std::pair<SoundChange, std::shared_ptr<const Sound>>> known;
    for (const SoundChange &change : part.soundChanges) {
        const auto next = std::lower_bound(onsets.begin(), onsets.end(),
                                           std::make_pair(change.time, MidiTime(0)));
        if (next == onsets.end())
            break;
        const auto same = std::find_if(known.begin(), known.end(), [&](const auto &entry) {
            return entry.first.isSameSound(change);
        });
        auto sound = same == known.end() ? nullptr : same->second;
        if (!sound && part.sound.isSameSound(change))
            sound = track.sounds().front();
        if (!sound) {
            sound =
                soundOf(change, track.name() + ", program " + std::to_string(change.program + 1));
            track.addSound(sound);
        }
        if (same == known.end() && known.size() < mostSounds)
            known.emplace_back(change, sound);
        const std::size_t bar = bars.barAt(next->second);
        auto automation = std::make_unique<SoundAutomation>(sound);
        automation->setIndex(static_cast<std::uint32_t>(bar));
        automation->setPosition(
            static_cast<float>(inQuarterNotes(next->second - bars.bars()[bar].start).toDouble()));
        track.mutableAutomations().insertAutomation(std::move(automation));
    }
}

} // namespace

bool isForTwoHands(const MidiPart &part) noexcept
{
    return trackDefaults(part.type).staffCount == 2;
}

std::shared_ptr<Track> makeTrack(const MidiPart &part, const MeterLine &bars, NodeBlocks &nodes,
                                 MidiOddities &oddities)
{
    auto track = ScoreModel::createTrack(part.type);
    if (!part.name.empty())
        track->setName(part.name);
    track->setStaffCount(static_cast<unsigned>(part.staves.size()));
    checkTransposition(part, *track);
    if (!part.strings.empty())
        track->staves().front()->setTuning(GuitarTuning(part.strings));
    writeSounds(part, bars, *track);
    constexpr float most = 127;
    constexpr float middle = 64;
    const float volume =
        part.volume == MidiPart::Unset ? 1 : static_cast<float>(part.volume) / most;
    const float pan = part.pan == MidiPart::Unset
        ? 0
        : std::clamp((static_cast<float>(part.pan) - middle) / (most - middle), -1.0F, 1.0F);
    track->setVolumePan({volume, pan});

    const int offset = track->transpositionOffset();
    const int fifths = fifthsOfTransposition(offset);
    const auto set = track->instrumentSet();
    const StaffBuilder::MakeNote makeNote = [&](const PlayedNote &played) {
        if (part.isDrums) {
            auto note = nodes.make<Note>();
            setDrum(*note, played.key, set.get());
            return note;
        }
        auto note = nodes.make<Note>(played.key - offset);
        note->setSpellingNumber(spellingNumberOfFifth(played.fifth + fifths));
        if (played.string >= 0) {
            const auto open = part.strings[static_cast<std::size_t>(played.string)];
            note->setString(played.string);
            note->setFret(played.key - static_cast<int>(open));
        }
        return note;
    };
    StaffBuilder builder(bars, nodes, makeNote);
    for (std::size_t i = 0; i < part.staves.size(); ++i) {
        auto built = builder.build(part.staves[i]);
        const auto usual = defaultClef(part.type, static_cast<unsigned>(i));
        const auto clef =
            part.isDrums || part.staves.size() > 1 ? usual : clefFor(part.staves[i], usual, offset);
        for (const auto &bar : built)
            bar->setClef(clef);
        if (i == 0) {
            placeDynamics(builder.onsets());
            const std::size_t lost = placeLyrics(part.lyrics, builder.onsets());
            for (std::size_t word = 0; word < lost; ++word)
                oddities.add("words that begin with no note were left out", part.midiTrack);
        }
        track->staves()[i]->insertBars(0, std::move(built));
    }
    return track;
}

void finishTrack(const MidiPart &part, Track &track, MidiOddities &oddities)
{
    if (!part.isDrums && part.strings.empty() && track.isFretted()
        && InstrumentSet::isStringed(part.type))
        findStrings(track, oddities, part.midiTrack);
    // Words whose syllables were left out end with those that they have.
    if (!part.lyrics.empty())
        mendBrokenSpans(track);
}

} // namespace zarn::io
