// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/HeadCluster.h>

#include <algorithm>
#include <cmath>

namespace zarn::engraving {

namespace {

/// Whether two heads of a chord need places beside each other: seconds do, and tall heads that
/// are little farther apart. The sides of breves may touch where those are a third apart.
bool meet(const Head &left, const Head &right, double scale, const Fonts &fonts)
{
    if (std::abs(left.line - right.line) <= 1)
        return true;
    constexpr double mostShared = 0.3;
    const Head &upper = left.y < right.y ? left : right;
    const Head &lower = left.y < right.y ? right : left;
    return upper.y + fonts.box(upper.glyph).bottom * scale
        > lower.y + fonts.box(lower.glyph).top * scale + mostShared;
}

} // namespace

double placeOnStem(const HeadsOnStem &heads, bool isStemUp, double scale, const Fonts &fonts)
{
    double width = 0;
    for (const Head *head : heads)
        width = std::max(width, head->width);
    // What of a head lies in front of its left edge, as a stroke through it does.
    const auto inkBefore = [&](const Head &head) {
        return std::max(0.0, -fonts.box(head.glyph).left) * scale;
    };
    // What finds no room on either side, as the third of one line does, stands beside both.
    const Head *usual = nullptr;
    const Head *far = nullptr;
    double right = width;
    for (std::size_t step = 0; step < heads.size(); ++step) {
        Head &head = *heads[isStemUp ? step : heads.size() - 1 - step];
        head.isDisplaced = usual && meet(*usual, head, scale, fonts);
        if (!head.isDisplaced) {
            head.x = isStemUp ? width - head.width : 0;
            usual = &head;
        } else if (!far || !meet(*far, head, scale, fonts)) {
            head.x = isStemUp ? width - fonts.stem() + inkBefore(head)
                              : fonts.stem() - head.width - inkBefore(*usual);
            far = &head;
        } else {
            constexpr double gap = 0.15;
            head.x = right + gap + inkBefore(head);
        }
        right = std::max(right, head.x + head.width);
    }
    return width;
}

double stemBeside(double width, bool isStemUp, const Fonts &fonts)
{
    const double half = fonts.stem() / 2;
    return isStemUp ? width - half : half;
}

void joinOnStem(const ChordsOnStem &chords, const Fonts &fonts)
{
    HeadsOnStem heads;
    for (Chord *chord : chords)
        for (Head &head : chord->heads)
            heads.push_back(&head);
    std::stable_sort(heads.begin(), heads.end(),
                     [](const Head *left, const Head *right) { return left->line < right->line; });
    const bool isStemUp = chords.front()->isStemUp;
    const double width = placeOnStem(heads, isStemUp, chords.front()->scale, fonts);
    for (Chord *chord : chords) {
        chord->width = width;
        chord->stemX = stemBeside(width, isStemUp, fonts);
    }
}

} // namespace zarn::engraving
