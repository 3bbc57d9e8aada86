// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/JumpPlacer.h>

#include <ZarnCore/io/musicxml/JumpWords.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/form/ZarnFormWords.h>

#include <algorithm>
#include <set>
#include <utility>

namespace zarn::io {

namespace {

using Kind = WrittenJump::Kind;
using Until = WrittenJump::Until;

/// The jumps of all parts in the order of the bars; a sign that several parts repeat stands once,
/// as the first of them has it.
std::vector<WrittenJump> merged(const std::vector<PartFacts> &parts)
{
    std::set<std::pair<int, Kind>> told;
    std::vector<WrittenJump> jumps;
    for (const auto &part : parts) {
        for (const auto &jump : part.jumps)
            if (told.count({jump.bar, jump.kind}) == 0)
                jumps.push_back(jump);
        for (const auto &jump : part.jumps)
            told.insert({jump.bar, jump.kind});
    }
    std::stable_sort(jumps.begin(), jumps.end(), [](const WrittenJump &a, const WrittenJump &b) {
        return a.bar != b.bar ? a.bar < b.bar : a.kind < b.kind;
    });
    const auto same = [](const WrittenJump &a, const WrittenJump &b) {
        return a.bar == b.bar && a.kind == b.kind && a.until == b.until && a.name == b.name;
    };
    jumps.erase(std::unique(jumps.begin(), jumps.end(), same), jumps.end());
    return jumps;
}

DirectionMark daCapo(Until until)
{
    return until == Until::Fine      ? DirectionMark::DaCapoAlFine
        : until == Until::Coda       ? DirectionMark::DaCapoAlCoda
        : until == Until::DoubleCoda ? DirectionMark::DaCapoAlDoubleCoda
                                     : DirectionMark::DaCapo;
}

DirectionMark dalSegno(Until until, bool second)
{
    if (until == Until::Fine)
        return second ? DirectionMark::DaSegnoSegnoAlFine : DirectionMark::DaSegnoAlFine;
    if (until == Until::Coda)
        return second ? DirectionMark::DaSegnoSegnoAlCoda : DirectionMark::DaSegnoAlCoda;
    if (until == Until::DoubleCoda)
        return second ? DirectionMark::DaSegnoSegnoAlDoubleCoda
                      : DirectionMark::DaSegnoAlDoubleCoda;
    return second ? DirectionMark::DaSegnoSegno : DirectionMark::DaSegno;
}

} // namespace

void JumpPlacer::place(const std::vector<PartFacts> &parts)
{
    const auto jumps = merged(parts);
    _segnos = placeTargets(jumps, Kind::Segno);
    _codas = placeTargets(jumps, Kind::Coda);
    std::map<int, std::map<DirectionMark, std::string>> words;
    for (const auto &jump : jumps) {
        if (jump.kind == Kind::Segno || jump.kind == Kind::Coda)
            continue;
        const auto mark = markOf(jump);
        set(mark, jump.bar);
        words[jump.bar].emplace(mark, jump.words);
    }
    for (const auto &[bar, ofBar] : words)
        setWords(bar, ofBar);
}

JumpPlacer::Targets JumpPlacer::placeTargets(const std::vector<WrittenJump> &jumps, Kind kind)
{
    const bool isSegno = kind == Kind::Segno;
    const auto &names = isSegno ? segnoNames : codaNames;
    std::set<std::string> wanted;
    for (const auto &jump : jumps)
        if (jump.kind == (isSegno ? Kind::DalSegno : Kind::ToCoda))
            wanted.insert(jump.name);
    Targets targets;
    for (const auto &jump : jumps) {
        if (jump.kind != kind)
            continue;
        const bool isOther = !targets.empty() && jump.name != targets.front().name;
        const bool isNamed = !jump.name.empty() && wanted.count(jump.name) != 0;
        const bool isSecond = jump.name == names[1]
            || (isOther && isNamed && jump.name != names[0] && !targets.front().isSecond);
        targets.push_back({jump.bar, jump.name, isSecond});
        if (isSegno)
            set(isSecond ? DirectionMark::SegnoSegno : DirectionMark::Segno, jump.bar);
        else
            set(isSecond ? DirectionMark::DoubleCoda : DirectionMark::Coda, jump.bar);
    }
    return targets;
}

/// The target that the jump names, also where the score has the other one of the two alone; else
/// the first one in the movement of the jump.
bool JumpPlacer::leadsToSecond(const Targets &targets, const WrittenJump &jump) const
{
    if (jump.name == segnoNames[1] || jump.name == codaNames[1])
        return true;
    if (jump.name == segnoNames[0] || jump.name == codaNames[0])
        return false;
    const auto movementOf = [&](int bar) {
        return _master.movementStart(static_cast<unsigned>(bar));
    };
    auto found = std::find_if(targets.begin(), targets.end(), [&](const Target &target) {
        return !jump.name.empty() && target.name == jump.name;
    });
    if (found == targets.end())
        found = std::find_if(targets.begin(), targets.end(), [&](const Target &target) {
            return movementOf(target.bar) == movementOf(jump.bar);
        });
    return found != targets.end() && found->isSecond;
}

DirectionMark JumpPlacer::markOf(const WrittenJump &jump) const
{
    switch (jump.kind) {
    case Kind::DaCapo:
        return daCapo(jump.until);
    case Kind::DalSegno:
        return dalSegno(jump.until, leadsToSecond(_segnos, jump));
    case Kind::ToCoda:
        return leadsToSecond(_codas, jump) ? DirectionMark::DaDoubleCoda : DirectionMark::DaCoda;
    default:
        return DirectionMark::Fine;
    }
}

void JumpPlacer::set(DirectionMark mark, int bar)
{
    const int first = _master.directionIndex(mark);
    if (first < 0) {
        _master.setDirection(static_cast<int>(mark), bar);
    } else if (first != bar) {
        auto &column = *_master.masterBars()[static_cast<std::size_t>(bar)];
        column.setFurtherDirections(column.furtherDirections() | directionBit(mark));
    }
}

void JumpPlacer::setWords(int bar, const std::map<DirectionMark, std::string> &words)
{
    std::vector<EndDirection> directions;
    for (const auto &[mark, text] : words)
        directions.push_back({mark, text.empty() ? directionWords(mark) : text});
    _master.masterBars()[static_cast<std::size_t>(bar)]->setJumpText(jumpTextOf(directions));
}

} // namespace zarn::io
