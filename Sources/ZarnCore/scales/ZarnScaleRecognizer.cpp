// SPDX-License-Identifier: MIT
#include <ZarnCore/scales/ZarnScaleRecognizer.h>

#include <ZarnCore/chords/ZarnKeySpelling.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <tuple>

namespace zarn::scale {

namespace {

/// Weights that differ by less are equal: they are sums of durations.
constexpr double smallestDifference = 1e-9;

/// The part of all that is heard below which a tone is passing by.
constexpr double passingShare = 0.02;

/// All scales of one set of tones.
struct Family {
    ToneSet tones;
    double inside;
    double outside;
    int unheardTones;
    int rank;
};

/// Every set of tones that is a scale on some tonic, with the most usual of its scales.
const std::vector<std::pair<ToneSet, int>> &knownSets()
{
    static const auto sets = [] {
        std::map<unsigned, int> ranks;
        for (const ScaleKind &kind : ScaleKind::all())
            for (int tonic = 0; tonic < 12; ++tonic)
                ranks.emplace(kind.tones().transposed(tonic).bits(), kind.rank());
        std::vector<std::pair<ToneSet, int>> result;
        for (const auto &row : ranks)
            result.emplace_back(ToneSet(row.first), row.second);
        return result;
    }();
    return sets;
}

Family heardAs(ToneSet tones, int rank, const HeardTones &heard)
{
    Family family = {tones, 0, 0, 0, rank};
    for (int tone = 0; tone < 12; ++tone) {
        const double weight = heard.weights[static_cast<std::size_t>(tone)];
        const bool isInside = tones.contains(Tone(tone));
        (isInside ? family.inside : family.outside) += weight;
        family.unheardTones += int(isInside && weight <= 0);
    }
    return family;
}

bool isBetter(const Family &left, const Family &right)
{
    const double difference = (left.inside - left.outside) - (right.inside - right.outside);
    if (std::abs(difference) > smallestDifference)
        return difference > 0;
    return std::make_tuple(left.unheardTones, left.rank, left.tones.bits())
        < std::make_tuple(right.unheardTones, right.rank, right.tones.bits());
}

} // namespace

HeardTones HeardTones::ofPitches(const std::vector<int> &pitches)
{
    HeardTones heard;
    for (const int pitch : pitches)
        heard.add(Tone(pitch), 1);
    if (!pitches.empty())
        heard.firstBass = heard.lastBass = Tone(*std::min_element(pitches.begin(), pitches.end()));
    return heard;
}

ScaleRecognizer::ScaleRecognizer(const KeySignature &key)
    : _key(key), _keyTonic(PitchClass::fromPitch(key.rootNote()).tone())
{
}

Scale ScaleRecognizer::onTone(Tone tonic, const ScaleKind &kind) const
{
    return Scale::onTone(tonic, kind, _key.accidentalCount() <= 0);
}

std::vector<ScaleName> ScaleRecognizer::names(const HeardTones &heard, std::size_t limit) const
{
    std::vector<ScaleName> result;
    const double total = std::accumulate(heard.weights.begin(), heard.weights.end(), 0.0);
    if (total <= 0)
        return result;
    HeardTones lasting = heard;
    for (double &weight : lasting.weights)
        if (weight < total * passingShare)
            weight = 0;
    std::vector<Family> families;
    families.reserve(knownSets().size());
    for (const auto &known : knownSets())
        families.push_back(heardAs(known.first, known.second, lasting));
    const std::size_t count = std::min(limit, families.size());
    std::partial_sort(families.begin(), families.begin() + static_cast<std::ptrdiff_t>(count),
                      families.end(), isBetter);
    const Tone first = heard.firstBass.value_or(_keyTonic);
    const Tone tonic = heard.lastBass.value_or(first);
    for (std::size_t i = 0; i < count; ++i) {
        auto scales = exact(families[i].tones, tonic);
        const auto order = [&](const Scale &scale) {
            const Tone own = scale.tonic().tone();
            return std::make_tuple(own != tonic, own != first, own != _keyTonic,
                                   scale.kind().rank());
        };
        std::stable_sort(scales.begin(), scales.end(), [&](const Scale &left, const Scale &right) {
            return order(left) < order(right);
        });
        for (const Scale &scale : scales)
            if (result.size() < limit)
                result.push_back(
                    {scale, families[i].inside, families[i].outside, families[i].unheardTones});
    }
    return result;
}

std::vector<Scale> ScaleRecognizer::exact(ToneSet tones, Tone tonic) const
{
    std::vector<Scale> result;
    for (int i = 0; i < 12; ++i) {
        const Tone own = tonic + i;
        if (!tones.contains(own))
            continue;
        if (const ScaleKind *const kind = ScaleKind::fromTones(tones.transposed(-own.value())))
            result.push_back(onTone(own, *kind));
    }
    return result;
}

} // namespace zarn::scale
