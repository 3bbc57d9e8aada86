// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnTypesPlaying.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using utils::enumTable;
using utils::KeyMatch;

constexpr auto antiAccentTexts = enumTable<AntiAccent>(KeyMatch::UpperCase,
                                                       {
                                                           {AntiAccent::None, "None"},
                                                           {AntiAccent::Soft, "Soft"},
                                                           {AntiAccent::Normal, "Normal"},
                                                           {AntiAccent::Strong, "Strong"},
                                                       });
static_assert(antiAccentTexts.isConsistent());

constexpr auto bendTypeTexts =
    enumTable<BendType>(KeyMatch::UpperCase,
                        {
                            {BendType::NoBend, "NoBend"},
                            {BendType::Bend, "Bend"},
                            {BendType::PreBend, "PreBend"},
                            {BendType::HoldBend, "HoldBend"},
                            {BendType::Release, "Release"},
                            {BendType::BendNRelease, "BendNRelease"},
                            {BendType::PreBendNBend, "PreBendNBend"},
                            {BendType::PreBendNRelease, "PreBendNRelease"},
                        });
static_assert(bendTypeTexts.isConsistent());

constexpr auto directionTexts = enumTable<Direction>(KeyMatch::UpperCase,
                                                     {
                                                         {Direction::None, "None"},
                                                         {Direction::Up, "Up"},
                                                         {Direction::Down, "Down"},
                                                     });
static_assert(directionTexts.isConsistent());

constexpr auto faddingTexts = enumTable<Fadding>(KeyMatch::UpperCase,
                                                 {
                                                     {Fadding::NoFadding, "NoFadding"},
                                                     {Fadding::FadeIn, "FadeIn"},
                                                     {Fadding::FadeOut, "FadeOut"},
                                                     {Fadding::VolumeSwell, "VolumeSwell"},
                                                 });
static_assert(faddingTexts.isConsistent());

constexpr auto fingeringTexts = enumTable<Fingering>(KeyMatch::UpperCase,
                                                     {
                                                         {Fingering::None, "None"},
                                                         {Fingering::Open, "Open"},
                                                     });
static_assert(fingeringTexts.isConsistent());

constexpr auto golpeTexts = enumTable<ZarnGolpeType>(KeyMatch::Exact,
                                                     {
                                                         {ZarnGolpeType::Thumb, "Thumb"},
                                                         {ZarnGolpeType::Finger, "Finger"},
                                                         {ZarnGolpeType::None, "None"},
                                                     });
static_assert(golpeTexts.isConsistent());

constexpr auto rasgueadoTexts = enumTable<RasgueadoType>(
    KeyMatch::Exact,
    {
        {RasgueadoType::None, "None", "none"}, {RasgueadoType::ii_1, "ii_1"},
        {RasgueadoType::mi_1, "mi_1"},         {RasgueadoType::mii_1, "mii_1"},
        {RasgueadoType::mii_2, "mii_2"},       {RasgueadoType::pmp_1, "pmp_1"},
        {RasgueadoType::pmp_2, "pmp_2"},       {RasgueadoType::pei_1, "pei_1"},
        {RasgueadoType::pei_2, "pei_2"},       {RasgueadoType::pai_1, "pai_1"},
        {RasgueadoType::pai_2, "pai_2"},       {RasgueadoType::ami_1, "ami_1"},
        {RasgueadoType::ami_2, "ami_2"},       {RasgueadoType::ppp_1, "ppp_1"},
        {RasgueadoType::amii_1, "amii_1"},     {RasgueadoType::amip_1, "amip_1"},
        {RasgueadoType::eami_1, "eami_1"},     {RasgueadoType::ieam_1, "ieam_1"},
        {RasgueadoType::eamii_1, "eamii_1"},   {RasgueadoType::peami_1, "peami_1"},
    });
static_assert(rasgueadoTexts.isConsistent());

constexpr auto vibratoTexts = enumTable<Vibrato>(KeyMatch::UpperCase,
                                                 {
                                                     {Vibrato::Slight, "Slight"},
                                                     {Vibrato::Wide, "Wide"},
                                                     {Vibrato::None, "None"},
                                                 });
static_assert(vibratoTexts.isConsistent());

constexpr auto wahWahTexts = enumTable<WahWah>(KeyMatch::UpperCase,
                                               {
                                                   {WahWah::Closed, "Closed"},
                                                   {WahWah::Open, "Open"},
                                                   {WahWah::None, "None"},
                                               });
static_assert(wahWahTexts.isConsistent());

constexpr auto whammyBarTypeTexts =
    enumTable<WhammyBarType>(KeyMatch::UpperCase,
                             {
                                 {WhammyBarType::NoWhammyBar, "NoWhammyBar"},
                                 {WhammyBarType::Dive, "Dive"},
                                 {WhammyBarType::Dip, "Dip"},
                                 {WhammyBarType::HoldWhammyBar, "HoldWhammyBar"},
                                 {WhammyBarType::PreDive, "PreDive"},
                                 {WhammyBarType::PreDiveNDive, "PreDiveNDive"},
                             });
static_assert(whammyBarTypeTexts.isConsistent());

