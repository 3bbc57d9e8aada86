// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ZarnFirstLayout.h>

#include <ZarnLayout/font/ZarnTextMeasure.h>
#include <ZarnLayout/session/FirstLayoutImpl.h>

#include <utility>

namespace zarn::layout {

FirstLayout::FirstLayout(const ScoreModel &model, LayoutOptions options)
    : _impl(std::make_unique<Impl>())
{
    _impl->model = &model;
    _impl->options = std::move(options);
    _impl->engine = std::make_shared<SharedEngine>(MusicFont::builtIn(), builtInTextMeasure());
    _impl->reader.read(model, _impl->options, _impl->marks);
    _impl->layout = _impl->engine->layOut(_impl->reader.source());
}

FirstLayout::~FirstLayout() = default;
FirstLayout::FirstLayout(FirstLayout &&other) noexcept = default;
FirstLayout &FirstLayout::operator=(FirstLayout &&other) noexcept = default;

std::shared_ptr<const Layout> FirstLayout::layout() const noexcept
{
    return _impl ? _impl->layout : nullptr;
}

} // namespace zarn::layout
