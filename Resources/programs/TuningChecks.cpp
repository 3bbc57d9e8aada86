// SPDX-License-Identifier: MIT
#include "CatalogueReading.h"

#include <ZarnCore/instruments/sets/InstrumentTypeTable.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <map>
#include <tuple>

namespace zarn::resources {

namespace {

constexpr unsigned mostStrings = 12;

/// One tuning beside the others of the catalogue.
class TuningCheck {
public:
    explicit TuningCheck(Complaints &complaints) : _complaints(complaints) { }

    void check(const rapidjson::Value &value, const std::string &place)
    {
        _place = place;
        allowOnly(value, {"name", "instrument", "midiNumbers", "offset", "shortDrone"}, place,
                  _complaints);
        GuitarTuning tuning;
        tuning.parse(value);
        complainIf(tuning.name().empty(), "it has no name");
        complainIf(tuning.instrument() == GuitarTuning::Undefined,
                   std::string("there is no instrument \"") + value["instrument"].GetString()
                       + "\"");
        complainIf(tuning.stringCount() == 0 || tuning.stringCount() > mostStrings,
                   "it has " + std::to_string(tuning.stringCount()) + " strings");
        for (unsigned string = 0; string < tuning.stringCount(); ++string)
            complainIf(value["midiNumbers"][string] != tuning.tuning(string),
                       "string " + std::to_string(string) + " is out of the range of pitches");
        complainIf(tuning.hasShortDroneString() && tuning.instrument() != GuitarTuning::Banjo,
                   "only a banjo has a short drone string");
        checkOffset(tuning);
        complainIfTwice(_names, {tuning.instrument(), tuning.stringCount(), tuning.name()},
                        "has the same name");
        complainIfTwice(_pitches,
                        {tuning.instrument(), tuning.hasShortDroneString(), tuning.midiNumbers()},
                        "has the same strings");
    }

private:
    /// A tuning with an offset says by how much it lies below the reference with its intervals.
    void checkOffset(const GuitarTuning &tuning)
    {
        const int stored = tuning.storedMidiOffset();
        const int computed = tuning.midiOffset();
        complainIf(stored != 0 && computed != 0 && stored != computed,
                   "its offset is " + std::to_string(stored) + ", by its strings "
                       + std::to_string(computed));
    }

    void complainIf(bool isWrong, const std::string &reason)
    {
        if (isWrong)
            _complaints.push_back(_place + ": " + reason);
    }

    template <class Map>
    void complainIfTwice(Map &map, typename Map::key_type key, const std::string &reason)
    {
        const auto [other, isNew] = map.emplace(std::move(key), _place);
        complainIf(!isNew, other->second + " " + reason);
    }

    Complaints &_complaints;
    std::string _place;
    std::map<std::tuple<unsigned, unsigned, std::string>, std::string> _names;
    std::map<std::tuple<unsigned, bool, std::vector<int>>, std::string> _pitches;
};

/// What a new track is tuned to is the first that is offered for its instrument.
void checkDefaults(const GuitarTuningLibrary &library, Complaints &complaints)
{
    for (const auto &row : detail::instrumentSetTypes) {
        const Track track(static_cast<InstrumentSet::Type>(row.code));
        const GuitarTuning usual = track.staff(0)->tuning();
        if (usual.stringCount() == 0)
            continue;
        const auto first =
            library.defaultTuning(usual.instrument(), usual.stringCount(), GuitarTuning::CoreRole);
        if (!first || first->midiNumbers() != usual.midiNumbers())
            complaints.push_back(
                "tunings: the first one of " + std::to_string(usual.stringCount())
                + " strings for \"" + GuitarTuning::instrumentToString(usual.instrument())
                + "\" is not that of a new \"" + std::string(row.text) + "\" track");
    }
}

} // namespace

Complaints checkTunings(const CatalogueFile &file)
{
    Complaints complaints;
    readCatalogue(file, complaints, [&](const rapidjson::Document &document) {
        const rapidjson::Value &tunings = arrayOf(document, "tunings");
        GuitarTuningLibrary library;
        library.parse(tunings);
        TuningCheck check(complaints);
        for (rapidjson::SizeType i = 0; i < tunings.Size(); ++i)
            check.check(tunings[i], "tunings[" + std::to_string(i) + "]");
        checkDefaults(library, complaints);
    });
    return complaints;
}

} // namespace zarn::resources
