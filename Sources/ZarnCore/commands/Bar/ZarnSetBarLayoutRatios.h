// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetEach.h>

#include <vector>

namespace zarn {

/// The bars `first` to `last`, both included, of all staves of one track, staff after staff.
struct ZARNCORE_EXPORT TrackBarPlaces {
    using Node = Bar;
    unsigned track = 0;
    unsigned first = 0;
    unsigned last = 0;

    bool canExist() const noexcept { return first <= last; }
    std::vector<std::shared_ptr<Bar>> nodes(ScoreModel &model) const;
    void announce(ScoreBase &score, const void *sender) const;
};

namespace cmd {

/// Sets the widths of bars among the others of their systems, where a track is laid out alone.
class ZARNCORE_EXPORT SetBarLayoutRatios final
    : public SetEach<TrackBarPlaces, &Bar::layoutRatio, &Bar::setLayoutRatio> {
public:
    SetBarLayoutRatios();
    ~SetBarLayoutRatios() override;

    /// One width for each bar from `first` on, in all staves of the track, 1 for what its notes ask
    /// for. False for a track that is not there, for no widths or more than there are bars, and for
    /// one outside 0.1 to 10.
    bool init(Score *score, unsigned track, unsigned first, const std::vector<float> &ratios);

private:
    std::optional<float> next(std::size_t number, const Bar &bar) const override;

    std::vector<float> _ratios;
};

} // namespace cmd
} // namespace zarn
