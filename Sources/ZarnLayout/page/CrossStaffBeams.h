// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/BeamInks.h>

#include <string>
#include <vector>

namespace zarn::engraving {

/// The beams of a system that notes of two staves of a track hang on. Where stems point to one
/// another the beam lies between the staves, else above or below both.
class CrossStaffBeams {
public:
    explicit CrossStaffBeams(SystemDraft &draft);

    /// Gives the stems the least lengths they need, so that rows make room for the beam, and keeps
    /// the space between the staves free for it. Before anything is placed around the notes.
    void reserve();

    /// Draws the beams, and the stems up to them, once the rows have their places.
    void draw();

private:
    struct Member {
        RowDraft *row = nullptr;
        PlacedChord *chord = nullptr;
        std::size_t stem = 0; ///< number among the inks of the row
    };
    /// Members, the last one included, whose number stands at the beam.
    struct Tuplet {
        std::size_t first = 0;
        std::size_t last = 0;
        std::string text;
    };
    struct Group {
        std::vector<Member> members; ///< from left to right
        std::vector<Tuplet> tuplets; ///< of notes of both staves
        RowDraft *upper = nullptr;
        RowDraft *lower = nullptr;
        BeamedChords chords;
        double scale = 1;
        double depth = 0; ///< of all beams together
        bool isBetween = false;
        BeamLine upperEdge; ///< how high the beams may reach, counted in the upper row
        BeamLine lowerEdge; ///< how low, counted in the lower row
    };

    void finish(Group &group) const;
    static void findTuplets(Group &group);
    void reserveBetween(Group &group) const;
    void reserveOutside(Group &group) const;
    void drawBetween(Group &group) const;
    void drawOutside(Group &group) const;
    void addTuplets(const Group &group, const BeamLine &edge) const;
    void addStem(Member &member, double tip) const;
    void setStem(Member &member, double tip) const;
    /// How far the rows must be apart for beams of a slope between them, and the edges of these.
    static double roomNeeded(const Group &group, double slope, BeamLine &upper, BeamLine &lower);

    SystemDraft &_draft;
    std::vector<Group> _groups;
};

} // namespace zarn::engraving
