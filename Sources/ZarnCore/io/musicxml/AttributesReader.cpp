// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/AttributesReader.h>

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/MeasureTimeline.h>
#include <ZarnCore/io/musicxml/StaffTranspositions.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <string_view>

namespace zarn::io {

using utils::rational;

namespace {

/// More staves and strings than any instrument has; what is past them is no score.
constexpr int mostStaves = 64;
constexpr int mostStrings = 12;

std::string_view textOf(pugi::xml_node node, const char *child)
{
    return node.child_value(child);
}

struct MeterSymbol {
    MeterSign sign;
    const char *name; ///< time-symbol of MusicXML 4.0
};

constexpr MeterSymbol meterSymbols[] = {
    {MeterSign::Common, "common"},
    {MeterSign::Cut, "cut"},
    {MeterSign::UpperNumber, "single-number"},
};

MeterSign meterSignOf(pugi::xml_node time)
{
    if (std::strcmp(time.attribute("print-object").value(), "no") == 0)
        return MeterSign::Hidden;
    for (const auto &symbol : meterSymbols)
        if (std::strcmp(time.attribute("symbol").value(), symbol.name) == 0)
            return symbol.sign;
    return MeterSign::Numbers;
}

/// Number of the staff that an element is for, from 0; -1 when it is for all.
int staffOf(pugi::xml_node node)
{
    const auto number = node.attribute("number");
    return number ? std::clamp(number.as_int(1), 1, mostStaves) - 1 : -1;
}

WrittenStaff &staffAt(PartFacts &facts, int staff)
{
    const auto needed = static_cast<std::size_t>(std::max(staff, 0)) + 1;
    if (facts.staves.size() < needed)
        facts.staves.resize(needed);
    return facts.staves[needed - 1];
}

/// "3+2" is 5; nothing for what is no sum of positive numbers.
/// The terms of a sum such as "3+2"; none when it is no sum.
std::vector<unsigned> termsOf(std::string_view text)
{
    std::vector<unsigned> terms;
    for (std::size_t at = 0; at <= text.size();) {
        const auto end = std::min(text.find('+', at), text.size());
        const auto term = parseInteger(std::string(text.substr(at, end - at)).c_str());
        if (!term || *term < 1 || *term > 1000 || terms.size() >= BeamGroups::MaxGroups)
            return {};
        terms.push_back(static_cast<unsigned>(*term));
        at = end + 1;
    }
    return terms;
}

/// How the beams of a sum are grouped.
BeamGroups groupsOf(const std::vector<rational> &terms, unsigned unit)
{
    std::vector<std::uint8_t> groups;
    for (const auto &term : terms) {
        const auto units = (term * rational(unit) / rational(4)).numerator();
        if (units > BeamGroups::MaxGroup)
            return {};
        groups.push_back(static_cast<std::uint8_t>(units));
    }
    return groups.size() > 1 && BeamGroups::areGroups(groups) ? BeamGroups(std::move(groups))
                                                              : BeamGroups();
}

} // namespace

const char *symbolOf(MeterSign sign) noexcept
{
    for (const auto &symbol : meterSymbols)
        if (symbol.sign == sign)
            return symbol.name;
    return nullptr;
}

AttributesReader::AttributesReader(ImportContext &context, SourceTally &tally,
                                   StaffTranspositions &transpositions)
    : _context(context), _tally(tally), _transpositions(transpositions)
{
}

void AttributesReader::read(pugi::xml_node node, PartFacts &facts, MeasureTimeline &timeline)
{
    for (auto child = node.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Divisions:
            readDivisions(child, timeline);
            break;
        case Tag::Key:
            readKey(child, facts, timeline.exact());
            break;
        case Tag::Time:
            readTime(child, facts);
            break;
        case Tag::Staves:
            readStaves(child, facts);
            break;
        case Tag::Clef:
            readClef(child, facts, timeline.exact());
            break;
        case Tag::StaffDetails:
            readStaffDetails(child, facts);
            break;
        case Tag::Transpose:
            readTranspose(child);
            break;
        case Tag::MeasureStyle:
            readMeasureStyle(child, facts);
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
}

void AttributesReader::readStaves(pugi::xml_node node, PartFacts &facts)
{
    const int staves = _context.integer(node, 1);
    if (staves < 1 || staves > mostStaves)
        _context.addProblem(node,
                            "a part cannot have " + std::to_string(staves) + " staves; it has 1 to "
                                + std::to_string(mostStaves));
    staffAt(facts, std::clamp(staves, 1, mostStaves) - 1);
}

void AttributesReader::readDivisions(pugi::xml_node node, MeasureTimeline &timeline)
{
    const auto value = _context.decimal(node, timeline.divisions());
    if (value > utils::rational(0))
        timeline.setDivisions(value);
    else
        _context.addProblem(
            node, "divisions are not above 0; " + timeline.divisions().toString() + " was kept");
}

/// A key holds for whole bars: one that begins inside of a bar does from the next bar on.
void AttributesReader::readKey(pugi::xml_node node, PartFacts &facts, const rational &position)
{
    const auto fifthsNode = node.child("fifths");
    if (!fifthsNode) {
        ++_tally.keys["non-traditional"];
        _context.addProblem(node, "a key that is not counted in fifths was left out");
        return;
    }
    const auto mode = textOf(node, "mode");
    ++_tally.keys[std::string(fifthsNode.child_value()) + " "
                  + (mode.empty() ? "-" : std::string(mode))];
    const int fifths = std::clamp(_context.integer(fifthsNode, 0), -100, 100);
    if (fifths < -7 || fifths > 7)
        _context.addProblem(
            node, "a key of " + std::to_string(fifths) + " fifths was respelled within seven");
    if (!mode.empty() && mode != "major" && mode != "minor" && mode != "none")
        _context.addProblem(node,
                            "the mode \"" + std::string(mode) + "\" was read as major or minor");
    const bool minor = mode == "minor" || mode == "dorian" || mode == "phrygian"
        || mode == "aeolian" || mode == "locrian";
    if (const int staff = staffOf(node); staff > 0) {
        if (facts.keys.empty() || facts.keys.back().fifths != fifths)
            _context.addProblem(
                node, "a key of staff " + std::to_string(staff + 1) + " alone was left out");
        return;
    }
    const bool isInside = position > rational(0);
    const auto *const time = facts.times.empty() ? nullptr : &facts.times.back();
    if (isInside && !(time && !time->free && position == rational(4 * time->beats, time->unit)))
        _context.addProblem(node, "a key that begins inside of a bar holds from the next bar on");
    facts.keys.push_back({_context.bar() + (isInside ? 1 : 0), fifths, minor, node});
}

void AttributesReader::readTime(pugi::xml_node node, PartFacts &facts)
{
    if (node.child("senza-misura")) {
        ++_tally.times["senza-misura"];
        facts.times.push_back({_context.bar(), 0, 0, true, node});
        return;
    }
    std::string text;
    unsigned beats = 0;
    unsigned unit = 1;
    bool valid = true;
    std::vector<rational> terms; // in quarters
    for (auto child = node.child("beats"); child; child = child.next_sibling("beats")) {
        const auto type = child.next_sibling("beat-type");
        text +=
            (text.empty() ? "" : " ") + std::string(child.child_value()) + "/" + type.child_value();
        const auto written = termsOf(child.child_value());
        const auto denominator = parseInteger(type.child_value());
        const bool isUnit = denominator && *denominator >= 1 && *denominator <= 256
            && (*denominator & (*denominator - 1)) == 0;
        if (written.empty() || !isUnit || terms.size() + written.size() > BeamGroups::MaxGroups) {
            valid = false;
            continue;
        }
        const auto common = std::max(unit, static_cast<unsigned>(*denominator));
        const auto sum = std::accumulate(written.begin(), written.end(), 0U);
        beats = beats * (common / unit) + sum * (common / static_cast<unsigned>(*denominator));
        unit = common;
        for (const auto term : written)
            terms.emplace_back(4 * static_cast<std::int64_t>(term), *denominator);
    }
    ++_tally.times[text];
    if (!valid || beats == 0 || beats > 1000) {
        _context.addProblem(node, "the time signature \"" + text + "\" was left out");
        return;
    }
    if (terms.size() > 1)
        _context.addProblem(node,
                            "the time signature " + text + " was summed to " + std::to_string(beats)
                                + "/" + std::to_string(unit));
    if (const int staff = staffOf(node); staff > 0) {
        if (facts.times.empty() || facts.times.back().beats != beats
            || facts.times.back().unit != unit)
            _context.addProblem(node,
                                "a time signature of staff " + std::to_string(staff + 1)
                                    + " alone was left out");
        return;
    }
    facts.times.push_back(
        {_context.bar(), beats, unit, false, node, groupsOf(terms, unit), meterSignOf(node)});
}

void AttributesReader::readClef(pugi::xml_node node, PartFacts &facts,
                                const utils::rational &position)
{
    const auto sign = textOf(node, "sign");
    const auto line = textOf(node, "line");
    const auto shift = node.child("clef-octave-change");
    auto name = std::string(sign) + std::string(line);
    ++_tally.clefs[name + (shift ? "/" + std::string(shift.child_value()) : "")];

    const int staff = std::max(staffOf(node), 0);
    WrittenClef clef = {_context.bar(), staff, position, ClefType::G2, Ottavia::None, false};
    if (sign == "TAB") {
        const auto &written = staffAt(facts, staff);
        if (!written.tablature && written.notesFrom < clef.bar) {
            _context.addProblem(node, "a TAB clef on a staff that began with notes was left out");
            return;
        }
        clef.tablature = true;
        staffAt(facts, staff).tablature = true;
    } else if (sign == "percussion" || sign == "none") {
        clef.clef = ClefType::Neutral;
    } else if (line.empty() && (sign == "G" || sign == "F" || sign == "C")) {
        clef.clef = sign == "G" ? ClefType::G2 : sign == "F" ? ClefType::F4 : ClefType::C3;
    } else if (name == "G2" || name == "F4" || name == "C3" || name == "C4") {
        clef.clef = clefFromString(name);
    } else {
        clef.clef = sign == "F" ? ClefType::F4 : sign == "C" ? ClefType::C3 : ClefType::G2;
        _context.addProblem(node,
                            "the clef " + name + " was replaced by " + clefToString(clef.clef));
    }
    if (shift) {
        const int octaves = _context.integer(shift, 0);
        constexpr Ottavia signs[] = {Ottavia::_15mb, Ottavia::_8vb, Ottavia::None, Ottavia::_8va,
                                     Ottavia::_15ma};
        clef.ottavia = signs[std::clamp(octaves, -2, 2) + 2];
    }
    if (auto &written = staffAt(facts, staff); !clef.tablature)
        written.notesFrom = std::min(written.notesFrom, clef.bar);
    facts.clefs.push_back(clef);
}

void AttributesReader::readStaffDetails(pugi::xml_node node, PartFacts &facts)
{
    auto &staff = staffAt(facts, staffOf(node));
    const bool known = !staff.tuning.empty();
    std::vector<std::optional<int>> strings;
    for (auto child = node.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::StaffLines:
            staff.lines = std::clamp(_context.integer(child, 5), 0, mostStrings);
            break;
        case Tag::Capo:
            staff.capo = std::clamp(_context.integer(child, 0), 0, 255);
            break;
        case Tag::StaffTuning: {
            constexpr int semitones[] = {9, 11, 0, 2, 4, 5, 7}; // A to G
            const auto step = textOf(child, "tuning-step");
            const auto octave = parseInteger(child.child_value("tuning-octave"));
            const int line = child.attribute("line").as_int();
            const auto alter = parseDecimal(child.child_value("tuning-alter"));
            if (step.size() != 1 || step[0] < 'A' || step[0] > 'G' || !octave || line < 1
                || line > mostStrings) {
                _context.addProblem(child, "a string's tuning cannot be read and was left out");
                break;
            }
            if (strings.size() < static_cast<std::size_t>(line))
                strings.resize(static_cast<std::size_t>(line));
            strings[static_cast<std::size_t>(line) - 1] = 12 * (std::clamp(*octave, -1, 10) + 1)
                + semitones[step[0] - 'A'] + static_cast<int>(alter ? alter->round() : 0);
            break;
        }
        default:
            if (std::strcmp(child.name(), "staff-type") == 0
                && std::strcmp(child.child_value(), "alternate") == 0)
                staff.alternate = true;
            else
                _context.addUnheld(child, tag);
        }
    }
    if (strings.empty())
        return;
    std::vector<int> tuning;
    for (const auto &string : strings) {
        if (!string) {
            _context.addProblem(node, "the tuning leaves out a string; it was not used");
            return;
        }
        tuning.push_back(*string);
    }
    if (known && tuning != staff.tuning)
        _context.addProblem(node, "the tuning changes; the first one was kept");
    else
        staff.tuning = std::move(tuning);
}

void AttributesReader::readMeasureStyle(pugi::xml_node node, PartFacts &facts)
{
    for (auto child = node.first_child(); child; child = child.next_sibling()) {
        if (const auto tag = tagOf(child.name()); tag != Tag::MeasureRepeat) {
            _context.addUnheld(child, tag);
            continue;
        }
        const bool ends = std::strcmp(child.attribute("type").value(), "stop") == 0;
        const int count = ends ? 0 : _context.integer(child, 1);
        if (!ends && count != 1 && count != 2)
            _context.addUnheld(child);
        else if (_context.bar() < count)
            _context.addProblem(child,
                                "a sign that repeats bars has none before it and was left out");
        else
            facts.measureRepeats.push_back({_context.bar(), staffOf(node), count, child});
    }
}

void AttributesReader::readTranspose(pugi::xml_node node)
{
    const auto number = [&](const char *name) {
        const auto child = node.child(name);
        return child ? static_cast<int>(_context.decimal(child, 0).round()) : 0;
    };
    const int octaves = std::clamp(number("octave-change"), -10, 10);
    const int chromatic = std::clamp(number("chromatic"), -60, 60) + 12 * octaves;
    const int diatonic = number("diatonic") + 7 * octaves;
    if (const auto twice = node.child("double"))
        _context.addUnheld(twice);
    _transpositions.set(staffOf(node), chromatic, diatonic);
}

} // namespace zarn::io
