// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ZarnLayoutSession.h>

#include <ZarnLayout/font/ZarnTextMeasure.h>
#include <ZarnLayout/session/FirstLayoutImpl.h>
#include <ZarnLayout/session/LayoutChanges.h>
#include <ZarnLayout/session/LayoutJobImpl.h>
#include <ZarnLayout/session/ScoreListener.h>
#include <ZarnLayout/session/ScoreMarks.h>
#include <ZarnLayout/session/ScoreReader.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/score/ZarnScore.h>

#include <utility>

namespace zarn::layout {

class LayoutSession::Impl {
public:
    Impl(Score &score, LayoutOptions options, std::shared_ptr<const MusicFont> font,
         const TextMeasure &texts)
        : score(score), options(std::move(options)),
          engine(std::make_shared<SharedEngine>(std::move(font), texts)), listener(score, marks)
    {
    }

    Impl(Score &score, FirstLayout::Impl &&first)
        : score(score), options(std::move(first.options)), marks(std::move(first.marks)),
          reader(std::move(first.reader)), engine(std::move(first.engine)), listener(score, marks),
          layout(std::move(first.layout)), reading(1), shown(1)
    {
    }

    bool read(const engraving::ScoreReader::Deadline &deadline = {})
    {
        if (!marks.any())
            return true;
        ++reading;
        return reader.read(*score.scoreModel(), options, marks, deadline);
    }

    LayoutUpdate show(std::shared_ptr<const Layout> next, unsigned ofReading)
    {
        const auto before = std::exchange(layout, std::move(next));
        shown = ofReading;
        return {layout, before ? changesBetween(*before, *layout) : wholeSheets(*layout)};
    }

    Score &score;
    LayoutOptions options;
    engraving::ScoreMarks marks;
    engraving::ScoreReader reader;
    std::shared_ptr<SharedEngine> engine;
    engraving::ScoreListener listener;
    std::shared_ptr<const Layout> layout;
    unsigned reading = 0; ///< how often anything was read
    unsigned shown = 0;   ///< the reading that the layout shows
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

LayoutSession::LayoutSession(Score &score, FirstLayout first)
{
    ZARN_ASSERT_IN("zarn::layout::LayoutSession::LayoutSession", first._impl != nullptr);
    ZARN_ASSERT_IN("zarn::layout::LayoutSession::LayoutSession",
                   first._impl->model == score.scoreModel().get());
    _impl = std::make_unique<Impl>(score, std::move(*first._impl));
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
    return _impl->marks.any() || _impl->shown != _impl->reading;
}

void LayoutSession::setOutdatedHandler(std::function<void()> handler)
{
    _impl->marks.setHandler(std::move(handler));
}

LayoutUpdate LayoutSession::update()
{
    if (!isOutdated())
        return {_impl->layout, {}};
    _impl->read();
    return _impl->show(_impl->engine->layOut(_impl->reader.source()), _impl->reading);
}

const std::shared_ptr<const Layout> &LayoutSession::layout() const noexcept
{
    return _impl->layout;
}

bool LayoutSession::read(std::chrono::microseconds atMost)
{
    return _impl->read(std::chrono::steady_clock::now() + atMost);
}

std::shared_ptr<LayoutJob> LayoutSession::startJob()
{
    _impl->read();
    auto job = std::make_unique<LayoutJob::Impl>();
    job->engine = _impl->engine;
    job->source = _impl->reader.source();
    job->reading = _impl->reading;
    return std::shared_ptr<LayoutJob>(new LayoutJob(std::move(job)));
}

LayoutUpdate LayoutSession::finishJob(const LayoutJob &job)
{
    ZARN_ASSERT_IN("zarn::layout::LayoutSession::finishJob", job.isDone());
    ZARN_ASSERT_IN("zarn::layout::LayoutSession::finishJob", job._impl->engine == _impl->engine);
    if (job._impl->reading <= _impl->shown)
        return {_impl->layout, {}};
    return _impl->show(job._impl->layout, job._impl->reading);
}

} // namespace zarn::layout
