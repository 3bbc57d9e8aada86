// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/StretchRun.h>

namespace zarn::sheet {

Stretch &StretchRun::piece(SheetBar &into)
{
    SheetBar &bar = _bar == currentBar() ? into : _sheet->bars[_bar];
    return bar.stretches[_piece];
}

void StretchRun::begin(const Stretch &stretch, SheetBar &into)
{
    _stretch = stretch;
    _stretch.run = ++_sheet->runCount;
    _stretch.last = stretch.first;
    _isOpen = true;
    _bar = currentBar();
    _piece = into.stretches.size();
    into.stretches.push_back(_stretch);
}

void StretchRun::extendTo(const ColumnKey &column, SheetBar &into)
{
    if (_bar != currentBar()) {
        Stretch &before = piece(into);
        before.ends = false;
        before.last = {_sheet->bars[_bar].length, ColumnKey::BarEnd};
        Stretch next = _stretch;
        next.begins = false;
        next.first = {0, ColumnKey::Signature};
        _bar = currentBar();
        _piece = into.stretches.size();
        into.stretches.push_back(next);
    }
    Stretch &last = piece(into);
    last.last = column;
    last.ends = true;
}

void StretchRun::extendOverBarLine(SheetBar &into)
{
    extendTo({into.length, ColumnKey::BarEnd}, into);
    piece(into).ends = false;
}

void StretchRun::endAs(Stretch::Style style, SheetBar &into)
{
    piece(into).style = style;
    end();
}

void StretchRun::endIfAbsent() noexcept
{
    if (_bar != currentBar())
        end();
}

void putWords(Sheet &sheet, SheetBar &into, int lane, const ColumnKey &column, const QString &words,
              Ink ink)
{
    Stretch stretch;
    stretch.lane = lane;
    stretch.words = words;
    stretch.first = column;
    stretch.last = column;
    stretch.ink = ink;
    stretch.run = ++sheet.runCount;
    into.stretches.push_back(stretch);
}

} // namespace zarn::sheet
