// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/TrackWriter.h>

#include <ZarnCore/fingering/ZarnFingeringSolver.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/io/midi/DrumStaff.h>
#include <ZarnCore/io/midi/DynamicPlacer.h>
#include <ZarnCore/io/midi/LyricPlacer.h>
#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/StaffBuilder.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnTrackDefaults.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <algorithm>

namespace zarn::io {

namespace {

constexpr int keyCount = 128;

/// Keeps the transposition only when every note can be written with it.
void checkTransposition(const MidiPart &part, Track &track)
{
    const int offset = track.transpositionOffset();
    for (const PlayedNotes &notes : part.staves)
        for (const PlayedNote &note : notes)
            if (note.key - offset < 0 || note.key - offset >= keyCount) {
                track.setTranspositionOffset(0);
                return;
            }
}

/// Fifths from a sounding to the written spelling.
int fifthsOfTransposition(int offset)
{
    const int fifths = ((-7 * offset) % 12 + 12) % 12;
    return fifths > 6 ? fifths - 12 : fifths;
}

/// The clef in which notes of a track without a clef of its own need the fewest ledger lines.
ClefType clefFor(const PlayedNotes &notes, ClefType usual, int offset)
{
    if (notes.empty() || (usual != ClefType::G2 && usual != ClefType::F4))
        return usual;
    std::vector<int> keys;
    for (const PlayedNote &note : notes)
        keys.push_back(note.key - offset);
    const auto middle = keys.begin() + static_cast<std::ptrdiff_t>(keys.size() / 2);
    std::nth_element(keys.begin(), middle, keys.end());
    constexpr int lowForTreble = 57;
    constexpr int highForBass = 64;
    if (usual == ClefType::G2 && *middle < lowForTreble)
        return ClefType::F4;
    return usual == ClefType::F4 && *middle > highForBass ? ClefType::G2 : usual;
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

} // namespace

bool isForTwoHands(const MidiPart &part) noexcept
{
    return trackDefaults(part.type).staffCount == 2;
}

void writeTrack(const MidiPart &part, const MeterLine &bars, ScoreModel &model,
                MidiOddities &oddities)
{
    const auto track = ScoreModel::createTrack(part.type);
    if (!part.name.empty())
        track->setName(part.name);
    track->setStaffCount(static_cast<unsigned>(part.staves.size()));
    checkTransposition(part, *track);
    if (!part.strings.empty())
        track->staves().front()->setTuning(GuitarTuning(part.strings));
    if (part.program != MidiPart::Unset || part.bank != MidiPart::Unset)
        track->addSound(
            std::make_shared<Sound>(track->name(),
                                    MIDISound(std::max(part.program, 0), std::max(part.bank, 0),
                                              std::max(part.fineBank, 0))));
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
            auto note = std::make_shared<Note>();
            setDrum(*note, played.key, set.get());
            return note;
        }
        auto note = std::make_shared<Note>(played.key - offset);
        note->setSpelling(spellingOfFifth(played.fifth + fifths));
        if (played.string >= 0) {
            const auto open = part.strings[static_cast<std::size_t>(played.string)];
            note->setString(played.string);
            note->setFret(played.key - static_cast<int>(open));
        }
        return note;
    };
    StaffBuilder builder(bars, makeNote);
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
    model.addTrack(track);
    if (!part.isDrums && part.strings.empty() && track->isFretted()
        && InstrumentSet::isStringed(part.type))
        findStrings(*track, oddities, part.midiTrack);
}

} // namespace zarn::io
