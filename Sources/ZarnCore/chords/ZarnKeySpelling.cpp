// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnKeySpelling.h>

#include <ZarnCore/chords/ChordSymbolTokens.h>
#include <ZarnCore/chords/ZarnChordKind.h>

#include <array>
#include <cctype>
#include <cstdlib>
#include <string>
#include <vector>

namespace zarn::chord {

namespace {

/// Fifths above C of the letters C to B.
constexpr std::array<int, 7> fifthsOfLetters = {0, 2, 4, -1, 1, 3, 5};

int accidentals(const PitchClass &pitch) noexcept
{
    return std::abs(pitch.accidental().alteration());
}

std::size_t indexOf(const PitchClass &pitch) noexcept
{
    return static_cast<std::size_t>(pitch.note().value()) * spelling::accidentalCount
        + static_cast<std::size_t>(pitch.accidental().value());
}

/// How many accidentals a kind has on each root; double ones count three times.
using Accidentals = std::array<std::uint8_t, spelling::spellingCount>;

const Accidentals &accidentalsOf(const ChordKind &kind)
{
    static const auto table = [] {
        std::vector<Accidentals> counts;
        for (const ChordKind &row : ChordKind::all()) {
            Accidentals own = {};
            for (int letter = 0; letter < spelling::letterCount; ++letter)
                for (int accidental = 0; accidental < spelling::accidentalCount; ++accidental) {
                    const PitchClass root(static_cast<NoteName::Value>(letter),
                                          static_cast<NoteAccidental::Value>(accidental));
                    int count = 0;
                    for (const Degree &degree : row.degrees()) {
                        const int signs = accidentals(degree.above(root));
                        count += signs > 1 ? 3 : signs;
                    }
                    own[indexOf(root)] = static_cast<std::uint8_t>(count);
                }
            counts.push_back(own);
        }
        return counts;
    }();
    return table[static_cast<std::size_t>(&kind - ChordKind::all().begin())];
}

/// Whether no simpler spelling of the key exists: neither a double accidental nor a white key
/// under another name.
bool isPlain(const PitchClass &pitch) noexcept
{
    const int sharps = pitch.accidental().alteration();
    return sharps == 0 || PitchClass::fromTone(pitch.tone(), sharps < 0) == pitch;
}

/// How a bass from outside relates to its chord.
constexpr Degree degreesOfBasses[] = {{1, 0},  {9, -1}, {9, 0},   {9, 1},  {3, 0},  {11, 0},
                                      {11, 1}, {5, 0},  {13, -1}, {13, 0}, {7, -1}, {7, 0}};

} // namespace

KeySpelling::KeySpelling(const KeySignature &key) : _key(key)
{
    // Where a key says nothing, F sharp is met more often than G flat, but flats are elsewhere.
    const int count = key.accidentalCount();
    for (int value = 0; value < 12; ++value) {
        const bool isFlat = count < 0 || (count == 0 && value != 6);
        _spellings[static_cast<std::size_t>(value)] = PitchClass::fromTone(Tone(value), isFlat);
    }
    for (int letter = 0; letter < spelling::letterCount; ++letter) {
        const NoteName name(static_cast<NoteName::Value>(letter));
        const PitchClass pitch(name, key.accidentalWithStep(name));
        _diatonic.insert(pitch.tone());
        _spellings[static_cast<std::size_t>(pitch.tone().value())] = pitch;
    }
    if (!key.isMajor()) {
        const auto tonic = PitchClass::fromPitch(key.rootNote());
        const auto leading = Degree{7, 0}.above(tonic);
        if (accidentals(leading) < 2) {
            _leadingTone = leading.tone();
            _leadingSpelling = leading;
            _spellings[static_cast<std::size_t>(leading.tone().value())] = leading;
        }
    }
}

std::optional<KeySignature> KeySpelling::keyFromText(std::string_view text)
{
    const auto ascii = asciiSymbol(text);
    if (!ascii || ascii->empty())
        return std::nullopt;
    std::string word = *ascii;
    bool isMajor = word.front() < 'a';
    word.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
    std::string_view rest = word;
    const PitchClass tonic = takePitchClass(rest);
    while (!rest.empty() && rest.front() == ' ')
        rest.remove_prefix(1);
    if (rest == "m" || rest == "minor" || rest == "min")
        isMajor = false;
    else if (!rest.empty() && !(isMajor && (rest == "major" || rest == "maj")))
        return std::nullopt;
    if (!tonic)
        return std::nullopt;
    const int fifths = fifthsOfLetters[static_cast<std::size_t>(tonic.note().value())]
        + 7 * tonic.accidental().alteration();
    return KeySignature(isMajor ? fifths : fifths - 3, isMajor, fifths >= 0);
}

PitchClass KeySpelling::root(Tone tone, const ChordKind &kind) const noexcept
{
    const PitchClass own = spelled(tone);
    if (_diatonic.contains(tone))
        return own;
    const Accidentals &counts = accidentalsOf(kind);
    PitchClass best = own;
    for (const PitchClass &other :
         {PitchClass::fromTone(tone, false), PitchClass::fromTone(tone, true)})
        if (counts[indexOf(other)] < counts[indexOf(best)])
            best = other;
    return best;
}

PitchClass KeySpelling::bass(Tone tone, const PitchClass &root,
                             const ChordKind &kind) const noexcept
{
    const int distance = Tone(tone.value() - root.tone().value()).value();
    Degree degree = degreesOfBasses[distance];
    bool isOwn = false;
    for (const Degree &own : kind.degrees())
        if (own.tone() == distance) {
            degree = own;
            isOwn = true;
        }
    const PitchClass pitch = degree.above(root);
    const bool isOfKey = _diatonic.contains(tone) && (!isOwn || _diatonic.contains(root.tone()));
    return isPlain(pitch) && !isOfKey ? pitch : spelled(tone);
}

} // namespace zarn::chord
