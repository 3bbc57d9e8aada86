// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ChordNameTable.h>

#include <ZarnCore/chords/ZarnChord.h>

#include <algorithm>
#include <tuple>

namespace zarn::chord {

namespace cost {

int ofInversion(Degree bass, const ChordKind &kind) noexcept
{
    const DegreeList &degrees = kind.degrees();
    const bool isTriadAbove =
        degrees.size() == 4 && degrees.find(3) != nullptr && degrees.contains({5, 0});
    switch (bass.number) {
    case 1:
        return 0;
    case 6:
        return seventhOrSixthInBass;
    case 7:
        return seventhOrSixthInBass + (isTriadAbove ? seventhUnderTriad : 0);
    case 9:
    case 11:
    case 13:
        return extensionInBass;
    default:
        return thirdOrFifthInBass;
    }
}

int ofOmission(Degree degree, const ChordKind &kind) noexcept
{
    if (degree.number == 1)
        return omittedRoot;
    const DegreeList &degrees = kind.degrees();
    if (degree.number != 5)
        return omittedTone;
    const bool isSuspended = degrees.find(3) == nullptr;
    const bool isSixth = degrees.size() == 4 && degrees.find(6) != nullptr;
    return omittedTone + (isSuspended ? omittedSuspended : isSixth ? omittedOfSixth : 0);
}

int ofSaidOmission(Degree degree, const ChordKind &kind) noexcept
{
    return degree.number == 3      ? saidThird
        : kind.isOmissible(degree) ? ofOmission(degree, kind)
                                   : saidFifth;
}

bool hasPlainerTwin(const ChordKind &kind) noexcept
{
    constexpr std::string_view texts[] = {"sus2", "sus4", "7sus4", "9sus4", "sus4add9", "6",
                                          "m6",   "dim7", "aug",   "7b5",   "madd9"};
    return std::find(std::begin(texts), std::end(texts), kind.text()) != std::end(texts);
}

} // namespace cost

namespace {

using Entry = ChordNameTable::Entry;
using Lists = std::vector<std::vector<Entry>>;

/// One kind with some of its degrees left out, entered over every bass.
class Reading {
public:
    Reading(const ChordKind &kind, unsigned unheard, unsigned said) : _kind(kind)
    {
        _entry.kind = static_cast<std::uint8_t>(&kind - ChordKind::all().begin());
        _entry.unheard = static_cast<std::uint8_t>(unheard);
        _entry.said = static_cast<std::uint8_t>(said);
        _cost = kind.cost();
        const DegreeList &degrees = kind.degrees();
        for (std::size_t i = 0; i < degrees.size(); ++i) {
            if ((unheard >> i & 1) == 0)
                _tones.insert(degrees[i].tone());
            else if ((said >> i & 1) != 0)
                _cost += cost::ofSaidOmission(degrees[i], kind);
            else
                _cost += cost::ofOmission(degrees[i], kind);
        }
    }

    void enter(Lists &lists)
    {
        const bool isRootless = (_entry.unheard & 1) != 0;
        if (_tones.size() < (isRootless ? 4 : 2))
            return;
        for (const Degree &degree : _kind.degrees())
            if (_tones.contains(degree.tone()))
                enterOver(degree.tone(), _cost + inversionCost(degree), false, lists);
        if (_entry.unheard != 0 || _tones.size() < 3)
            return;
        const int above = _tones.size() > 3 ? cost::foreignBassOfSeventh : 0;
        for (int bass = 0; bass < 12; ++bass)
            if (!_tones.contains(Tone(bass)))
                enterOver(Tone(bass), _cost + cost::foreignBass + above, true, lists);
    }

private:
    int inversionCost(Degree bass) const noexcept
    {
        const bool isRootless = (_entry.unheard & 1) != 0;
        const bool isInverted = bass.number != 1;
        return isRootless ? 0
                          : cost::ofInversion(bass, _kind)
                + (isInverted && cost::hasPlainerTwin(_kind) ? cost::plainerTwin : 0);
    }

    void enterOver(Tone bass, int cost, bool isForeign, Lists &lists)
    {
        ToneSet tones = _tones;
        tones.insert(bass);
        _entry.root = static_cast<std::uint8_t>(Tone(-bass.value()).value());
        _entry.cost = static_cast<std::int16_t>(cost);
        _entry.isBassForeign = isForeign;
        lists[tones.transposed(-bass.value()).bits() >> 1].push_back(_entry);
    }

