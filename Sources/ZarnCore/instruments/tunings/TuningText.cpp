// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/TuningText.h>

#include <iomanip>
#include <istream>
#include <ostream>
#include <string>

namespace zarn {

void writeTuning(std::ostream &stream, const TuningData &data)
{
    std::string text = "tuning";
    for (const std::int64_t number :
         {std::int64_t{data.instrument}, std::int64_t{data.role}, std::int64_t{data.isFlat},
          std::int64_t{data.hasShortDroneString}, std::int64_t{data.isLabelVisible},
          std::int64_t{data.midiOffset}, std::int64_t{data.lowestMidi},
          std::int64_t{data.highestMidi}})
        text += " " + std::to_string(number);
    stream << text << ' ' << std::quoted(data.name) << ' ' << std::quoted(data.label);
    text = " " + std::to_string(data.midiNumbers.size());
    for (const int midi : data.midiNumbers)
        text += " " + std::to_string(midi);
    stream << text;
}

void readTuning(std::istream &stream, TuningData &data)
{
    std::string tag;
    std::uint32_t instrument = 0;
    std::uint32_t role = 0;
    const auto flags = stream.flags(std::ios_base::dec | std::ios_base::skipws);
    stream >> tag >> instrument >> role >> data.isFlat >> data.hasShortDroneString
        >> data.isLabelVisible >> data.midiOffset >> data.lowestMidi >> data.highestMidi
        >> std::quoted(data.name) >> std::quoted(data.label);
    std::size_t stringCount = 0;
    stream >> stringCount;
    // The count is only believed as far as numbers follow.
    for (int midi = 0; data.midiNumbers.size() < stringCount && stream >> midi;)
        data.midiNumbers.push_back(midi);
    stream.flags(flags);
    const bool isKnown = tag == "tuning" && instrument <= GuitarTuning::Contrabass
        && (role == GuitarTuning::NoRole || role == GuitarTuning::CoreRole
            || role == GuitarTuning::UserRole);
    if (!isKnown)
        stream.setstate(std::ios_base::failbit);
    data.instrument = static_cast<GuitarTuning::Instrument>(instrument);
    data.role = static_cast<GuitarTuning::Role>(role);
}

} // namespace zarn