constexpr auto playingStyleTexts =
    enumTable<PlayingStyle>(KeyMatch::UpperCase,
                            {
                                {PlayingStyle::Default, "Default"},
                                {PlayingStyle::StringedPick, "StringedPick"},
                                {PlayingStyle::StringedFinger, "StringedFinger"},
                                {PlayingStyle::StringedFingerPicking, "StringedFingerPicking"},
                                {PlayingStyle::BassSlap, "BassSlap"},
                                {PlayingStyle::DrumKitBrush, "DrumKitBrush"},
                                {PlayingStyle::DrumKitStick, "DrumKitStick"},
                                {PlayingStyle::DrumKitHotRod, "", "DRUMKITHOTROD"},
                            });
static_assert(playingStyleTexts.isConsistent());

constexpr auto beaterTexts = enumTable<Beater>(KeyMatch::UpperCase,
                                               {
                                                   {Beater::Stick, "Stick"},
                                                   {Beater::HotRod, "HotRod"},
                                                   {Beater::Mallet, "Mallet"},
                                                   {Beater::Brush, "Brush"},
                                                   {Beater::Pedal, "Pedal"},
                                                   {Beater::Hand, "Hand"},
                                               });
static_assert(beaterTexts.isConsistent());

constexpr auto beaterTechnicTexts =
    enumTable<BeaterTechnic>(KeyMatch::UpperCase,
                             {
                                 {BeaterTechnic::Hit, "Hit"},
                                 {BeaterTechnic::Drag, "Drag"},
                                 {BeaterTechnic::Flam, "Flam"},
                                 {BeaterTechnic::RimShot, "RimShot"},
                                 {BeaterTechnic::SideStick, "SideStick"},
                             });
static_assert(beaterTechnicTexts.isConsistent());

} // namespace

std::string antiAccentToString(AntiAccent value)
{
    return std::string(antiAccentTexts.textOrFirst(value));
}

AntiAccent antiAccentFromString(const std::string &text)
{
    return antiAccentTexts.valueOrFirst(text);
}

std::string bendTypeToString(BendType value)
{
    return std::string(bendTypeTexts.textOrFirst(value));
}

BendType bendTypeFromString(const std::string &text)
{
    return bendTypeTexts.valueOrFirst(text);
}

std::string directionToString(Direction value)
{
    return std::string(directionTexts.textOrFirst(value));
}

Direction directionFromString(const std::string &text)
{
    return directionTexts.valueOrFirst(text);
}

std::string faddingToString(Fadding value)
{
    return std::string(faddingTexts.textOrFirst(value));
}

Fadding faddingFromString(const std::string &text)
{
    return faddingTexts.valueOrFirst(text);
}

std::string fingeringToString(Fingering value)
{
    return std::string(fingeringTexts.textOrFirst(value));
}

Fingering fingeringFromString(const std::string &text)
{
    return fingeringTexts.valueOrFirst(text);
}

std::string golpeToString(ZarnGolpeType value)
{
    return std::string(golpeTexts.textOrFirst(value));
}

ZarnGolpeType golpeFromString(const std::string &text)
{
    return golpeTexts.valueOrFirst(text);
}

std::string rasgueadoToString(RasgueadoType value)
{
    return std::string(rasgueadoTexts.textOrFirst(value));
}

RasgueadoType rasgueadoFromString(const std::string &text)
{
    return rasgueadoTexts.valueOrFirst(text);
}

std::string vibratoToString(Vibrato value)
{
    return std::string(vibratoTexts.textOrFirst(value));
}

Vibrato vibratoFromString(const std::string &text)
{
    return vibratoTexts.valueOrFirst(text);
}

std::string wahWahToString(WahWah value)
{
    return std::string(wahWahTexts.textOrFirst(value));
}

WahWah wahWahFromString(const std::string &text)
{
    return wahWahTexts.valueOrFirst(text);
}

std::string whammyBarTypeToString(WhammyBarType value)
{
    return std::string(whammyBarTypeTexts.textOrFirst(value));
}

WhammyBarType whammyBarTypeFromString(const std::string &text)
{
    return whammyBarTypeTexts.valueOrFirst(text);
}

std::string playingStyleToString(PlayingStyle value)
{
    return std::string(playingStyleTexts.textOrFirst(value));
}

PlayingStyle playingStyleFromString(const std::string &text)
{
    return playingStyleTexts.valueOrFirst(text);
}

std::string beaterToString(Beater value)
{
    return std::string(beaterTexts.textOrFirst(value));
}

Beater beaterFromString(const std::string &text)
{
    if (const auto value = beaterTexts.value(text))
        return *value;
    ZARN_RAISE_IN("zarn::beaterFromString", "Invalid Beater: " + text);
}

std::string beaterTechnicToString(BeaterTechnic value)
{
    return std::string(beaterTechnicTexts.textOrFirst(value));
}

BeaterTechnic beaterTechnicFromString(const std::string &text)
{
    if (const auto value = beaterTechnicTexts.value(text))
        return *value;
    ZARN_RAISE_IN("zarn::beaterTechnicFromString", "Invalid Beater Technic: " + text);
}

} // namespace zarn
