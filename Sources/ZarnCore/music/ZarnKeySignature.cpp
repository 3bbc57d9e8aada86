// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnKeySignature.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnSpellingTables.h>

#include <array>

namespace zarn {

namespace {

/// Adds or subtracts twelve fifths until the count lies between -7 and 7.
int normalised(std::int64_t count) noexcept
{
    if (count < -7)
        count += (-7 - count + 11) / 12 * 12;
    else if (count > 7)
        count -= (count - 7 + 11) / 12 * 12;
    return static_cast<int>(count);
}

/// The letters in the order of fifths, in which sharps are added; flats come from the other end.
constexpr std::array<int, 7> fifths = {3, 0, 4, 1, 5, 2, 6}; // F C G D A E B

/// Places of the sharps and flats on the staff, 0 being the bottom line, by clef.
using Places = std::array<int, 7>;
constexpr Places trebleSharps = {8, 5, 9, 6, 3, 7, 4};
constexpr Places trebleFlats = {4, 7, 3, 6, 2, 5, 1};
constexpr std::array<Places, 6> sharpPlaces = {{
    trebleSharps,
    trebleSharps,
    {6, 3, 7, 4, 1, 5, 2}, // F4
    {7, 4, 8, 5, 2, 6, 3}, // C3
    {2, 6, 3, 7, 4, 8, 5}, // C4: the high F and G would stand above the staff
    trebleSharps,
}};
constexpr std::array<Places, 6> flatPlaces = {{
    trebleFlats,
    trebleFlats,
    {2, 5, 1, 4, 0, 3, -1},
    {3, 6, 2, 5, 1, 4, 0},
    {5, 8, 4, 7, 3, 6, 2},
    trebleFlats,
}};
static_assert(static_cast<std::size_t>(ClefType::Neutral) + 1 == flatPlaces.size());

} // namespace

KeySignature::KeySignature(int accidentalCount, bool isMajor, bool transposeAsSharps) noexcept
    : _accidentalCount(normalised(accidentalCount)), _isMajor(isMajor),
      _transposeAsSharps(transposeAsSharps)
{
}

KeySignature::~KeySignature() = default;

/// The tonics lie on the line of fifths: C is 0 in major, A is 0 in minor.
core::Pitch KeySignature::rootNote() const noexcept
{
    // Places on the line of fifths, F natural being 0.
    const int place = _accidentalCount + (_isMajor ? 1 : 4);
    const int alteration = place < 0 ? -1 : place / 7; // full rounds of the seven letters
    const auto letter =
        static_cast<std::size_t>(fifths[static_cast<std::size_t>(place - 7 * alteration)]);
    return core::Pitch(spelling::naturalSemitones[letter], alteration);
}

NoteAccidental KeySignature::accidentalWithStep(NoteName step) const
{
    ZARN_ASSERT_IN("zarn::KeySignature::accidentalWithStep", step.isValid());
    const auto letter = static_cast<int>(step.value());
    for (int i = 0; i < _accidentalCount; ++i)
        if (fifths[static_cast<std::size_t>(i)] == letter)
            return NoteAccidental::Value::Sharp;
    for (int i = 0; i < -_accidentalCount; ++i)
        if (fifths[static_cast<std::size_t>(6 - i)] == letter)
            return NoteAccidental::Value::Flat;
    return NoteAccidental::Value::Natural;
}

int KeySignature::staffLineWithAccidentalIndex(int index, ClefType clef) const
{
    ZARN_ASSERT_IN("zarn::KeySignature::staffLineWithAccidentalIndex", index >= 0 && index < 7);
    ZARN_ASSERT_IN("zarn::KeySignature::staffLineWithAccidentalIndex", clef <= ClefType::Neutral);
    const auto &places = _accidentalCount < 0 ? flatPlaces : sharpPlaces;
    return places[static_cast<std::size_t>(clef)][static_cast<std::size_t>(index)];
}

/// An interval is a number of fifths: 7 times its size in semitones minus 12 times its steps.
void KeySignature::transpose(const Interval &interval, int direction)
{
    if (!interval.isValid() || direction == 0)
        return;
    const int steps = static_cast<int>(interval.value()) % 7;
    const int semitones = spelling::plainSizes[static_cast<std::size_t>(steps)]
        + spelling::qualityOffset(static_cast<int>(interval.value()),
                                  static_cast<int>(interval.alteration()));
    const int count = 7 * semitones - 12 * steps;
    _accidentalCount = normalised(_accidentalCount + (direction < 0 ? -count : count));
}

QString KeySignature::toQString() const
{
    return QStringLiteral("Accidentals=%1;Mode=%2;TransposeAs=%3")
        .arg(QString::number(_accidentalCount),
             _isMajor ? QStringLiteral("Major") : QStringLiteral("Minor"),
             _transposeAsSharps ? QStringLiteral("Sharps") : QStringLiteral("Flats"));
}

} // namespace zarn
