// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/session/ScoreSource.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <chrono>
#include <optional>
#include <utility>

namespace zarn::engraving {

class ScoreMarks;

/// Copies what a layout needs of a score, again and again: what is not marked it has already, and
/// what is read and found to be the same stays where it is.
class ZARNLAYOUT_EXPORT ScoreReader {
public:
    using Deadline = std::optional<std::chrono::steady_clock::time_point>;

    /// Reads what is marked, bar by bar, until a moment but one bar at least, and clears the marks
    /// of what is read. Answers whether nothing is left. The score may change between two calls,
    /// which `marks` must say.
    bool read(const ScoreModel &model, const layout::LayoutOptions &options, ScoreMarks &marks,
              const Deadline &deadline = {});

    /// What was read. Not to be asked for before nothing is left.
    std::shared_ptr<const ScoreSource> source() const;

private:
    void readHeads(const ScoreModel &model, const layout::LayoutOptions &options);
    void readSystems(const ScoreModel &model, layout::SystemBreaks breaks);
    void readTexts(const ScoreModel &model);
    void moveColumns(const std::optional<std::vector<std::uint32_t>> &origins, unsigned first,
                     unsigned end);
    void readShared(const ScoreModel &model, unsigned end);
    void readColumn(const ScoreModel &model, unsigned number, const ScoreMarks &marks);
    /// A bar of all staves of a track, from the given one on.
    std::vector<BarSource> readTrack(const ScoreModel &model, std::size_t staff,
                                     unsigned bar) const;
    void readPlayingTimes(const ScoreModel &model);

    ScoreSource _source;
    std::vector<std::pair<unsigned, unsigned>> _staves; ///< track and staff
    std::vector<bool> _meetNext; ///< by staff: no tablature parts its notes from the next staff's
    std::vector<std::shared_ptr<const ColumnSource>> _shared;
    bool _hasTimers = true; ///< or may have: some bar shows when it is played
};

} // namespace zarn::engraving
