// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnNoteName.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/ZarnSpellingTables.h>
#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using Value = NoteName::Value;

constexpr auto letters = utils::enumTable<Value>(utils::KeyMatch::UpperCase,
                                                 {{Value::C, "C"},
                                                  {Value::D, "D"},
                                                  {Value::E, "E"},
                                                  {Value::F, "F"},
                                                  {Value::G, "G"},
                                                  {Value::A, "A"},
                                                  {Value::B, "B"}});
static_assert(letters.isConsistent());

QString letterOf(Value value, const char *function)
{
    const auto text = letters.text(value);
    if (!text)
        ZARN_RAISE_IN(function,
                      "Invalid NoteName value: " + std::to_string(static_cast<int>(value)) + '.');
    return QString::fromLatin1(text->data(), static_cast<int>(text->size()));
}

} // namespace

int NoteName::naturalSemitone() const
{
    ZARN_ASSERT_IN("zarn::NoteName::naturalSemitone", isValid());
    return spelling::naturalSemitones[static_cast<std::size_t>(_value)];
}

QString NoteName::toString() const
{
    if (_value == Value::Invalid)
        return QStringLiteral("Invalid");
    return letterOf(_value, "zarn::NoteName::toString");
}

QString NoteName::symbol() const
{
    return letterOf(_value, "zarn::NoteName::symbol");
}

NoteName &NoteName::operator++() noexcept
{
    if (isValid())
        _value = static_cast<Value>((static_cast<int>(_value) + 1) % 7);
    return *this;
}

NoteName &NoteName::operator--() noexcept
{
    if (isValid())
        _value = static_cast<Value>((static_cast<int>(_value) + 6) % 7);
    return *this;
}

NoteName::Value NoteName::stringToValue(const QString &text)
{
    const std::string word = text.toStdString();
    if (const auto value = letters.value(word))
        return *value;
    ZARN_RAISE_IN("zarn::NoteName::stringToValue", "Invalid note name string: " + word + '.');
}

bool NoteName::isAValidString(const QString &text)
{
    return letters.value(text.toStdString()).has_value();
}

NoteName NoteName::fromString(const QString &text)
{
    return stringToValue(text);
}

} // namespace zarn
