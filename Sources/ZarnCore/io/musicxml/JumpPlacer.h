// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <string>
#include <vector>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

class ImportContext;

/// Puts the segnos, codas and jumps of all parts into the slots of a master track. A slot holds one
/// bar: what comes later for the same slot is reported.
class JumpPlacer {
public:
    JumpPlacer(ImportContext &context, MasterTrack &master);

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

    ImportContext &_context;
    MasterTrack &_master;
    std::vector<Target> _segnos;
    std::vector<Target> _codas;
};

} // namespace zarn::io
