// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnTypesNotation.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using utils::enumTable;
using utils::KeyMatch;

constexpr auto accidentalTexts = enumTable<Accidental>(KeyMatch::UpperCase,
                                                       {
                                                           {Accidental::None, "None"},
                                                           {Accidental::DoubleFlat, "DoubleFlat"},
                                                           {Accidental::Flat, "Flat"},
                                                           {Accidental::Natural, "Natural"},
                                                           {Accidental::Sharp, "Sharp"},
                                                           {Accidental::DoubleSharp, "DoubleSharp"},
                                                       });
static_assert(accidentalTexts.isConsistent());

constexpr auto clefTexts = enumTable<ClefType>(KeyMatch::UpperCase,
                                               {
                                                   {ClefType::None, "None"},
                                                   {ClefType::G2, "G2"},
                                                   {ClefType::F4, "F4"},
                                                   {ClefType::C3, "C3"},
                                                   {ClefType::C4, "C4"},
                                                   {ClefType::Neutral, "Neutral"},
                                               });
static_assert(clefTexts.isConsistent());

constexpr auto ottaviaTexts = enumTable<Ottavia>(KeyMatch::UpperCase,
                                                 {
                                                     {Ottavia::_15ma, "15ma"},
                                                     {Ottavia::_8va, "8va"},
                                                     {Ottavia::None, "None"},
                                                     {Ottavia::_8vb, "8vb"},
                                                     {Ottavia::_15mb, "15mb"},
                                                 });
static_assert(ottaviaTexts.isConsistent());

constexpr auto noteHeadTexts =
    enumTable<NoteHead>(KeyMatch::Exact,
                        {
                            {NoteHead::Slash, "slash"},
                            {NoteHead::Triangle, "triangle"},
                            {NoteHead::Diamond, "diamond"},
                            {NoteHead::Square, "square"},
                            {NoteHead::Cross, "cross"},
                            {NoteHead::CircleX, "circle-x"},
                            {NoteHead::InvertedTriangle, "inverted triangle"},
                            {NoteHead::ArrowDown, "arrow down"},
                            {NoteHead::ArrowUp, "arrow up"},
                            {NoteHead::Slashed, "slashed"},
                            {NoteHead::BackSlashed, "back slashed"},
                            {NoteHead::Normal, "normal"},
                            {NoteHead::Cluster, "cluster"},
                            {NoteHead::None, "none"},
                            {NoteHead::Do, "do"},
                            {NoteHead::Re, "re"},
                            {NoteHead::Mi, "mi"},
                            {NoteHead::Fa, "fa"},
                            {NoteHead::So, "so"},
                            {NoteHead::La, "la"},
                            {NoteHead::Ti, "ti"},
                        });
static_assert(noteHeadTexts.isConsistent());

constexpr auto headFillTexts = enumTable<HeadFill>(KeyMatch::UpperCase,
                                                   {
                                                       {HeadFill::Auto, "Auto"},
                                                       {HeadFill::Filled, "Filled"},
                                                       {HeadFill::Open, "Open"},
                                                   });
static_assert(headFillTexts.isConsistent());

constexpr auto stemOrientationTexts =
    enumTable<ZarnStemOrientation>(KeyMatch::Exact,
                                   {
                                       {ZarnStemOrientation::Upward, "Upward"},
                                       {ZarnStemOrientation::Downward, "Downward"},
                                       {ZarnStemOrientation::Undefined, "Undefined"},
                                       {ZarnStemOrientation::None, "None"},
                                   });
static_assert(stemOrientationTexts.isConsistent());

constexpr auto simileMarkTexts =
    enumTable<SimileMark>(KeyMatch::UpperCase,
                          {
                              {SimileMark::None, "None"},
                              {SimileMark::Simple, "Simple"},
                              {SimileMark::Double, "Double"},
                              {SimileMark::FirstOfDouble, "FirstOfDouble"},
                              {SimileMark::SecondOfDouble, "SecondOfDouble"},
                          });
static_assert(simileMarkTexts.isConsistent());

constexpr auto tempoUnitTexts =
    enumTable<TempoUnit>(KeyMatch::UpperCase,
                         {
                             {TempoUnit::None, "None"},
                             {TempoUnit::Eighth, "Eighth"},
                             {TempoUnit::Quarter, "Quarter"},
                             {TempoUnit::QuarterDotted, "QuarterDotted"},
                             {TempoUnit::Half, "Half"},
                             {TempoUnit::HalfDotted, "HalfDotted"},
                         });
static_assert(tempoUnitTexts.isConsistent());

