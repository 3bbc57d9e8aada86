// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/BarlineWriter.h>

#include <ZarnCore/io/musicxml/BarlineReader.h>
#include <ZarnCore/io/musicxml/signs/Fermatas.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
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

/// What the brackets of the endings are found by.
class Brackets {
public:
    explicit Brackets(const MasterTrack::MasterBars &bars) : _bars(bars), _repeats(bars.size())
    {
        for (unsigned bar = 0; bar < bars.size(); ++bar)
            _repeats[bar] = passes(bar) != 0
                && (bars[bar]->isRepeatEnd()
                    || (bar > 0 && passes(bar - 1) != 0 && _repeats[bar - 1]));
    }

    std::uint32_t passes(unsigned bar) const { return _bars[bar]->alternateEndings(); }

    /// Behind a repeat sign the same passes are another bracket.
    bool begins(unsigned bar) const
    {
        return passes(bar) != 0
            && (bar == 0 || passes(bar) != passes(bar - 1) || _bars[bar - 1]->isRepeatEnd());
    }

    unsigned lastBar(unsigned first) const
    {
        unsigned last = first;
        while (last + 1 < _bars.size() && passes(last + 1) != 0 && !begins(last + 1))
            ++last;
        return last;
    }

    /// Whether readers take a bracket that is written without an end up to the bracket of another
    /// pass; see `WrittenEnding`. It has the bars up to `last`, and is written up to `written`.
    bool goesOn(unsigned first, unsigned written, unsigned last) const
    {
        if (first == 0 || passes(first - 1) == 0 || _repeats[written])
            return false;
        for (unsigned bar = written + 1; bar < _bars.size(); ++bar) {
            if (bar > last && passes(bar) != 0)
                return (passes(bar) & passes(first)) == 0;
            if (_bars[bar]->isRepeatStart() || _bars[bar]->isRepeatEnd()
                || _bars[bar]->isMovementStart())
                return false;
        }
        return false;
    }

    /// The last bar that shows the bracket, where its first one does; else its last bar.
    unsigned lastShown(unsigned first, unsigned last) const
    {
        unsigned shown = first;
        while (shown < last && !_bars[shown + 1]->isEndingHidden())
            ++shown;
        return _bars[first]->isEndingHidden() ? last : shown;
    }

    /// Whether nothing is repeated behind a bracket up to the next one.
    bool isLastPass(unsigned last) const
    {
        if (_bars[last]->isRepeatEnd() || (last + 1 < _bars.size() && passes(last + 1) != 0))
            return false;
        for (unsigned bar = last + 1; bar < _bars.size() && passes(bar) == 0; ++bar) {
            if (_bars[bar]->isRepeatStart() || _bars[bar]->isMovementStart())
                break;
            if (_bars[bar]->isRepeatEnd())
                return false;
        }
        return true;
    }

private:
    const MasterTrack::MasterBars &_bars;
    std::vector<bool> _repeats; ///< a repeat ends here, or before under brackets without a gap
};

} // namespace

std::vector<EndingMark> endingMarks(const MasterTrack &master)
{
    const auto &bars = master.masterBars();
    const Brackets brackets(bars);
    std::vector<EndingMark> marks(bars.size());
    for (unsigned first = 0; first < bars.size(); ++first) {
        if (!brackets.begins(first))
            continue;
        const auto last = brackets.lastBar(first);
        const auto shown = brackets.lastShown(first, last);
        const bool isShort = shown < last && brackets.goesOn(first, shown, last);
        auto &end = marks[isShort ? shown : last];
        marks[first].begins = end.ends = true;
        marks[first].isHidden = bars[first]->isEndingHidden();
        end.isOpen = isShort || (brackets.isLastPass(last) && !brackets.goesOn(first, last, last));
        first = last;
    }
    return marks;
}

void writeLeftBarline(const MasterBar &column, const EndingMark &ending, ExportContext &context,
                      pugi::xml_node measure)
{
    const auto passes = column.alternateEndings();
    if (!column.isRepeatStart() && !ending.begins)
        return;
    auto barline = addElement(measure, "barline");
    addAttribute(barline, "location", "left");
    if (column.isRepeatStart())
        addElement(barline, "bar-style", "heavy-light");
    if (ending.begins) {
        auto start = addEnding(passes, "start", barline);
        if (ending.isHidden)
            addAttribute(start, "print-object", "no");
        const auto text = context.text(column.endingText());
        start.append_child(pugi::node_pcdata)
            .set_value((text.empty() ? numbersOf(passes) + "." : text).c_str());
    }
    if (column.isRepeatStart())
        addAttribute(addElement(barline, "repeat"), "direction", "forward");
}

void writeRightBarline(const MasterTrack &master, unsigned bar, const EndingMark &ending,
                       pugi::xml_node measure)
{
    const auto &bars = master.masterBars();
    const auto &column = *bars[bar];
    const bool isLast = bar + 1 == bars.size();
    const bool isFinal = isLast || bars[bar + 1]->isMovementStart();
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
    if (!style && !ending.ends && !fermata)
        return;
    auto barline = addElement(measure, "barline");
    addAttribute(barline, "location", "right");
    if (style)
        addElement(barline, "bar-style", style);
    if (fermata)
        addElement(barline, "fermata", shapeOf(fermata->kind));
    if (ending.ends)
        addEnding(column.alternateEndings(), ending.isOpen ? "discontinue" : "stop", barline);
    if (column.isRepeatEnd()) {
        auto repeat = addElement(barline, "repeat");
        addAttribute(repeat, "direction", "backward");
        if (column.repeatCount() > 2)
            addAttribute(repeat, "times", static_cast<int>(column.repeatCount()));
    }
}

} // namespace zarn::io
