// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/session/ScoreSource.h>
#include <ZarnLayout/space/LineBreaker.h>

#include <vector>

namespace zarn::engraving {

class Pen;

/// Which bars stand in one system: as the document lists them, or as they break best. What it
/// found it keeps for the next time.
class SystemBreaks {
public:
    struct Widths {
        double first = 0; ///< of the line of the first system, in staff spaces
        double others = 0;

        friend bool operator==(const Widths &a, const Widths &b) noexcept
        {
            return a.first == b.first && a.others == b.others;
        }
    };

    /// Looks at the bars of a score again; `origins` says of each shown bar which one it was the
    /// time before, or `isNew`.
    void measure(const EngravedScore &score, const std::vector<std::uint32_t> &origins,
                 const Pen &pen);
    static constexpr std::uint32_t isNew = 0xffffffff;

    /// Of the bars that were measured last, signs at bar lines included.
    const std::vector<BarWidth> &bars() const noexcept { return _bars; }

    /// Where the systems end: the number of shown bars of each.
    const std::vector<unsigned> &find(const ScoreSource &source, const std::vector<ShownBar> &shown,
                                      const Widths &widths);

    /// What the last search looked for, and found.
    const Widths &widths() const noexcept { return _widths; }
    const std::vector<unsigned> &lines() const noexcept { return _lines; }

    /// Of the last search: a listed system that finds no room is broken, which is said.
    const Problems &problems() const noexcept { return _problems; }

private:
    /// Width of the signs in front of a bar, and how much more at the head of a line; how much more
    /// the words around it need.
    struct Joint {
        double middle = 0;
        double head = 0;
        double words = 0; ///< more than the signs need
    };

    void moveBars(const std::vector<std::uint32_t> &origins);
    void breakAsListed(const ScoreSource &source, const std::vector<ShownBar> &shown,
                       const Widths &widths);

    std::vector<Joint> _joints;
    std::vector<BarWidth> _bars;
    bool _isOther = true; ///< than at the last search
    Widths _widths;
    std::vector<int> _listed;
    unsigned _usual = 0;
    std::vector<ShownBar> _shown;
    std::vector<unsigned> _lines;
    Problems _problems;
};

} // namespace zarn::engraving
