// SPDX-License-Identifier: MIT
#include <ZarnLayout/space/LineBreaker.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

// The window: so many bars, and at least so many lines.
constexpr unsigned window = 24;
constexpr double windowLines = 40;

/// How much of a last line notes should fill at least.
constexpr double fewest = 0.4;

enum class LineEnd {
    Inner, ///< another line follows
    Cut,   ///< the window ends here
    Last
};

/// Sums over the bars of one line as it grows.
struct LineSum {
    double fixed = 0;
    double spring = 0;
    double wordsAtEnd = 0;
    double pressed = 0; ///< width with the springs as close as they go

    void add(const BarWidth &bar, bool isFirst)
    {
        const double head = isFirst ? bar.headOfLine : 0;
        fixed += bar.fixed + head;
        spring += bar.spring;
        wordsAtEnd = bar.wordsAtEnd;
        const double least = bar.least + (isFirst ? 0 : bar.words);
        pressed += std::max(bar.fixed + leastFactor * bar.spring, least) + head;
    }
    double cost(double width, LineEnd end, bool endsSection) const
    {
        if (pressed + wordsAtEnd > width)
            return impossible + pressed + wordsAtEnd - width;
        const double force = spring > 0 ? (width - fixed) / spring - 1 : 0;
        const double cost = force < 0 ? 4 * force * force : force * force;
        if (end != LineEnd::Inner && force > 0) {
            // A last line need not be full, but a bar left alone looks forgotten.
            const double full = (fixed + spring) / width;
            const double lonely = end == LineEnd::Last ? std::max(0.0, fewest - full) / fewest : 0;
            return 0.25 * std::min(force * force, 1.5) + 1.2 * lonely;
        }
        return endsSection ? 0.8 * cost : cost;
    }
};

/// Where the window ends that begins at a bar.
unsigned endOfWindow(const std::vector<BarWidth> &bars, unsigned start, double width)
{
    const auto count = static_cast<unsigned>(bars.size());
    unsigned end = std::min(start + 1, count);
    double filled = 0;
    for (; end < count && !bars[end].breaksBefore
         && (end < start + window || filled < windowLines * width);
         ++end)
        filled += bars[end].fixed + bars[end].spring;
    return end;
}

} // namespace

double costOfLine(const std::vector<BarWidth> &bars, unsigned first, unsigned end, double width)
{
    LineSum sum;
    for (unsigned bar = first; bar < end; ++bar)
        sum.add(bars[bar], bar == first);
    return sum.cost(width, end == bars.size() ? LineEnd::Last : LineEnd::Inner,
                    bars[end - 1].endsSection);
}

std::vector<unsigned> breakLines(const std::vector<BarWidth> &bars, double firstWidth, double width)
{
    const auto count = static_cast<unsigned>(bars.size());
    std::vector<unsigned> lines;
    std::vector<double> costs;
    std::vector<unsigned> next;
    for (unsigned start = 0; start < count;) {
        const unsigned end = endOfWindow(bars, start, width);
        // Backwards: the best way from each bar to the end of the window. A line that the window
        // cuts off costs only what it is pressed by.
        const unsigned size = end - start;
        const bool isCut = end < count && !bars[end].breaksBefore;
        costs.assign(size + 1, 4 * impossible * size);
        next.assign(size + 1, size);
        costs[size] = 0;
        for (unsigned from = size; from-- > 0;) {
            LineSum sum;
            const double room = start + from == 0 ? firstWidth : width;
            for (unsigned to = from + 1; to <= size; ++to) {
                sum.add(bars[start + to - 1], to == from + 1);
                const LineEnd lineEnd = start + to == count ? LineEnd::Last
                    : to == size && isCut                   ? LineEnd::Cut
                                                            : LineEnd::Inner;
                const double cost =
                    sum.cost(room, lineEnd, bars[start + to - 1].endsSection) + costs[to];
                if (cost < costs[from]) {
                    costs[from] = cost;
                    next[from] = to;
                }
                if (sum.pressed > room)
                    break;
            }
        }
        // What the second half of a window that is cut decides waits for the next one.
        const unsigned kept = isCut ? (size + 1) / 2 : size;
        for (unsigned from = 0; from < kept; from = next[from]) {
            lines.push_back(next[from] - from);
            start += next[from] - from;
        }
    }
    return lines;
}

} // namespace zarn::engraving
