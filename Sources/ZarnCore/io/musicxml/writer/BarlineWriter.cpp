// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/BarlineWriter.h>

#include <ZarnCore/io/musicxml/BarlineReader.h>
#include <ZarnCore/io/musicxml/signs/Fermatas.h>
#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <string>

namespace zarn::io {

namespace {

std::string numbersOf(std::uint32_t passes)
{
    std::string numbers;
    for (unsigned pass = 0; pass < MasterBar::MaxEndings; ++pass)
        if ((passes >> pass & 1U) != 0)
            numbers += (numbers.empty() ? "" : ", ") + std::to_string(pass + 1);
    return numbers;
}

pugi::xml_node addEnding(std::uint32_t passes, const char *type, pugi::xml_node barline)
{
    auto ending = addElement(barline, "ending");
    addAttribute(ending, "number", numbersOf(passes));
    addAttribute(ending, "type", type);
    return ending;
}

/// Whether a bar, or one of those under the brackets in front of it, ends a repeat: the bracket
/// stays open behind the last pass then.
bool followsRepeat(const MasterTrack::MasterBars &bars, unsigned bar)
{
    for (; bars[bar]->alternateEndings() != 0; --bar) {
        if (bars[bar]->isRepeatEnd())
            return true;
        if (bar == 0)
            break;
    }
    return false;
}

} // namespace

void writeLeftBarline(const MasterTrack &master, unsigned bar, pugi::xml_node measure)
{
    const auto &bars = master.masterBars();
    const auto &column = *bars[bar];
    const auto passes = column.alternateEndings();
    const auto before = bar > 0 ? bars[bar - 1]->alternateEndings() : 0;
    // Behind a repeat sign the same passes are another bracket.
    const bool beginsEnding = passes != 0 && (passes != before || bars[bar - 1]->isRepeatEnd());
    if (!column.isRepeatStart() && !beginsEnding)
        return;
    auto barline = addElement(measure, "barline");
    addAttribute(barline, "location", "left");
    if (column.isRepeatStart())
        addElement(barline, "bar-style", "heavy-light");
    if (beginsEnding)
        addEnding(passes, "start", barline)
            .append_child(pugi::node_pcdata)
            .set_value((numbersOf(passes) + ".").c_str());
    if (column.isRepeatStart())
        addAttribute(addElement(barline, "repeat"), "direction", "forward");
}

void writeRightBarline(const MasterTrack &master, unsigned bar, pugi::xml_node measure)
{
    const auto &bars = master.masterBars();
    const auto &column = *bars[bar];
    const bool isLast = bar + 1 == bars.size();
    const bool isFinal = isLast || bars[bar + 1]->isMovementStart();
    const auto passes = column.alternateEndings();
    const bool endsEnding = passes != 0
        && (isLast || column.isRepeatEnd() || bars[bar + 1]->alternateEndings() != passes);
    const FermataMark *fermata = nullptr;
    for (const auto &mark : column.fermatas())
        if (mark.position == column.length())
            fermata = &mark;
    const char *const own = barStyleOf(column.barLine());
    const char *const style = column.isRepeatEnd() ? "light-heavy"
        : column.hasDoubleBar()                    ? "light-light"
        : own != nullptr                           ? own
        : isFinal                                  ? "light-heavy"
                                                   : nullptr;
    if (!style && !endsEnding && !fermata)
        return;
    auto barline = addElement(measure, "barline");
    addAttribute(barline, "location", "right");
    if (style)
        addElement(barline, "bar-style", style);
    if (fermata)
        addElement(barline, "fermata", shapeOf(fermata->kind));
    if (endsEnding)
        addEnding(passes,
                  column.isRepeatEnd() || !followsRepeat(bars, bar) ? "stop" : "discontinue",
                  barline);
    if (column.isRepeatEnd()) {
        auto repeat = addElement(barline, "repeat");
        addAttribute(repeat, "direction", "backward");
        if (column.repeatCount() > 2)
            addAttribute(repeat, "times", static_cast<int>(column.repeatCount()));
    }
}

} // namespace zarn::io
