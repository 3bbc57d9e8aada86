// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/BeatPlace.h>
#include <ZarnCore/model/attributes/ZarnSlurEnd.h>

#include <vector>

namespace zarn::sheet {

/// The slurs of a track that lie inside of others or lead to another voice or staff. Their ends
/// are collected while the bars are written; a slur stands over the staff where it begins.
class NumberedSlurs {
public:
    /// What a beat of the bar that is written says. `lane` is the one of slurs over its staff.
    void add(const Sheet &sheet, const BeatPlace &place, int lane);

    /// Writes the slurs whose ends both were met, when all bars are in the sheet.
    void write(Sheet &sheet);

private:
    struct End {
        std::size_t bar;
        ColumnKey column;
        int lane;
        SlurEnd end;
    };

    std::vector<End> _ends;
};

} // namespace zarn::sheet
