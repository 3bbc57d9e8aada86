// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/PastePlace.h>

#include <ZarnCore/commands/Note/ZarnAutomaticFingerPositioning.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

namespace zarn {

std::optional<std::vector<PastedStaff>> pastedStaves(const ScoreModel &model, const Clip &clip,
                                                     unsigned track, unsigned staff)
{
    const auto &sources = clip.model->tracks();
    if (track > model.trackCount() || sources.size() > model.trackCount() - track)
        return std::nullopt;
    std::vector<PastedStaff> pasted;
    for (unsigned i = 0; i < sources.size(); ++i) {
        const auto &staves = model.tracks()[track + i]->staves();
        // Of several tracks each begins with its own first staff.
        const unsigned first = sources.size() == 1 ? staff : 0;
        for (unsigned k = 0; k < sources[i]->staffCount(); ++k) {
            if (first + k >= staves.size())
                return std::nullopt;
            pasted.push_back(
                {sources[i]->staves()[k].get(), staves[first + k].get(), track + i, first + k});
        }
    }
    return pasted;
}

unsigned pastedStaffNumber(const ScoreModel &model, const Clip &clip, unsigned track)
{
    if (!model.hasTrackIndex(track) || clip.model->trackCount() != 1)
        return 0;
    const unsigned needed = clip.firstStaff + clip.model->tracks()[0]->staffCount();
    return needed <= model.tracks()[track]->staffCount() ? clip.firstStaff : 0;
}

NoteAdaptation adaptationOf(const PastedStaff &pasted)
{
    using Strings = NoteAdaptation::Strings;
    return {*pasted.from, *pasted.to,
            fingering::canBeFingered(*pasted.to) ? Strings::Open : Strings::Lowest};
}

std::unique_ptr<Command> fingeringOf(Score *score, const ScoreModelIndex &first,
                                     const ScoreModelIndex &last)
{
    const bool areBars = first.beatIndex() < 0;
    ScoreModelRange range(first, last,
                          areBars ? SelectionMode::MultiSelection | SelectionMode::MultiVoice
                                  : SelectionMode::MultiSelection);
    fingering::FingeringOptions options;
    options.given = fingering::GivenStrings::Kept;
    auto step = std::make_unique<cmd::AutomaticFingerPositioning>();
    return step->init(score, range, options, nullptr) ? std::move(step) : nullptr;
}

} // namespace zarn
