// SPDX-License-Identifier: MIT
#include <ZarnCore/scales/ZarnScale.h>

#include <ZarnCore/chords/ZarnChordRecognizer.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace zarn::scale {

namespace {

using chord::Chord;
using chord::Degree;
using chord::DegreeList;

/// Accidentals of all tones, double ones counted three times.
int accidentals(const Scale &scale)
{
    int count = 0;
    for (const PitchClass &tone : scale.tones()) {
        const int signs = std::abs(tone.accidental().alteration());
        count += signs > 1 ? 3 : signs;
    }
    return count;
}

/// What the keys above a root are when letters do not tell.
constexpr Degree chromaticDegrees[] = {{1, 0},  {9, -1}, {9, 0},   {3, -1}, {3, 0},  {11, 0},
                                       {5, -1}, {5, 0},  {13, -1}, {13, 0}, {7, -1}, {7, 0}};

/// The degree that a spelled tone is above a root, in the octave of a place in a stack of thirds.
Degree degreeAbove(const PitchClass &root, const PitchClass &tone, std::size_t place)
{
    const int steps = (static_cast<int>(tone.note().value()) - static_cast<int>(root.note().value())
                       + spelling::letterCount)
        % spelling::letterCount;
    const int number = steps + 1 + (place > 3 ? spelling::letterCount : 0);
    const int distance = Tone(tone.tone().value() - root.tone().value()).value();
    const Degree plain = {static_cast<std::uint8_t>(number), 0};
    const int alteration = Tone(distance - plain.semitones() + 6).value() - 6;
    if (number > Degree::lastNumber || std::abs(alteration) > 2)
        return chromaticDegrees[distance];
    return {plain.number, static_cast<std::int8_t>(alteration)};
}

/// The chord of tones stacked on the first. By its letters where the table has it, else by sound.
Chord stacked(const std::vector<PitchClass> &tones)
{
    DegreeList degrees;
    ToneSet set;
    for (std::size_t i = 0; i < tones.size(); ++i) {
        degrees.insert(degreeAbove(tones.front(), tones[i], i));
        set.insert(tones[i].tone());
    }
    const Chord spelled = Chord::fromDegrees(tones.front(), degrees);
    const bool isPlain =
        spelled.altered().isEmpty() && spelled.added().isEmpty() && spelled.omitted().isEmpty();
    if (isPlain)
        return spelled;
    const auto names = chord::ChordRecognizer().names(set, tones.front().tone());
    const bool isKnown = !names.empty() && names.front().unheard.isEmpty()
        && names.front().chord.omitted().isEmpty();
    if (!isKnown)
        return spelled;
    // Roots are spelled as the scale spells them.
    Chord heard = names.front().chord;
    for (const PitchClass &tone : tones)
        if (tone.tone() == heard.root().tone()) {
            Chord result(tone, heard.kind());
            if (heard.hasBass())
                result.setBass(tones.front());
            return result;
        }
    return heard;
}

/// Takes the first word off a text.
std::string takeWord(std::string_view &text)
{
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string word(text.substr(0, text.find(' ')));
    text.remove_prefix(word.size());
    return word;
}

/// Takes a word off the front when it is there, in any case.
bool takeWord(std::string_view &text, std::string_view wanted)
{
    std::string_view rest = text;
    std::string word = takeWord(rest);
    for (char &letter : word)
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    if (word != wanted)
        return false;
    text = rest;
    return true;
}

/// The scale on a tonic of which the rest of a text is the name.
std::optional<Scale> scaleOn(const std::string &tonic, std::string_view text)
{
    const auto triad = Chord::fromText(tonic);
    if (!triad || triad->isNone() || triad->hasBass())
        return std::nullopt;
    // "Am" is said of the scale and in front of "pentatonic" as well.
    const bool isMinor = *triad == Chord(triad->root(), *chord::ChordKind::fromText("m"));
    if (!isMinor && *triad != Chord(triad->root()))
        return std::nullopt;
    const bool isUnnamed = text.find_first_not_of(' ') == std::string_view::npos;
    const std::string name = (isMinor ? "minor " : isUnnamed ? "major" : "") + std::string(text);
    const ScaleKind *const kind = ScaleKind::fromName(name);
    return kind != nullptr ? std::make_optional<Scale>(triad->root(), *kind) : std::nullopt;
}

} // namespace

Scale::Scale(const PitchClass &tonic, const ScaleKind &kind) noexcept
    : _tonic(tonic ? tonic : PitchClass(NoteName::Value::C)), _kind(&kind)
{
}

Scale Scale::onTone(Tone tonic, const ScaleKind &kind, bool preferFlat) noexcept
{
    const Scale preferred(PitchClass::fromTone(tonic, preferFlat), kind);
    const Scale other(PitchClass::fromTone(tonic, !preferFlat), kind);
    return accidentals(other) < accidentals(preferred) ? other : preferred;
}

std::optional<Scale> Scale::fromText(std::string_view text)
{
    // The tonic is the first word; "b" alone is a letter, behind another letter a flat.
    std::string word = takeWord(text);
    if (word.empty())
        return std::nullopt;
    word.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(word.front())));
    if (const auto scale = scaleOn(word, text))
        return scale;
    if (takeWord(text, "flat"))
        return scaleOn(word + 'b', text);
    return takeWord(text, "sharp") ? scaleOn(word + '#', text) : std::nullopt;
}

std::string Scale::toText() const
{
    return _tonic.toString().toStdString() + " " + std::string(_kind->name());
}

std::vector<PitchClass> Scale::tones() const
{
    std::vector<PitchClass> result;
    for (const Degree &degree : _kind->degrees())
        result.push_back(degree.above(_tonic));
    return result;
}

std::vector<Mode> Scale::modes() const
{
    std::vector<Mode> result;
    for (const PitchClass &tone : tones())
        result.push_back({tone, ScaleKind::fromTones(toneSet().transposed(-tone.tone().value()))});
    return result;
}

std::vector<Chord> Scale::chords(int size) const
{
    const auto own = tones();
    const std::size_t most = own.size() % 2 == 0 ? own.size() / 2 : own.size();
    const auto count = std::min(static_cast<std::size_t>(std::clamp(size, 3, 7)), most);
    std::vector<Chord> result;
    for (std::size_t i = 0; i < own.size(); ++i) {
        std::vector<PitchClass> stack;
        for (std::size_t j = 0; j < count; ++j)
            stack.push_back(own[(i + 2 * j) % own.size()]);
        result.push_back(stacked(stack));
    }
    return result;
}

} // namespace zarn::scale
