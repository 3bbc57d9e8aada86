// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnChordSuggester.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace zarn::chord {

namespace {

/// What is written over songs; other kinds are for those who ask for them.
constexpr std::string_view suggestedKinds[] = {"",     "m",     "7",   "m7",      "maj7", "sus4",
                                               "6",    "m6",    "dim", "aug",     "dim7", "m7b5",
                                               "sus2", "7sus4", "5",   "m(maj7)", "9"};

// Costs in hundredths.
constexpr double wholeWeightOutside = 300;
constexpr int missingRoot = 60;
constexpr int missingThird = 50;
constexpr int missingSeventh = 40;
constexpr int missingOther = 12;
constexpr int furtherTone = 10;
constexpr int tonelessBass = 110;
constexpr int invertedBass = 30;
/// An inversion with its sixth or seventh in the bass, or one of a suspended chord.
constexpr int unusualBass = 60;
/// For leaving out that the fifth is in the bass: basses alternate under one chord.
constexpr int alternatingBass = 45;
constexpr int thirdInSuspended = 40;
/// For a suspended chord at all: the tone is mostly one of the melody.
constexpr int suspension = 25;
/// For a power chord without its fifth, which is a mere tone.
constexpr int missingFifthAlone = 60;
/// For a ninth chord that is none for want of its seventh.
constexpr int missingSeventhBelow = 60;
constexpr int chromaticTone = 6;
constexpr int changeOfChord = 30;

/// Below this share of a stretch a tone is not really there.
constexpr double heardShare = 0.04;

/// How many chords of each stretch a passage chooses from.
constexpr std::size_t choices = 16;

const std::vector<const ChordKind *> &kinds()
{
    static const auto all = [] {
        std::vector<const ChordKind *> found;
        for (const std::string_view text : suggestedKinds)
            found.push_back(ChordKind::fromText(text));
        return found;
    }();
    return all;
}

/// What a kind on a root costs over heard tones, the total being above 0.
class Fit {
public:
    Fit(const WeightedTones &tones, const KeySpelling &spelling)
        : _tones(tones), _spelling(spelling), _total(tones.total()),
          _isSingleTone(std::count_if(tones.weights.begin(), tones.weights.end(),
                                      [](double weight) { return weight > 0; })
                        == 1)
    {
    }

    /// Without what the bass costs.
    int cost(Tone root, const ChordKind &kind) const
    {
        const ToneSet own = kind.tones().transposed(root.value());
        double outside = 0;
        int chromatic = 0;
        for (int tone = 0; tone < 12; ++tone) {
            if (own.contains(Tone(tone)))
                chromatic += int(!_spelling.isDiatonic(Tone(tone)));
            else
                outside += share(Tone(tone));
        }
        int missing = 0;
        for (const Degree &degree : kind.degrees())
            if (!_isSingleTone && share(root + degree.semitones()) < heardShare)
                missing += costWithout(degree, kind);
        const bool isSuspended = kind.degrees().find(3) == nullptr && kind.degrees().size() > 2;
        const bool hasThird = std::max(share(root + 3), share(root + 4)) >= heardShare;
        const int further = static_cast<int>(kind.degrees().size()) - 3;
        return static_cast<int>(outside * wholeWeightOutside) + missing + kind.cost() / 3
            + std::max(further, 0) * furtherTone + chromatic * chromaticTone
            + (isSuspended ? suspension : 0) + (isSuspended && hasThird ? thirdInSuspended : 0);
    }

    int bassCost(Tone root, const ChordKind &kind) const noexcept
    {
        if (!_tones.bass || *_tones.bass == root)
            return 0;
        const bool isSuspended = kind.degrees().find(3) == nullptr;
        for (const Degree &degree : kind.degrees())
            if (root + degree.semitones() == *_tones.bass)
                return isSuspended || degree.number > 5 ? unusualBass : invertedBass;
        return tonelessBass;
    }

