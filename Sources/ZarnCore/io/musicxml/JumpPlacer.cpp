// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/JumpPlacer.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/JumpWords.h>
#include <ZarnCore/io/musicxml/signs/LevelWords.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>
#include <iterator>
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
    for (std::size_t part = 0; part < parts.size(); ++part) {
        for (const auto &jump : parts[part].jumps)
            if (told.count({jump.bar, jump.kind}) == 0)
                jumps.emplace_back(jump).part = static_cast<int>(part);
        for (const auto &jump : parts[part].jumps)
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

JumpPlacer::JumpPlacer(ImportContext &context, MasterTrack &master,
                       const std::vector<StaffBars> &bars)
    : _context(context), _master(master), _bars(bars)
{
}

void JumpPlacer::place(const std::vector<PartFacts> &parts)
{
    const auto jumps = merged(parts);
    placeTargets(jumps, Kind::Segno, _segnos);
    placeTargets(jumps, Kind::Coda, _codas);
    for (const auto &jump : jumps)
        placeJump(jump);
}

void JumpPlacer::placeTargets(const std::vector<WrittenJump> &jumps, Kind kind,
                              std::vector<Target> &targets)
{
    const bool segno = kind == Kind::Segno;
    for (const auto &jump : jumps) {
        if (jump.kind != kind)
            continue;
        const char *const secondName = segno ? segnoNames[1] : codaNames[1];
        // A first one that is called the second leaves its own place free.
        if (jump.name == secondName && targets.empty())
            targets.push_back({-1, {}});
        const bool second =
            !targets.empty() && (targets.front().bar >= 0 || jump.name == secondName);
        if (!second && !targets.empty())
            targets.front() = {jump.bar, jump.name};
        else if (targets.size() < 2)
            targets.push_back({jump.bar, jump.name});
        if (segno)
            set(second ? DirectionMark::SegnoSegno : DirectionMark::Segno, jump);
        else
            set(second ? DirectionMark::DoubleCoda : DirectionMark::Coda, jump);
    }
}

/// 0 for the first target, 1 for the second: the one that the jump names, also where the score has
/// the other one of the two alone; else the first one in the movement of the jump.
int JumpPlacer::targetNumber(const std::vector<Target> &targets, const WrittenJump &jump) const
{
    const auto movementOf = [&](int bar) {
        return _master.movementStart(static_cast<unsigned>(bar));
    };
    auto found = std::find_if(targets.begin(), targets.end(), [&](const Target &target) {
        return !jump.name.empty() && target.name == jump.name;
    });
    const bool isSecond = jump.name == segnoNames[1] || jump.name == codaNames[1];
    const bool isMissing = isSecond
        || ((jump.name == segnoNames[0] || jump.name == codaNames[0]) && !targets.empty()
            && targets.front().bar < 0);
    if (found == targets.end() && !isMissing)
        found = std::find_if(targets.begin(), targets.end(), [&](const Target &target) {
            return target.bar >= 0 && movementOf(target.bar) == movementOf(jump.bar);
        });
    if (found == targets.end())
        return isSecond ? 1 : 0;
    return found != targets.begin() ? 1 : 0;
}

void JumpPlacer::placeJump(const WrittenJump &jump)
{
    switch (jump.kind) {
    case Kind::Segno:
    case Kind::Coda:
        break;
    case Kind::Fine:
        set(DirectionMark::Fine, jump);
        break;
    case Kind::DaCapo:
        set(daCapo(jump.until), jump);
        break;
    case Kind::DalSegno:
        set(dalSegno(jump.until, targetNumber(_segnos, jump) == 1), jump);
        break;
    case Kind::ToCoda:
        set(targetNumber(_codas, jump) == 1 ? DirectionMark::DaDoubleCoda : DirectionMark::DaCoda,
            jump);
        break;
    }
}

void JumpPlacer::set(DirectionMark mark, const WrittenJump &jump)
{
    if (_master.directionIndex(mark) < 0) {
        _master.setDirection(static_cast<int>(mark), jump.bar);
        return;
    }
    const bool isKept = keepWords(jump);
    _context.addProblemInBar(jump.bar, jump.node,
                             "a further " + directionMarkToQString(mark).toStdString()
                                 + (isKept ? " was made words" : " was left out")
                                 + "; a score has one of each kind");
}

/// Over the beat that it stands in front of, or the last one before it.
bool JumpPlacer::keepWords(const WrittenJump &jump)
{
    const auto words = plainJumpWords(jump.words);
    const auto &staves = _bars[static_cast<std::size_t>(jump.part)];
    const auto staff = std::min(static_cast<std::size_t>(jump.staff), staves.size() - 1);
    Beat *after = nullptr;
    Beat *before = nullptr;
    utils::rational earliest;
    utils::rational latest;
    for (const auto &voice : staves[staff][static_cast<std::size_t>(jump.bar)]->voices()) {
        utils::rational onset;
        if (!voice)
            continue;
        for (const auto &beat : voice->beats()) {
            if (onset >= jump.position && (!after || onset < earliest)) {
                after = beat.get();
                earliest = onset;
            } else if (onset < jump.position && (!before || onset > latest)) {
                before = beat.get();
                latest = onset;
            }
            onset += beat->length();
        }
    }
    auto *const beat = after ? after : before;
    if (!beat || words.empty())
        return false;
    beat->setText(joinedWords(beat->text(), words));
    return true;
}

} // namespace zarn::io
