// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Articulations.h>

#include <ZarnCore/io/musicxml/WrittenMusic.h>
#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace zarn::io {

namespace {

/// An element of <articulations> and the one value that it stands for (MusicXML 4.0). Of several
/// elements with the same value the first is its name.
struct Articulation {
    Tag tag;
    AccentFlags accents = {};
    AntiAccent antiAccent = AntiAccent::None;
    SlideIn slideIn = SlideIn::None;
    SlideOut slideOut = SlideOut::None;
    BreathSign breath = BreathSign::None;
};

/// An element that means one thing.
template <class Value>
constexpr Articulation meaning(Tag tag, Value Articulation::*member,
                               std::common_type_t<Value> value)
{
    Articulation articulation = {};
    articulation.tag = tag;
    articulation.*member = value;
    return articulation;
}
constexpr Articulation accented(Tag tag, AccentFlags accents)
{
    return meaning(tag, &Articulation::accents, accents);
}

constexpr AccentFlags detachedLegato = AccentFlags(AccentFlag::Staccato).with(AccentFlag::Tenuto);

constexpr Articulation articulations[] = {
    accented(Tag::Accent, AccentFlag::Accent),
    accented(Tag::StrongAccent, AccentFlag::HeavyAccent),
    accented(Tag::SoftAccent, AccentFlag::SoftAccent),
    accented(Tag::DetachedLegato, detachedLegato),
    accented(Tag::Staccato, AccentFlag::Staccato),
    accented(Tag::Staccatissimo, AccentFlag::Staccatissimo),
    accented(Tag::Tenuto, AccentFlag::Tenuto),
    accented(Tag::Spiccato, AccentFlag::Staccatissimo),
    accented(Tag::Stress, AccentFlag::Accent),
    meaning(Tag::Unstress, &Articulation::antiAccent, AntiAccent::Soft),
    meaning(Tag::Scoop, &Articulation::slideIn, SlideIn::FromBelow),
    meaning(Tag::Plop, &Articulation::slideIn, SlideIn::FromAbove),
    meaning(Tag::Doit, &Articulation::slideOut, SlideOut::Upwards),
    meaning(Tag::Falloff, &Articulation::slideOut, SlideOut::Downwards),
    meaning(Tag::BreathMark, &Articulation::breath, BreathSign::Breath),
    meaning(Tag::Caesura, &Articulation::breath, BreathSign::Caesura),
};

} // namespace

bool readArticulation(Tag tag, WrittenNote &note)
{
    const auto *const row =
        std::find_if(std::begin(articulations), std::end(articulations),
                     [tag](const Articulation &articulation) { return articulation.tag == tag; });
    if (row == std::end(articulations))
        return false;
    auto accents = note.marks.accents();
    for (unsigned bit = 1; bit <= AccentFlags::AllBits; bit <<= 1)
        if (row->accents.has(static_cast<AccentFlag>(bit)))
            accents = accents.with(static_cast<AccentFlag>(bit));
    note.marks.setAccents(accents);
    if (row->antiAccent != AntiAccent::None)
        note.marks.setAntiAccent(row->antiAccent);
    if (row->slideIn != SlideIn::None)
        note.marks.setSlideIn(row->slideIn);
    if (row->slideOut != SlideOut::None)
        note.marks.setSlideOut(row->slideOut);
    if (row->breath != BreathSign::None)
        note.beatMarks.setBreath(row->breath);
    // Whether an accent is beside its opposite is known when all of the note has been read.
    if (row->accents.isEmpty() && row->antiAccent == AntiAccent::None)
        note.mayExclude = true;
    return true;
}

void writeArticulations(const Beat &beat, const Note *note, bool isFirst, pugi::xml_node notations)
{
    auto accents = note ? note->accents() : AccentFlags();
    const auto antiAccent = note ? note->antiAccent() : AntiAccent::None;
    const auto slideIn = note ? note->slideIn() : SlideIn::None;
    const auto slideOut = note ? note->slideOut() : SlideOut::None;
    const auto breath = isFirst ? beat.breath() : BreathSign::None;
    bool isUnstressed = antiAccent == AntiAccent::Soft || antiAccent == AntiAccent::Strong;
    const auto write = [&](const Articulation &row) {
        addElement(ensureElement(notations, tagName(Tag::Articulations)), tagName(row.tag));
    };
    bool hasIn = slideIn != SlideIn::None;
    bool hasOut = slideOut != SlideOut::None;
    bool hasBreath = breath != BreathSign::None;
    for (const auto &row : articulations) {
        if (!row.accents.isEmpty() && (accents.bits() & row.accents.bits()) == row.accents.bits()) {
            accents = accents.without(row.accents);
            write(row);
        } else if (isUnstressed && row.antiAccent != AntiAccent::None) {
            isUnstressed = false;
            write(row);
        } else if (hasIn && row.slideIn == slideIn) {
            hasIn = false;
            write(row);
        } else if (hasOut && row.slideOut == slideOut) {
            hasOut = false;
            write(row);
        } else if (hasBreath && row.breath == breath) {
            hasBreath = false;
            write(row);
        }
    }
}

} // namespace zarn::io
