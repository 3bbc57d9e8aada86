// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnNoteAccidental.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using Value = NoteAccidental::Value;

constexpr auto longTexts = utils::enumTable<Value>(utils::KeyMatch::UpperCase,
                                                   {{Value::DoubleFlat, "DoubleFlat"},
                                                    {Value::Flat, "Flat"},
                                                    {Value::Natural, "Natural"},
                                                    {Value::Sharp, "Sharp"},
                                                    {Value::DoubleSharp, "DoubleSharp"}});
static_assert(longTexts.isConsistent());

constexpr auto shortTexts = utils::enumTable<Value>(utils::KeyMatch::Exact,
                                                    {{Value::DoubleFlat, "bb"},
                                                     {Value::Flat, "b"},
                                                     {Value::Sharp, "#"},
                                                     {Value::DoubleSharp, "##"}});
static_assert(shortTexts.isConsistent());

/// The engraved signs are the same five in the same order, behind None.
constexpr int firstSign = static_cast<int>(Accidental::DoubleFlat);
static_assert(static_cast<int>(Accidental::DoubleSharp) - firstSign
              == static_cast<int>(Value::DoubleSharp));

std::optional<Value> find(const std::string &text)
{
    const auto value = shortTexts.value(text);
    return value ? value : longTexts.value(text);
}

[[noreturn]] void raiseInvalid(const char *function, int number)
{
    ZARN_RAISE_IN(function, "Invalid NoteAccidental value: " + std::to_string(number));
}

} // namespace

NoteAccidental::NoteAccidental(Accidental accidental)
{
    if (accidental > Accidental::DoubleSharp)
        raiseInvalid("zarn::NoteAccidental::NoteAccidental", static_cast<int>(accidental));
    if (accidental != Accidental::None)
        _value = static_cast<Value>(static_cast<int>(accidental) - firstSign);
}

Accidental NoteAccidental::accidentalValue() const
{
    if (!isValid())
        raiseInvalid("zarn::NoteAccidental::accidentalValue", static_cast<int>(_value));
    return static_cast<Accidental>(static_cast<int>(_value) + firstSign);
}

QString NoteAccidental::toString(bool shortForm) const
{
    const auto longText = longTexts.text(_value);
    if (!longText)
        raiseInvalid("zarn::NoteAccidental::toString", static_cast<int>(_value));
    const auto text = shortForm ? shortTexts.text(_value).value_or("") : *longText;
    return QString::fromLatin1(text.data(), static_cast<int>(text.size()));
}

QString NoteAccidental::symbol() const
{
    if (_value == Value::Flat)
        return QString(QChar(0x266d));
    if (_value == Value::Sharp)
        return QString(QChar(0x266f));
    if (!isValid())
        raiseInvalid("zarn::NoteAccidental::symbol", static_cast<int>(_value));
    return toString(true);
}

NoteAccidental::Value NoteAccidental::stringToValue(const QString &text)
{
    const std::string word = text.toStdString();
    if (const auto value = find(word))
        return *value;
    ZARN_RAISE_IN("zarn::NoteAccidental::stringToValue",
                  "Invalid accidental string: " + word + '.');
}

bool NoteAccidental::isAValidString(const QString &text)
{
    return find(text.toStdString()).has_value();
}

NoteAccidental NoteAccidental::fromString(const QString &text)
{
    return stringToValue(text);
}

} // namespace zarn
