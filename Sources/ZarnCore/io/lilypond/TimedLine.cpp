// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/TimedLine.h>

#include <ZarnCore/io/lilypond/Frame.h>
#include <ZarnCore/io/lilypond/Words.h>

namespace zarn::lilypond {

TimedLine::Entry &TimedLine::entry(unsigned bar, utils::rational position)
{
    if (bar + 1 < _frame.bars.size() && !(position < _frame.bars[bar].length)) {
        ++bar;
        position = 0;
    }
    return _entries[{bar, position}];
}

void TimedLine::add(unsigned bar, const utils::rational &position, const std::string &command)
{
    entry(bar, position).commands += command + ' ';
}

void TimedLine::attach(unsigned bar, const utils::rational &position, const std::string &event)
{
    entry(bar, position).events += event;
}

void TimedLine::addAtEnd(unsigned bar, const std::string &command)
{
    _ends[bar] += ' ' + command;
}

void TimedLine::put(unsigned bar, const utils::rational &position, const std::string &music)
{
    entry(bar, position).music = music;
}

std::string TimedLine::toText() const
{
    std::string text;
    auto next = _entries.begin();
    for (unsigned bar = 0; bar < _frame.bars.size(); ++bar) {
        const FrameBar &frame = _frame.bars[bar];
        text += "  " + _frame.repeats.bars[bar].before;
        Entry current;
        utils::rational position;
        bool isGraceWritten = false;
        const auto flush = [&](const utils::rational &end) {
            text += current.commands;
            if (!isGraceWritten)
                text += graceGap(frame.grace);
            isGraceWritten = true;
            if (position < end) {
                std::string skip = gapText(Gap::Skip, end - position);
                if (!current.music.empty()) {
                    std::string music = current.music;
                    const auto place = music.rfind("%1");
                    skip = music.replace(place, 2, skip.substr(1));
                }
                text += skip + current.events + ' ';
            } else if (!current.events.empty()) {
                text += "<>" + current.events + ' ';
            }
        };
        for (; next != _entries.end() && next->first.first == bar; ++next) {
            const utils::rational &at = next->first.second;
            if (position < at)
                flush(at);
            position = at;
            current = next->second;
        }
        flush(frame.length);
        text += '|';
        if (const auto end = _ends.find(bar); end != _ends.end())
            text += end->second;
        text += _frame.repeats.bars[bar].after + '\n';
    }
    return text;
}

} // namespace zarn::lilypond
