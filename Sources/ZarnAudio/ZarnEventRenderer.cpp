// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnEventRenderer.h>

#include <algorithm>

namespace Halvec::audio {

namespace {

constexpr std::int64_t blockFrames = Synthesizer::blockFrames;

} // namespace

EventRenderer::EventRenderer(Synthesizer &synthesizer, std::vector<TimedEvent> events)
    : _synthesizer(synthesizer), _events(std::move(events))
{
    for (TimedEvent &event : _events)
        event.frame = std::max<std::int64_t>(event.frame, 0);
    std::stable_sort(_events.begin(), _events.end(), [](const auto &a, const auto &b) {
        return a.frame != b.frame ? a.frame < b.frame : a.kind < b.kind;
    });
    // Fonts and banks wait for different blocks; within a channel the order stays.
    std::stable_sort(_events.begin(), _events.end(),
                     [this](const auto &a, const auto &b) { return blockOf(a) < blockOf(b); });
    // The first block is the silence in which notes of banks may begin.
    renderBlock();
    _taken = blockFrames;
}

/// Notes of banks begin a block late, so fonts do too.
std::int64_t EventRenderer::blockOf(const TimedEvent &event) const noexcept
{
    return _synthesizer.hasBank(event.channel) ? event.frame / blockFrames
                                               : (event.frame + blockFrames / 2) / blockFrames + 1;
}

void EventRenderer::renderBlock() noexcept
{
    for (; _next < _events.size() && blockOf(_events[_next]) <= _block; ++_next)
        _synthesizer.apply(_events[_next], static_cast<int>(_events[_next].frame % blockFrames));
    _synthesizer.render(_rendered.data());
    ++_block;
    _taken = 0;
}

void EventRenderer::render(float *frames, std::int64_t count) noexcept
{
    while (count > 0) {
        if (_taken == static_cast<std::size_t>(blockFrames))
            renderBlock();
        const auto part = std::min<std::int64_t>(count, blockFrames - std::int64_t(_taken));
        frames = std::copy_n(_rendered.data() + 2 * _taken, 2 * part, frames);
        _taken += static_cast<std::size_t>(part);
        _position += part;
        count -= part;
    }
}

bool EventRenderer::isDone() const noexcept
{
    return _next == _events.size() && _synthesizer.voiceCount() == 0;
}

} // namespace Halvec::audio
