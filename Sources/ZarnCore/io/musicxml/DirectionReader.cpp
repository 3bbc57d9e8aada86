// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/DirectionReader.h>

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/io/musicxml/HarmonyText.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/JumpWords.h>
#include <ZarnCore/io/musicxml/MeasureTimeline.h>
#include <ZarnCore/io/musicxml/Metronome.h>
#include <ZarnCore/io/musicxml/Movements.h>
#include <ZarnCore/io/musicxml/signs/LevelWords.h>
#include <ZarnCore/io/musicxml/signs/Placement.h>
#include <ZarnCore/io/musicxml/signs/Swings.h>
#include <ZarnCore/music/ZarnNoteDynamic.h>

#include <QString>

#include <algorithm>
#include <string_view>

namespace zarn::io {

using utils::rational;

namespace {

rational positionOf(pugi::xml_node node, const MeasureTimeline &timeline, ImportContext &context)
{
    const auto offset = node.child("offset");
    if (!offset)
        return timeline.exact();
    return std::max(rational(0),
                    timeline.exact() + context.decimal(offset, 0) / timeline.divisions());
}

int staffOf(pugi::xml_node node, ImportContext &context)
{
    const auto staff = node.child("staff");
    return staff ? std::max(context.integer(staff, 1), 1) - 1 : 0;
}

/// Bytes of a rehearsal mark that is a letter, where nothing around it tells; a longer one is a
/// title.
constexpr std::size_t longestLetter = 3;

/// Whether words follow others without a space: what ends in one, and the letters of an ordinal,
/// which are small and high.
bool areOneWord(const std::string &text, const std::string &next)
{
    const QString left = QString::fromStdString(text);
    const QString right = QString::fromStdString(next);
    const bool isNumber =
        std::all_of(left.begin(), left.end(), [](QChar letter) { return letter.isDigit(); });
    return left.back().isSpace() || right.front().isSpace()
        || (isNumber && right.front().isLower());
}

/// The words of a direction, and its metronome mark among them where that is to be words too.
std::string joined(const std::vector<pugi::xml_node> &texts, bool withMetronome)
{
    std::string text;
    for (const auto node : texts) {
        const bool isMetronome = tagOf(node.name()) == Tag::Metronome;
        if (isMetronome && !withMetronome)
            continue;
        const auto mark = isMetronome ? readMetronome(node) : std::nullopt;
        const std::string part = mark ? mark->text() : node.child_value();
        const bool isNext = !text.empty() && !part.empty();
        text += (isNext && !areOneWord(text, part) ? " " : "") + part;
    }
    return text;
}

bool beginsLine(pugi::xml_node direction)
{
    for (const auto type : direction.children("direction-type"))
        if (type.child("dashes") || type.child("bracket"))
            return true;
    return false;
}

/// Bold words over the first staff speak of the tempo, also where nothing sounds otherwise: "Nicht
/// eilen". Those that a line continues are words of their beats.
bool areTempoWords(pugi::xml_node direction, const std::vector<pugi::xml_node> &texts)
{
    const auto isBold = [](pugi::xml_node words) {
        return std::string_view(words.attribute("font-weight").value()) == "bold";
    };
    const auto next = direction.next_sibling();
    return std::all_of(texts.begin(), texts.end(), isBold)
        && std::string_view(direction.attribute("placement").value()) != "below"
        && !beginsLine(direction) && !(tagOf(next.name()) == Tag::Direction && beginsLine(next));
}

/// Of an element of <dynamics>; 0 or less for what is none.
int levelOf(pugi::xml_node element)
{
    std::string name = element.name();
    for (auto &letter : name)
        letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    return name == "NONE" ? -1 : NoteDynamic::stringToInt(name);
}

/// The side of a level that words stand on: of one in the same <dynamics>, or else of one before.
LevelSide sideOfLevel(pugi::xml_node words)
{
    const auto isLevel = [](pugi::xml_node element) {
        return levelOf(element) > 0
            || attackDynamicFromString(element.name()) != AttackDynamic::None
            || NoteDynamic::stringToInt(element.child_value()) > 0;
    };
    for (auto before = words.previous_sibling(); before; before = before.previous_sibling())
        if (isLevel(before))
            return LevelSide::After;
    for (auto after = words.next_sibling(); after; after = after.next_sibling())
        if (isLevel(after))
            return LevelSide::Before;
    return LevelSide::After;
}

} // namespace

void DirectionReader::readDirection(pugi::xml_node node, const MeasureTimeline &timeline,
                                    PartFacts &facts, WrittenMeasure &measure)
{
    const auto position = positionOf(node, timeline, _context);
    const int staff = staffOf(node, _context);
    Gathered gathered;
    for (auto child = node.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::DirectionType:
            gather(child, gathered, facts, position, staff, measure);
            break;
        case Tag::Sound:
            gathered.sound = child;
            readSwing(child, facts);
            break;
        case Tag::Offset:
        case Tag::Staff:
        case Tag::Voice:
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
    const auto words = joined(gathered.texts, false);
    const bool isTempo = readTempo(gathered, words, position, facts);
    const bool isJump = readJumps(gathered, isTempo ? std::string() : words, facts);
    if (isMovementTitle(words))
        facts.movementTitles.push_back(_context.bar());
    if (words.empty() || isTempo || isJump)
        return;
    if (_context.part() != 0 || staff != 0 || !areTempoWords(node, gathered.texts)) {
        auto &mark = measure.addMark(node, WrittenMark::Kind::Text, position, staff);
        mark.text = words;
        mark.side = sideOf(gathered.texts.front());
        return;
    }
    WrittenTempo tempo = {_context.bar(), position};
    tempo.tempo.unit = TempoUnit::None;
    tempo.text = words;
    tempo.visible = true;
    tempo.node = node;
    facts.tempos.push_back(std::move(tempo));
}

void DirectionReader::gather(pugi::xml_node type, Gathered &gathered, PartFacts &facts,
                             const rational &position, int staff, WrittenMeasure &measure)
{
    for (auto child = type.first_child(); child; child = child.next_sibling()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Words:
            gathered.texts.push_back(child);
            break;
        case Tag::Rehearsal:
            readRehearsal(child, position, staff, facts, measure);
            break;
        case Tag::Segno:
        case Tag::Coda:
            gathered.signs.push_back(child);
            break;
        case Tag::Metronome:
            gathered.metronome = child;
            gathered.texts.push_back(child);
            break;
        case Tag::Dynamics:
            readDynamics(child, position, staff, measure);
            break;
        case Tag::OctaveShift:
            readOctaveShift(child, position, staff, measure);
            break;
        case Tag::Wedge:
        case Tag::Pedal:
        case Tag::Dashes:
        case Tag::Bracket:
            measure.spans.push_back({child, tag, position, staff, measure.notes.size()});
            break;
        default:
            _context.addUnheld(child, tag);
        }
    }
}

/// A bar begins one section, under a letter, a title, or both where they stand together. Further
/// marks stay where they are, as words over their beats.
void DirectionReader::readRehearsal(pugi::xml_node rehearsal, const rational &position, int staff,
                                    PartFacts &facts, WrittenMeasure &measure)
{
    const std::string text = rehearsal.child_value();
    if (text.empty())
        return;
    const int bar = _context.bar();
    const std::string_view enclosure = rehearsal.attribute("enclosure").value();
    const bool isCircled = enclosure == "circle" || enclosure == "oval";
    const bool isBoxed = isCircled || enclosure == "rectangle";
    const bool isBare = enclosure == "none";
    bool hasLetter = false;
    bool hasTitle = false;
    bool isElsewhere = false;
    for (auto other = facts.sections.rbegin(); other != facts.sections.rend() && other->bar == bar;
         ++other) {
        const bool isAlike = other->isLetter ? !isBare : !isBoxed;
        if (isAlike && other->text == text && other->position == position)
            return; // Each staff of a part may say it.
        (other->isLetter ? hasLetter : hasTitle) = true;
        isElsewhere = isElsewhere || other->position != position;
    }
    const bool isLetter = isBoxed || (!isBare && text.size() <= longestLetter && !hasLetter);
    if (isElsewhere || (isLetter ? hasLetter : hasTitle)) {
        measure.addMark(rehearsal, WrittenMark::Kind::Text, position, staff).text = text;
        _context.addProblem(rehearsal,
                            "a further rehearsal mark in the bar is kept as words over its beat");
    } else {
        facts.sections.push_back({bar, text, isLetter, isCircled, position});
    }
}

void DirectionReader::readSound(pugi::xml_node node, const MeasureTimeline &timeline,
                                PartFacts &facts)
{
    Gathered gathered;
    gathered.sound = node;
    readTempo(gathered, {}, positionOf(node, timeline, _context), facts);
    readJumps(gathered, {}, facts);
    readSwing(node, facts);
}

void DirectionReader::readSwing(pugi::xml_node sound, PartFacts &facts)
{
    for (const auto child : sound.children()) {
        const auto tag = tagOf(child.name());
        const auto feel = tag == Tag::Swing ? swingOf(child) : std::nullopt;
        if (feel)
            facts.swings.push_back({_context.bar(), *feel});
        else
            _context.addUnheld(child, tag);
    }
}

void DirectionReader::readHarmony(pugi::xml_node node, const MeasureTimeline &timeline,
                                  WrittenMeasure &measure)
{
    const auto position = positionOf(node, timeline, _context);
    auto text = harmonyText(node, _context);
    auto diagram = readFrame(node.child(tagName(Tag::Frame)), text, _context);
    if (text.empty() && !diagram)
        return;
    auto &mark =
        measure.addMark(node, WrittenMark::Kind::ChordSymbol, position, staffOf(node, _context));
    mark.text = std::move(text);
    mark.diagram = std::move(diagram);
}

void DirectionReader::readDynamics(pugi::xml_node node, const rational &position, int staff,
                                   WrittenMeasure &measure)
{
    const auto addLevel = [&](WrittenMark::Kind kind, int value) {
        auto &mark = measure.addMark(node, kind, position, staff);
        mark.value = value;
        mark.side = sideOf(node);
    };
    for (auto child = node.first_child(); child; child = child.next_sibling()) {
        const int value = levelOf(child);
        const auto attack = value > 0 ? AttackDynamic::None : attackDynamicFromString(child.name());
        if (attack != AttackDynamic::None)
            addLevel(WrittenMark::Kind::Attack, static_cast<int>(attack));
        else if (value <= 0 && *child.child_value() != 0
                 && tagOf(child.name()) == Tag::OtherDynamics)
            readOtherDynamics(child, position, staff, measure);
        else if (value > 0)
            addLevel(WrittenMark::Kind::Dynamic, value);
        else
            _context.addUnheld(child);
    }
}

/// What is no level, such as "subito", is words over the beat, tied to the level beside it.
void DirectionReader::readOtherDynamics(pugi::xml_node other, const rational &position, int staff,
                                        WrittenMeasure &measure)
{
    const auto node = other.parent();
    const std::string text = other.child_value();
    const bool isAlone = !other.previous_sibling() && !other.next_sibling();
    const int value = NoteDynamic::stringToInt(text);
    if (value <= 0 && text.empty())
        return;
    auto &mark = measure.addMark(
        node, value > 0 ? WrittenMark::Kind::Dynamic : WrittenMark::Kind::Text, position, staff);
    mark.side = sideOf(node);
    mark.value = value;
    if (value <= 0)
        mark.text = isAlone && areLikeLevel(text) ? text : tiedToLevel(text, sideOfLevel(other));
}

void DirectionReader::readOctaveShift(pugi::xml_node node, const rational &position, int staff,
                                      WrittenMeasure &measure)
{
    const std::string_view type = node.attribute("type").value();
    const int size = node.attribute("size").as_int(8);
    // "down" means that the notes stand lower than they sound.
    const bool down = type == "down";
    auto sign = Ottavia::None;
    if (type == "continue")
        return;
    if ((down || type == "up") && (size == 8 || size == 15)) {
        sign = size == 8 ? (down ? Ottavia::_8va : Ottavia::_8vb)
                         : (down ? Ottavia::_15ma : Ottavia::_15mb);
    } else if (type != "stop") {
        _context.addUnheld(node, Tag::OctaveShift);
        return;
    }
    measure.addMark(node, WrittenMark::Kind::Ottava, position, staff).value =
        static_cast<int>(sign);
}

/// A score has one number for the tempo, which is what sounds: a mark that says another one, or
/// that two notes are equal, is words. Words without a mark that can be seen show no number.
bool DirectionReader::readTempo(const Gathered &gathered, const std::string &words,
                                const rational &position, PartFacts &facts)
{
    const auto mark = readMetronome(gathered.metronome);
    const auto decimal = parseDecimal(gathered.sound.attribute("tempo").value());
    const double sounding = decimal ? decimal->toDouble() : 0;
    if (!mark && gathered.metronome)
        _context.addUnheld(gathered.metronome);
    if (!mark && sounding <= 0)
        return false;
    const bool isHidden =
        std::string_view(gathered.metronome.attribute("print-object").value()) == "no";
    const bool isWords =
        mark && !isHidden && (mark->equal || (sounding > 0 && !tellsTempo(*mark, sounding)));
    WrittenTempo tempo = {_context.bar(), position};
    tempo.node = gathered.metronome ? gathered.metronome : gathered.sound;
    tempo.text = isWords ? joined(gathered.texts, true) : words;
    tempo.visible = !words.empty() || (mark && !isHidden);
    if (mark && tempoOf(*mark) && (sounding <= 0 || tellsTempo(*mark, sounding)))
        tempo.tempo = *tempoOf(*mark);
    else if (sounding > 0)
        tempo.tempo = {sounding, TempoUnit::Quarter};
    else
        tempo.factor = mark->factor();
    if (tempo.visible && (!mark || isHidden))
        tempo.tempo = {quartersOf(tempo.tempo), TempoUnit::None};
    facts.tempos.push_back(std::move(tempo));
    return true;
}

/// Words beside the sound of a jump are what it reads as, whatever they are.
bool DirectionReader::readJumps(const Gathered &gathered, const std::string &words,
                                PartFacts &facts)
{
    using Kind = WrittenJump::Kind;
    const auto add = [&](Kind kind, WrittenJump::Until until, const char *name,
                         pugi::xml_node node) {
        facts.jumps.push_back({_context.bar(), kind, until, name, node});
    };
    const auto sound = gathered.sound;
    // A sign beside the words of a jump says where this leads to. Music fonts have them by SMuFL.
    constexpr const char *segnoSign = "\uE047";
    constexpr const char *codaSign = "\uE048";
    std::string signs;
    for (const auto sign : gathered.signs) {
        const bool isSegno = tagOf(sign.name()) == Tag::Segno;
        const bool isHere = static_cast<bool>(sound.attribute(isSegno ? "segno" : "coda"));
        if (!isHere && sound.attribute(isSegno ? "dalsegno" : "tocoda"))
            signs = isSegno ? segnoSign : codaSign;
        else if (isSegno)
            add(Kind::Segno, {}, sound.attribute("segno").value(), sign);
        else
            add(Kind::Coda, {}, sound.attribute("coda").value(), sign);
    }
    if (gathered.signs.empty()) {
        if (const auto segno = sound.attribute("segno"))
            add(Kind::Segno, {}, segno.value(), sound);
        if (const auto coda = sound.attribute("coda"))
            add(Kind::Coda, {}, coda.value(), sound);
    }
    const auto spoken = jumpOfWords(words);
    const auto until = spoken ? spoken->until : WrittenJump::Until::End;
    bool sounds = false;
    const auto addSound = [&](const char *attribute, Kind kind) {
        if (const auto name = sound.attribute(attribute)) {
            add(kind, until, kind == Kind::DaCapo || kind == Kind::Fine ? "" : name.value(), sound);
            sounds = true;
        }
    };
    addSound("dacapo", Kind::DaCapo);
    addSound("dalsegno", Kind::DalSegno);
    addSound("tocoda", Kind::ToCoda);
    addSound("fine", Kind::Fine);
    if (!sounds && spoken && gathered.signs.empty()) {
        add(spoken->kind, spoken->until, "", gathered.texts.front());
        sounds = true;
    }
    if (!sounds || words.empty())
        return false;
    auto &text = facts.jumps.back().words =
        _context.fewWords(gathered.texts.front(), signs.empty() ? words : words + ' ' + signs);
    std::replace(text.begin(), text.end(), '\n', ' ');
    return true;
}

} // namespace zarn::io
