// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <ZarnLayout/font/ZarnTextMeasure.h>
#include <ZarnLayout/session/LayoutEngine.h>
#include <ZarnLayout/session/ScoreMarks.h>
#include <ZarnLayout/session/ScoreReader.h>

namespace zarn::layout {

std::shared_ptr<const Layout> layOut(const ScoreModel &model, const LayoutOptions &options,
                                     const std::shared_ptr<const MusicFont> &font,
                                     const TextMeasure &texts)
{
    engraving::ScoreMarks everything;
    engraving::ScoreReader reader;
    reader.read(model, options, everything);
    return engraving::LayoutEngine(font, texts).layOut(reader.source());
}

std::shared_ptr<const Layout> layOut(const ScoreModel &model, const LayoutOptions &options)
{
    return layOut(model, options, MusicFont::builtIn(), builtInTextMeasure());
}

} // namespace zarn::layout
