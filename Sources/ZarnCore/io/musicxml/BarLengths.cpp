// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/BarLengths.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/Wording.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;

namespace {

/// A bar is hardly ever divided into more bars than this.
constexpr std::size_t mostPieces = 4;

/// What all parts together say about one bar.
struct Column {
    rational reach;   ///< the longest of the parts
    rational nominal; ///< what the meter says
    bool isFree = false;
    bool isImplicit = false;
    bool isCounted = false; ///< the document says that it is not implicit
    bool isAgreed = false;  ///< several parts have music, and all of them reach as far

    bool isShort() const { return rational(0) < reach && reach < nominal; }
};

class BarLengths {
public:
    BarLengths(const std::vector<PartFacts> &parts, MasterTrack &master);

    void set();
    void report(ImportContext &context) const;

private:
    std::vector<bool> shortOnPurpose() const;
    void findDividedBars(std::vector<bool> &meant) const;
    bool completes(std::size_t bar, std::size_t pickup) const;
    bool endsPhrase(std::size_t bar) const;

    const std::vector<PartFacts> &_parts;
    MasterTrack &_master;
    const MasterTrack::MasterBars &_bars;
    std::vector<Column> _columns;
};

BarLengths::BarLengths(const std::vector<PartFacts> &parts, MasterTrack &master)
    : _parts(parts), _master(master), _bars(master.masterBars()), _columns(_bars.size())
{
    for (std::size_t bar = 0; bar < _bars.size(); ++bar) {
        auto &column = _columns[bar];
        column.nominal = _bars[bar]->timeSignature().barLength();
        column.isFree = _bars[bar]->isFreeTime();
        std::size_t sounding = 0;
        std::size_t agreeing = 0;
        for (const auto &part : _parts)
            if (bar < part.bars.size()) {
                const auto &length = part.bars[bar].length;
                sounding += rational(0) < length;
                agreeing = column.reach < length ? 1 : agreeing + (length == column.reach);
                column.reach = std::max(column.reach, part.bars[bar].length);
                column.isImplicit = column.isImplicit || part.bars[bar].implicit;
                column.isCounted = column.isCounted || part.bars[bar].isCounted;
            }
        column.isAgreed = sounding > 1 && agreeing == sounding;
    }
}

void BarLengths::set()
{
    for (std::size_t bar = 0; bar < _bars.size(); ++bar)
        if (const auto &column = _columns[bar];
            rational(0) < column.reach && column.reach != column.nominal)
            _bars[bar]->setOwnLength(column.reach);
    if (_columns.empty() || _columns.front().isCounted)
        return;
    const bool isNumberedSo = std::any_of(_parts.begin(), _parts.end(), [](const PartFacts &part) {
        return !part.bars.empty() && part.bars.front().implicit && part.bars.front().number == 0;
    });
    if (_columns.front().isShort() || isNumberedSo)
        _master.setAnacrusis(true);
}

/// Bars in front of which the music may go elsewhere: what follows need not be their other half.
bool BarLengths::endsPhrase(std::size_t bar) const
{
    const auto next = bar + 1;
    return next == _bars.size() || _bars[bar]->isRepeatEnd() || _bars[bar]->hasDoubleBar()
        || _bars[bar]->alternateEndings() != 0 || _bars[next]->isRepeatStart()
        || _bars[next]->isMovementStart() || _bars[next]->alternateEndings() != 0;
}

bool BarLengths::completes(std::size_t bar, std::size_t pickup) const
{
    return _columns[bar].reach + _columns[pickup].reach == _columns[bar].nominal;
}

/// Marks neighbours that make one bar together.
void BarLengths::findDividedBars(std::vector<bool> &meant) const
{
    for (std::size_t first = 0; first < _columns.size(); ++first) {
        rational sum = 0;
        const auto end = std::min(first + mostPieces, _columns.size());
        for (auto bar = first; bar < end && _columns[bar].isShort()
             && _columns[bar].nominal == _columns[first].nominal;
             ++bar) {
            sum += _columns[bar].reach;
            if (sum == _columns[first].nominal) {
                std::fill(meant.begin() + static_cast<std::ptrdiff_t>(first),
                          meant.begin() + static_cast<std::ptrdiff_t>(bar) + 1, true);
                first = bar;
                break;
            }
        }
    }
}

std::vector<bool> BarLengths::shortOnPurpose() const
{
    std::vector<bool> meant(_columns.size());
    std::size_t movement = 0;
    std::size_t repeat = 0;
    for (std::size_t bar = 0; bar < _columns.size(); ++bar) {
        if (_bars[bar]->isMovementStart())
            movement = repeat = bar;
        if (_bars[bar]->isRepeatStart())
            repeat = bar;
        if (!_columns[bar].isShort())
            continue;
        const bool ends = bar + 1 == _bars.size() || _bars[bar + 1]->isMovementStart();
        const bool leadsBack = endsPhrase(bar) && completes(bar, repeat);
        if (leadsBack)
            meant[repeat] = true;
        if (leadsBack || _columns[bar].isImplicit || bar == movement
            || (ends && _columns[bar].isAgreed) || (endsPhrase(bar) && completes(bar, movement)))
            meant[bar] = true;
    }
    findDividedBars(meant);
    return meant;
}

void BarLengths::report(ImportContext &context) const
{
    const auto meant = shortOnPurpose();
    for (std::size_t bar = 0; bar < _columns.size(); ++bar) {
        const auto &column = _columns[bar];
        const auto &length =
            column.isFree || column.isImplicit || meant[bar] ? column.reach : column.nominal;
        for (std::size_t part = 0; part < _parts.size(); ++part) {
            if (bar >= _parts[part].bars.size())
                continue;
            const auto &written = _parts[part].bars[bar];
            if (written.length == length || written.length == rational(0))
                continue;
            context.setPlace(static_cast<int>(part), static_cast<int>(bar));
            context.addProblem(written.node,
                               (written.length < length ? "underfull: " : "overfull: ")
                                   + inQuarters(written.length) + " instead of "
                                   + length.toString());
        }
    }
}

} // namespace

void setBarLengths(const std::vector<PartFacts> &parts, MasterTrack &master, ImportContext &context)
{
    BarLengths lengths(parts, master);
    lengths.set();
    lengths.report(context);
}

} // namespace zarn::io
