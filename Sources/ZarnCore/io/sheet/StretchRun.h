// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/Sheet.h>

namespace zarn::sheet {

/// Writes one stretch after the other while bars are added to a sheet, each as long as it turns
/// out to be, over bar lines too. The bar that is written is not in the sheet yet.
class StretchRun {
public:
    explicit StretchRun(Sheet &sheet) : _sheet(&sheet) { }

    bool isOpen() const noexcept { return _isOpen; }
    const Stretch &stretch() const noexcept { return _stretch; }

    /// Begins at the first column of the stretch, which must be set, and ends there for now.
    void begin(const Stretch &stretch, SheetBar &into);

    /// Makes the stretch reach up to a column.
    void extendTo(const ColumnKey &column, SheetBar &into);

    /// Makes it reach over the end of the bar, wherever it ends then.
    void extendOverBarLine(SheetBar &into);

    /// Changes how the last piece is drawn, and ends it.
    void endAs(Stretch::Style style, SheetBar &into);
    void end() noexcept { _isOpen = false; }

    /// Ends what had no column in this bar.
    void endIfAbsent() noexcept;

private:
    Stretch &piece(SheetBar &into);
    std::size_t currentBar() const noexcept { return _sheet->bars.size(); }

    Sheet *_sheet;
    Stretch _stretch; ///< as it began
    bool _isOpen = false;
    std::size_t _bar = 0;   ///< of the last piece
    std::size_t _piece = 0; ///< its place in the bar
};

/// Words that stand at one column.
void putWords(Sheet &sheet, SheetBar &into, int lane, const ColumnKey &column, const QString &words,
              Ink ink = Ink::Plain);

} // namespace zarn::sheet