constexpr auto fermataTexts = enumTable<Fermata>(KeyMatch::UpperCase,
                                                 {
                                                     {Fermata::Short, "Short", "SHORTFERMATA"},
                                                     {Fermata::Medium, "Medium", "MEDIUMFERMATA"},
                                                     {Fermata::Long, "Long", "LONGFERMATA"},
                                                     {Fermata::None, "None", "NOFERMATA"},
                                                 });
static_assert(fermataTexts.isConsistent());

constexpr auto graceTypeTexts = enumTable<GraceType>(KeyMatch::UpperCase,
                                                     {
                                                         {GraceType::None, "None"},
                                                         {GraceType::OnBeat, "OnBeat"},
                                                         {GraceType::BeforeBeat, "BeforeBeat"},
                                                     });
static_assert(graceTypeTexts.isConsistent());

constexpr auto ornamentTexts = enumTable<Ornament>(KeyMatch::UpperCase,
                                                   {
                                                       {Ornament::NoOrnament, "NoOrnament"},
                                                       {Ornament::Turn, "Turn"},
                                                       {Ornament::InvertedTurn, "InvertedTurn"},
                                                       {Ornament::LowerMordent, "LowerMordent"},
                                                       {Ornament::UpperMordent, "UpperMordent"},
                                                   });
static_assert(ornamentTexts.isConsistent());

constexpr auto hairpinTexts = enumTable<Hairpin>(KeyMatch::UpperCase,
                                                 {
                                                     {Hairpin::NoHairpin, "NoHairpin", "NOHARPIN"},
                                                     {Hairpin::Crescendo, "Crescendo"},
                                                     {Hairpin::Decrescendo, "Decrescendo"},
                                                     {Hairpin::Swell, "Swell"},
                                                 });
static_assert(hairpinTexts.isConsistent());

} // namespace

std::string accidentalToString(Accidental value)
{
    return std::string(accidentalTexts.textOrFirst(value));
}

Accidental accidentalFromString(const std::string &text)
{
    return accidentalTexts.valueOrFirst(text);
}

std::string clefToString(ClefType value)
{
    return std::string(clefTexts.textOrFirst(value));
}

ClefType clefFromString(const std::string &text)
{
    return clefTexts.valueOrFirst(text);
}

std::string ottaviaToString(Ottavia value)
{
    return std::string(ottaviaTexts.textOrFirst(value));
}

Ottavia ottaviaFromString(const std::string &text)
{
    return ottaviaTexts.valueOrFirst(text);
}

std::string noteHeadToString(NoteHead value)
{
    return std::string(noteHeadTexts.textOrFirst(value));
}

NoteHead noteHeadFromString(const std::string &text)
{
    return noteHeadTexts.valueOrFirst(text);
}

std::string headFillToString(HeadFill value)
{
    return std::string(headFillTexts.textOrFirst(value));
}

HeadFill headFillFromString(const std::string &text)
{
    return headFillTexts.valueOrFirst(text);
}

std::string stemOrientationToString(ZarnStemOrientation value)
{
    return std::string(stemOrientationTexts.textOrFirst(value));
}

ZarnStemOrientation stemOrientationFromString(const std::string &text)
{
    return stemOrientationTexts.valueOrFirst(text);
}

const std::string simileMarkToString(SimileMark value)
{
    return std::string(simileMarkTexts.textOrFirst(value));
}

SimileMark simileMarkFromString(const std::string &text)
{
    return simileMarkTexts.valueOrFirst(text);
}

std::string tempoUnitToString(TempoUnit value)
{
    return std::string(tempoUnitTexts.textOrFirst(value));
}

TempoUnit tempoUnitFromString(const std::string &text)
{
    return tempoUnitTexts.valueOrFirst(text);
}

std::string fermataToString(Fermata value)
{
    return std::string(fermataTexts.textOrFirst(value));
}

Fermata fermataFromString(const std::string &text)
{
    return fermataTexts.valueOrFirst(text);
}

std::string graceTypeToString(GraceType value)
{
    return std::string(graceTypeTexts.textOrFirst(value));
}

GraceType graceTypeFromString(const std::string &text)
{
    return graceTypeTexts.valueOrFirst(text);
}

std::string ornamentToString(Ornament value)
{
    return std::string(ornamentTexts.textOrFirst(value));
}

Ornament ornamentFromString(const std::string &text)
{
    return ornamentTexts.valueOrFirst(text);
}

std::string hairpinToString(Hairpin value)
{
    return std::string(hairpinTexts.textOrFirst(value));
}

Hairpin hairpinFromString(const std::string &text)
{
    return hairpinTexts.valueOrFirst(text);
}

} // namespace zarn
