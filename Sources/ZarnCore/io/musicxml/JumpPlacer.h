// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/io/musicxml/TrackBuilder.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <string>
#include <vector>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

class ImportContext;

/// Puts the segnos, codas and jumps of all parts into the slots of a master track. A slot holds one
/// bar: what comes later for the same slot is reported, and its words become those of a beat.
class JumpPlacer {
public:
    /// `bars` are those of the staves of all parts.
    JumpPlacer(ImportContext &context, MasterTrack &master, const std::vector<StaffBars> &bars);

    /// The movements are known by then.
    void place(const std::vector<PartFacts> &parts);

private:
    struct Target {
        int bar;
        std::string name;
    };

    void placeTargets(const std::vector<WrittenJump> &jumps, WrittenJump::Kind kind,
                      std::vector<Target> &targets);
    void placeJump(const WrittenJump &jump);
    int targetNumber(const std::vector<Target> &targets, const WrittenJump &jump) const;
    void set(DirectionMark mark, const WrittenJump &jump);
    bool keepWords(const WrittenJump &jump);

    ImportContext &_context;
    MasterTrack &_master;
    const std::vector<StaffBars> &_bars;
    std::vector<Target> _segnos;
    std::vector<Target> _codas;
};

} // namespace zarn::io
