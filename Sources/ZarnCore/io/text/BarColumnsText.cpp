// SPDX-License-Identifier: MIT
#include <ZarnCore/io/text/BarColumnsText.h>

#include <ZarnCore/io/text/NoteText.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::io::text {

namespace {

/// Notes what a bar has; raises when another track says something else.
template <typename T>
void share(std::map<unsigned, T> &values, unsigned bar, const T &value, const TextScanner &scanner,
           std::size_t place)
{
    if (!(values.emplace(bar, value).first->second == value))
        scanner.failAt(place,
                       "another track says something else of bar " + std::to_string(bar + 1));
}

/// Gives `value` what was noted for a bar, if anything was.
template <typename T>
void update(T &value, const std::map<unsigned, T> &changes, unsigned bar)
{
    if (const auto change = changes.find(bar); change != changes.end())
        value = change->second;
}

} // namespace

bool BarColumnsText::readSetting(TextScanner &scanner, unsigned bar)
{
    std::size_t digits = 0;
    while (scanner.isDigit(digits))
        ++digits;
    if (digits > 0 && scanner.peek(digits) == '/') {
        readTime(scanner, bar);
        return true;
    }
    const std::size_t place = scanner.place();
    if (!scanner.take("key="))
        return false;
    const NamedKey key = takeKey(scanner);
    share(_keys, bar, KeySignature(key.accidentals, key.isMajor), scanner, place);
    return true;
}

void BarColumnsText::readTime(TextScanner &scanner, unsigned bar)
{
    const std::size_t place = scanner.place();
    const unsigned numerator = scanner.takeNumber("a number of beats", 1, 255);
    scanner.take('/');
    const std::size_t unitPlace = scanner.place();
    const unsigned denominator = scanner.takeNumber("a note value", 1, 256);
    if ((denominator & (denominator - 1)) != 0)
        scanner.failAt(unitPlace, "expected a note value: 1, 2, 4, 8 and so on");
    share(_times, bar, TimeSignature(numerator, denominator), scanner, place);
}

void BarColumnsText::readFrontLine(TextScanner &scanner)
{
    scanner.skipBlanks();
    if (scanner.take('|') && scanner.take(':'))
        _repeatStarts.insert(0);
}

bool BarColumnsText::readLineBehind(TextScanner &scanner, unsigned bar)
{
    scanner.skipBlanks();
    const std::size_t place = scanner.place();
    const bool isRepeatEnd = scanner.take(":|");
    if (!isRepeatEnd && !scanner.take('|'))
        return false;
    if (isRepeatEnd) {
        const unsigned count =
            scanner.take('x') ? scanner.takeNumber("how often it is played", 2, 255) : 2;
        share(_repeatCounts, bar, count, scanner, place);
    }
    if (scanner.take(':'))
        _repeatStarts.insert(bar + 1);
    return true;
}

void BarColumnsText::fill(ScoreModel &model) const
{
    const auto master = model.masterTrack();
    master->addEmptyMasterBars(_count);
    TimeSignature time;
    KeySignature key;
    for (const auto &bar : master->masterBars()) {
        const unsigned index = bar->index();
        update(time, _times, index);
        update(key, _keys, index);
        unsigned repeatCount = 0;
        update(repeatCount, _repeatCounts, index);
        bar->setTimeSignature(time);
        bar->setConcertKeySignature(key);
        bar->setRepeatStart(_repeatStarts.count(index) != 0);
        bar->setRepeatCount(repeatCount);
    }
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            staff->addEmptyBars(_count - staff->barCount());
    master->updatePlayList();
}

} // namespace zarn::io::text
