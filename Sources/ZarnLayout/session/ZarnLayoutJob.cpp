// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ZarnLayoutJob.h>

#include <ZarnLayout/session/LayoutJobImpl.h>

#include <utility>

namespace zarn::layout {

LayoutJob::LayoutJob(std::unique_ptr<Impl> impl) : _impl(std::move(impl)) { }

LayoutJob::~LayoutJob() = default;

void LayoutJob::run()
{
    std::call_once(_impl->once, [this] {
        _impl->layout = _impl->engine->layOut(_impl->source);
        _impl->isDone = true;
    });
}

bool LayoutJob::isDone() const noexcept
{
    return _impl->isDone;
}

} // namespace zarn::layout
