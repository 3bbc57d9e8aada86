// SPDX-License-Identifier: MIT
#pragma once

#include "Scores.h"

#include <ZarnCore/io/ZarnNoteList.h>

#include <string>

/// Small documents, written where they are tested.
namespace musicxml {

/// A pitched note; `type` may bring dots and what follows a type in a <note>.
inline std::string note(const char *step, int octave, int duration, const std::string &type = {},
                        const std::string &before = {}, const std::string &voice = "1",
                        int staff = 1)
{
    return "<note>" + before + "<pitch><step>" + step + "</step><octave>" + std::to_string(octave)
        + "</octave></pitch>"
        + (duration > 0 ? "<duration>" + std::to_string(duration) + "</duration>" : "") + "<voice>"
        + voice + "</voice>" + (type.empty() ? "" : "<type>" + type + "</type>") + "<staff>"
        + std::to_string(staff) + "</staff></note>";
}

inline std::string backup(int duration)
{
    return "<backup><duration>" + std::to_string(duration) + "</duration></backup>";
}

inline std::string forward(int duration)
{
    return "<forward><duration>" + std::to_string(duration) + "</duration></forward>";
}

inline std::string attributes(const std::string &content)
{
    return "<attributes>" + content + "</attributes>\n";
}

inline std::string measure(const std::string &content, const std::string &more = {})
{
    return "<measure number=\"1\"" + more + ">\n" + content + "\n</measure>\n";
}

/// A document of one part.
inline std::string score(const std::string &measures, const std::string &listed = {})
{
    return "<?xml version=\"1.0\"?>\n<score-partwise version=\"4.0\"><part-list><score-part "
           "id=\"P1\"><part-name>Music</part-name>"
        + listed + "</score-part></part-list>\n<part id=\"P1\">\n" + measures
        + "</part></score-partwise>";
}

inline std::shared_ptr<zarn::ScoreModel> import(const std::string &text,
                                                zarn::io::ImportReport &report)
{
    return scores::import(QByteArray::fromStdString(text), report);
}

/// The notes as "onset:length:spelling", with spaces between them.
inline std::string notesOf(const zarn::ScoreModel &model)
{
    std::string text;
    for (const auto &note : zarn::io::listNotes(model))
        text += (text.empty() ? "" : " ") + note.onset.toString() + ":" + note.length.toString()
            + ":" + note.spelling;
    return text;
}

} // namespace musicxml
