// SPDX-License-Identifier: MIT
#include "common/NearestWord.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace zarn::tool {

namespace {

/// Letters to add, remove, replace or swap with their neighbour.
int distance(const QString &left, const QString &right)
{
    using Row = std::vector<int>;
    Row row(static_cast<std::size_t>(right.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    Row before = row;
    for (int i = 1; i <= left.size(); ++i) {
        Row next(row.size(), i);
        for (std::size_t j = 1; j < row.size(); ++j) {
            const int at = static_cast<int>(j);
            const bool isSame = left.at(i - 1) == right.at(at - 1);
            next[j] = std::min({row[j] + 1, next[j - 1] + 1, row[j - 1] + (isSame ? 0 : 1)});
            if (i > 1 && at > 1 && left.at(i - 1) == right.at(at - 2)
                && left.at(i - 2) == right.at(at - 1))
                next[j] = std::min(next[j], before[j - 2] + 1);
        }
        before = std::exchange(row, std::move(next));
    }
    return row.back();
}

} // namespace

QString nearestWord(const QString &typed, const QStringList &words)
{
    constexpr int TooFar = 3;
    const QString lower = typed.toLower();
    QString nearest;
    // What shares no letter with a word is not near it.
    int least = std::min(TooFar, typed.size());
    for (const QString &word : words) {
        const int far = word.startsWith(typed) ? 0 : distance(lower, word.toLower());
        if (far < least) {
            least = far;
            nearest = word;
        }
    }
    for (const QString &word : words)
        if (nearest.isEmpty() && typed.size() >= TooFar && word.toLower().contains(lower))
            nearest = word;
    return nearest;
}

} // namespace zarn::tool
