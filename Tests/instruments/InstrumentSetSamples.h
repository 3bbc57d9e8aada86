// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <rapidjson/document.h>

#include <string>

namespace sample {

/// The text of an articulation of a document.
inline std::string articulation(const std::string &name, int line, const std::string &inputs,
                                int output, const std::string &heads = "\"noteheadXBlack\"",
                                const std::string &sound = "a.b.c")
{
    return R"({"name": ")" + name + R"(", "musicalNotation": {"staffLine": )" + std::to_string(line)
        + R"(, "noteheads": [)" + heads
        + R"(], "techniqueSymbol": "pictOpen", "techniquePlacement": "above"}, "inputs": )"
        + R"({"midiNumbers": [)" + inputs + R"(]}, "outputs": {"midiNumber": )"
        + std::to_string(output) + R"(, "orkaSound": ")" + sound + R"("}})";
}

/// The text of a small kit: kick (1), snare (5), hi-hat (9 and, with the foot, -1).
inline std::string kit()
{
    return R"({"name": "Kit", "lineCount": 5, "type": "drumKit", "elements": [)"
           R"({"name": "Kick", "type": "kickDrum", "articulations": [)"
        + articulation("Kick (hit)", 1, "36, 35", 36, "")
        + R"(]}, {"name": "Snare", "orkaSoundBank": "Master-Snare", "type": "snare", )"
          R"("articulations": [)"
        + articulation("Snare (hit)", 5, "38", 38, "\"noteheadBlack\"") + ", "
        + articulation("Snare (rim shot)", 5, "40", 38)
        + R"(]}, {"name": "Charley", "type": "hiHat", "articulations": [)"
        + articulation("Hi-hat (closed)", 9, "42", 42) + ", "
        + articulation("Hi-hat (open)", 9, "46", 46, "\"noteheadCircleX\"") + ", "
        + articulation("Hi-hat (foot)", -1, "44", 44) + "]}]}";
}

inline rapidjson::Document document(const std::string &text)
{
    rapidjson::Document parsed;
    parsed.Parse(text.c_str());
    return parsed;
}

inline zarn::InstrumentSet instrumentSet(const std::string &text = kit())
{
    zarn::InstrumentSet set;
    set.parse(document(text));
    return set;
}

} // namespace sample
