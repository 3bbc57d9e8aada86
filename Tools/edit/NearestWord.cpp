// SPDX-License-Identifier: MIT
#include "edit/NearestWord.h"

#include <algorithm>
#include <vector>

namespace zarn::tool {

namespace {

/// Levenshtein distance.
int distance(const QString &left, const QString &right)
{
    std::vector<int> row(static_cast<std::size_t>(right.size()) + 1);
    for (std::size_t i = 0; i < row.size(); ++i)
        row[i] = static_cast<int>(i);
    for (int i = 1; i <= left.size(); ++i) {
        int diagonal = row[0];
        row[0] = i;
        for (int j = 1; j <= right.size(); ++j) {
            const auto at = static_cast<std::size_t>(j);
            const int replaced = diagonal + (left.at(i - 1) == right.at(j - 1) ? 0 : 1);
            diagonal = row[at];
            row[at] = std::min({row[at] + 1, row[at - 1] + 1, replaced});
        }
    }
    return row.back();
}

} // namespace

QString nearestWord(const QString &typed, const QStringList &words)
{
    constexpr int TooFar = 3;
    const QString lower = typed.toLower();
    QString nearest;
    int least = TooFar;
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
