// SPDX-License-Identifier: MIT
#include <ZarnLayout/space/LineBreaker.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr unsigned window = 24;

/// Sums over the bars of one line as it grows.
struct LineSum {
    double fixed = 0;
    double spring = 0;
    double pressed = 0; ///< width with the springs as close as they go

    void add(const BarWidth &bar, bool isFirst)
    {
        const double head = isFirst ? bar.headOfLine : 0;
        fixed += bar.fixed + head;
        spring += bar.spring;
        pressed += std::max(bar.fixed + leastFactor * bar.spring, bar.least) + head;
    }
    double cost(double width, bool isLastLine, bool endsSection) const
    {
        if (pressed > width)
            return impossible + pressed - width;
        const double force = spring > 0 ? (width - fixed) / spring - 1 : 0;
        const double cost = force < 0 ? 4 * force * force : force * force;
        if (isLastLine && force > 0)
            return 0.25 * std::min(force * force, 6.0);
        return endsSection ? 0.8 * cost : cost;
    }
};

} // namespace

double costOfLine(const std::vector<BarWidth> &bars, unsigned first, unsigned end, double width)
{
    LineSum sum;
    for (unsigned bar = first; bar < end; ++bar)
        sum.add(bars[bar], bar == first);
    return sum.cost(width, end == bars.size(), bars[end - 1].endsSection);
}

std::vector<unsigned> breakLines(const std::vector<BarWidth> &bars, double firstWidth, double width)
{
    const auto count = static_cast<unsigned>(bars.size());
    std::vector<unsigned> lines;
    std::vector<double> costs;
    std::vector<unsigned> next;
    for (unsigned start = 0; start < count;) {
        unsigned end = std::min(start + window, count);
        for (unsigned bar = start + 1; bar < end; ++bar)
            if (bars[bar].breaksBefore)
                end = bar;
        // Backwards: the best way from each bar to the end of the window. A line that the window
        // cuts off costs only what it is pressed by.
        const unsigned size = end - start;
        const bool isCut = end < count && !bars[end].breaksBefore;
        costs.assign(size + 1, 4 * impossible * window);
        next.assign(size + 1, size);
        costs[size] = 0;
        for (unsigned from = size; from-- > 0;) {
            LineSum sum;
            const double room = start + from == 0 ? firstWidth : width;
            for (unsigned to = from + 1; to <= size; ++to) {
                sum.add(bars[start + to - 1], to == from + 1);
                const bool isLast = start + to == count || (to == size && isCut);
                const double cost =
                    sum.cost(room, isLast, bars[start + to - 1].endsSection) + costs[to];
                if (cost < costs[from]) {
                    costs[from] = cost;
                    next[from] = to;
                }
                if (sum.pressed > room)
                    break;
            }
        }
        lines.push_back(next[0]);
        start += next[0];
        // The rest of a stretch that ends at a break is decided already.
        if (!isCut)
            for (unsigned from = next[0]; from < size; from = next[from]) {
                lines.push_back(next[from] - from);
                start += next[from] - from;
            }
    }
    return lines;
}

} // namespace zarn::engraving
