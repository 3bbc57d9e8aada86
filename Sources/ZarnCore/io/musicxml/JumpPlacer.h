// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

/// Puts the segnos, codas and jumps of all parts into a master track: the first of each kind into
/// its slot, those that follow into their bars. A segno or a coda is the second one, which jumps of
/// their own lead to, where a jump names it and another stands before it.
class JumpPlacer {
public:
    explicit JumpPlacer(MasterTrack &master) : _master(master) { }

    /// The movements are known by then.
    void place(const std::vector<PartFacts> &parts);

private:
    struct Target {
        int bar;
        std::string name;
        bool isSecond;
    };
    using Targets = std::vector<Target>;

    Targets placeTargets(const std::vector<WrittenJump> &jumps, WrittenJump::Kind kind);
    bool leadsToSecond(const Targets &targets, const WrittenJump &jump) const;
    DirectionMark markOf(const WrittenJump &jump) const;
    void set(DirectionMark mark, int bar);
    void setWords(int bar, const std::map<DirectionMark, std::string> &words);

    MasterTrack &_master;
    Targets _segnos;
    Targets _codas;
};

} // namespace zarn::io
