// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnTypesSigns.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using utils::enumTable;
using utils::KeyMatch;

constexpr auto accentFlagTexts =
    enumTable<AccentFlag>(KeyMatch::UpperCase,
                          {
                              {AccentFlag::Staccato, "Staccato"},
                              {AccentFlag::Staccatissimo, "Staccatissimo"},
                              {AccentFlag::Accent, "Accent"},
                              {AccentFlag::HeavyAccent, "HeavyAccent"},
                              {AccentFlag::Tenuto, "Tenuto"},
                              {AccentFlag::SoftAccent, "SoftAccent"},
                          });
static_assert(accentFlagTexts.isConsistent());

constexpr auto accidentalDisplayTexts =
    enumTable<AccidentalDisplay>(KeyMatch::UpperCase,
                                 {
                                     {AccidentalDisplay::Auto, "Auto"},
                                     {AccidentalDisplay::Shown, "Shown"},
                                     {AccidentalDisplay::Parentheses, "Parentheses"},
                                     {AccidentalDisplay::Brackets, "Brackets"},
                                     {AccidentalDisplay::Hidden, "Hidden"},
                                 });
static_assert(accidentalDisplayTexts.isConsistent());

constexpr auto barLineTexts = enumTable<BarLine>(KeyMatch::UpperCase,
                                                 {
                                                     {BarLine::Auto, "Auto"},
                                                     {BarLine::Dashed, "Dashed"},
                                                     {BarLine::Dotted, "Dotted"},
                                                     {BarLine::Heavy, "Heavy"},
                                                     {BarLine::Short, "Short"},
                                                     {BarLine::Tick, "Tick"},
                                                     {BarLine::None, "None"},
                                                 });
static_assert(barLineTexts.isConsistent());

constexpr auto meterSignTexts = enumTable<MeterSign>(KeyMatch::UpperCase,
                                                     {
                                                         {MeterSign::Numbers, "Numbers"},
                                                         {MeterSign::Common, "Common"},
                                                         {MeterSign::Cut, "Cut"},
                                                         {MeterSign::UpperNumber, "UpperNumber"},
                                                         {MeterSign::Hidden, "Hidden"},
                                                     });
static_assert(meterSignTexts.isConsistent());

constexpr auto beamModeTexts = enumTable<BeamMode>(KeyMatch::UpperCase,
                                                   {
                                                       {BeamMode::Auto, "Auto"},
                                                       {BeamMode::Break, "Break"},
                                                       {BeamMode::Join, "Join"},
                                                   });
static_assert(beamModeTexts.isConsistent());

constexpr auto syllabicTexts = enumTable<Syllabic>(KeyMatch::UpperCase,
                                                   {
                                                       {Syllabic::Single, "Single"},
                                                       {Syllabic::Begin, "Begin"},
                                                       {Syllabic::Middle, "Middle"},
                                                       {Syllabic::End, "End"},
                                                   });
static_assert(syllabicTexts.isConsistent());

constexpr auto slurLineTexts = enumTable<SlurLine>(KeyMatch::UpperCase,
                                                   {
                                                       {SlurLine::Solid, "Solid"},
                                                       {SlurLine::Dashed, "Dashed"},
                                                       {SlurLine::Dotted, "Dotted"},
                                                   });
static_assert(slurLineTexts.isConsistent());

constexpr auto markSideTexts = enumTable<MarkSide>(KeyMatch::UpperCase,
                                                   {
                                                       {MarkSide::Auto, "Auto"},
                                                       {MarkSide::Above, "Above"},
                                                       {MarkSide::Below, "Below"},
                                                   });
static_assert(markSideTexts.isConsistent());

constexpr auto textSpanTexts = enumTable<TextSpan>(KeyMatch::UpperCase,
                                                   {
                                                       {TextSpan::None, "None"},
                                                       {TextSpan::Begin, "Begin"},
                                                       {TextSpan::End, "End"},
                                                       {TextSpan::BeginBelow, "BeginBelow"},
                                                   });
static_assert(textSpanTexts.isConsistent());

constexpr auto groupSymbolTexts = enumTable<GroupSymbol>(KeyMatch::UpperCase,
                                                         {
                                                             {GroupSymbol::None, "None"},
                                                             {GroupSymbol::Bracket, "Bracket"},
                                                             {GroupSymbol::Brace, "Brace"},
                                                             {GroupSymbol::Line, "Line"},
                                                         });
static_assert(groupSymbolTexts.isConsistent());

} // namespace

std::string accentFlagToString(AccentFlag value)
{
    return std::string(accentFlagTexts.textOrFirst(value));
}

AccentFlag accentFlagFromString(const std::string &text)
{
    return accentFlagTexts.valueOrFirst(text);
}

std::string accidentalDisplayToString(AccidentalDisplay value)
{
    return std::string(accidentalDisplayTexts.textOrFirst(value));
}

AccidentalDisplay accidentalDisplayFromString(const std::string &text)
{
    return accidentalDisplayTexts.valueOrFirst(text);
}

std::string barLineToString(BarLine value)
{
    return std::string(barLineTexts.textOrFirst(value));
}

BarLine barLineFromString(const std::string &text)
{
    return barLineTexts.valueOrFirst(text);
}

std::string meterSignToString(MeterSign value)
{
    return std::string(meterSignTexts.textOrFirst(value));
}

MeterSign meterSignFromString(const std::string &text)
{
    return meterSignTexts.valueOrFirst(text);
}

std::string beamModeToString(BeamMode value)
{
    return std::string(beamModeTexts.textOrFirst(value));
}

BeamMode beamModeFromString(const std::string &text)
{
    return beamModeTexts.valueOrFirst(text);
}

std::string syllabicToString(Syllabic value)
{
    return std::string(syllabicTexts.textOrFirst(value));
}

Syllabic syllabicFromString(const std::string &text)
{
    return syllabicTexts.valueOrFirst(text);
}

std::string slurLineToString(SlurLine value)
{
    return std::string(slurLineTexts.textOrFirst(value));
}

SlurLine slurLineFromString(const std::string &text)
{
    return slurLineTexts.valueOrFirst(text);
}

std::string markSideToString(MarkSide value)
{
    return std::string(markSideTexts.textOrFirst(value));
}

MarkSide markSideFromString(const std::string &text)
{
    return markSideTexts.valueOrFirst(text);
}

std::string textSpanToString(TextSpan value)
{
    return std::string(textSpanTexts.textOrFirst(value));
}

TextSpan textSpanFromString(const std::string &text)
{
    return textSpanTexts.valueOrFirst(text);
}

std::string groupSymbolToString(GroupSymbol value)
{
    return std::string(groupSymbolTexts.textOrFirst(value));
}

GroupSymbol groupSymbolFromString(const std::string &text)
{
    return groupSymbolTexts.valueOrFirst(text);
}

} // namespace zarn
