// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/form/ZarnDirectionMark.h>

namespace zarn {

/// The three accessors of each direction, over the `directionIndex` and `setDirection` of the
/// class that derives from this: the bar index (-1 when not set), its setter, and whether the
/// direction stands at a bar.
template <class Derived>
class DirectionAccessors {
public:
    // clang-format off
    int coda() const { return at(DirectionMark::Coda); }
    void setCoda(int barIndex) { put(DirectionMark::Coda, barIndex); }
    bool hasCodaAtBarIndex(int barIndex) const { return coda() == barIndex; }

    int doubleCoda() const { return at(DirectionMark::DoubleCoda); }
    void setDoubleCoda(int barIndex) { put(DirectionMark::DoubleCoda, barIndex); }
    bool hasDoubleCodaAtBarIndex(int barIndex) const { return doubleCoda() == barIndex; }

    int segno() const { return at(DirectionMark::Segno); }
    void setSegno(int barIndex) { put(DirectionMark::Segno, barIndex); }
    bool hasSegnoAtBarIndex(int barIndex) const { return segno() == barIndex; }

    int segnoSegno() const { return at(DirectionMark::SegnoSegno); }
    void setSegnoSegno(int barIndex) { put(DirectionMark::SegnoSegno, barIndex); }
    bool hasSegnoSegnoAtBarIndex(int barIndex) const { return segnoSegno() == barIndex; }

    int fine() const { return at(DirectionMark::Fine); }
    void setFine(int barIndex) { put(DirectionMark::Fine, barIndex); }
    bool hasFineAtBarIndex(int barIndex) const { return fine() == barIndex; }

    int daCapo() const { return at(DirectionMark::DaCapo); }
    void setDaCapo(int barIndex) { put(DirectionMark::DaCapo, barIndex); }
    bool hassDaCapoAtBarIndex(int barIndex) const { return daCapo() == barIndex; }

    int daCapoAlCoda() const { return at(DirectionMark::DaCapoAlCoda); }
    void setDaCapoAlCoda(int barIndex) { put(DirectionMark::DaCapoAlCoda, barIndex); }
    bool hasDaCapoAlCodaAtBarIndex(int barIndex) const { return daCapoAlCoda() == barIndex; }

    int daCapoAlDoubleCoda() const { return at(DirectionMark::DaCapoAlDoubleCoda); }
    void setDaCapoAlDoubleCoda(int barIndex) { put(DirectionMark::DaCapoAlDoubleCoda, barIndex); }
    bool hasDaCapoAlDoubleCodaAtBarIndex(int barIndex) const { return daCapoAlDoubleCoda() == barIndex; }

    int daCapoAlFine() const { return at(DirectionMark::DaCapoAlFine); }
    void setDaCapoAlFine(int barIndex) { put(DirectionMark::DaCapoAlFine, barIndex); }
    bool hasDaCapoAlFineAtBarIndex(int barIndex) const { return daCapoAlFine() == barIndex; }

    int daSegno() const { return at(DirectionMark::DaSegno); }
    void setDaSegno(int barIndex) { put(DirectionMark::DaSegno, barIndex); }
    bool hasDaSegnoAtBarIndex(int barIndex) const { return daSegno() == barIndex; }

    int daSegnoAlCoda() const { return at(DirectionMark::DaSegnoAlCoda); }
    void setDaSegnoAlCoda(int barIndex) { put(DirectionMark::DaSegnoAlCoda, barIndex); }
    bool hasDaSegnoAlCodaAtBarIndex(int barIndex) const { return daSegnoAlCoda() == barIndex; }

    int daSegnoAlDoubleCoda() const { return at(DirectionMark::DaSegnoAlDoubleCoda); }
    void setDaSegnoAlDoubleCoda(int barIndex) { put(DirectionMark::DaSegnoAlDoubleCoda, barIndex); }
    bool hasDaSegnoAlDoubleCodaAtBarIndex(int barIndex) const { return daSegnoAlDoubleCoda() == barIndex; }

    int daSegnoAlFine() const { return at(DirectionMark::DaSegnoAlFine); }
    void setDaSegnoAlFine(int barIndex) { put(DirectionMark::DaSegnoAlFine, barIndex); }
    bool hasDaSegnoAlFineAtBarIndex(int barIndex) const { return daSegnoAlFine() == barIndex; }

    int daSegnoSegno() const { return at(DirectionMark::DaSegnoSegno); }
    void setDaSegnoSegno(int barIndex) { put(DirectionMark::DaSegnoSegno, barIndex); }
    bool hasDaSegnoSegnoAtBarIndex(int barIndex) const { return daSegnoSegno() == barIndex; }

    int daSegnoSegnoAlCoda() const { return at(DirectionMark::DaSegnoSegnoAlCoda); }
    void setDaSegnoSegnoAlCoda(int barIndex) { put(DirectionMark::DaSegnoSegnoAlCoda, barIndex); }
    bool hasDaSegnoSegnoAlCodaAtBarIndex(int barIndex) const { return daSegnoSegnoAlCoda() == barIndex; }

    int daSegnoSegnoAlDoubleCoda() const { return at(DirectionMark::DaSegnoSegnoAlDoubleCoda); }
    void setDaSegnoSegnoAlDoubleCoda(int barIndex) { put(DirectionMark::DaSegnoSegnoAlDoubleCoda, barIndex); }
    bool hasDaSegnoSegnoAlDoubleCodaAtBarIndex(int barIndex) const { return daSegnoSegnoAlDoubleCoda() == barIndex; }

    int daSegnoSegnoAlFine() const { return at(DirectionMark::DaSegnoSegnoAlFine); }
    void setDaSegnoSegnoAlFine(int barIndex) { put(DirectionMark::DaSegnoSegnoAlFine, barIndex); }
    bool hasDaSegnoSegnoAlFineAtBarIndex(int barIndex) const { return daSegnoSegnoAlFine() == barIndex; }

    int daCoda() const { return at(DirectionMark::DaCoda); }
    void setDaCoda(int barIndex) { put(DirectionMark::DaCoda, barIndex); }
    bool hasDaCodaAtBarIndex(int barIndex) const { return daCoda() == barIndex; }

    int daDoubleCoda() const { return at(DirectionMark::DaDoubleCoda); }
    void setDaDoubleCoda(int barIndex) { put(DirectionMark::DaDoubleCoda, barIndex); }
    bool hasDaDoubleCodaAtBarIndex(int barIndex) const { return daDoubleCoda() == barIndex; }
    // clang-format on

protected:
    DirectionAccessors() noexcept = default;
    ~DirectionAccessors() = default;

private:
    int at(DirectionMark mark) const
    {
        return static_cast<const Derived *>(this)->directionIndex(mark);
    }
    void put(DirectionMark mark, int barIndex)
    {
        static_cast<Derived *>(this)->setDirection(static_cast<int>(mark), barIndex);
    }
};

} // namespace zarn
