// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/RowShifts.h>
#include <ZarnLayout/page/SystemDraft.h>

#include <cstddef>
#include <vector>

namespace zarn::engraving {

/// By row: how readily it moves away from the one above when a page has room. Tracks have 1.
std::vector<double> rowsStretch(const SystemDraft &draft);

/// Notes what the marks of a system hang on, in the order in which they are drawn: one for each
/// ink.
class HangerCollector {
public:
    explicit HangerCollector(const SystemDraft &draft) : _draft(draft) { }

    void addRow(const RowDraft &row, std::size_t marks);
    /// Of ink over the whole system.
    void add(const Ink &ink);

    RowHangers take() { return std::move(_hangers); }

private:
    RowHanger hangerOf(const Ink &ink) const;
    RowHanger trackOf(const Ink &ink) const;
    std::uint16_t rowOf(const Ink &line, int end) const;
    /// The row whose lines are nearest.
    std::uint16_t rowAt(double y) const;
    void add(RowHanger hanger, std::size_t marks);

    const SystemDraft &_draft;
    RowHangers _hangers;
    std::uint32_t _count = 0;
};

} // namespace zarn::engraving
