// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnSourceTally.h>
#include <ZarnCore/io/musicxml/PartFacts.h>

#include <vector>

namespace zarn {
class MasterTrack;
class TempoAutomation;
} // namespace zarn

namespace zarn::io {

class ImportContext;

/// Makes the master bars from what the parts say: where they differ, one is taken and the others
/// are reported.
class MasterBarBuilder {
public:
    MasterBarBuilder(ImportContext &context, const std::vector<PartFacts> &parts,
                     const std::vector<PartTally> &tallies);

    /// Fills an empty master track with `barCount` bars.
    void build(MasterTrack &master, unsigned barCount);

private:
    /// A key that a part asks for, at concert pitch.
    struct ConcertKey {
        std::size_t part;
        int fifths;
        bool minor;
        pugi::xml_node node;
    };

    void setTimes(MasterTrack &master);
    void setKeys(MasterTrack &master);
    void setRepeats(MasterTrack &master);
    void setBarLines(MasterTrack &master);
    void setFermatas(MasterTrack &master);
    void setSections(MasterTrack &master);
    void setFeels(MasterTrack &master);
    void setTempos(MasterTrack &master);
    void joinTempo(TempoAutomation &there, const WrittenTempo &tempo, bool isSamePart);
    ConcertKey choose(const std::vector<ConcertKey> &keys) const;
    int concertFifths(std::size_t part, const WrittenKey &key) const;

    ImportContext &_context;
    const std::vector<PartFacts> &_parts;
    const std::vector<PartTally> &_tallies;
};

} // namespace zarn::io
