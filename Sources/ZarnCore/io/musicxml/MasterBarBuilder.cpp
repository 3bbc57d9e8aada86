// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MasterBarBuilder.h>

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/io/musicxml/BarLengths.h>
#include <ZarnCore/io/musicxml/BarlineReader.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/Metronome.h>
#include <ZarnCore/io/musicxml/Movements.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/attributes/ZarnFermataSpan.h>
#include <ZarnCore/model/form/ZarnInForce.h>
#include <ZarnCore/model/form/ZarnTempoUnitLength.h>

#include <QString>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

namespace zarn::io {

using utils::rational;

namespace {

/// Bytes that the letters or the titles of one bar have at most.
constexpr std::size_t mostTitle = 4096;

} // namespace

MasterBarBuilder::MasterBarBuilder(ImportContext &context, const std::vector<PartFacts> &parts,
                                   const std::vector<PartTally> &tallies)
    : _context(context), _parts(parts), _tallies(tallies)
{
}

void MasterBarBuilder::build(MasterTrack &master, unsigned barCount)
{
    MasterTrack::MasterBars bars(barCount);
    for (auto &bar : bars)
        bar = std::make_shared<MasterBar>();
    master.insertMasterBarBlock(0, std::move(bars));
    setTimes(master);
    setKeys(master);
    setRepeats(master);
    setSections(master);
    setFeels(master);
    setTempos(master);
    setBarLengths(_parts, master, _context);
    setBarLines(master);
    setFermatas(master); // Some stand at the ends of bars.
}

void MasterBarBuilder::setTimes(MasterTrack &master)
{
    struct Stated {
        WrittenTime time;
        std::size_t part;
    };
    std::map<int, Stated> stated;
    for (std::size_t part = 0; part < _parts.size(); ++part) {
        for (const auto &time : _parts[part].times) {
            const auto [found, isNew] = stated.insert({time.bar, {time, part}});
            const auto &taken = found->second.time;
            if (isNew || (taken.beats == time.beats && taken.unit == time.unit))
                continue;
            _context.setPlace(static_cast<int>(part), time.bar);
            _context.addProblem(time.node,
                                "another time signature than in part "
                                    + std::to_string(found->second.part + 1) + " was left out");
        }
    }
    TimeSignature current;
    BeamGroups groups;
    auto sign = MeterSign::Numbers;
    bool free = false;
    auto next = stated.begin();
    for (unsigned bar = 0; bar < master.masterBarCount(); ++bar) {
        for (; next != stated.end() && next->first <= static_cast<int>(bar); ++next) {
            const auto &time = next->second.time;
            free = time.free;
            if (free)
                continue;
            current = TimeSignature(time.beats, time.unit);
            sign = time.sign;
            groups = time.groups;
        }
        master.masterBars()[bar]->setTimeSignature(current);
        master.masterBars()[bar]->setMeterSign(sign);
        master.masterBars()[bar]->setFreeTime(free);
        if (!groups.isEmpty())
            master.masterBars()[bar]->setBeamGroups(groups);
    }
}

int MasterBarBuilder::concertFifths(std::size_t part, const WrittenKey &key) const
{
    const auto &all = _parts[part].transpositions;
    const auto after = std::upper_bound(
        all.begin(), all.end(), key.bar,
        [](int bar, const WrittenTransposition &transposition) { return bar < transposition.bar; });
    if (after == all.begin() || after[-1].chromatic % 12 == 0)
        return key.fifths;
    const auto [bar, chromatic, diatonic] = after[-1];
    int shift = 7 * chromatic - 12 * diatonic;
    if (diatonic == 0) {
        // The steps are not said: take the nearest key.
        shift = ((7 * chromatic) % 12 + 12) % 12;
        shift = shift > 6 ? shift - 12 : shift;
    }
    return key.fifths + shift;
}

/// The key of most parts; parts without pitches hardly count, earlier parts win.
MasterBarBuilder::ConcertKey MasterBarBuilder::choose(const std::vector<ConcertKey> &keys) const
{
    const auto votes = [&](const ConcertKey &wanted) {
        std::size_t sum = 0;
        for (const auto &key : keys)
            if (key.fifths == wanted.fifths)
                sum += _tallies[key.part].notes.pitched > 0 ? keys.size() : 1;
        return sum;
    };
    const ConcertKey *best = &keys.front();
    for (const auto &key : keys)
        if (key.fifths != best->fifths && votes(key) > votes(*best))
            best = &key;
    return *best;
}

void MasterBarBuilder::setKeys(MasterTrack &master)
{
    std::map<int, std::vector<ConcertKey>> stated;
    for (std::size_t part = 0; part < _parts.size(); ++part)
        for (const auto &key : _parts[part].keys) {
            auto &keys = stated[key.bar];
            if (!keys.empty() && keys.back().part == part) // from inside of the bar before
                keys.pop_back();
            keys.push_back({part, concertFifths(part, key), key.minor, key.node});
        }
    KeySignature current(0, true, true);
    auto next = stated.begin();
    for (unsigned bar = 0; bar < master.masterBarCount(); ++bar) {
        for (; next != stated.end() && next->first <= static_cast<int>(bar); ++next) {
            const auto chosen = choose(next->second);
            const int fifths = KeySignature(chosen.fifths).accidentalCount();
            current = KeySignature(fifths, !chosen.minor, fifths >= 0);
            for (const auto &key : next->second)
                if (key.fifths != chosen.fifths && _tallies[key.part].notes.pitched > 0) {
                    _context.setPlace(static_cast<int>(key.part), next->first);
                    _context.addProblem(key.node,
                                        "the key of this part alone was left out; the score has "
                                            + std::to_string(chosen.fifths)
                                            + " fifths at concert pitch");
                }
        }
        master.masterBars()[bar]->setConcertKeySignature(current);
    }
}

namespace {

/// The last bar of an ending, of which those behind its bracket do not show it. Behind endings that
/// no repeat sign ends, and that are taken in turn, an open one goes on up to the bracket of
/// another pass.
int lastBarOf(const WrittenEnding &ending, const MasterTrack::MasterBars &bars)
{
    const auto at = [&bars](int bar) -> const MasterBar & {
        return *bars[static_cast<std::size_t>(bar)];
    };
    bool isTakenInTurn = false;
    for (int bar = ending.last; bar >= 0 && at(bar).alternateEndings() != 0; --bar) {
        if (at(bar).isRepeatEnd())
            return ending.last;
        isTakenInTurn = isTakenInTurn || bar < ending.first;
    }
    if (!ending.isOpen || !isTakenInTurn)
        return ending.last;
    for (int bar = ending.last + 1; bar < static_cast<int>(bars.size()); ++bar) {
        const auto passes = at(bar).alternateEndings();
        if (passes != 0)
            return (passes & ending.passes) == 0 ? bar - 1 : ending.last;
        if (at(bar).isRepeatStart() || at(bar).isRepeatEnd() || at(bar).isMovementStart())
            break;
    }
    return ending.last;
}

/// Where an ending is over that nobody ended: with the repeat that it leads to. The last one of a
/// repeat, which leads to none, has its first bar for sure.
int lastBarOfLost(const WrittenEnding &ending, const MasterTrack::MasterBars &bars)
{
    const auto at = [&bars](int bar) -> const MasterBar & {
        return *bars[static_cast<std::size_t>(bar)];
    };
    const bool isBehindRepeat = ending.first > 0 && at(ending.first - 1).isRepeatEnd();
    for (int bar = ending.first; bar <= ending.last; ++bar) {
        if (bar > ending.first && (at(bar).isRepeatStart() || at(bar).isMovementStart()))
            return isBehindRepeat ? ending.first : bar - 1;
        if (at(bar).isRepeatEnd())
            return isBehindRepeat && bar != ending.last ? ending.first : bar;
    }
    return isBehindRepeat ? ending.first : ending.last;
}

void setEndings(std::vector<WrittenEnding> endings, const MasterTrack::MasterBars &bars)
{
    for (auto &ending : endings)
        if (ending.isLost)
            ending.last = lastBarOfLost(ending, bars);
    const auto add = [&bars](const WrittenEnding &ending, int last) {
        for (int bar = ending.first; bar <= last; ++bar) {
            auto &column = *bars[static_cast<std::size_t>(bar)];
            column.setAlternateEndings(column.alternateEndings() | ending.passes);
            if (ending.isHidden || bar > ending.last)
                column.setEndingHidden(true);
        }
    };
    for (const auto &ending : endings) {
        add(ending, ending.last);
        if (!isEndingNumbers(ending.text))
            bars[static_cast<std::size_t>(ending.first)]->setEndingText(ending.text);
    }
    // Once all brackets are known.
    for (const auto &ending : endings)
        add(ending, lastBarOf(ending, bars));
}

} // namespace

void MasterBarBuilder::setRepeats(MasterTrack &master)
{
    const auto &bars = master.masterBars();
    for (const auto &part : _parts) {
        for (const auto &repeat : part.repeats) {
            auto &bar = *bars[static_cast<std::size_t>(repeat.bar)];
            if (repeat.forward)
                bar.setRepeatStart(true);
            else
                bar.setRepeatCount(std::max(bar.repeatCount(), repeat.times));
        }
        for (const int bar : part.doubleBars)
            bars[static_cast<std::size_t>(bar)]->setDoubleBar(true);
    }
    for (const int bar : movementStarts(_parts))
        bars[static_cast<std::size_t>(bar)]->setMovementStart(true);
    for (const auto &part : _parts)
        setEndings(part.endings, bars);
}

void MasterBarBuilder::setBarLines(MasterTrack &master)
{
    for (const auto &part : _parts)
        for (const auto &written : part.barLines)
            master.masterBars()[static_cast<std::size_t>(written.bar)]->setBarLine(written.line);
}

/// Of several parts at one time the longest one holds. What is written over a long note and over
/// shorter ones that end with it is one fermata, at these.
void MasterBarBuilder::setFermatas(MasterTrack &master)
{
    std::map<int, std::map<rational, FermataSpan>> spans;
    for (const auto &part : _parts)
        for (const auto &written : part.fermatas)
            if (!written.isAtEnd)
                spans[written.bar]
                    .try_emplace(written.position, written.position)
                    .first->second.add(written.position, written.end);
    const auto placeOf = [&](const WrittenFermata &written) {
        rational place = written.position;
        for (const auto &[position, span] : spans[written.bar])
            if (span.isHeldFromBefore(written.position, written.end))
                place = position;
        return place;
    };
    for (const auto &part : _parts)
        for (const auto &written : part.fermatas) {
            auto &bar = *master.masterBars()[static_cast<std::size_t>(written.bar)];
            const auto mark =
                FermataMark::at(written.isAtEnd ? bar.length() : placeOf(written), written.kind);
            auto marks = bar.fermatas();
            const auto at = std::lower_bound(marks.begin(), marks.end(), mark,
                                             [](const FermataMark &left, const FermataMark &right) {
                                                 return left.position < right.position;
                                             });
            if (at == marks.end() || at->position != mark.position)
                marks.insert(at, mark);
            else if (at->stretch < mark.stretch)
                *at = mark;
            else
                continue;
            bar.setFermatas(marks);
        }
}

/// Parts mostly say the same; what they call a bar otherwise is said too.
void MasterBarBuilder::setSections(MasterTrack &master)
{
    for (const auto &part : _parts)
        for (const auto &written : part.sections) {
            auto &bar = *master.masterBars()[static_cast<std::size_t>(written.bar)];
            Section section = bar.section();
            auto &text = written.isLetter ? section.letter : section.text;
            if (text == written.text || text.size() + written.text.size() > mostTitle)
                continue;
            if (written.isLetter)
                section.isCircled = written.isCircled && (text.empty() || section.isCircled);
            text += (text.empty() ? "" : " ") + written.text;
            bar.setSection(section);
        }
}

/// Of several parts the last one holds.
void MasterBarBuilder::setFeels(MasterTrack &master)
{
    std::map<int, TripletFeel> feels;
    for (const auto &part : _parts)
        for (const auto &swing : part.swings)
            feels[swing.bar] = swing.feel;
    for (auto feel = feels.begin(); feel != feels.end(); ++feel) {
        const auto next = std::next(feel);
        const auto end =
            next == feels.end() ? master.masterBarCount() : static_cast<unsigned>(next->first);
        for (auto bar = static_cast<unsigned>(feel->first); bar < end; ++bar)
            master.masterBars()[bar]->setTripletFeel(feel->second);
    }
}

/// Of two tempos at one place the later one holds; words of both are kept where one part has them,
/// and a number that can be seen stays in sight.
void MasterBarBuilder::joinTempo(TempoAutomation &there, const WrittenTempo &tempo, bool isSamePart)
{
    const auto words = there.text();
    if (words.empty())
        there.setText(tempo.text);
    else if ((isSamePart || hasMetronomeMark(tempo.text)) && words.find(tempo.text) == words.npos)
        there.setText(words + " " + tempo.text);
    const auto unitThere = static_cast<TempoUnit>(there.unit());
    const auto before = quartersOf({there.value(), unitThere});
    const auto now = quartersOf(tempo.tempo);
    // Metronome marks are rounded.
    const bool isOther = now > 0 && std::abs(before - now) >= 0.5;
    const bool hadNumber = there.isVisible() && unitThere != TempoUnit::None;
    const bool hasNumber = tempo.visible && tempo.tempo.unit != TempoUnit::None;
    auto unit = hadNumber || !isOther ? unitThere : tempo.tempo.unit;
    if (hasNumber && (isOther || !hadNumber))
        unit = tempo.tempo.unit;
    else if (!hadNumber && (there.isVisible() || tempo.visible))
        unit = TempoUnit::None;
    there.setVisible(there.isVisible() || tempo.visible);
    if (isOther || unit != unitThere) {
        there.setValue(static_cast<float>((isOther ? now : before) / zarn::quartersOf(unit)));
        there.setUnit(static_cast<std::int32_t>(unit));
    }
    if (!isOther)
        return;
    const auto text = [](double quarters) {
        return QString::number(quarters, 'g', 6).toStdString();
    };
    _context.addProblem(tempo.node,
                        "a second tempo at the same place: " + text(now)
                            + " quarters a minute hold instead of " + text(before));
}

void MasterBarBuilder::setTempos(MasterTrack &master)
{
    std::vector<std::pair<int, const WrittenTempo *>> tempos; // with their parts
    for (std::size_t part = 0; part < _parts.size(); ++part)
        for (const auto &tempo : _parts[part].tempos)
            tempos.emplace_back(static_cast<int>(part), &tempo);
    // In order, so that each goes to the end of the others.
    std::stable_sort(tempos.begin(), tempos.end(), [](const auto &a, const auto &b) {
        return std::tie(a.second->bar, a.second->position)
            < std::tie(b.second->bar, b.second->position);
    });
    double quarters = TempoMark().value;
    int lastPart = 0;
    // Where one note is said to equal another again and again.
    constexpr double slowest = 0.01;
    constexpr double fastest = 1e6;
    for (const auto &[part, written] : tempos) {
        const auto &tempo = *written;
        const auto bar = static_cast<std::uint32_t>(tempo.bar);
        const auto position = static_cast<float>(tempo.position.toDouble());
        auto value = tempo.tempo;
        if (auto *there = master.automation(Automation::Tempo, bar, position)) {
            _context.setPlace(part, tempo.bar);
            auto &joined = static_cast<TempoAutomation &>(*there);
            joinTempo(joined, tempo, part == lastPart);
            quarters = quartersOf({joined.value(), static_cast<TempoUnit>(joined.unit())});
            continue;
        }
        if (value.value <= 0)
            value.value = std::clamp(quarters * tempo.factor, slowest, fastest);
        quarters = quartersOf(value);
        lastPart = part;
        auto automation = std::make_unique<TempoAutomation>();
        automation->setIndex(bar);
        automation->setPosition(position);
        automation->setValue(static_cast<float>(value.value));
        automation->setUnit(static_cast<std::int32_t>(value.unit));
        automation->setText(tempo.text);
        automation->setVisible(tempo.visible);
        // What can be seen is there again, though it changes nothing.
        if (tempo.visible || !tempo.text.empty())
            master.restoreAutomation(std::move(automation));
        else
            master.insertAutomation(std::move(automation));
    }
}

} // namespace zarn::io
