// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace zarn::engraving {

/// What of a score a layout has to read again. All of it, at first.
class ScoreMarks {
public:
    static constexpr std::uint64_t allTracks = ~std::uint64_t{0};

    /// Called with the first mark, and then not before all of them were cleared.
    void setHandler(std::function<void()> handler) { _handler = std::move(handler); }

    void markEverything();
    /// What is read at each update, marked or not.
    void markHeads() { mark(); }
    /// Titles, headers and footers.
    void markTexts();
    /// What all staves share of their bars.
    void markColumns();
    /// Bars `first` to `last`, and the one behind them, into which clef, key and octave reach.
    void markBars(std::uint64_t tracks, int first, int last);
    /// The bit of a track among the marks of a bar; tracks that are 64 apart share one.
    static std::uint64_t bitOf(unsigned track) noexcept { return std::uint64_t{1} << (track % 64); }

    /// Columns went in or out.
    void addBars(int index, int count);
    void removeBars(int index, int count);

    bool any() const noexcept { return _any; }
    bool texts() const noexcept { return _texts; }
    bool columns() const noexcept { return _columns; }
    bool bar(unsigned bar, unsigned track) const { return (_bars[bar] & bitOf(track)) != 0; }
    bool anyBar(unsigned bar) const { return _bars[bar] != 0; }

    /// For each bar of a score of so many the index that it had when this was asked last, or
    /// `isNew`; nothing where all of them stand where they stood. From here on bars may be asked
    /// for and cleared.
    std::optional<std::vector<std::uint32_t>> takeOrigins(unsigned barCount);
    static constexpr std::uint32_t isNew = 0xffffffff;

    /// What was read.
    void clearTexts() { _texts = false; }
    void clearColumns() { _columns = false; }
    void clearBar(unsigned bar) { _bars[bar] = 0; }
    void clear();

private:
    void mark();

    bool _any = true;
    bool _everything = true;
    bool _texts = true;
    bool _columns = true;
    std::vector<std::uint64_t> _bars; ///< a bit for each track
    std::vector<std::uint32_t> _origins;
    bool _haveMoved = true; ///< bars, since their origins were taken
    std::function<void()> _handler;
};

} // namespace zarn::engraving
