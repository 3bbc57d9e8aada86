// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnTypesDocument.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using utils::enumTable;
using utils::KeyMatch;

constexpr auto iconIDTexts =
    enumTable<ZarnIconID>(KeyMatch::Exact,
                          {
                              {ZarnIconID::SteelGuitar, "steelGuitar"},
                              {ZarnIconID::AcousticGuitar, "acousticGuitar"},
                              {ZarnIconID::TwelveStringsGuitar, "12StringsGuitar"},
                              {ZarnIconID::ElectricGuitar, "electricGuitar"},
                              {ZarnIconID::ElectricBass, "electricBass"},
                              {ZarnIconID::UprightBass, "uprightBass"},
                              {ZarnIconID::Ukulele, "ukulele"},
                              {ZarnIconID::Banjo, "banjo"},
                              {ZarnIconID::Mandolin, "mandolin"},
                              {ZarnIconID::Piano, "piano"},
                              {ZarnIconID::Bowed, "bowed"},
                              {ZarnIconID::Synthesizer, "synthesizer"},
                              {ZarnIconID::Brass, "brass"},
                              {ZarnIconID::Reed, "reed"},
                              {ZarnIconID::Woodwind, "woodwind"},
                              {ZarnIconID::Vocal, "vocal"},
                              {ZarnIconID::PitchedIdiophone, "pitchedIdiophone"},
                              {ZarnIconID::PercussionKit, "percussionKit"},
                              {ZarnIconID::Idiophone, "idiophone"},
                              {ZarnIconID::Membraphone, "membraphone"},
                              {ZarnIconID::Fx, "fx"},
                              {ZarnIconID::AcousticGuitarFolk, "acousticGuitarFolk"},
                              {ZarnIconID::AcousticGuitarClassical, "acousticGuitarClassical"},
                              {ZarnIconID::ElectricGuitarHumbucker, "electricGuitarHumbucker"},
                              {ZarnIconID::ElectricGuitarSingleCoil, "electricGuitarSingleCoil"},
                              {ZarnIconID::ElectricGuitarTele, "electricGuitarTele"},
                          });
static_assert(iconIDTexts.isConsistent());

constexpr auto scoreErrorTexts =
    enumTable<ZarnScoreError>(KeyMatch::Exact,
                              {
                                  {ZarnScoreError::OutOfRangeError, "outOfRangeError"},
                                  {ZarnScoreError::SimileError, "simileError"},
                                  {ZarnScoreError::TupletError, "tupletError"},
                                  {ZarnScoreError::HoPoError, "hoPoError"},
                                  {ZarnScoreError::BarLengthError, "barLengthError"},
                                  {ZarnScoreError::UnreachableBarError, "unreachableBarError"},
                              });
static_assert(scoreErrorTexts.isConsistent());

constexpr auto scorePropertyTexts =
    enumTable<ScoreProperty>(KeyMatch::UpperCase,
                             {
                                 {ScoreProperty::Title, "Title"},
                                 {ScoreProperty::Subtitle, "Subtitle"},
                                 {ScoreProperty::Artist, "Artist"},
                                 {ScoreProperty::Album, "Album"},
                                 {ScoreProperty::Words, "Words"},
                                 {ScoreProperty::Music, "Music"},
                                 {ScoreProperty::WordsAndMusic, "WordsAndMusic"},
                                 {ScoreProperty::Copyright, "Copyright"},
                                 {ScoreProperty::Tabber, "Tabber"},
                                 {ScoreProperty::Instructions, "Instructions"},
                                 {ScoreProperty::Notice, "Notice"},
                             });
static_assert(scorePropertyTexts.isConsistent());

constexpr auto zoomPolicyTexts = enumTable<ScoreViewCollection::ZoomPolicy>(
    KeyMatch::Exact,
    {
        {ScoreViewCollection::ZoomPolicy::Value, "Value", "value"},
        {ScoreViewCollection::ZoomPolicy::FitWidth, "FitWidth", "fitwidth"},
        {ScoreViewCollection::ZoomPolicy::FitHeight, "FitHeight", "fitheight"},
        {ScoreViewCollection::ZoomPolicy::FitPage, "FitPage", "fitpage"},
    });
static_assert(zoomPolicyTexts.isConsistent());

} // namespace

std::string iconIDToString(ZarnIconID value)
{
    return std::string(iconIDTexts.textOrFirst(value));
}

ZarnIconID iconIDFromString(const std::string &text)
{
    return iconIDTexts.valueOrFirst(text);
}

std::string scoreErrorToString(ZarnScoreError value)
{
    return std::string(scoreErrorTexts.textOrFirst(value));
}

ZarnScoreError scoreErrorFromString(const std::string &text)
{
    return scoreErrorTexts.valueOrFirst(text);
}

QString scorePropertyToQString(ScoreProperty property)
{
    if (const auto text = scorePropertyTexts.text(property))
        return QString::fromUtf8(text->data(), static_cast<int>(text->size()));
    return QStringLiteral("Unknown (%0)").arg(static_cast<int>(property));
}

std::string zoomPolicyToString(ScoreViewCollection::ZoomPolicy value)
{
    return std::string(zoomPolicyTexts.textOrFirst(value));
}

ScoreViewCollection::ZoomPolicy zoomPolicyFromString(const std::string &text)
{
    return zoomPolicyTexts.valueOrFirst(text);
}

} // namespace zarn
