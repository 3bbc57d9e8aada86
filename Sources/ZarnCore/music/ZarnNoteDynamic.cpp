// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnNoteDynamic.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using Value = NoteDynamic::Value;

constexpr auto levels = utils::enumTable<Value>(utils::KeyMatch::UpperCase,
                                                {{Value::None, "None"},
                                                 {Value::PPPPPPP, "", "PPPPPPP"},
                                                 {Value::PPPPPP, "", "PPPPPP"},
                                                 {Value::PPPPP, "", "PPPPP"},
                                                 {Value::PPPP, "PPPP"},
                                                 {Value::PPP, "PPP"},
                                                 {Value::PP, "PP"},
                                                 {Value::P, "P"},
                                                 {Value::MP, "MP"},
                                                 {Value::MF, "MF"},
                                                 {Value::F, "F"},
                                                 {Value::FF, "FF"},
                                                 {Value::FFF, "FFF"},
                                                 {Value::FFFF, "FFFF"},
                                                 {Value::FFFFF, "", "FFFFF"},
                                                 {Value::FFFFFF, "", "FFFFFF"},
                                                 {Value::FFFFFFF, "", "FFFFFFF"}});
static_assert(levels.isConsistent());

} // namespace

std::string NoteDynamic::toString() const
{
    if (const auto text = levels.text(_value))
        return std::string(*text);
    ZARN_RAISE_IN("zarn::NoteDynamic::toString",
                  "Invalid NoteDynamic value: " + std::to_string(static_cast<int>(_value)));
}

std::string NoteDynamic::textOf(Value value)
{
    const auto number = static_cast<std::size_t>(value);
    if (value == Value::None || number >= levels.rows().size())
        return "NONE";
    const auto &row = levels.rows()[number];
    return std::string(row.text.empty() ? row.key : row.text);
}

int NoteDynamic::stringToInt(const std::string &text)
{
    const auto value = levels.value(text);
    return value ? static_cast<int>(*value) : -1;
}

} // namespace zarn
