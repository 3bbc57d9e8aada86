// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/TuningStore.h>

namespace zarn {

void TuningStore::add(const TuningPointer &tuning)
{
    auto &strings = _tunings[tuning->stringCount()];
    // New tunings have the highest ids.
    strings.insert_or_assign(strings.end(), tuning->id(), tuning);
}

bool TuningStore::erase(unsigned id)
{
    for (auto strings = _tunings.begin(); strings != _tunings.end(); ++strings) {
        if (strings->second.erase(id) == 0)
            continue;
        if (strings->second.empty())
            _tunings.erase(strings);
        return true;
    }
    return false;
}

TuningStore::TuningPointer TuningStore::find(unsigned id) const
{
    for (const auto &strings : _tunings)
        if (const auto found = strings.second.find(id); found != strings.second.end())
            return found->second;
    return nullptr;
}

TuningStore::TuningPointer TuningStore::find(unsigned id, unsigned stringCount) const
{
    const auto strings = _tunings.find(stringCount);
    if (strings == _tunings.end())
        return nullptr;
    const auto found = strings->second.find(id);
    return found != strings->second.end() ? found->second : nullptr;
}

} // namespace zarn