    const ChordKind &_kind;
    Entry _entry = {};
    ToneSet _tones;
    int _cost = 0;
};

/// Whether the fifth could be taken for an altered one if it were not heard: C7#11 is C7b5 then.
/// Chords of six tones have enough of their own.
bool isFifthNeeded(const DegreeList &degrees) noexcept
{
    return degrees.size() <= 5
        && (degrees.contains({11, 1}) || degrees.contains({13, -1}) || degrees.contains({6, -1}));
}

/// The degrees that may be left out, as bits: with and without having to say so.
std::pair<unsigned, unsigned> omissibleDegrees(const DegreeList &degrees) noexcept
{
    unsigned silently = 0;
    unsigned said = 0;
    for (std::size_t i = 0; i < degrees.size(); ++i) {
        const Degree degree = degrees[i];
        if (degree.number == 5 && isFifthNeeded(degrees))
            continue;
        if (degrees.isOmissible(degree))
            silently |= 1u << i;
        else if (degrees.size() <= 5
                 && (degree.number == 3 || (degree.number == 5 && degree.alteration == 0)))
            said |= 1u << i;
    }
    return {silently, said};
}

/// Whether the degrees without those that are said to be missing are best said in this way.
bool isPlainest(const ChordKind &kind, unsigned said)
{
    if (said == 0)
        return true;
    DegreeList left;
    for (std::size_t i = 0; i < kind.degrees().size(); ++i)
        if ((said >> i & 1) == 0)
            left.append(kind.degrees()[i]);
    const Chord plain = Chord::fromDegrees(PitchClass(NoteName::Value::C), left);
    return &plain.kind() == &kind;
}

/// Names that say what is missing are for tones that have no others.
void dropSaidOmissions(std::vector<Entry> &entries)
{
    const auto isSaid = [](const Entry &entry) { return entry.said != 0; };
    if (!std::all_of(entries.begin(), entries.end(), isSaid))
        entries.erase(std::remove_if(entries.begin(), entries.end(), isSaid), entries.end());
}

bool isRootless(const Entry &entry) noexcept
{
    return (entry.unheard & 1) != 0;
}

/// A chord without its root is never the first thing to think of.
void putRootlessBehind(std::vector<Entry> &sorted)
{
    const auto rooted = std::find_if_not(sorted.begin(), sorted.end(), isRootless);
    if (rooted == sorted.end())
        return;
    for (auto entry = sorted.begin(); entry != rooted; ++entry)
        entry->cost = rooted->cost;
    std::rotate(sorted.begin(), rooted, rooted + 1);
}

/// Nobody looks for alternatives that are this much worse than the best name.
void dropFarFetched(std::vector<Entry> &sorted)
{
    while (!sorted.empty() && sorted.back().cost > sorted.front().cost + cost::farFetched)
        sorted.pop_back();
}

} // namespace

ChordNameTable::ChordNameTable()
{
    Lists lists(ToneSet::possibleSets / 2);
    for (const ChordKind &kind : ChordKind::all()) {
        if (!kind.isRecognised())
            continue;
        const auto [silently, said] = omissibleDegrees(kind.degrees());
        const unsigned all = silently | said;
        // All subsets of the degrees that may go.
        for (unsigned unheard = all;; unheard = (unheard - 1) & all) {
            // Without its third a chord is no longer one that may lack others in silence.
            const unsigned missing = (unheard & said) == 0 ? 0 : unheard;
            if (isPlainest(kind, missing))
                Reading(kind, unheard, missing).enter(lists);
            if (unheard == 0)
                break;
        }
    }
    for (std::size_t i = 0; i < lists.size(); ++i) {
        dropSaidOmissions(lists[i]);
        std::stable_sort(lists[i].begin(), lists[i].end(),
                         [](const Entry &left, const Entry &right) {
                             return std::make_tuple(left.cost, left.root != 0)
                                 < std::make_tuple(right.cost, right.root != 0);
                         });
        putRootlessBehind(lists[i]);
        dropFarFetched(lists[i]);
        _entries.insert(_entries.end(), lists[i].begin(), lists[i].end());
        _begins[i + 1] = static_cast<std::uint32_t>(_entries.size());
    }
}

const ChordNameTable &ChordNameTable::instance()
{
    static const ChordNameTable table;
    return table;
}

} // namespace zarn::chord