    bool isFifthInBass(Tone root, const ChordKind &kind) const noexcept
    {
        return _tones.bass && *_tones.bass == root + Degree{5, 0}.semitones()
            && kind.degrees().contains({5, 0});
    }

private:
    static int costWithout(Degree degree, const ChordKind &kind) noexcept
    {
        switch (degree.number) {
        case 1:
            return missingRoot;
        case 2:
        case 3:
        case 4:
            return missingThird;
        case 6:
        case 7:
            return missingSeventh + (kind.degrees().size() > 4 ? missingSeventhBelow : 0);
        default:
            return kind.degrees().size() == 2 ? missingFifthAlone : missingOther;
        }
    }

    double share(Tone tone) const noexcept
    {
        return _tones.weights[static_cast<std::size_t>(tone.value())] / _total;
    }

    const WeightedTones &_tones;
    const KeySpelling &_spelling;
    double _total;
    /// One that may belong to the chord before or behind; it makes none.
    bool _isSingleTone;
};

/// A way to the end of some stretches.
struct Way {
    int cost;
    std::size_t before;
};

} // namespace

double WeightedTones::total() const noexcept
{
    return std::accumulate(weights.begin(), weights.end(), 0.0);
}

ChordSuggester::ChordSuggester(const KeySignature &key) : _spelling(key) { }

std::vector<SuggestedChord> ChordSuggester::suggestions(const WeightedTones &tones,
                                                        std::size_t limit) const
{
    std::vector<SuggestedChord> result;
    if (!(tones.total() > 0))
        return result;
    const Fit fit(tones, _spelling);
    for (const ChordKind *const kind : kinds())
        for (int root = 0; root < 12; ++root) {
            Chord chord(_spelling.root(Tone(root), *kind), *kind);
            const int cost = fit.cost(Tone(root), *kind);
            if (fit.isFifthInBass(Tone(root), *kind))
                result.push_back({chord, cost + alternatingBass});
            if (tones.bass && *tones.bass != Tone(root))
                chord.setBass(_spelling.bass(*tones.bass, chord.root(), *kind));
            result.push_back({chord, cost + fit.bassCost(Tone(root), *kind)});
        }
    std::stable_sort(result.begin(), result.end(),
                     [](const SuggestedChord &left, const SuggestedChord &right) {
                         return left.cost < right.cost;
                     });
    result.resize(std::min(limit, result.size()), {Chord(), 0});
    return result;
}

std::vector<Chord> ChordSuggester::passage(const std::vector<WeightedTones> &stretches) const
{
    std::vector<std::vector<SuggestedChord>> all;
    std::vector<std::vector<Way>> ways;
    for (const WeightedTones &stretch : stretches) {
        all.push_back(suggestions(stretch, choices));
        if (all.back().empty())
            all.back().push_back({Chord(), 0});
        std::vector<Way> next;
        for (const SuggestedChord &chord : all.back()) {
            Way best = {ways.empty() ? chord.cost : std::numeric_limits<int>::max(), 0};
            for (std::size_t i = 0; !ways.empty() && i < ways.back().size(); ++i) {
                const bool isSame = all[all.size() - 2][i].chord == chord.chord;
                const int cost = ways.back()[i].cost + chord.cost + (isSame ? 0 : changeOfChord);
                if (cost < best.cost)
                    best = {cost, i};
            }
            next.push_back(best);
        }
        ways.push_back(std::move(next));
    }
    std::vector<Chord> result(stretches.size());
    std::size_t at = 0;
    for (std::size_t i = stretches.size(); i-- > 0;) {
        if (i + 1 == stretches.size())
            for (std::size_t j = 1; j < ways[i].size(); ++j)
                at = ways[i][j].cost < ways[i][at].cost ? j : at;
        result[i] = all[i][at].chord;
        at = ways[i][at].before;
    }
    return result;
}

} // namespace zarn::chord
