// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/RepeatStructure.h>

#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>
#include <cstdint>

namespace zarn::lilypond {

namespace {

/// Bars under one bracket.
struct Ending {
    unsigned first;
    unsigned last;
    std::uint32_t passes;
};

std::vector<unsigned> numbersOf(std::uint32_t passes)
{
    std::vector<unsigned> numbers;
    for (unsigned pass = 0; pass < MasterBar::MaxEndings; ++pass)
        if ((passes >> pass & 1U) != 0)
            numbers.push_back(pass + 1);
    return numbers;
}

std::string joined(const std::vector<unsigned> &numbers, const char *between)
{
    std::string text;
    for (const unsigned number : numbers)
        text += (text.empty() ? "" : between) + std::to_string(number);
    return text;
}

class Finder {
public:
    explicit Finder(const MasterTrack &master) : _bars(master.masterBars())
    {
        _structure.bars.resize(_bars.size() + 1);
    }

    RepeatStructure run();

private:
    Ending endingAt(unsigned first) const;
    std::vector<Ending> endingsFrom(unsigned first) const;
    bool areRegular(unsigned start, const std::vector<Ending> &endings) const;
    void writeEndings(unsigned start, const std::vector<Ending> &endings);
    void writeLines(unsigned start, unsigned end);
    unsigned section(unsigned start);

    void addLine(unsigned bar, const std::string &command)
    {
        auto &commands = _structure.bars[bar].lineCommands;
        commands += (commands.empty() ? "" : " ") + command;
    }
    unsigned count() const { return static_cast<unsigned>(_bars.size()); }

    const MasterTrack::MasterBars &_bars;
    RepeatStructure _structure;
};

Ending Finder::endingAt(unsigned first) const
{
    Ending ending{first, first, _bars[first]->alternateEndings()};
    while (!_bars[ending.last]->isRepeatEnd() && ending.last + 1 < count()
           && _bars[ending.last + 1]->alternateEndings() == ending.passes
           && !_bars[ending.last + 1]->isRepeatStart())
        ++ending.last;
    return ending;
}

std::vector<Ending> Finder::endingsFrom(unsigned first) const
{
    std::vector<Ending> endings;
    while (first < count() && _bars[first]->alternateEndings() != 0
           && (endings.empty() || !_bars[first]->isRepeatStart())) {
        endings.push_back(endingAt(first));
        first = endings.back().last + 1;
    }
    return endings;
}

/// Each pass has its ending, in order, and all but the last lead back.
bool Finder::areRegular(unsigned start, const std::vector<Ending> &endings) const
{
    if (endings.size() < 2 || start == endings.front().first)
        return false;
    std::vector<unsigned> numbers;
    for (const Ending &ending : endings) {
        const bool isLast = &ending == &endings.back();
        if (_bars[ending.last]->isRepeatEnd() == isLast)
            return false;
        for (const unsigned number : numbersOf(ending.passes))
            numbers.push_back(number);
    }
    for (unsigned i = 0; i < numbers.size(); ++i)
        if (numbers[i] != i + 1)
            return false;
    return true;
}

void Finder::writeEndings(unsigned start, const std::vector<Ending> &endings)
{
    auto &words = _structure.bars;
    const unsigned passes = numbersOf(endings.back().passes).back();
    words[start].before += "\\repeat volta " + std::to_string(passes) + " { ";
    words[endings.front().first].before += "\\alternative { ";
    for (const Ending &ending : endings) {
        words[ending.first].before += "\\volta " + joined(numbersOf(ending.passes), ",") + " { ";
        words[ending.last].after += " }";
    }
    words[endings.back().last].after += " } }";
}

/// What has no braces, as it is drawn. The commands of one line stand in their order.
void Finder::writeLines(unsigned start, unsigned end)
{
    for (unsigned bar = start; bar < end;) {
        const std::uint32_t passes = _bars[bar]->alternateEndings();
        const unsigned last = passes != 0 ? endingAt(bar).last : bar;
        if (_bars[bar]->isRepeatStart())
            addLine(bar, "start-repeat");
        if (passes != 0)
            addLine(bar, "(volta " + quoted(joined(numbersOf(passes), ". ") + '.') + ')');
        if (passes != 0)
            addLine(last + 1, "(volta #f)");
        if (_bars[last]->isRepeatEnd())
            addLine(last + 1, "end-repeat");
        bar = last + 1;
    }
}

/// Writes what begins at a bar; answers the first bar behind it.
unsigned Finder::section(unsigned start)
{
    unsigned end = start;
    while (end < count() && !_bars[end]->isRepeatEnd() && _bars[end]->alternateEndings() == 0) {
        ++end;
        if (end < count() && (_bars[end]->isRepeatStart() || _bars[end]->isMovementStart())) {
            writeLines(start, end);
            return end;
        }
    }
    if (end == count()) {
        writeLines(start, end);
        return end;
    }
    if (_bars[end]->alternateEndings() != 0) {
        const auto endings = endingsFrom(end);
        if (areRegular(start, endings))
            writeEndings(start, endings);
        else
            writeLines(start, endings.back().last + 1);
        return endings.back().last + 1;
    }
    if (end + 1 < count() && _bars[end + 1]->alternateEndings() != 0
        && !_bars[end + 1]->isRepeatStart()) {
        const auto endings = endingsFrom(end + 1);
        writeLines(start, endings.back().last + 1);
        return endings.back().last + 1;
    }
    _structure.bars[start].before +=
        "\\repeat volta " + std::to_string(_bars[end]->repeatCount()) + " { ";
    _structure.bars[end].after += " }";
    return end + 1;
}

RepeatStructure Finder::run()
{
    for (unsigned bar = 0; bar < count();)
        bar = section(bar);
    return std::move(_structure);
}

} // namespace

RepeatStructure repeatStructureOf(const MasterTrack &master)
{
    return Finder(master).run();
}

} // namespace zarn::lilypond
