// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Bow.h>

#include <utility>
#include <vector>

namespace zarn::engraving {

/// The ink that ties and slurs keep away from: heads, rests, accidentals and whatever else stands
/// among the notes. It is found by its place; staff and ledger lines are no obstacles.
class InkField {
public:
    /// All that is on rows, each with the y of its top line.
    void add(const Inks &inks, double y = 0);
    void add(const Ink &ink, double y = 0);

    /// A curve, though others may cross it else.
    void add(const Bow &bow);

    /// Square staff spaces of ink that a curve would lie on, with a margin around the ink. Stems
    /// and beams, which curves may cross, count for less than what they hide. Where they are more
    /// than is worth knowing, `plenty`.
    double coveredBy(const Bow &bow, double margin, double worthKnowing = plenty) const;
    static constexpr double plenty = 1e9;

    /// The same of lines, and of the boxes of anything else.
    double coveredBy(const Ink &ink, double margin) const;
    double coveredBy(const Inks &inks, double margin) const;

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

    /// An upright strip that something covers.
    struct Strip {
        double x; ///< of its middle
        double width;
        double top;
        double bottom;
    };

    void add(const Obstacle &obstacle);
    double coveredBy(const Strip &strip, double margin) const;

    static std::size_t binOf(double x);

    static constexpr double binWidth = 3;
    std::vector<std::vector<Obstacle>> _bins; ///< each with all that reaches into it
};

/// The ink of a row to which more is added while one looks for room.
class GrowingInkField {
public:
    /// The inks must outlive it, and nothing of them go. Those of some kinds can be left out.
    explicit GrowingInkField(const Inks &inks, std::vector<MarkKind> leftOut = {})
        : _inks(inks), _leftOut(std::move(leftOut))
    {
    }

    /// With everything that has come by now.
    const InkField &now();

    /// Ink that is not of the row, but in its way.
    void add(const Inks &inks);
    void add(const Bow &bow) { _field.add(bow); }

private:
    void addOne(const Ink &ink);

    const Inks &_inks;
    const std::vector<MarkKind> _leftOut;
    InkField _field;
    std::size_t _known = 0;
};

} // namespace zarn::engraving
