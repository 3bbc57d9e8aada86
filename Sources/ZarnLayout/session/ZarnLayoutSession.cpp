// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ZarnLayoutSession.h>

#include <ZarnLayout/font/ZarnTextMeasure.h>
#include <ZarnLayout/session/LayoutChanges.h>
#include <ZarnLayout/session/ScoreMarks.h>

#include <ZarnCore/score/ZarnScore.h>

#include <utility>

namespace zarn::layout {

class LayoutSession::Impl {
public:
    Impl(Score &score, LayoutOptions options, std::shared_ptr<const MusicFont> font,
         const TextMeasure &texts)
        : score(score), options(std::move(options)), font(std::move(font)), texts(texts),
          marks(score)
    {
    }

    Score &score;
    LayoutOptions options;
    std::shared_ptr<const MusicFont> font;
    const TextMeasure &texts;
    engraving::ScoreMarks marks;
    std::shared_ptr<const Layout> layout;
};

LayoutSession::LayoutSession(Score &score, LayoutOptions options)
    : LayoutSession(score, std::move(options), MusicFont::builtIn(), builtInTextMeasure())
{
}

LayoutSession::LayoutSession(Score &score, LayoutOptions options,
                             std::shared_ptr<const MusicFont> font, const TextMeasure &texts)
    : _impl(std::make_unique<Impl>(score, std::move(options), std::move(font), texts))
{
}

LayoutSession::~LayoutSession() = default;

const LayoutOptions &LayoutSession::options() const noexcept
{
    return _impl->options;
}

void LayoutSession::setOptions(LayoutOptions options)
{
    _impl->options = std::move(options);
    _impl->marks.markEverything();
}

bool LayoutSession::isOutdated() const noexcept
{
    return _impl->marks.any();
}

void LayoutSession::setOutdatedHandler(std::function<void()> handler)
{
    _impl->marks.setHandler(std::move(handler));
}

LayoutUpdate LayoutSession::update()
{
    Impl &impl = *_impl;
    if (impl.layout && !impl.marks.any())
        return {impl.layout, {}};
    const auto before = std::move(impl.layout);
    const ScoreModel &model = *impl.score.scoreModel();
    impl.layout = layOut(model, impl.options, impl.font, impl.texts);
    impl.marks.clear(model.masterTrack()->masterBarCount());
    return {impl.layout,
            before ? changesBetween(*before, *impl.layout) : wholeSheets(*impl.layout)};
}

const std::shared_ptr<const Layout> &LayoutSession::layout() const noexcept
{
    return _impl->layout;
}

} // namespace zarn::layout
