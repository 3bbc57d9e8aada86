// SPDX-License-Identifier: MIT
#include "RatioReport.h"

#include <ZarnCore/chords/ZarnChordRecognizer.h>
#include <ZarnCore/scales/ZarnScaleRecognizer.h>

#include <optional>
#include <vector>

namespace {

using zarn::PitchClass;
using zarn::Tone;
using zarn::ToneSet;
using zarn::chord::Chord;
using zarn::chord::ChordKind;
using zarn::chord::ChordRecognizer;
using zarn::scale::Scale;
using zarn::scale::ScaleKind;
using zarn::scale::ScaleRecognizer;

struct Heard {
    ToneSet tones;
    Tone bass;
};

/// The chords of lead sheets over each of their tones: triads to ninths on twelve roots.
std::vector<Heard> usualChords()
{
    std::vector<Heard> all;
    for (std::size_t i = 0; i < 28; ++i)
        for (int root = 0; root < 12; ++root) {
            const ToneSet tones = ChordKind::all()[i].tones().transposed(root);
            for (int bass = 0; bass < 12; ++bass)
                if (tones.contains(Tone(bass)))
                    all.push_back({tones, Tone(bass)});
        }
    return all;
}

/// What one would write first: every kind on every tone, from the bass up, until one fits.
std::optional<Chord> firstMatch(const Heard &heard)
{
    for (int i = 0; i < 12; ++i) {
        const Tone root = heard.bass + i;
        if (!heard.tones.contains(root))
            continue;
        for (const ChordKind &kind : ChordKind::all())
            if (kind.tones().transposed(root.value()) == heard.tones) {
                Chord chord(PitchClass::fromTone(root, false), kind);
                if (i != 0)
                    chord.setBass(PitchClass::fromTone(heard.bass, false));
                return chord;
            }
    }
    return std::nullopt;
}

void namesByFirstMatch(benchmark::State &state)
{
    const auto chords = usualChords();
    std::size_t next = 0;
    for (auto _ : state) {
        auto chord = firstMatch(chords[next]);
        benchmark::DoNotOptimize(chord);
        next = (next + 1) % chords.size();
    }
}

void namesRanked(benchmark::State &state)
{
    const auto chords = usualChords();
    const ChordRecognizer recognizer;
    std::size_t next = 0;
    for (auto _ : state) {
        auto names = recognizer.names(chords[next].tones, chords[next].bass);
        benchmark::DoNotOptimize(names);
        next = (next + 1) % chords.size();
    }
}

std::vector<Heard> knownScales()
{
    std::vector<Heard> all;
    for (const ScaleKind &kind : ScaleKind::all())
        for (int tonic = 0; tonic < 12; ++tonic)
            all.push_back({kind.tones().transposed(tonic), Tone(tonic)});
    return all;
}

void scalesByFirstMatch(benchmark::State &state)
{
    const auto scales = knownScales();
    std::size_t next = 0;
    for (auto _ : state) {
        const Heard &heard = scales[next];
        const ScaleKind *found = nullptr;
        for (const ScaleKind &kind : ScaleKind::all())
            if (kind.tones().transposed(heard.bass.value()) == heard.tones) {
                found = &kind;
                break;
            }
        auto scale = Scale::onTone(heard.bass, *found, true);
        benchmark::DoNotOptimize(scale);
        next = (next + 1) % scales.size();
    }
}

void scalesExact(benchmark::State &state)
{
    const auto scales = knownScales();
    const ScaleRecognizer recognizer;
    std::size_t next = 0;
    for (auto _ : state) {
        auto found = recognizer.exact(scales[next].tones, scales[next].bass);
        benchmark::DoNotOptimize(found);
        next = (next + 1) % scales.size();
    }
}

} // namespace

int main(int argc, char **argv)
{
    bench::RatioReport report;
    // Ours gives every name with its cost, the reference the first alone.
    report.compare("chords: names of 28 kinds in all inversions", 5, namesByFirstMatch,
                   namesRanked);
    // Ours gives the modes as well, and spells each.
    report.compare("scales: from exact tones", 4, scalesByFirstMatch, scalesExact);
    return report.run(argc, argv);
}
