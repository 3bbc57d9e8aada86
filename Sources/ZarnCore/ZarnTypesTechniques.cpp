// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnTypesTechniques.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using utils::enumTable;
using utils::KeyMatch;

constexpr auto bassAttackTexts = enumTable<BassAttack>(KeyMatch::UpperCase,
                                                       {
                                                           {BassAttack::None, "None"},
                                                           {BassAttack::Slap, "Slap"},
                                                           {BassAttack::Pop, "Pop"},
                                                       });
static_assert(bassAttackTexts.isConsistent());

constexpr auto harmonicTypeTexts =
    enumTable<HarmonicType>(KeyMatch::UpperCase,
                            {
                                {HarmonicType::NoHarmonic, "NoHarmonic"},
                                {HarmonicType::Natural, "Natural"},
                                {HarmonicType::Artificial, "Artificial"},
                                {HarmonicType::Pinch, "Pinch"},
                                {HarmonicType::Tapped, "Tapped"},
                                {HarmonicType::Semi, "Semi"},
                                {HarmonicType::Feedback, "Feedback"},
                            });
static_assert(harmonicTypeTexts.isConsistent());

constexpr auto slideInTexts = enumTable<SlideIn>(KeyMatch::UpperCase,
                                                 {
                                                     {SlideIn::None, "None"},
                                                     {SlideIn::FromBelow, "FromBelow"},
                                                     {SlideIn::FromAbove, "FromAbove"},
                                                 });
static_assert(slideInTexts.isConsistent());

constexpr auto slideOutTexts = enumTable<SlideOut>(KeyMatch::UpperCase,
                                                   {
                                                       {SlideOut::None, "None"},
                                                       {SlideOut::Shift, "Shift"},
                                                       {SlideOut::Legato, "Legato"},
                                                       {SlideOut::Downwards, "Downwards"},
                                                       {SlideOut::Upwards, "Upwards"},
                                                       {SlideOut::PickScrapeDown, "PickScrapeDown"},
                                                       {SlideOut::PickScrapeUp, "PickScrapeUp"},
                                                   });
static_assert(slideOutTexts.isConsistent());

constexpr auto strumAnchorTexts =
    enumTable<StrumAnchor>(KeyMatch::UpperCase,
                           {
                               {StrumAnchor::StartsOnBeat, "StartsOnBeat"},
                               {StrumAnchor::EndsOnBeat, "EndsOnBeat"},
                           });
static_assert(strumAnchorTexts.isConsistent());

constexpr auto handTexts = enumTable<Hand>(KeyMatch::UpperCase,
                                           {
                                               {Hand::Left, "Left"},
                                               {Hand::Right, "Right"},
                                           });
static_assert(handTexts.isConsistent());

constexpr auto pedalChangeTexts = enumTable<PedalChange>(KeyMatch::UpperCase,
                                                         {
                                                             {PedalChange::None, "None"},
                                                             {PedalChange::Start, "Start"},
                                                             {PedalChange::Change, "Change"},
                                                             {PedalChange::Stop, "Stop"},
                                                         });
static_assert(pedalChangeTexts.isConsistent());

constexpr auto breathSignTexts = enumTable<BreathSign>(KeyMatch::UpperCase,
                                                       {
                                                           {BreathSign::None, "None"},
                                                           {BreathSign::Breath, "Breath"},
                                                           {BreathSign::Caesura, "Caesura"},
                                                       });
static_assert(breathSignTexts.isConsistent());

constexpr auto attackDynamicTexts = enumTable<AttackDynamic>(KeyMatch::Exact,
                                                             {
                                                                 {AttackDynamic::None, "None"},
                                                                 {AttackDynamic::Sf, "sf"},
                                                                 {AttackDynamic::Sfz, "sfz"},
                                                                 {AttackDynamic::Sffz, "sffz"},
                                                                 {AttackDynamic::Fz, "fz"},
                                                                 {AttackDynamic::Rf, "rf"},
                                                                 {AttackDynamic::Rfz, "rfz"},
                                                                 {AttackDynamic::Fp, "fp"},
                                                                 {AttackDynamic::Sfp, "sfp"},
                                                                 {AttackDynamic::Sfpp, "sfpp"},
                                                                 {AttackDynamic::Pf, "pf"},
                                                             });
static_assert(attackDynamicTexts.isConsistent());

} // namespace

std::string bassAttackToString(BassAttack value)
{
    return std::string(bassAttackTexts.textOrFirst(value));
}

BassAttack bassAttackFromString(const std::string &text)
{
    return bassAttackTexts.valueOrFirst(text);
}

std::string harmonicTypeToString(HarmonicType value)
{
    return std::string(harmonicTypeTexts.textOrFirst(value));
}

HarmonicType harmonicTypeFromString(const std::string &text)
{
    return harmonicTypeTexts.valueOrFirst(text);
}

std::string slideInToString(SlideIn value)
{
    return std::string(slideInTexts.textOrFirst(value));
}

SlideIn slideInFromString(const std::string &text)
{
    return slideInTexts.valueOrFirst(text);
}

std::string slideOutToString(SlideOut value)
{
    return std::string(slideOutTexts.textOrFirst(value));
}

SlideOut slideOutFromString(const std::string &text)
{
    return slideOutTexts.valueOrFirst(text);
}

std::string strumAnchorToString(StrumAnchor value)
{
    return std::string(strumAnchorTexts.textOrFirst(value));
}

StrumAnchor strumAnchorFromString(const std::string &text)
{
    return strumAnchorTexts.valueOrFirst(text);
}

std::string handToString(Hand value)
{
    return std::string(handTexts.textOrFirst(value));
}

Hand handFromString(const std::string &text)
{
    return handTexts.valueOrFirst(text);
}

std::string pedalChangeToString(PedalChange value)
{
    return std::string(pedalChangeTexts.textOrFirst(value));
}

PedalChange pedalChangeFromString(const std::string &text)
{
    return pedalChangeTexts.valueOrFirst(text);
}

std::string breathSignToString(BreathSign value)
{
    return std::string(breathSignTexts.textOrFirst(value));
}

BreathSign breathSignFromString(const std::string &text)
{
    return breathSignTexts.valueOrFirst(text);
}

std::string attackDynamicToString(AttackDynamic value)
{
    return std::string(attackDynamicTexts.textOrFirst(value));
}

AttackDynamic attackDynamicFromString(const std::string &text)
{
    return attackDynamicTexts.valueOrFirst(text);
}

} // namespace zarn
