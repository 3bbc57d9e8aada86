// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/native/MusicCodecs.h>
#include <ZarnCore/utils/TextScanner.h>

#include <array>

namespace zarn::io::native {

namespace {

using Scanner = utils::TextScanner;

constexpr std::array<std::string_view, 11> noteValueTexts = {"4x", "2x", "1",  "2",   "4",  "8",
                                                             "16", "32", "64", "128", "256"};

constexpr std::string_view letters = "CDEFGAB";
constexpr std::array<std::string_view, 5> accidentalTexts = {"bb", "b", "", "#", "##"};

template <std::size_t Count>
int indexOf(const std::array<std::string_view, Count> &texts, std::string_view text)
{
    for (std::size_t i = 0; i < Count; ++i)
        if (texts[i] == text)
            return static_cast<int>(i);
    return -1;
}

/// As in the streams of rhythms.
constexpr unsigned mostDots = 255;

bool takeNoteValue(Scanner &scanner, RhythmValue &rhythm)
{
    unsigned parts = 0;
    if (!scanner.takeNumber(parts))
        return false;
    const std::string text = std::to_string(parts) + (scanner.take("x") ? "x" : "");
    const int value = indexOf(noteValueTexts, text);
    if (value < 0)
        return false;
    rhythm.setNoteValue(static_cast<RhythmValue::NoteValue>(value));
    return true;
}

bool takeDots(Scanner &scanner, RhythmValue &rhythm)
{
    unsigned dots = 0;
    while (dots < 3 && scanner.take("."))
        ++dots;
    if (dots == 1 && scanner.take("*")
        && (!scanner.takeNumber(dots) || dots < 4 || dots > mostDots))
        return false;
    rhythm.setAugmentationDot(dots);
    return true;
}

using Ratio = std::pair<std::uint8_t, std::uint8_t>;

bool takeRatio(Scanner &scanner, Ratio &ratio)
{
    return scanner.takeNumber(ratio.first) && scanner.take(":") && scanner.takeNumber(ratio.second);
}

bool takeTuplets(Scanner &scanner, RhythmValue &rhythm)
{
    Ratio primary;
    Ratio secondary;
    if (scanner.take("/") && !takeRatio(scanner, primary))
        return false;
    if (scanner.take("/") && !takeRatio(scanner, secondary))
        return false;
    rhythm.setPrimaryTupletRatio(primary);
    rhythm.setSecondaryTupletRatio(secondary);
    return true;
}

/// As in the streams of time signatures.
bool isWritable(unsigned numerator, unsigned denominator) noexcept
{
    constexpr unsigned most = 65535;
    return numerator <= most && denominator >= 1 && denominator <= most;
}

std::string ratioText(const Ratio &ratio)
{
    return "/" + std::to_string(ratio.first) + ":" + std::to_string(ratio.second);
}

} // namespace

void Codec<RhythmValue>::write(DocumentWriter &writer, const RhythmValue &rhythm)
{
    const auto value = static_cast<std::size_t>(rhythm.getNoteValue());
    ZARN_ASSERT_IN("zarn::io::native::Codec<RhythmValue>::write", value < noteValueTexts.size());
    std::string text(noteValueTexts[value]);
    const unsigned dots = rhythm.getAugmentationDot();
    if (dots > mostDots)
        throw Misfit{{}, std::to_string(dots) + " dots"};
    text += dots <= 3 ? std::string(dots, '.') : ".*" + std::to_string(dots);
    const Ratio primary = rhythm.getPrimaryTupletRatio();
    const Ratio secondary = rhythm.getSecondaryTupletRatio();
    if (primary != Ratio() || secondary != Ratio())
        text += ratioText(primary);
    if (secondary != Ratio())
        text += ratioText(secondary);
    writer.text(text);
}

RhythmValue Codec<RhythmValue>::read(DocumentReader &reader, const Json &json)
{
    RhythmValue rhythm;
    if (json.isText()) {
        Scanner scanner(json.text());
        if (takeNoteValue(scanner, rhythm) && takeDots(scanner, rhythm)
            && takeTuplets(scanner, rhythm) && scanner.isAtEnd())
            return rhythm;
    }
    reader.refuseKind("a rhythm such as \"4\", \"8.\" or \"16/3:2\"", json);
}

void Codec<utils::rational>::write(DocumentWriter &writer, const utils::rational &value)
{
    std::string text = std::to_string(value.numerator());
    if (!value.isInteger())
        text += "/" + std::to_string(value.denominator());
    writer.text(text);
}

utils::rational Codec<utils::rational>::read(DocumentReader &reader, const Json &json)
{
    if (json.isText()) {
        Scanner scanner(json.text());
        std::int64_t numerator = 0;
        std::int64_t denominator = 1;
        if (scanner.takeNumber(numerator)
            && (!scanner.take("/") || (scanner.takeNumber(denominator) && denominator > 0))
            && scanner.isAtEnd())
            return {numerator, denominator};
    }
    reader.refuseKind("a fraction such as \"3/4\" or \"2\"", json);
}

void PlaceInBar::write(DocumentWriter &writer, const utils::rational &value)
{
    if (value.sign() < 0)
        throw Misfit{{}, value.toString() + " is in front of the bar"};
    Codec<utils::rational>::write(writer, value);
}

utils::rational PlaceInBar::read(DocumentReader &reader, const Json &json)
{
    const auto value = Codec<utils::rational>::read(reader, json);
    if (value.sign() < 0)
        reader.refuse(value.toString() + " is in front of the bar");
    return value;
}

void Codec<PitchClass>::write(DocumentWriter &writer, const PitchClass &pitch)
{
    const auto letter = static_cast<std::size_t>(pitch.note().value());
    const auto accidental = static_cast<std::size_t>(pitch.accidental().value());
    ZARN_ASSERT_IN("zarn::io::native::Codec<PitchClass>::write",
                   letter < letters.size() && accidental < accidentalTexts.size());
    std::string text(1, letters[letter]);
    writer.text(text += accidentalTexts[accidental]);
}

PitchClass Codec<PitchClass>::read(DocumentReader &reader, const Json &json)
{
    if (json.isText() && json.text() != "") {
        const std::string_view text = json.text();
        const std::size_t letter = letters.find(text[0]);
        const int accidental = indexOf(accidentalTexts, text.substr(1));
        if (letter != std::string_view::npos && accidental >= 0)
            return {NoteName(static_cast<NoteName::Value>(letter)),
                    NoteAccidental(static_cast<NoteAccidental::Value>(accidental))};
    }
    reader.refuseKind("a spelling such as \"C\", \"F#\" or \"Ebb\"", json);
}

void Codec<NoteDynamic>::write(DocumentWriter &writer, const NoteDynamic &dynamic)
{
    writer.text(NoteDynamic::textOf(dynamic.value()));
}

NoteDynamic Codec<NoteDynamic>::read(DocumentReader &reader, const Json &json)
{
    if (json.isText()) {
        const std::string text(json.text());
        const int level = NoteDynamic::stringToInt(text);
        if (level >= 0) {
            const NoteDynamic dynamic(static_cast<NoteDynamic::Value>(level));
            if (NoteDynamic::textOf(dynamic.value()) == text)
                return dynamic;
        }
    }
    reader.refuseKind("a dynamic from \"PPPPPPP\" to \"FFFFFFF\"", json);
}

void Codec<TimeSignature>::write(DocumentWriter &writer, const TimeSignature &signature)
{
    if (!isWritable(signature.getNumerator(), signature.getDenominator()))
        throw Misfit{{}, "a time signature has numbers up to 65535"};
    writer.text(std::to_string(signature.getNumerator()) + "/"
                + std::to_string(signature.getDenominator()));
}

TimeSignature Codec<TimeSignature>::read(DocumentReader &reader, const Json &json)
{
    if (json.isText()) {
        Scanner scanner(json.text());
        unsigned numerator = 0;
        unsigned denominator = 0;
        if (scanner.takeNumber(numerator) && scanner.take("/") && scanner.takeNumber(denominator)
            && scanner.isAtEnd() && isWritable(numerator, denominator))
            return {numerator, denominator};
    }
    reader.refuseKind("a time signature such as \"3/4\", with numbers up to 65535", json);
}

} // namespace zarn::io::native
