// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/StringsText.h>

#include <ZarnLayout/engrave/ChordSymbolText.h>

#include <ZarnCore/io/sheet/OpenStrings.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

/// Of its instrument, or one that everybody knows.
bool isUsual(const GuitarTuning &tuning, const Track &track)
{
    // Guitar, basses, violin and mandolin, viola, cello, ukulele.
    static const std::vector<std::vector<int>> usualTunings = {
        {40, 45, 50, 55, 59, 64}, {28, 33, 38, 43}, {23, 28, 33, 38, 43}, {55, 62, 69, 76},
        {48, 55, 62, 69},         {36, 43, 50, 57}, {67, 60, 64, 69},
    };
    const std::vector<int> &pitches = tuning.midiNumbers();
    if (std::find(usualTunings.begin(), usualTunings.end(), pitches) != usualTunings.end())
        return true;
    return pitches
        == ScoreModel::createTrack(track.type())->staves().front()->tuning().midiNumbers();
}

std::string tuningText(const GuitarTuning &tuning)
{
    std::string letters;
    for (const QString &string : sheet::postedStrings(tuning))
        letters += (letters.empty() ? "" : " ")
            + writtenSymbol((string.left(1).toUpper() + string.mid(1)).toStdString());
    const std::string &name =
        tuning.labelVisible() && !tuning.label().empty() ? tuning.label() : tuning.name();
    return (name.empty() ? "Tuning" : name) + ": " + letters;
}

void append(std::string &text, const std::string &more)
{
    text += (text.empty() ? "" : ", ") + more;
}

} // namespace

std::string stringsText(const Track &track)
{
    const auto staff = std::find_if(track.staves().begin(), track.staves().end(),
                                    [](const auto &each) { return each->isFretted(); });
    if (staff == track.staves().end())
        return {};
    std::string text;
    if (!isUsual((*staff)->tuning(), track))
        append(text, tuningText((*staff)->tuning()));
    if ((*staff)->capoFret() != 0)
        append(text, (text.empty() ? "Capo " : "capo ") + std::to_string((*staff)->capoFret()));
    if ((*staff)->partialCapoFret() != 0) {
        // Strings are numbered from the highest on.
        const std::vector<bool> &flags = (*staff)->partialCapoStringFlags();
        std::string strings;
        for (std::size_t i = flags.size(); i-- > 0;)
            if (flags[i])
                strings += (strings.empty() ? "" : " ") + std::to_string(flags.size() - i);
        append(text,
               (text.empty() ? "Capo " : "capo ") + std::to_string((*staff)->partialCapoFret())
                   + " on strings " + strings);
    }
    return text;
}

} // namespace zarn::engraving
