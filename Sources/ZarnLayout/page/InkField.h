// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Bow.h>

#include <vector>

namespace zarn::engraving {

/// The ink that ties and slurs keep away from: heads, rests, accidentals and whatever else stands
/// among the notes. It is found by its place; staff and ledger lines are no obstacles.
class InkField {
public:
    /// All that is on rows, each with the y of its top line.
    void add(const Inks &inks, double y = 0);
    void add(const Ink &ink, double y = 0);

    /// Square staff spaces of ink that a curve would lie on, with a margin around the ink. Stems
    /// and beams, which curves may cross, count for less than what they hide.
    double coveredBy(const Bow &bow, double margin) const;

    /// Whether no ink lies in a box, its edges included.
    bool isFree(const Box &box) const;

private:
    /// A head, or a shape with straight edges: both edges at its left and at its right end.
    struct Obstacle {
        double left;
        double right;
        double top[2];
        double bottom[2];
        float weight;
        bool isRound;
    };

    void add(const Obstacle &obstacle);

    static std::size_t binOf(double x);

    static constexpr double binWidth = 3;
    std::vector<std::vector<Obstacle>> _bins; ///< each with all that reaches into it
};

} // namespace zarn::engraving
