// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnChordRecognizer.h>

#include <ZarnCore/chords/ChordNameTable.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <tuple>

namespace zarn::chord {

namespace {

using Entry = ChordNameTable::Entry;

int accidentals(const PitchClass &pitch) noexcept
{
    return std::abs(pitch.accidental().alteration());
}

ChordName nameOf(const Entry &entry, Tone bass, const KeySpelling &spelling)
{
    const ChordKind &kind = ChordKind::all()[entry.kind];
    const Tone rootTone = bass + static_cast<int>(entry.root);
    ChordName name;
    name.chord = Chord(spelling.root(rootTone, kind), kind);
    name.cost = entry.cost;
    for (unsigned rest = entry.unheard, i = 0; rest != 0; rest >>= 1, ++i) {
        if ((rest & 1) == 0)
            continue;
        const Degree degree = kind.degrees()[i];
        if ((entry.said >> i & 1) != 0)
            name.chord.omit(degree);
        else
            name.unheard.append(degree);
    }
    if (entry.root != 0)
        name.chord.setBass(spelling.bass(bass, name.chord.root(), kind));
    return name;
}

std::string nameOf(Degree degree)
{
    constexpr std::string_view names[] = {"root",     "second",  "third",     "fourth", "fifth",
                                          "sixth",    "seventh", "octave",    "ninth",  "tenth",
                                          "eleventh", "twelfth", "thirteenth"};
    return std::string(names[degree.number - 1]);
}

/// How far over the bass the tones begin.
class Places {
public:
    explicit Places(const std::vector<int> &pitches)
        : _bass(*std::min_element(pitches.begin(), pitches.end()))
    {
        _distances.fill(farAway);
        for (const int pitch : pitches) {
            int &distance = _distances[static_cast<std::size_t>(Tone(pitch).value())];
            distance = std::min(distance, pitch - _bass);
            _isClose = _isClose && pitch - _bass < 12;
        }
    }

    int bass() const noexcept { return _bass; }

    /// Adds what it costs that the tones of a name lie where they lie.
    void judge(ChordName &name) const
    {
        const DegreeList &degrees = name.chord.kind().degrees();
        const Tone root = name.chord.root().tone();
        if (name.chord.hasBass())
            return;
        name.isThirteenthClose = _isClose && degrees.contains({7, 0}) && degrees.contains({13, 0});
        name.cost += name.isThirteenthClose ? cost::closeThirteenth : 0;
        if (!degrees.contains({7, -1}))
            return;
        name.isSeventhFar = isFar(root + Degree{7, -1}.semitones());
        const bool isClose = degrees.contains({3, 0}) || !isFar(root + 3);
        name.isEleventhLow =
            degrees.contains({11, 0}) && degrees.find(3) != nullptr && isClose && !isFar(root + 5);
        name.cost +=
            int(name.isSeventhFar) * cost::farSeventh + int(name.isEleventhLow) * cost::lowEleventh;
    }

private:
    static constexpr int farAway = 1000;

    bool isFar(Tone tone) const noexcept
    {
        return _distances[static_cast<std::size_t>(tone.value())] > 12;
    }

    int _bass;
    bool _isClose = true; ///< all within an octave
    std::array<int, 12> _distances;
};

} // namespace

ChordRecognizer::ChordRecognizer(const KeySignature &key) : _spelling(key)
{
    ChordNameTable::instance();
}

std::vector<ChordName> ChordRecognizer::names(ToneSet tones, Tone bass) const
{
    std::vector<ChordName> result;
    if (!tones.contains(bass))
        return result;
    const auto entries = ChordNameTable::instance().entries(tones.transposed(-bass.value()));
    result.reserve(static_cast<std::size_t>(entries.second - entries.first));
    for (const Entry *entry = entries.first; entry != entries.second; ++entry)
        result.push_back(nameOf(*entry, bass, _spelling));
    // Names of one cost stand together already, and few do.
    const auto rank = [&](const ChordName &name) {
        const PitchClass &root = name.chord.root();
        return std::make_tuple(name.unheard.contains({1, 0}), root.tone() != bass,
                               !_spelling.isDiatonic(root.tone()), accidentals(root),
                               root.tone().value());
    };
    for (auto begin = result.begin(); begin != result.end();) {
        const auto end = std::find_if(
            begin, result.end(), [&](const ChordName &name) { return name.cost != begin->cost; });
        if (end - begin > 1)
            std::stable_sort(begin, end, [&](const ChordName &left, const ChordName &right) {
                return rank(left) < rank(right);
            });
        begin = end;
    }
    return result;
}

std::vector<ChordName> ChordRecognizer::names(const std::vector<int> &pitches) const
{
    if (pitches.empty())
        return {};
    const Places places(pitches);
    auto result = names(ToneSet::ofPitches(pitches), Tone(places.bass()));
    bool isChanged = false;
    for (ChordName &name : result) {
        places.judge(name);
        isChanged = isChanged || name.isJudgedByPlace();
    }
    if (isChanged)
        std::stable_sort(
            result.begin(), result.end(),
            [](const ChordName &left, const ChordName &right) { return left.cost < right.cost; });
    return result;
}

std::vector<NameReason> ChordName::reasons() const
{
    std::vector<NameReason> reasons;
    const ChordKind &kind = chord.kind();
    reasons.push_back({kind.cost(), kind.text().empty() ? "major" : std::string(kind.text())});
    for (const Degree &degree : unheard)
        reasons.push_back({cost::ofOmission(degree, kind), nameOf(degree) + " left out"});
    for (const Degree &degree : chord.omitted())
        reasons.push_back({cost::ofSaidOmission(degree, kind), "no " + nameOf(degree)});
    if (isSeventhFar)
        reasons.push_back({cost::farSeventh, "seventh far from the root"});
    if (isThirteenthClose)
        reasons.push_back({cost::closeThirteenth, "thirteenth within an octave"});
    if (isEleventhLow)
        reasons.push_back({cost::lowEleventh, "eleventh close to the root"});
    const bool isRootless = unheard.contains({1, 0});
    if (isRootless) {
        // It costs what the others leave of it.
        int rest = cost;
        for (const NameReason &reason : reasons)
            rest -= reason.cost;
        for (NameReason &reason : reasons)
            if (reason.text == nameOf({1, 0}) + " left out")
                reason.cost += rest;
    }
    if (!chord.hasBass() || isRootless)
        return reasons;
    const int bass = Tone(chord.bass().tone().value() - chord.root().tone().value()).value();
    for (const Degree &degree : kind.degrees())
        if (degree.tone() == bass) {
            reasons.push_back({cost::ofInversion(degree, kind), nameOf(degree) + " in the bass"});
            if (cost::hasPlainerTwin(kind))
                reasons.push_back({cost::plainerTwin, "has a plainer name"});
            return reasons;
        }
    reasons.push_back({cost::foreignBass, "bass from outside of the chord"});
    if (kind.degrees().size() > 3)
        reasons.push_back({cost::foreignBassOfSeventh, "under four tones and more"});
    return reasons;
}

} // namespace zarn::chord
