// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/VoiceDynamics.h>

#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/io/lilypond/VoiceBeats.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnVoice.h>

#include <QString>

#include <algorithm>
#include <array>

namespace zarn::lilypond {

namespace {

/// What the usual dynamics of the language are; the rest is made where it is used.
bool isKnownDynamic(const std::string &text)
{
    constexpr std::array known = {"ppppp", "pppp", "ppp",  "pp",    "p",  "mp", "mf",  "f",
                                  "ff",    "fff",  "ffff", "fffff", "fp", "sf", "sfz", "rfz"};
    return std::find(known.begin(), known.end(), text) != known.end();
}

std::string dynamicName(NoteDynamic dynamic)
{
    return dynamic.value() == NoteDynamic::Value::None
        ? std::string()
        : QString::fromStdString(NoteDynamic::textOf(dynamic.value())).toLower().toStdString();
}

/// What stands in front of a sign that is given a side.
std::string sideSign(MarkSide side)
{
    return side == MarkSide::Above ? "^" : side == MarkSide::Below ? "_" : "";
}

} // namespace

std::string VoiceDynamics::events(std::size_t index, std::string &after)
{
    const VoiceBeat &place = _beats[index];
    const Beat &beat = *place.beat;
    std::string dynamic = dynamicName(beat.dynamic());
    if (dynamic == _dynamic)
        dynamic.clear();
    if (!dynamic.empty())
        _dynamic = dynamic;
    if (!dynamic.empty() && _voice != 0) {
        // The first voice speaks for the staff where it says the same.
        const auto &first = place.bar->voices().front();
        const auto other = first ? first->beatStartingAt(place.onset) : nullptr;
        if (other && dynamicName(other->dynamic()) == dynamic)
            dynamic.clear();
    }
    std::string attack;
    if (beat.attackDynamic() != AttackDynamic::None)
        attack = QString::fromStdString(attackDynamicToString(beat.attackDynamic()))
                     .toLower()
                     .toStdString();
    std::string text;
    if (!attack.empty()) {
        text = sideSign(beat.dynamicSide()) + '\\' + attack;
        if (!dynamic.empty())
            text += (beat.dynamicSide() == MarkSide::Above ? "^" : "_")
                + std::string("\\markup \\dynamic ") + quoted(dynamic);
    } else if (!dynamic.empty()) {
        text = sideSign(beat.dynamicSide()) + '\\' + dynamic;
    }
    for (const std::string &used : {attack, dynamic})
        if (!used.empty() && !isKnownDynamic(used))
            _context.dynamics.insert(used);

    const Hairpin kind = beat.hairpin() == Hairpin::Swell ? Hairpin::NoHairpin : beat.hairpin();
    if (_hairpin != Hairpin::NoHairpin && (kind != _hairpin || beat.beginsHairpin())) {
        if (attack.empty() && dynamic.empty())
            text += "\\!";
        _hairpin = Hairpin::NoHairpin;
    }
    if (kind != Hairpin::NoHairpin && _hairpin == Hairpin::NoHairpin) {
        text += sideSign(beat.hairpinSide()) + (kind == Hairpin::Crescendo ? "\\<" : "\\>");
        _hairpin = kind;
        _dynamic.clear();
    }
    const VoiceBeat *const next = _beats.behind(index);
    if (_hairpin != Hairpin::NoHairpin && next == nullptr) {
        after += "\\!";
        _hairpin = Hairpin::NoHairpin;
    }
    return text;
}

} // namespace zarn::lilypond
