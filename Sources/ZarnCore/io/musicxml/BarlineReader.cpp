// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/BarlineReader.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/signs/Fermatas.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>

namespace zarn::io {

namespace {

constexpr int mostPasses = 32;
constexpr int mostTimes = 255;

/// Bar lines without a meaning of their own (bar-style of MusicXML 4.0).
struct BarStyle {
    BarLine line;
    std::string_view name;
};

constexpr BarStyle barStyles[] = {
    {BarLine::Dashed, "dashed"}, {BarLine::Dotted, "dotted"}, {BarLine::Heavy, "heavy"},
    {BarLine::Short, "short"},   {BarLine::Tick, "tick"},     {BarLine::None, "none"},
};

std::optional<BarLine> barLineOf(std::string_view name)
{
    for (const auto &style : barStyles)
        if (style.name == name)
            return style.line;
    return std::nullopt;
}

} // namespace

const char *barStyleOf(BarLine line)
{
    const auto *const style =
        std::find_if(std::begin(barStyles), std::end(barStyles),
                     [line](const BarStyle &candidate) { return candidate.line == line; });
    return style == std::end(barStyles) ? nullptr : style->name.data();
}

bool isFinalBarStyle(std::string_view style)
{
    return style == "light-heavy" || style == "heavy-heavy" || style == "heavy";
}

void BarlineReader::read(pugi::xml_node node, PartFacts &facts)
{
    const std::string_view location = node.attribute("location").value();
    const bool left = location == "left";
    const auto repeat = node.child("repeat");
    if (location == "middle" && repeat) {
        _context.addProblem(repeat, "a repeat in the middle of a bar was left out");
        return;
    }
    const auto addSign = [&](WrittenJump::Kind kind, const char *name, pugi::xml_node sign) {
        facts.jumps.push_back({_context.bar(), kind, WrittenJump::Until::End, name, sign});
    };
    for (auto child = node.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::BarStyle:
            readStyle(child, left, static_cast<bool>(repeat), facts);
            break;
        case Tag::Repeat:
            readRepeat(child, facts);
            break;
        case Tag::Ending:
            readEnding(child, left, facts);
            break;
        case Tag::Fermata:
            readFermata(child, left, facts);
            break;
        case Tag::Segno:
            addSign(WrittenJump::Kind::Segno, node.attribute("segno").value(), child);
            break;
        case Tag::Coda:
            addSign(WrittenJump::Kind::Coda, node.attribute("coda").value(), child);
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
}

void BarlineReader::readStyle(pugi::xml_node style, bool left, bool repeats, PartFacts &facts)
{
    const std::string_view name = style.child_value();
    if (!left && isFinalBarStyle(name))
        facts.finalBars.push_back(_context.bar());
    if (name == "light-light" && _context.bar() - left >= 0)
        facts.doubleBars.push_back(_context.bar() - left);
    else if (const auto line = barLineOf(name); line && _context.bar() - left >= 0)
        facts.barLines.push_back({_context.bar() - left, *line});
    else if (name != "regular" && name != "light-heavy" && !repeats)
        _context.addUnheld(style, Tag::BarStyle);
}

void BarlineReader::readFermata(pugi::xml_node fermata, bool left, PartFacts &facts)
{
    WrittenFermata written = {_context.bar(), 0, fermataOf(fermata), !left};
    facts.fermatas.push_back(written);
}

void BarlineReader::readRepeat(pugi::xml_node repeat, PartFacts &facts)
{
    const std::string_view direction = repeat.attribute("direction").value();
    const auto timesAttribute = repeat.attribute("times");
    const int times = timesAttribute ? timesAttribute.as_int() : 2;
    if (direction == "forward") {
        facts.repeats.push_back({_context.bar(), true, 0});
    } else if (direction == "backward") {
        const int playable = std::clamp(times, 2, mostTimes);
        if (playable != times)
            _context.addProblem(repeat,
                                "a repeat cannot be played " + std::to_string(times) + " times; "
                                    + std::to_string(playable) + " was taken");
        facts.repeats.push_back({_context.bar(), false, static_cast<unsigned>(playable)});
    } else {
        _context.addProblem(repeat, "a repeat that goes neither forward nor backward was left out");
    }
}

bool isEndingNumbers(const std::string &text)
{
    return text.find_first_not_of("0123456789., -\n") == std::string::npos;
}

void BarlineReader::readEnding(pugi::xml_node ending, bool left, PartFacts &facts)
{
    const std::string_view type = ending.attribute("type").value();
    if (type == "start")
        return startEnding(ending, facts);
    const int bar = _context.bar();
    const auto passes = passesOf(ending);
    settleUnbegun(facts, nullptr);
    if (_open && bar > _open->first && (_open->passes & passes) == 0)
        loseEnding(bar - 1, facts);
    if (!_open) {
        _unbegun = UnbegunEnding{{bar, bar, passes, type == "discontinue"}, ending};
        return;
    }
    _open->last = std::max(_open->first, left ? bar - 1 : bar);
    _open->isOpen = type == "discontinue";
    facts.endings.push_back(*_open);
    _open.reset();
}

void BarlineReader::startEnding(pugi::xml_node ending, PartFacts &facts)
{
    const int bar = _context.bar();
    WrittenEnding started{bar, bar, passesOf(ending)};
    settleUnbegun(facts, &started);
    if (_open) {
        _context.addProblem(ending, "the ending before has no end; it ends here");
        loseEnding(bar - 1, facts);
    }
    started.text = _context.fewWords(ending, ending.child_value());
    started.isHidden = std::string_view(ending.attribute("print-object").value()) == "no";
    _open = std::move(started);
}

/// Closes an ending that nobody ended, at a bar that it does not go past.
void BarlineReader::loseEnding(int last, PartFacts &facts)
{
    _open->last = std::max(_open->first, last);
    _open->isLost = _open->last > _open->first;
    facts.endings.push_back(*_open);
    _open.reset();
}

/// Some programs write the end of an ending of one bar in front of the bar: it says nothing then.
void BarlineReader::settleUnbegun(PartFacts &facts, const WrittenEnding *next)
{
    if (!_unbegun)
        return;
    const auto &[ending, node] = *_unbegun;
    if (next && next->first == ending.last + 1 && next->passes == ending.passes) {
        _context.addProblemInBar(ending.last, node,
                                 "an ending ends in front of the bar in which it begins; the end "
                                 "was left out");
    } else {
        _context.addProblemInBar(ending.last, node,
                                 "an ending ends that was not begun; it covers this bar");
        facts.endings.push_back(ending);
    }
    _unbegun.reset();
}

void BarlineReader::finishPart(PartFacts &facts)
{
    settleUnbegun(facts, nullptr);
    if (_open)
        loseEnding(static_cast<int>(facts.bars.size()) - 1, facts);
}

std::uint32_t BarlineReader::passesOf(pugi::xml_node ending)
{
    std::uint32_t passes = 0;
    bool valid = true;
    const std::string numbers = ending.attribute("number").value();
    for (std::size_t at = 0; at < numbers.size();) {
        const auto end = std::min(numbers.find_first_of(", ", at), numbers.size());
        if (end > at) {
            const auto pass = parseInteger(numbers.substr(at, end - at).c_str());
            if (pass && *pass >= 1 && *pass <= mostPasses)
                passes |= std::uint32_t(1) << (*pass - 1);
            else
                valid = false;
        }
        at = end + 1;
    }
    if (!valid || passes == 0)
        _context.addProblem(
            ending, "the numbers of an ending, \"" + numbers + "\", are not all from 1 to 32");
    return passes;
}

} // namespace zarn::io
