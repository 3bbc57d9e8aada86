// SPDX-License-Identifier: MIT
// From the numbers of an index to the nodes of its model, for those who only look at them: null
// for what does not exist. The whole way is one piece of code wherever it is asked for: calls
// between its steps would cost more than the steps.
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <memory>
#include <type_traits>

namespace zarn {

/// The child with a number; null for a number that stands for none.
template <class Children, class Number>
const typename Children::value_type *childAt(const Children &children, Number number) noexcept
{
    // A negative number is larger than any other. What is found is told not to be null, so that
    // the next step need not ask again.
    const auto place = static_cast<std::make_unsigned_t<Number>>(number);
    if (place >= children.size())
        return nullptr;
    const auto *const child = &children[place];
    if (!child)
        __builtin_unreachable();
    return child;
}

[[gnu::always_inline]] inline const std::shared_ptr<Track> *
findTrack(const ScoreModelIndex &index) noexcept
{
    const ScoreModel *model = index.model();
    return model ? childAt(model->tracks(), index.trackIndex()) : nullptr;
}

[[gnu::always_inline]] inline const std::shared_ptr<Staff> *
findStaff(const ScoreModelIndex &index) noexcept
{
    const auto *track = findTrack(index);
    return track ? childAt((*track)->staves(), index.staffIndex()) : nullptr;
}

[[gnu::always_inline]] inline const std::shared_ptr<Bar> *
findBar(const ScoreModelIndex &index) noexcept
{
    const auto *staff = findStaff(index);
    return staff ? childAt((*staff)->bars(), index.barIndex()) : nullptr;
}

/// Null also for a slot without a voice.
[[gnu::always_inline]] inline const std::shared_ptr<Voice> *
findVoice(const ScoreModelIndex &index) noexcept
{
    const auto *bar = findBar(index);
    const auto *voice = bar ? childAt((*bar)->voices(), index.voiceIndex()) : nullptr;
    return voice && *voice ? voice : nullptr;
}

[[gnu::always_inline]] inline const std::shared_ptr<Beat> *
findBeat(const ScoreModelIndex &index) noexcept
{
    const auto *voice = findVoice(index);
    return voice ? childAt((*voice)->beats(), index.beatIndex()) : nullptr;
}

/// The node itself, empty for null.
template <class Node>
std::shared_ptr<Node> shared(const std::shared_ptr<Node> *node) noexcept
{
    return node ? *node : nullptr;
}

} // namespace zarn
